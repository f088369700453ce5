// What a propellant takes from the data files; names and sweeps of its ingredients.
#include "rounds.h"
#include "thermochem/composition.h"
#include "thermochem/ingredient_names.h"
#include "thermochem/shipped_data.h"
#include "thermochem/sweep.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

// A propellant of one made-up ingredient of 100 g.
struct OneIngredient {
  DataFiles Files;
  IngredientTable Ingredients;
  ElementTable Elements;
  SpeciesTable Species;
  std::vector<std::string> Messages;
  std::string Trouble;
  Mix Made;
  bool Read(const IngredientRecord &record, double celsius = 25) {
    Files.Ingredient = {record};
    Messages.clear();
    PepInputs inputs;
    inputs.Ingredient = {{0, 5}, {1, 100}};
    const bool done = ReadIngredients(inputs, Files, Ingredients, Elements, Messages, Trouble) &&
                      LoadSpecies(Files, Elements, Species, Messages, Trouble);
    if (done) Made = ComposeMix(Ingredients, Elements, celsius);
    return done;
  }
};

TEST(Mixes, CompositionOfAPropellant) {
  OneIngredient one;
  one.Files = Shipped();
  IngredientRecord record{"X", {2, 1, 1, 0, 4, 0}, {"h", "O", "AL", "", "Fe", ""}, -100, 0.05, ""};
  ASSERT_TRUE(one.Read(record, 35));
  ASSERT_EQ(one.Elements.ElementCount, 3); // the zero count ends the formula
  EXPECT_EQ(one.Elements.Symbol[3], "Al");
  const double weight = 2 * 1.008 + 16 + 26.98;
  EXPECT_NEAR(one.Ingredients.Row[1].MolecularWeight, weight, 1e-4);
  EXPECT_NEAR(one.Elements.ElementTotal[1], 200 / weight, 1e-5);
  EXPECT_EQ(one.Ingredients.Row[1].CodeNumber, 30);
  EXPECT_EQ(one.Made.Temperature, 308);
  EXPECT_NEAR(one.Made.Enthalpy, 100 * -100 + 0.3 * 10 * 100, 1e-9);
  EXPECT_NEAR(one.Made.DensityGcc, 0.05 * 27.6799, 1e-12);
  record.Density = 0;
  ASSERT_TRUE(one.Read(record));
  EXPECT_EQ(one.Made.Density, 1e-5);
  EXPECT_EQ(one.Made.Enthalpy, -10000); // no correction at 25 degrees
  EXPECT_EQ(one.Species.Name[one.Species.GasCount + 1].back(), ')');

  // Species of an element gone: told, and the run goes on. The last gas that is let in is the last gas.
  const DataFiles whole = one.Files;
  std::erase_if(one.Files.Species, [](const SpeciesRecord &s) {
    return std::find(s.AtomicNumber.begin(), s.AtomicNumber.end(), 13) != s.AtomicNumber.end();
  });
  ASSERT_TRUE(one.Read(record));
  EXPECT_EQ(one.Messages, std::vector<std::string>{"NO COMBUSTION SPECIES FOR Al REVISE JANNAF..DAT"});
  EXPECT_GT(one.Species.GasCount, 5);

  one.Files = whole;
  for (int copies = 0; copies < 5; ++copies)
    one.Files.Species.insert(one.Files.Species.begin(), whole.Species.begin(), whole.Species.end());
  record.Symbol = {"C", "H", "N", "O", "Cl", ""};
  record.Count = {1, 1, 1, 1, 1, 0};
  EXPECT_FALSE(one.Read(record));
  EXPECT_NE(one.Trouble.find("no. of combus. species exceeds prog. limit of 400"), std::string::npos);
  EXPECT_EQ(one.Messages, std::vector<std::string>{"no. of combus. species exceeds prog. limit of 400"});

  const struct {
    IngredientRecord Record;
    const char *Words;
  } refused[] = {
      {{"X", {1, 1, 0, 0, 0, 0}, {"C", "Zz"}, 0, 1, ""}, "X: \"Zz\""},
      {{"X", {1, -1, 0, 0, 0, 0}, {"C", "H"}, 0, 1, ""}, "X: its formula tells -1"},
      {{"X", {}, {}, 0, 1, ""}, "holds an element"},
  };
  for (const auto &t : refused) {
    EXPECT_FALSE(one.Read(t.Record));
    EXPECT_NE(one.Trouble.find(t.Words), std::string::npos) << one.Trouble;
  }
}

// A scan that ends at the propellant's own number of elements lets no foreign species in, however real mixes
// are made; species with elements beyond that number are dropped in any case.
TEST(Mixes, OrderOfElementsKeepsForeignSpeciesOut) {
  const DataFiles files = Shipped();
  std::mt19937_64 random(Seed());
  int mixes = 0;
  for (int round = 0; round < 2000 * Rounds(); ++round) {
    PepInputs inputs;
    for (std::size_t n = 2 + random() % 8; n > 0; --n)
      inputs.Ingredient.push_back({static_cast<int>(1 + random() % files.Ingredient.size()), 1});
    IngredientTable ingredients;
    ElementTable elements;
    std::vector<std::string> messages;
    std::string trouble;
    if (!ReadIngredients(inputs, files, ingredients, elements, messages, trouble)) continue;
    if (elements.ElementCount < 4) continue;
    ++mixes;
    const auto holds = [&](int number) {
      const auto end = elements.AtomicNumber.begin() + elements.ElementCount + 1;
      return std::find(elements.AtomicNumber.begin() + 1, end, number) != end;
    };
    SpeciesTable species;
    ASSERT_TRUE(LoadSpecies(files, elements, species, messages, trouble));
    EXPECT_TRUE(messages.empty());
    int told = 0;
    for (const SpeciesRecord &s : files.Species) {
      bool in = true;
      for (int k = 0; in && k < std::min(7, elements.ElementCount) && s.AtomicNumber[k] != 0; ++k)
        in = holds(s.AtomicNumber[k]);
      told += in;
    }
    EXPECT_EQ(told, species.SpeciesCount);
  }
  EXPECT_GT(mixes, 100);
}

TEST(Mixes, NamesAreFoundAndMissesSuggest) {
  const DataFiles files = Shipped();
  EXPECT_EQ(FindIngredient(files, "  ammonium   Perchlorate "), 1);
  EXPECT_EQ(FindIngredient(files, "AMMONIUM"), 0);
  EXPECT_EQ(FindIngredient(files, ""), 0);
  const struct {
    const char *Typed, *First;
  } table[] = {{"AP", "AMMONIUM PERCHLORATE"},
               {"amonium perclorate", "AMMONIUM PERCHLORATE"},
               {"amonium", "AMMONIUM PERCHLORATE"},
               {"htpb", "HTPB R-45M"},
               {"HTPB R45M", "HTPB R-45M"},
               {"aluminium", "ALUMINUM"},
               {"sulphur", "SULFUR"},
               {"glucose", "DEXTROSE (GLUCOSE)"},
               {"magnalium", "MAGNALIUM 50/50"},
               {"potasium nitrate", "POTASSIUM NITRATE"},
               {"FE2O3", "IRON OXIDE RED (FE2O3)"}};
  for (const auto &t : table) {
    const std::vector<int> near = NearIngredients(files, t.Typed, 3);
    ASSERT_FALSE(near.empty()) << t.Typed;
    EXPECT_EQ(files.Ingredient[near[0] - 1].Name, t.First) << t.Typed;
  }
  EXPECT_TRUE(NearIngredients(files, "qqqqqqqq", 3).empty());
  EXPECT_EQ(NearIngredients(files, "", 500).size(), files.Ingredient.size());
}

TEST(Mixes, SweepsKeepTheTotal) {
  PepInputs inputs;
  inputs.Ingredient = {{1, 70}, {2, 12}, {3, 18}};
  std::vector<SweepStep> steps;
  std::string trouble;
  ASSERT_TRUE(PlanSweep(inputs, {1, 2, 60, 80, 0.1}, steps, trouble));
  ASSERT_EQ(steps.size(), 201u);
  for (const SweepStep &step : steps) {
    double total = 0;
    for (const PepIngredient &i : step.Inputs.Ingredient) total += i.Weight;
    EXPECT_NEAR(total, 100, 1e-9);
    EXPECT_EQ(step.Inputs.Ingredient[0].Weight, step.Weight);
  }
  ASSERT_TRUE(PlanSweep(inputs, {1, 2, 82, 75, 3}, steps, trouble));
  ASSERT_EQ(steps.size(), 4u);
  EXPECT_EQ(steps[2].Weight, 76);
  EXPECT_EQ(steps[3].Weight, 75);
  EXPECT_EQ(steps[0].Inputs.Ingredient[1].Weight, 0);
  ASSERT_TRUE(PlanSweep(inputs, {9, 2, 0, 5, 1}, steps, trouble)); // comes in from nothing
  EXPECT_EQ(steps[5].Inputs.Ingredient[3].Weight, 5);
  for (const PepSweep &bad : {PepSweep{1, 2, 60, 90, 1}, PepSweep{1, 1, 60, 70, 1}, PepSweep{1, 9, 60, 70, 1},
                              PepSweep{1, 2, 60, 70, 0}, PepSweep{1, 2, 60, 70, 1e-4},
                              PepSweep{1, 2, -1, 70, 1}, PepSweep{1, 2, NAN, 70, 1}}) {
    trouble.clear();
    EXPECT_FALSE(PlanSweep(inputs, bad, steps, trouble));
    EXPECT_FALSE(trouble.empty());
  }
}

} // namespace
