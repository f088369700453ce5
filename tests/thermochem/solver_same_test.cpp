// What must not change a propellant's figures, over random mixes: weights of another total, the order of
// ingredients and of species, another start, pressures told the other way round.
#include "rounds.h"
#include "thermochem/pep_mixes.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

using Figures = std::vector<double>;

Figures FiguresOfCase(const PepOutcome &out, std::size_t k) {
  const PepCase &c = out.Case[k];
  const PepPoint &chamber = c.Point[Shifting][Chamber];
  const double weight = out.Propellant.TotalWeight;
  Figures f = {chamber.Temperature, 1000 * (chamber.GasMoles + chamber.CondensedMoles) / weight,
               100 + 100 * chamber.GasWeight / weight};
  for (const PepMode mode : {Shifting, Frozen}) {
    f.push_back(c.Point[mode][Throat].CStar);
    for (const PepStation at : {Exit1, Exit2}) {
      f.push_back(c.Point[mode][at].Impulse);
      f.push_back(c.Point[mode][at].Temperature);
    }
  }
  return f;
}

double Difference(const Figures &a, const Figures &b) {
  double worst = 0;
  for (std::size_t i = 0; i < a.size(); ++i)
    worst = std::max(worst, std::abs(a[i] - b[i]) / std::max(std::abs(b[i]), 1.0));
  return worst;
}

DataFiles TurnedFiles() {
  DataFiles turned = ShippedFiles();
  const auto condensed = std::find_if(turned.Species.begin(), turned.Species.end(),
                                      [](const SpeciesRecord &r) { return r.Mark != 1; });
  std::reverse(turned.Species.begin(), condensed);
  std::reverse(condensed, turned.Species.end());
  return turned;
}

} // namespace

TEST(PepSame, RandomMixesKeepTheirFigures) {
  const DataFiles turned = TurnedFiles();
  std::mt19937_64 stream(Seed() + 2);
  constexpr std::array<const char *, 4> What = {"order and total", "order of species", "a cold start",
                                                "pressures turned"};
  std::array<int, 4> unlike{}, unsettled{};
  int held = 0;
  for (int k = 0; k < 200 * Rounds(); ++k) {
    const PepInputs in = RandomMix(stream);
    const PepOutcome plain = RunPep(in, ShippedFiles());
    if (!plain.Done || !plain.Converged) continue;
    ++held;
    PepInputs other = in, cold = in, back = in;
    std::reverse(other.Ingredient.begin(), other.Ingredient.end());
    for (PepIngredient &i : other.Ingredient) i.Weight *= 3.7;
    cold.LowerPressure = cold.UpperPressure;
    cold.CaseCount = 1;
    std::swap(back.LowerPressure, back.UpperPressure);
    const PepOutcome run[] = {RunPep(other, ShippedFiles()), RunPep(in, turned), RunPep(cold, ShippedFiles()),
                              RunPep(back, ShippedFiles())};
    for (std::size_t w = 0; w < What.size(); ++w) {
      ASSERT_TRUE(run[w].Done) << What[w] << " " << k;
      if (!run[w].Converged) {
        ++unsettled[w];
        continue;
      }
      const double apart = Difference(FiguresOfCase(run[w], run[w].Case.size() - 1), FiguresOfCase(plain, 1));
      if (apart < 2e-4) continue;
      ++unlike[w];
      std::string mix;
      for (const PepIngredient &i : in.Ingredient)
        mix += ShippedFiles().Ingredient[i.ListPosition - 1].Name + "=" + std::to_string(i.Weight) + " ";
      std::cout << What[w] << " " << k << ": " << apart << " " << mix << "\n";
    }
  }
  EXPECT_GT(held, 190 * Rounds());
  for (std::size_t w = 0; w < What.size(); ++w) {
    EXPECT_EQ(unlike[w], 0) << What[w];
    EXPECT_LE(unsettled[w], 2 * Rounds()) << What[w];
  }
}
