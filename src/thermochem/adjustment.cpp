#include "thermochem/adjustment.h"

#include "thermochem/basis.h"
#include "thermochem/species_thermo.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double Settled = 8e-5, Smallest = 1e-30;
constexpr double LeastPivot = 0.005; // a smaller coefficient is rounding, no part in the reaction

double MolesInBasis(const Solver &s, int e) { return std::max(s.Moles[s.BasisList[e]], Smallest); }

// Takes the step: the basis gives up its part, and the smallest basis species now below the new one leaves.
void MoveBasis(Solver &s, double temperature, int i, double delta) {
  const double threshold = 0.99 * s.Moles[i];
  double least = 0, gas = i <= s.GasCount ? delta : 0;
  int leaving = 0;
  for (int e = 1; e <= s.ElementCount; ++e) {
    const double c = s.ReactionMatrix[i][e];
    if (c == 0) continue;
    double &moles = s.Moles[s.BasisList[e]];
    moles = moles - c * delta;
    s.LogBasisOld[e] = true;
    if (s.BasisList[e] <= s.GasCount) gas -= c * delta;
    if (moles < threshold && std::abs(c) > LeastPivot && (leaving == 0 || moles <= least)) {
      least = moles;
      leaving = e;
    }
  }
  if (gas != 0) {
    const double part = gas / s.PassGas;
    s.PassGas = std::max(s.PassGas + gas, Smallest);
    if (std::abs(part) < 1e-5)
      s.LogScale -= part;
    else
      s.LogScale = std::log(s.PassPressure / s.PassGas);
  }
  if (leaving == 0) return;
  SwapBasis(s, temperature, s.BasisList[leaving], i, leaving);
  s.LogBasisOld[leaving] = true;
}

// Q, and the gas of the basis that a step takes.
struct Activity {
  double LogProduct = 0, Gas = 0;
};

Activity BasisActivity(Solver &s, int i) {
  Activity a;
  for (int e = 1; e <= s.ElementCount; ++e) {
    const double v = s.ReactionMatrix[i][e];
    const int b = s.BasisList[e];
    if (v == 0 || b > s.GasCount) continue;
    a.Gas += v;
    if (s.LogBasisOld[e]) {
      s.LogBasis[e] = s.Moles[b] > 0 ? std::log(s.Moles[b]) : 0;
      s.LogBasisOld[e] = false;
    }
    a.LogProduct += v * s.LogBasis[e];
  }
  a.LogProduct += s.LogScale * a.Gas;
  return a;
}

// Whether the species rests without a closer look: settled, or at the floor and not wanted.
bool Rests(const Solver &s, int i, double affinity) {
  if (i > s.GasCount) return std::abs(affinity) < Settled || (affinity >= 0 && s.Moles[i] == s.MinMoles);
  return s.Moles[i] == s.MinMoles && s.Plenty && affinity + s.LogScale + s.LogFloor > 0;
}

void Adjust(Solver &s, double temperature, double relaxation, int i) {
  double delta = 0, stiffness = 0, keep = relaxation;
  const double moles = s.Moles[i];
  const Activity activity = BasisActivity(s, i);
  double affinity = s.LogK[i] - activity.LogProduct;
  s.SpeciesStatus[i] = UnderAdjustment;
  if (Rests(s, i, affinity)) return;
  Limits limits = ReactionLimits(s, i);
  const auto bounded = [&] {
    delta = std::min(std::max(delta, limits.Lower * relaxation), limits.Upper * relaxation);
    if (s.Plenty && i <= s.GasCount && delta < 0) delta = std::max(delta, s.MinMoles - moles);
    if (std::abs(delta) >= 0.0001 * moles && moles + delta > s.MinMoles) s.Moved = true;
    s.Moles[i] = s.Plenty && delta == s.MinMoles - moles ? s.MinMoles : moles + delta;
    if (std::abs(s.Moles[i]) < Smallest) s.Moles[i] = Smallest; // no denormal numbers
    MoveBasis(s, temperature, i, delta);
  };
  if (moles < 0) {
    delta = -1.001 * moles + s.MinMoles;
    return bounded();
  }
  if (i > s.GasCount) {
    if (affinity >= 0 && moles <= std::min(1e-7 * s.TotalWeight, 0.01 * limits.Upper)) {
      delta = s.MinMoles - moles;
      return bounded();
    }
  } else {
    double target = s.MinMoles, floor = s.MinMoles;
    bool direct = moles == 0;
    if (!direct && affinity + s.LogScale < 5) {
      target = std::exp(std::max(-affinity - s.LogScale, -100.0));
      const double room = std::max(std::min(-limits.Lower, limits.Upper), s.MinMoles);
      if (moles / room < 0.01) limits.Upper = 0.011 * room;
      if (room < 100 * s.MinMoles)
        floor = Smallest; // nothing can be given of a basis species that is a trace
      direct = (moles + target) / room <= 0.01 && moles + target <= 0.01 * s.PassGas;
    }
    if (direct) {
      target = std::max(target, floor);
      if (std::abs(1 - moles / target) < 0.0008) return;
      s.SpeciesStatus[i] = SetDirectly;
      s.Moles[i] = target;
      return MoveBasis(s, temperature, i, target - moles);
    }
    affinity += std::log(moles) + s.LogScale;
    if (std::abs(affinity) <= Settled) return;
    stiffness = 1 / moles;
  }
  for (int e = 1; e <= s.ElementCount; ++e) {
    const double v = limits.Coefficient[e];
    if (v != 0) stiffness += v * v / MolesInBasis(s, e);
  }
  // The gas total moves with the step too; what is left is never below zero but for rounding.
  const double grown = (i <= s.GasCount ? 1 : 0) - activity.Gas;
  stiffness = std::max(stiffness - grown * grown / s.PassGas, 1e-3 * stiffness);
  if (stiffness == 0) {
    stiffness = 1e-7;
    keep = 0.999999;
  }
  delta = std::max(-affinity / stiffness, -keep * moles);
  s.SpeciesStatus[i] = OutOfBasis;
  bounded();
}

} // namespace

Limits ReactionLimits(const Solver &s, int species) {
  Limits limits;
  for (int e = 1; e <= s.ElementCount; ++e) {
    const double c = s.ReactionMatrix[species][e];
    if (c == 0) continue;
    const int b = s.BasisList[e];
    const double extent = s.Moles[b] / c;
    if (c > 0)
      limits.Upper = std::min(limits.Upper, extent);
    else
      limits.Lower = std::max(limits.Lower, extent);
    if (b <= s.GasCount) limits.Coefficient[e] = c;
  }
  return limits;
}

void AdjustmentPass(Solver &s, double temperature, double pressure) {
  const double relaxation = std::max(0.05, 0.5 - (s.Pass - 1) / 20.0);
  s.PassPressure = pressure;
  s.PassGas = 0;
  for (int i = 1; i <= s.GasCount; ++i) s.PassGas += s.Moles[i];
  s.PassGas = std::max(s.PassGas, Smallest);
  s.LogScale = std::log(pressure / s.PassGas);
  s.Moved = false;
  s.LogFloor = std::log(s.MinMoles);
  s.LogBasisOld.fill(true);
  s.Plenty = true;
  for (int e = 1; e <= s.ElementCount; ++e) s.Plenty = s.Plenty && s.Moles[s.BasisList[e]] > 1e4 * s.MinMoles;
  for (int k = 1; k <= s.SpeciesCount; ++k) {
    const int i = s.Order[k];
    if (s.SpeciesStatus[i] != InBasis) Adjust(s, temperature, relaxation, i);
  }
}

bool FirstGuess(Solver &s, double temperature) {
  for (int i = 1; i <= s.SpeciesCount; ++i) {
    s.Moles[i] = 0;
    s.Key[i] = 10;
    for (int e = 1; e <= s.ElementCount; ++e) s.Key[i] -= std::sqrt(std::abs(s.AtomMatrix[i][e]));
  }
  s.BasisStale = true;
  SpeciesThermo(s, temperature);
  if (!PickBasis(s)) return false;
  FormReactions(s, temperature, true);
  for (int i = 1; i <= s.SpeciesCount; ++i) s.Key[i] = -s.LogK[i];
  SortByKey(s);
  for (int k = 1; k <= s.SpeciesCount; ++k) {
    const int i = s.Order[k];
    if (s.SpeciesStatus[i] == InBasis || Excluded(s, i)) continue;
    const double half = ReactionLimits(s, i).Upper / 2;
    s.Moles[i] = s.Moles[i] + half;
    for (int e = 1; e <= s.ElementCount; ++e) {
      double &moles = s.Moles[s.BasisList[e]];
      moles = moles - s.ReactionMatrix[i][e] * half;
    }
  }
  s.BasisStale = true;
  s.Moved = false;
  for (int i = 1; i <= s.SpeciesCount; ++i) s.Key[i] = s.Moles[i];
  return true;
}
