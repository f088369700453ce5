#include "thermochem/basis.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

using Row = std::array<double, MaxElements + 1>;
using Square = std::array<Row, MaxElements + 1>;

struct Orthogonal {
  Square Reduced{}, Companion{};
  Row Norm{};
};

double Dot(const Row &a, const Row &b, int n) {
  double sum = 0;
  for (int k = 1; k <= n; ++k) sum += a[k] * b[k];
  return sum;
}

// Gram-Schmidt on row e, which stands in Reduced; false when it depends on the rows before it.
bool OrthoRow(Orthogonal &o, int e, int n) {
  o.Companion[e].fill(0);
  o.Companion[e][e] = 1;
  for (int r = 1; r < e; ++r) {
    const double dot = Dot(o.Reduced[r], o.Reduced[e], n);
    if (dot == 0) continue;
    const double factor = dot / o.Norm[r];
    double size = 0;
    for (int k = 1; k <= n; ++k) {
      o.Reduced[e][k] -= factor * o.Reduced[r][k];
      o.Companion[e][k] -= factor * o.Companion[r][k];
      size += std::abs(o.Reduced[e][k]);
    }
    if (size < 0.1) return false;
  }
  o.Norm[e] = Dot(o.Reduced[e], o.Reduced[e], n);
  return o.Norm[e] > 0;
}

Square Inverse(const Orthogonal &o, int n) {
  Square inverse{};
  for (int k = 1; k <= n; ++k)
    for (int e = 1; e <= n; ++e)
      for (int r = 1; r <= n; ++r) inverse[k][e] += o.Reduced[r][k] * o.Companion[r][e] / o.Norm[r];
  return inverse;
}

Row Lacking(const Solver &s) {
  Row lack = s.ElementTotal;
  for (int i = 1; i <= s.SpeciesCount; ++i)
    for (int e = 1; e <= s.ElementCount; ++e) lack[e] -= double{s.AtomMatrix[i][e]} * s.Moles[i];
  return lack;
}

void FormLogK(Solver &s, double temperature) {
  for (int i = 1; i <= s.SpeciesCount; ++i) {
    double sum = s.GibbsTerm[i];
    for (int e = 1; e <= s.ElementCount; ++e)
      if (s.ReactionMatrix[i][e] != 0) sum -= s.ReactionMatrix[i][e] * s.GibbsTerm[s.BasisList[e]];
    s.LogK[i] = sum / (GasCalories * temperature);
  }
}

} // namespace

void SortByKey(Solver &s) {
  const auto first = s.Order.begin() + 1, last = first + s.SpeciesCount;
  std::iota(first, last, 1);
  std::sort(first, last, [&](int a, int b) { return s.Key[a] != s.Key[b] ? s.Key[a] > s.Key[b] : a < b; });
}

bool PickBasis(Solver &s) {
  if (!s.BasisStale) return true;
  SortByKey(s);
  const int n = s.ElementCount;
  std::fill_n(s.SpeciesStatus.begin() + 1, s.SpeciesCount, OutOfBasis);
  Orthogonal o;
  int next = 1;
  for (int e = 1; e <= n; ++e) {
    for (;; ++next) {
      if (next > s.SpeciesCount) return false;
      for (int k = 1; k <= n; ++k) o.Reduced[e][k] = s.AtomMatrix[s.Order[next]][k];
      if (OrthoRow(o, e, n)) break;
    }
    s.BasisList[e] = s.Order[next++];
    s.SpeciesStatus[s.BasisList[e]] = InBasis;
  }
  s.BasisMatrix = Inverse(o, n);
  BasisMoles(s);
  return true;
}

void BasisMoles(Solver &s) {
  const Row lack = Lacking(s);
  for (int e = 1; e <= s.ElementCount; ++e) {
    double y = 0;
    for (int k = 1; k <= s.ElementCount; ++k) y += lack[k] * s.BasisMatrix[k][e];
    double &moles = s.Moles[s.BasisList[e]];
    moles = moles + y;
  }
}

void FormReactions(Solver &s, double temperature, bool matrixToo) {
  if (matrixToo)
    for (int i = 1; i <= s.SpeciesCount; ++i)
      for (int e = 1; e <= s.ElementCount; ++e) {
        double sum = 0;
        for (int k = 1; k <= s.ElementCount; ++k) sum += s.BasisMatrix[k][e] * s.AtomMatrix[i][k];
        s.ReactionMatrix[i][e] = std::abs(sum) < 0.0051 ? 0 : sum;
      }
  FormLogK(s, temperature);
}

void SwapBasis(Solver &s, double temperature, int b, int i, int e) {
  const Row pivot = s.ReactionMatrix[i];
  for (int j = 1; j <= s.SpeciesCount; ++j) {
    Row &row = s.ReactionMatrix[j];
    if (j == i || std::abs(row[e]) < 0.0001) continue;
    const double factor = -row[e] / pivot[e];
    for (int k = 1; k <= s.ElementCount; ++k) {
      row[k] = k == e ? -factor : row[k] + factor * pivot[k];
      if (std::abs(row[k]) < 1e-5) row[k] = 0;
    }
  }
  s.ReactionMatrix[i].fill(0);
  s.ReactionMatrix[i][e] = 1;
  s.BasisList[e] = i;
  s.SpeciesStatus[i] = InBasis;
  s.SpeciesStatus[b] = OutOfBasis;
  FormReactions(s, temperature, false);
}

void PurgeBasis(Solver &s) {
  if (s.GasCount == s.SpeciesCount) return;
  for (int e = 1; e <= s.ElementCount; ++e) {
    const int old = s.BasisList[e];
    if (old == 0 || !Excluded(s, old)) continue;
    for (int i = s.GasCount + 1; i <= s.SpeciesCount; ++i) {
      if (i == old || s.ReactionMatrix[i][e] == 0 || Excluded(s, i)) continue;
      bool alone = true;
      for (int k = 1; k <= s.ElementCount; ++k) alone = alone && (k == e || s.ReactionMatrix[i][k] == 0);
      if (!alone) continue;
      std::swap(s.Moles[i], s.Moles[old]);
      s.BasisList[e] = i;
      s.SpeciesStatus[i] = InBasis;
      s.SpeciesStatus[old] = OutOfBasis;
      const double factor = s.ReactionMatrix[i][e];
      if (factor != 1)
        for (int j = 1; j <= s.SpeciesCount; ++j) s.ReactionMatrix[j][e] /= factor;
      break;
    }
  }
}

bool CloseElements(Solver &s) {
  const int n = s.ElementCount;
  Row lack = Lacking(s);
  Square a{}; // column e: the atoms of basis species e
  for (int k = 1; k <= n; ++k)
    for (int e = 1; e <= n; ++e) a[k][e] = s.AtomMatrix[s.BasisList[e]][k];
  for (int c = 1; c <= n; ++c) {
    int best = c;
    for (int r = c + 1; r <= n; ++r)
      if (std::abs(a[r][c]) > std::abs(a[best][c])) best = r;
    if (std::abs(a[best][c]) < 1e-6) return false;
    std::swap(a[c], a[best]);
    std::swap(lack[c], lack[best]);
    for (int r = 1; r <= n; ++r) {
      const double factor = a[r][c] / a[c][c];
      if (r == c || factor == 0) continue;
      for (int k = c; k <= n; ++k) a[r][k] -= factor * a[c][k];
      lack[r] -= factor * lack[c];
    }
  }
  for (int e = 1; e <= n; ++e) {
    double &moles = s.Moles[s.BasisList[e]];
    // The rounding of a large mole number must not wipe out a trace.
    moles = std::max(moles + lack[e] / a[e][e], moles / 2);
  }
  return true;
}

double ElementFault(const Solver &s) {
  double worst = 0;
  for (int e = 1; e <= s.ElementCount; ++e) {
    double sum = 0, largest = 0;
    for (int i = 1; i <= s.SpeciesCount; ++i) {
      const double term = double{s.AtomMatrix[i][e]} * s.Moles[i];
      sum += term;
      largest = std::max(largest, term);
    }
    const double fault = std::abs(sum - s.ElementTotal[e]) / std::max(largest, 1e-30);
    if (!(fault <= worst)) worst = fault; // keeps what is no number
  }
  return worst;
}
