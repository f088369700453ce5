#pragma once
#include "thermochem/solver.h"

// How far the formation of a species may go before a basis species is used up: a step d removes c d of each.
// Coefficient holds the reaction's with those of condensed basis species as 0.
struct Limits {
  double Lower = -1e15, Upper = 1e15;
  std::array<double, MaxElements + 1> Coefficient{};
};
Limits ReactionLimits(const Solver &, int species);

// One adjustment of the formation reaction of each species outside the basis in turn at a temperature in
// kelvin and a pressure in atmospheres; sets Moved when a species moved by more than a ten-thousandth. The
// basis follows the moles.
void AdjustmentPass(Solver &, double temperature, double pressure);

// Starting moles of a run: free atoms, half of each reaction taken in the order of stability. False: no
// basis.
bool FirstGuess(Solver &, double temperature);
