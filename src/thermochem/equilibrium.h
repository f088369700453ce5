#pragma once
#include "thermochem/solver.h"

enum class Composition { Frozen, Equilibrium };

// Cp, GasMoles, Enthalpy, Entropy from the moles and the terms at hand; LogScale is ln(P/N).
void PropertySums(Solver &);

// The moles of all species at a temperature in kelvin and a pressure in atmospheres; returns the enthalpy in
// calories. Frozen keeps the moles. LogScale is P/N on leaving. BasisStale stays set when the passes did not
// settle.
double EquilibriumAtTP(Solver &, double temperature, double pressure, Composition);

// How far the moles are from equilibrium: the largest fault of a formation reaction's potential in units of
// RT, over species that are there or ought to be. Calls for ln(P/N) in LogScale.
double PotentialFault(const Solver &);
