#include "thermochem/data_files.h"
#include "thermochem/ingredient_names.h"
#include "thermochem/pep_figures.h"
#include "thermochem/reports.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

struct PepTrial {
  DataFiles Files;
  PepOutcome Outcome;
  explicit PepTrial(const std::vector<std::pair<const char *, double>> &mix, double celsius = 25,
                    double lower = 2, double upper = 10, int cases = MaxCases) {
    EXPECT_EQ(ReadDataFiles(FindDataFiles({TEST_BIN "/"}), Files), "");
    PepInputs inputs;
    for (const auto &[name, weight] : mix) inputs.Ingredient.push_back({FindIngredient(Files, name), weight});
    inputs.Temperature = celsius;
    inputs.LowerPressure = lower;
    inputs.UpperPressure = upper;
    inputs.CaseCount = cases;
    Outcome = RunPep(inputs, Files);
    EXPECT_TRUE(Outcome.Done) << Outcome.Trouble;
  }
};

std::vector<std::string> Column(const ReportTable &table, std::size_t i) {
  std::vector<std::string> cells;
  for (const auto &row : table.Row)
    if (i < row.size()) cells.push_back(row[i]);
  return cells;
}

double Sum(const ReportTable &table, std::size_t i) {
  double sum = 0;
  for (const std::string &cell : Column(table, i)) sum += std::atof(cell.c_str());
  return sum;
}

TEST(Reports, AddUpAndSayWhatIsNot) {
  const PepTrial run({{"AMMONIUM PERCHLORATE", 68}, {"HTPB R-45M", 14}, {"ALUMINUM", 18}});
  const PepOutcome &outcome = run.Outcome;
  ASSERT_EQ(outcome.Ingredients.Row[3].Name, "ALUMINUM");
  const Report ingredients = IngredientReport(outcome, run.Files);
  EXPECT_NEAR(Sum(ingredients.Table[0], 3), 100, 0.02);
  EXPECT_NEAR(Sum(ingredients.Table[1], 3), 1, 1e-4);
  EXPECT_EQ(ingredients.Table[0].Row[0][0], "30");
  const Report products = ChemicalReport(outcome, outcome.Case[7], Shifting);
  ASSERT_EQ(products.Table.size(), 4u);
  for (const ReportTable &table : products.Table) {
    EXPECT_NEAR(Sum(table, 2), 1, 1e-4) << table.Title;
    EXPECT_NEAR(Sum(table, 3), 1, 2e-4) << table.Title;
  }
  const Report expansion = ExpansionReport(outcome, outcome.Case[7], Shifting);
  ASSERT_EQ(expansion.Table[0].Row.size(), 104u); // 100 ratios, two headings with a blank line each
  EXPECT_TRUE(expansion.Table[0].Row[25].empty());
  EXPECT_EQ(expansion.Table[0].Row[26], expansion.Table[0].Column);
  EXPECT_EQ(expansion.Table[0].Row[27][0], "26.");
  const Report performance = PerformanceReport(outcome, run.Files, Shifting);
  EXPECT_EQ(performance.Table[0].Row.size(), 15u);
  EXPECT_NE(ReportAsText(performance).find("More than 30 %"), std::string::npos);
  const std::string csv = ReportCsv(expansion);
  EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 1 + 1 + 1 + 1 + 100);
  for (const Report &report :
       {ingredients, products, expansion, performance, StateReport(outcome, outcome.Case[0])})
    for (const std::string &text : {ReportAsText(report), ReportCsv(report)}) {
      EXPECT_EQ(text.find("nan"), std::string::npos) << text;
      EXPECT_EQ(text.find("inf"), std::string::npos) << text;
    }
}

TEST(Reports, NothingToExpandIsShownAsGaps) {
  const PepTrial low({{"AMMONIUM PERCHLORATE", 80}, {"HTPB R-45M", 20}}, 25, 0.05,
                     0.09); // below an atmosphere
  EXPECT_FALSE(FiguresOf(low.Outcome, low.Outcome.Case[0]).Isp[Shifting].has_value());
  const PepTrial metal({{"ALUMINUM", 100}});
  for (const PepTrial *const run : {&low, &metal})
    for (const PepCase &one : run->Outcome.Case)
      for (const Report &report :
           {StateReport(run->Outcome, one), ChemicalReport(run->Outcome, one, Frozen),
            ExpansionReport(run->Outcome, one, Frozen), PerformanceReport(run->Outcome, run->Files, Frozen)})
        EXPECT_EQ(ReportAsText(report).find("nan"), std::string::npos) << ReportAsText(report);
}

TEST(Reports, WarningsNameWhatIsDoubtful) {
  const auto warns = [](const PepTrial &run, const char *words) {
    const std::vector<std::string> list = PepWarnings(run.Outcome, run.Files);
    return std::any_of(list.begin(), list.end(),
                       [&](const std::string &w) { return w.find(words) != std::string::npos; });
  };
  const PepTrial clean({{"AMMONIUM PERCHLORATE", 80}, {"HTPB R-45M", 20}}, 25, 2, 10, 2),
      warm({{"AMMONIUM PERCHLORATE", 8}, {"HTPB R-45M", 2}}, 60, 2, 10, 2),
      charcoal({{"POTASSIUM NITRATE", 75}, {"CHARCOAL", 15}, {"SULFUR", 10}}, 25, 2, 10, 2);
  EXPECT_TRUE(PepWarnings(clean.Outcome, clean.Files).empty());
  EXPECT_TRUE(warns(warm, "of 100 g"));
  EXPECT_TRUE(warns(charcoal, "CHARCOAL is an estimate"));
  EXPECT_TRUE(warns(charcoal, "More than 30 %"));
}

} // namespace
