// Random mixes held against what equilibrium is: atoms kept, heat balanced, no species better off elsewhere.
#include "rounds.h"
#include "thermochem/adjustment.h"
#include "thermochem/basis.h"
#include "thermochem/composition.h"
#include "thermochem/equilibrium.h"
#include "thermochem/pep_mixes.h"
#include "thermochem/species_thermo.h"

#include <cmath>
#include <memory>
#include <random>

namespace {

// Element potentials from the weightiest independent species; the largest difference of any other, in RT.
// Those at a limit of their range stand on a plateau and are passed over.
double PotentialDifference(const PepOutcome &out, const PepPoint &p) {
  const SpeciesTable &table = out.Species;
  const int n = out.Elements.ElementCount, count = table.SpeciesCount;
  std::vector<double> potential(count + 1);
  std::vector<bool> passed(count + 1);
  std::vector<int> order;
  for (int i = 1; i <= count; ++i) {
    const SpeciesValues v = ValuesAt(table, i, p.Temperature);
    potential[i] = (v.H - p.Temperature * v.S) / (GasCalories * p.Temperature);
    if (i <= table.GasCount)
      potential[i] += std::log(std::max<double>(p.Moles[i], 1e-300) * p.Pressure / p.GasMoles);
    passed[i] = i > table.GasCount && v.Outside;
    for (const double limit : {table.Lo[i][0], table.Hi[i][0], table.Hi[i][1]})
      passed[i] = passed[i] || (i > table.GasCount && std::abs(p.Temperature - limit) < 2);
    order.push_back(i);
  }
  std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return p.Moles[a] > p.Moles[b]; });
  std::vector<std::vector<double>> row;
  std::vector<int> pivot;
  const double trace = 1e-7 * out.Propellant.TotalWeight;
  for (const int i : order) {
    std::vector<double> next(n + 1);
    for (int e = 0; e < n; ++e) next[e] = table.AtomMatrix[i][e + 1];
    next[n] = potential[i];
    for (std::size_t k = 0; k < row.size(); ++k)
      for (int e = n; e >= 0; --e) next[e] -= (e == pivot[k] ? 0 : next[pivot[k]]) * row[k][e];
    for (std::size_t k = 0; k < row.size(); ++k) next[pivot[k]] = 0;
    int best = 0;
    for (int e = 1; e < n; ++e)
      if (std::abs(next[e]) > std::abs(next[best])) best = e;
    if (std::abs(next[best]) < 1e-9) continue;
    if (p.Moles[i] < trace) return 0; // a trace alone holds an element's potential: nothing to compare
    const double size = next[best];
    for (double &x : next) x /= size;
    for (auto &r : row) {
      const double factor = r[best];
      for (int e = 0; e <= n; ++e) r[e] -= factor * next[e];
    }
    row.push_back(next);
    pivot.push_back(best);
    if (static_cast<int>(row.size()) == n) break;
  }
  double worst = 0;
  for (int i = 1; i <= count; ++i) {
    double difference = potential[i];
    for (std::size_t k = 0; k < row.size(); ++k) difference -= row[k][n] * table.AtomMatrix[i][pivot[k] + 1];
    const bool there = p.Moles[i] > trace;
    if (there && passed[i]) return 0;
    const bool wanted = i > table.GasCount || p.Moles[i] * std::exp(std::min(-difference, 50.0)) > trace;
    if (!there && (passed[i] || !wanted)) continue;
    worst = std::max(worst, there ? std::abs(difference) : -difference);
  }
  return worst;
}

double AtomFault(const PepOutcome &out, const PepPoint &p) {
  double worst = 0;
  for (int e = 1; e <= out.Elements.ElementCount; ++e) {
    double sum = 0;
    for (int i = 1; i <= out.Species.SpeciesCount; ++i)
      sum += double{out.Species.AtomMatrix[i][e]} * p.Moles[i];
    worst = std::max(worst, std::abs(sum / out.Elements.ElementTotal[e] - 1));
  }
  return worst;
}

double HeatFault(const PepOutcome &out, const PepPoint &p) { // kelvin
  double heat = 0;
  for (int i = 1; i <= out.Species.SpeciesCount; ++i)
    heat += p.Moles[i] * ValuesAt(out.Species, i, p.Temperature).H;
  return (heat - out.Propellant.Enthalpy) / p.Cp;
}

} // namespace

TEST(PepRandom, MixesReachTheLeastGibbsEnergy) {
  std::mt19937_64 stream(Seed());
  int unsettled = 0, bound = 0, runs = 0;
  for (int k = 0; k < 120 * Rounds(); ++k) {
    const PepInputs in = RandomMix(stream);
    const PepOutcome out = RunPep(in, ShippedFiles());
    if (!out.Done) {
      EXPECT_FALSE(out.Trouble.empty());
      continue;
    }
    ++runs;
    for (const PepCase &c : out.Case) {
      const PepPoint &chamber = c.Point[Shifting][Chamber];
      ASSERT_TRUE(std::isfinite(chamber.Temperature)) << k;
      if (!c.Converged) {
        ASSERT_FALSE(c.Notes.empty());
        ++(chamber.Temperature < 80 ? bound : unsettled);
        continue;
      }
      EXPECT_LT(AtomFault(out, chamber), 1e-6) << k;
      EXPECT_LT(std::abs(HeatFault(out, chamber)), 0.05) << k;
      for (const PepStation at : {Chamber, Exit1, Exit2}) {
        const PepPoint &point = c.Point[Shifting][at];
        if (point.Stands) {
          EXPECT_LT(PotentialDifference(out, point), 3e-3) << k;
        }
      }
    }
  }
  EXPECT_LE(unsettled + bound, 2 * runs * 2 / 100) << bound << " of them colder than any product";
}

TEST(PepRandom, ReactionsKeepAtomsThroughEverySwap) {
  std::mt19937_64 stream(Seed() + 1);
  for (int round = 0; round < 10; ++round) {
    IngredientTable ingredients;
    ElementTable elements;
    const auto table = std::make_unique<SpeciesTable>();
    std::vector<std::string> messages;
    std::string trouble;
    if (!ReadIngredients(RandomMix(stream), ShippedFiles(), ingredients, elements, messages, trouble))
      continue;
    const Mix mix = ComposeMix(ingredients, elements, 25);
    ASSERT_TRUE(LoadSpecies(ShippedFiles(), elements, *table, messages, trouble));
    const auto s = std::make_unique<Solver>();
    StartSolver(*s, elements, *table, mix.TotalWeight);
    s->MinMoles = mix.TotalWeight / 1e8;
    ASSERT_TRUE(FirstGuess(*s, 3000));
    for (double t = 3400; t > 400; t *= 0.85) {
      EquilibriumAtTP(*s, t, 20, Composition::Equilibrium);
      for (int i = 1; i <= s->SpeciesCount; ++i)
        for (int e = 1; e <= s->ElementCount; ++e) {
          double atoms = 0;
          for (int b = 1; b <= s->ElementCount; ++b)
            atoms += s->ReactionMatrix[i][b] * s->AtomMatrix[s->BasisList[b]][e];
          ASSERT_NEAR(atoms, s->AtomMatrix[i][e], 1e-4) << table->Name[i];
        }
    }
  }
}
