#include "thermochem/equilibrium.h"

#include "thermochem/adjustment.h"
#include "thermochem/basis.h"
#include "thermochem/species_thermo.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int Passes = 20;
constexpr double ElementLimit = 1e-5;

// True: a pass moved nothing.
bool RunPasses(Solver &s, double temperature, double pressure) {
  for (s.Pass = 1; s.Pass <= Passes; ++s.Pass) {
    AdjustmentPass(s, temperature, pressure);
    if (!s.Moved) return true;
    for (int k = 1; k <= s.SpeciesCount; ++k) {
      AdjustmentPass(s, temperature, pressure);
      if (!s.Moved) break;
    }
  }
  return false;
}

double GasTotal(const Solver &s) {
  double gas = 0;
  for (int i = 1; i <= s.GasCount; ++i) gas += s.Moles[i];
  return std::max(gas, 1e-35);
}

} // namespace

void PropertySums(Solver &s) {
  double cp = 0, h = 0, entropy = 0, gas = 0, mixing = 0;
  for (int i = 1; i <= s.SpeciesCount; ++i) {
    const double n = s.Moles[i];
    cp += s.CpTerm[i] * n;
    h += s.HTerm[i] * n;
    entropy += s.STerm[i] * n;
    if (i > s.GasCount) continue;
    gas += n;
    if (n > 0) mixing += n * std::log(n);
  }
  s.Cp = cp;
  s.Enthalpy = h;
  s.GasMoles = gas;
  s.Entropy = entropy - GasCalories * (gas * s.LogScale + mixing);
}

double EquilibriumAtTP(Solver &s, double temperature, double pressure, Composition mode) {
  SpeciesThermo(s, temperature);
  if (mode == Composition::Equilibrium) {
    PurgeBasis(s);
    if (ElementFault(s) >= ElementLimit) s.BasisStale = true;
    const bool fresh = s.BasisStale;
    if (fresh)
      for (int i = 1; i <= s.SpeciesCount; ++i) s.Key[i] = s.Moles[i];
    PickBasis(s);
    FormReactions(s, temperature, fresh);
    s.BasisStale = false;
    for (int i = 1; i <= s.SpeciesCount; ++i) s.Key[i] = 50 - s.LogK[i];
    SortByKey(s);
    if (!RunPasses(s, temperature, pressure)) s.BasisStale = true;
    CloseElements(s);
  }
  s.LogScale = std::log(pressure / GasTotal(s));
  PropertySums(s);
  s.LogScale = std::exp(s.LogScale);
  return s.Enthalpy;
}

double PotentialFault(const Solver &s) {
  double worst = 0;
  const auto activity = [&](int i) { return std::log(std::max<double>(s.Moles[i], 1e-35)) + s.LogScale; };
  for (int i = 1; i <= s.SpeciesCount; ++i) {
    if (s.SpeciesStatus[i] == InBasis || Excluded(s, i)) continue;
    double fault = s.LogK[i];
    for (int e = 1; e <= s.ElementCount; ++e)
      if (s.ReactionMatrix[i][e] != 0 && s.BasisList[e] <= s.GasCount)
        fault -= s.ReactionMatrix[i][e] * activity(s.BasisList[e]);
    if (i <= s.GasCount) fault += activity(i);
    if (s.Moles[i] <= 1.01 * s.MinMoles) fault = std::min(fault, 0.0); // the floor holds it up
    worst = std::max(worst, std::abs(fault));
  }
  return worst;
}
