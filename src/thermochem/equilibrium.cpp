#include "thermochem/equilibrium.h"

#include "thermochem/adjustment.h"
#include "thermochem/basis.h"
#include "thermochem/joint_step.h"
#include "thermochem/species_thermo.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int Passes = 20, InnerPasses = 1200, InnerRound = 60; // fewer than 100 in all are usual
constexpr double Lost = 1e-3;                                   // of the element balance: begin anew
constexpr int JointFrom = 8, JointEvery = 4;
constexpr double ElementLimit = 1e-5, PotentialLimit = 9e-4; // of RT
constexpr double Trace = 1e-9;                 // mol per gram of the mix: below it a species may be absent
constexpr double NoGas = 1e-7, GasSeed = 1e-6; // mol per gram of the mix

double GasTotal(const Solver &s) {
  double gas = 0;
  for (int i = 1; i <= s.GasCount; ++i) gas += s.Moles[i];
  return std::max(gas, 1e-35);
}

// True: a pass moved nothing.
bool RunPasses(Solver &s, double temperature, double pressure) {
  int inner = 0;
  for (s.Pass = 1; s.Pass <= Passes && inner < InnerPasses; ++s.Pass) {
    AdjustmentPass(s, temperature, pressure);
    if (!s.Moved) return true;
    for (int k = 1; k <= std::min(s.SpeciesCount, InnerRound) && inner < InnerPasses; ++k, ++inner) {
      AdjustmentPass(s, temperature, pressure);
      if (!s.Moved) break;
      if (inner >= JointFrom && inner % JointEvery == 0) JointStep(s);
    }
  }
  return false;
}

// Whether gas would form where there is none: its partial pressures over condensed species alone add up to
// more than the pressure. With a gas in the basis the reactions of the condensed species find that out.
bool GasForms(const Solver &s, double pressure) {
  for (int e = 1; e <= s.ElementCount; ++e)
    if (s.BasisList[e] <= s.GasCount) return false;
  double sum = 0;
  for (int i = 1; i <= s.GasCount; ++i) sum += std::exp(std::min(-s.LogK[i], 50.0)) / pressure;
  return sum > 1;
}

// Changes below the floor do not count as moves, so a gas that vanished could not come back: it is tried once
// more from a seed, which shrinks again where there is none.
bool SeedGas(Solver &s, double temperature, double pressure) {
  const double gas = GasTotal(s);
  if (s.GasCount == 0 || gas > NoGas * s.TotalWeight || !GasForms(s, pressure)) return true;
  const auto before = s.Moles;
  const double factor = GasSeed * s.TotalWeight / gas;
  for (int i = 1; i <= s.GasCount; ++i) s.Moles[i] *= factor;
  CloseElements(s);
  const bool still = RunPasses(s, temperature, pressure);
  if (GasTotal(s) > NoGas * s.TotalWeight) return still;
  s.Moles = before;
  FormReactions(s, temperature, false);
  return true;
}

void Settle(Solver &s, double temperature, double pressure) {
  PurgeBasis(s);
  if (!(ElementFault(s) < ElementLimit)) s.BasisStale = true;
  const bool fresh = s.BasisStale;
  if (fresh)
    for (int i = 1; i <= s.SpeciesCount; ++i) s.Key[i] = s.Moles[i];
  PickBasis(s);
  FormReactions(s, temperature, fresh);
  for (int i = 1; i <= s.SpeciesCount; ++i) s.Key[i] = 50 - s.LogK[i];
  SortByKey(s);
  const bool still = RunPasses(s, temperature, pressure) && SeedGas(s, temperature, pressure);
  CloseElements(s);
  // In a flat valley the moles still creep where the potentials have long been balanced.
  s.BasisStale = !still && PotentialFault(s) > PotentialLimit;
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
    Settle(s, temperature, pressure);
    if (!(ElementFault(s) < Lost)) { // also where a number is none
      FirstGuess(s, temperature);
      Settle(s, temperature, pressure);
    }
  }
  s.LogScale = std::log(pressure / GasTotal(s));
  PropertySums(s);
  s.LogScale = std::exp(s.LogScale);
  return s.Enthalpy;
}

double PotentialFault(const Solver &s) {
  const double trace = Trace * s.TotalWeight;
  double worst = 0;
  const auto activity = [&](int i) { return std::log(std::max(s.Moles[i], 1e-30)) + s.LogScale; };
  for (int i = 1; i <= s.SpeciesCount; ++i) {
    if (s.SpeciesStatus[i] == InBasis || Excluded(s, i)) continue;
    double fault = s.LogK[i];
    for (int e = 1; e <= s.ElementCount; ++e)
      if (s.ReactionMatrix[i][e] != 0 && s.BasisList[e] <= s.GasCount)
        fault -= s.ReactionMatrix[i][e] * activity(s.BasisList[e]);
    if (i <= s.GasCount) fault += activity(i);
    if (s.Moles[i] < trace) {
      const bool wanted = i > s.GasCount || s.Moles[i] * std::exp(std::min(-fault, 50.0)) > trace;
      fault = wanted ? std::min(fault, 0.0) : 0;
    }
    worst = std::max(worst, std::abs(fault));
  }
  return worst;
}
