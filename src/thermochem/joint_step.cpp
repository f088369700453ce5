#include "thermochem/joint_step.h"

#include "thermochem/adjustment.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int MostReactions = 40;
constexpr double Weighty = 1e-6; // mol per gram of the mix
constexpr double Growth = 3;     // of a mole number in one step, at most

struct Reactions {
  int Count = 0;
  double GasTotal = 0;
  std::array<int, MostReactions> Species;
  std::array<double, MostReactions> Affinity, Gas, Step;
  std::array<Limits, MostReactions> Held;
  std::array<std::array<double, MostReactions>, MostReactions> Matrix;
};

double BasisMole(const Solver &s, int e) { return std::max(s.Moles[s.BasisList[e]], 1e-30); }

void Collect(const Solver &s, Reactions &r) {
  for (int i = 1; i <= s.GasCount; ++i) r.GasTotal += s.Moles[i];
  for (int i = 1; i <= s.SpeciesCount && r.Count < MostReactions; ++i) {
    if (s.SpeciesStatus[i] == InBasis || Excluded(s, i) || s.Moles[i] < Weighty * s.TotalWeight) continue;
    const int k = r.Count;
    r.Held[k] = ReactionLimits(s, i);
    r.Affinity[k] = s.LogK[i];
    r.Gas[k] = i <= s.GasCount ? 1 : 0;
    double stiffness = i <= s.GasCount ? 1 / s.Moles[i] : 0;
    for (int e = 1; e <= s.ElementCount; ++e) {
      const double v = r.Held[k].Coefficient[e];
      if (v == 0) continue;
      r.Gas[k] -= v;
      r.Affinity[k] -= v * (std::log(BasisMole(s, e)) + s.LogScale);
      stiffness += v * v / BasisMole(s, e);
    }
    if (i <= s.GasCount) r.Affinity[k] += std::log(s.Moles[i]) + s.LogScale;
    if (stiffness == 0) continue; // between condensed species alone there is no balance to step to
    r.Species[k] = i;
    ++r.Count;
  }
}

// Cholesky in place; false when the matrix is not positive definite.
bool Factor(Reactions &r) {
  for (int a = 0; a < r.Count; ++a)
    for (int b = 0; b <= a; ++b) {
      double sum = r.Matrix[a][b];
      for (int c = 0; c < b; ++c) sum -= r.Matrix[a][c] * r.Matrix[b][c];
      if (a != b)
        r.Matrix[a][b] = sum / r.Matrix[b][b];
      else if (sum <= 0)
        return false;
      else
        r.Matrix[a][a] = std::sqrt(sum);
    }
  return true;
}

bool SolveSteps(const Solver &s, Reactions &r) {
  for (int a = 0; a < r.Count; ++a)
    for (int b = 0; b <= a; ++b) {
      double h = -r.Gas[a] * r.Gas[b] / r.GasTotal;
      for (int e = 1; e <= s.ElementCount; ++e) {
        const double v = r.Held[a].Coefficient[e] * r.Held[b].Coefficient[e];
        if (v != 0) h += v / BasisMole(s, e);
      }
      if (a == b) {
        const int i = r.Species[a];
        if (i <= s.GasCount) h += 1 / s.Moles[i];
        h *= 1 + 1e-9;
      }
      r.Matrix[a][b] = h;
    }
  if (!Factor(r)) return false;
  for (int a = 0; a < r.Count; ++a) {
    double sum = -r.Affinity[a];
    for (int b = 0; b < a; ++b) sum -= r.Matrix[a][b] * r.Step[b];
    r.Step[a] = sum / r.Matrix[a][a];
  }
  for (int a = r.Count - 1; a >= 0; --a) {
    double sum = r.Step[a];
    for (int b = a + 1; b < r.Count; ++b) sum -= r.Matrix[b][a] * r.Step[b];
    r.Step[a] = sum / r.Matrix[a][a];
  }
  return true;
}

} // namespace

bool JointStep(Solver &s) {
  Reactions r;
  Collect(s, r);
  if (r.Count < 2 || r.GasTotal <= 0 || !SolveSteps(s, r)) return false;
  std::array<double, MaxElements + 1> basis{};
  double part = 1;
  const auto shorten = [&](double moles, double step) {
    if (step < 0)
      part = std::min(part, 0.95 * moles / -step);
    else
      part = std::min(part, (Growth * moles + Weighty * s.TotalWeight) / step);
  };
  for (int k = 0; k < r.Count; ++k) {
    shorten(s.Moles[r.Species[k]], r.Step[k]);
    for (int e = 1; e <= s.ElementCount; ++e) basis[e] -= s.ReactionMatrix[r.Species[k]][e] * r.Step[k];
  }
  for (int e = 1; e <= s.ElementCount; ++e) shorten(BasisMole(s, e), basis[e]);
  if (!(part > 1e-4)) return false;
  for (int k = 0; k < r.Count; ++k) s.Moles[r.Species[k]] = s.Moles[r.Species[k]] + part * r.Step[k];
  for (int e = 1; e <= s.ElementCount; ++e) {
    double &moles = s.Moles[s.BasisList[e]];
    moles = moles + part * basis[e];
  }
  return true;
}
