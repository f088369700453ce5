#pragma once
#include "thermochem/equilibrium.h"

inline constexpr double Coldest = 75, Hottest = 6000; // K, between which balances are sought

// The temperature of a balance in kelvin; the solver holds its moles, Enthalpy (cal) and Entropy (cal/K).
struct Balance {
  double Temperature = 0;
  bool Converged = false;
};

// The temperature at which the enthalpy at a pressure in atmospheres is `target` calories, from a first
// temperature on. At a phase plateau the moles are mixed from both sides of it.
Balance EnthalpyBalance(Solver &, double temperature, double pressure, double target);

// The same for an entropy in cal/K, at equilibrium or with the composition held.
Balance EntropyBalance(Solver &, double temperature, double pressure, double target, Composition);
