#include "thermochem/species_thermo.h"

#include <cmath>

namespace {

constexpr double Reference = 298.16;

// What all species of a temperature share.
struct Powers {
  double X, LogX, InverseSquare;
};

Powers PowersAt(double temperature) {
  const double x = temperature / 1000;
  return {x, std::log(x), 1 / (x * x)};
}

SpeciesValues Polynomials(const std::array<float, 8> &c, const Powers &p) {
  const double x = p.X;
  SpeciesValues v;
  v.Cp = c[0] + x * (c[1] + x * (c[2] + x * c[3])) + c[4] * p.InverseSquare;
  v.H = 1000 * (c[5] + x * (c[0] + x * (c[1] / 2.0 + x * (c[2] / 3.0 + x * c[3] / 4.0))) - c[4] / x);
  v.S = c[6] + c[0] * p.LogX + x * (c[1] + x * (c[2] / 2.0 + x * c[3] / 3.0)) - c[4] / 2.0 * p.InverseSquare;
  return v;
}

SpeciesValues Values(const SpeciesTable &table, int s, double t, const Powers &p) {
  const double lo1 = table.Lo[s][0], hi1 = table.Hi[s][0], lo2 = table.Lo[s][1], hi2 = table.Hi[s][1];
  const bool first = lo1 <= t && t <= hi1, second = !first && lo2 < t && t <= hi2;
  SpeciesValues v;
  if (t < lo1 && lo1 > Reference) {
    // Only a frozen flow takes a phase below its beginning: the outer range would jump there by some kcal.
    v = Polynomials(table.C[s][0], PowersAt(lo1));
    v.H += v.Cp * (t - lo1);
    v.S += v.Cp * std::log(t / lo1);
    v.Outside = true;
    return v;
  }
  const bool useFirst = first || (!second && t <= Reference);
  if (std::abs(hi1 - lo2) <= 1 && hi1 - 10 <= t && t <= hi1 + 10 && t >= Reference) {
    const SpeciesValues a = Polynomials(table.C[s][0], p), b = Polynomials(table.C[s][1], p);
    const double f = (t - (hi1 - 10)) / 20;
    v = {f * b.Cp + (1 - f) * a.Cp, f * b.H + (1 - f) * a.H, f * b.S + (1 - f) * a.S};
  } else {
    v = Polynomials(table.C[s][useFirst ? 0 : 1], p);
  }
  if (t < Reference) {
    v.H += v.Cp * (t - Reference);
    v.S += v.Cp * std::log(t / Reference);
  }
  v.Outside = !first && !second;
  return v;
}

} // namespace

SpeciesValues ValuesAt(const SpeciesTable &table, int species, double temperature) {
  return Values(table, species, temperature, PowersAt(std::max(temperature, Reference)));
}

void SpeciesThermo(Solver &solver, double temperature) {
  if (solver.ThermoAt == temperature) return;
  const Powers powers = PowersAt(std::max(temperature, Reference));
  for (int s = 1; s <= solver.SpeciesCount; ++s) {
    const SpeciesValues v = Values(*solver.Species, s, temperature, powers);
    solver.CpTerm[s] = static_cast<float>(v.Cp);
    solver.HTerm[s] = static_cast<float>(v.H);
    solver.STerm[s] = static_cast<float>(v.S);
    solver.GibbsTerm[s] = static_cast<float>(v.H - temperature * v.S + (v.Outside ? RangePenalty : 0));
  }
  solver.ThermoAt = temperature;
}
