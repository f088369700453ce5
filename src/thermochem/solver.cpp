#include "thermochem/solver.h"

#include <algorithm>

void StartSolver(Solver &s, const ElementTable &elements, const SpeciesTable &species, double totalWeight) {
  s = {};
  s.Species = &species;
  s.ElementCount = elements.ElementCount;
  s.SpeciesCount = species.SpeciesCount;
  s.GasCount = species.GasCount;
  s.TotalWeight = totalWeight;
  s.AtomMatrix = species.AtomMatrix;
  for (int e = 1; e <= s.ElementCount; ++e) s.ElementTotal[e] = elements.ElementTotal[e];
}
