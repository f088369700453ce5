#pragma once
#include "thermochem/solver.h"

// cp, H, S in calories, moles, kelvin of one species by its fits: blended for 10 K around a join, constant cp
// below 298.16 K. `outside` tells that no range covers the temperature.
struct SpeciesValues {
  double Cp = 0, H = 0, S = 0;
  bool Outside = false;
};
SpeciesValues ValuesAt(const SpeciesTable &, int species, double temperature);

// CpTerm, HTerm, STerm, GibbsTerm of all species at a temperature in kelvin.
void SpeciesThermo(Solver &, double temperature);
