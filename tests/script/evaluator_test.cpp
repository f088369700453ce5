#include "macros/evaluator.h"

#include "rounds.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace {

constexpr double Pi = 3.14159265358979;

TEST(Evaluator, Values) {
  VariableTable table;
  SetGrainVariables(table, 100, 250.5);
  table.Row[2] = {-5, "#WEB", "", ""};
  table.Row[3] = {7, "#WEBS", "", ""};
  table.Row[4] = {2.0 / 3, "#THIRD", "", "0.00"};
  table.Row[5] = {1e-12, "#TINY", "", ""};
  table.Row[6] = {9, "#", "", ""};
  struct {
    const char *Text;
    double Value;
  } const rows[] = {{"", 0},
                    {"   ", 0},
                    {"()", 0},
                    {"3+()", 3},
                    {"12.5", 12.5},
                    {".5", 0.5},
                    {"5.", 5},
                    {"+5", 5},
                    {"1E3", 1000},
                    {"2.5E-05*2", 5e-5},
                    {"2D3", 2000},
                    {"-3", -3},
                    {"--3", 3},
                    {"---3", -3},
                    {"2--3", 5},
                    {"2---3", -1},
                    {"-2^2", 4},
                    {"2^3^2", 64},
                    {"2^-1", 0.5},
                    {"8/2*4", 16},
                    {"8*2/4", 4},
                    {"8/2/2", 2},
                    {"2*3/4*2", 3},
                    {"12/2*3", 18},
                    {"1-2+3", 2},
                    {"1-2-3", -4},
                    {"1 + 2 * ( 3 + 4 )", 15},
                    {"((2))", 2},
                    {"(1+2)*(3+4)-(5-6)", 22},
                    {"2*(3+4", 14},
                    {"pi/2", Pi / 2},
                    {"Pi", Pi},
                    {"SIN(pi/6)", 0.5},
                    {"-sin(pi/6)+1", 0.5},
                    {"1-sin(pi/6)", 0.5},
                    {"sin-1", std::sin(-1.0)},
                    {"cos 0", 1},
                    {"-cos(0)", -1},
                    {"tan(pi/4)", 1},
                    {"sqrt(16)*2", 8},
                    {"-sqrt 9", -3},
                    {"sqrt(sqrt(16))", 2},
                    {"sqrt sqrt 16", 2},
                    {"asin(1)", Pi / 2},
                    {"arcsin(1)", Pi / 2},
                    {"-asin(0.5)", -Pi / 6},
                    {"acos(-1)", Pi},
                    {"ArcCos(0.5)", Pi / 3},
                    {"-arctan(1)", -Pi / 4},
                    {"atan(1)*4", Pi},
                    {"acos(1.5)", 999},
                    {"asin(-2)", 999},
                    {"acos(1.00005)", 0},
                    {"acos(-1.00005)", Pi},
                    {"GRAINDIAMETER/2", 50},
                    {"GRAINLENGTH-GRAINDIAMETER", 150.5},
                    {"2-WEB", 7},
                    {"-WEB", 5},
                    {"WEB^2", 25},
                    {"THIRD*3", 2.01},
                    {"TINY*1E12", 1}};
  for (const auto &row : rows) {
    const Formula f = EvaluateFormula(row.Text, table);
    EXPECT_TRUE(f.Good()) << row.Text << ": " << f.Message;
    EXPECT_NEAR(f.Value, row.Value, 1e-12 * (1 + std::abs(row.Value))) << row.Text;
  }
  // Names are tried in table order: the shorter one first, and its rest then has no meaning.
  EXPECT_EQ(EvaluateFormula("WEBS", table).Place, 4);
  std::swap(table.Row[2], table.Row[3]);
  EXPECT_EQ(EvaluateFormula("WEBS+WEB", table).Value, 2);
}

TEST(Evaluator, RefusedWithTheirPlace) {
  VariableTable table;
  SetGrainVariables(table, 100, 250);
  struct {
    const char *Text;
    int Place;
    const char *Why;
  } const rows[] = {{"2 3", 3, "two numbers"},
                    {"2(3)", 2, "two numbers"},
                    {"(2)(3)", 4, "two numbers"},
                    {"(2)3", 4, "two numbers"},
                    {"2sin(1)", 2, "two numbers"},
                    {"2pi", 2, "two numbers"},
                    {"2GRAINLENGTH", 2, "two numbers"},
                    {"1.2.3", 4, "two numbers"},
                    {"1,5", 2, "no meaning"},
                    {"{0201}", 1, "no meaning"},
                    {"5+{", 3, "no meaning"},
                    {"abc", 1, "no meaning"},
                    {"inf", 1, "no meaning"},
                    {"2e", 2, "no meaning"},
                    {"graindiameter", 1, "no meaning"},
                    {"1)", 2, "not opened"},
                    {"(1))+2", 4, "not opened"},
                    {"3+", 3, "missing"},
                    {"3*/2", 3, "missing"},
                    {"(3*)", 4, "missing"},
                    {"*3", 1, "missing"},
                    {"sin", 4, "missing"},
                    {"-", 2, "missing"},
                    {".", 1, "missing"},
                    {"1/0", 2, "division by zero"},
                    {"5/(2-2)", 2, "division by zero"},
                    {"sqrt(0-1)", 1, "no real number"},
                    {"(0-8)^(1/3)", 6, "no real number"},
                    {"0^-1", 2, "no real number"},
                    {"1e400", 1, "too large"},
                    {"1e300*1e300", 6, "too large"},
                    {"9^9^9^9", 6, "too large"}};
  for (const auto &row : rows) {
    const Formula f = EvaluateFormula(row.Text, table);
    EXPECT_EQ(f.Place, row.Place) << row.Text << ": " << f.Message;
    EXPECT_NE(f.Message.find(row.Why), std::string::npos) << row.Text << ": " << f.Message;
    EXPECT_EQ(f.Value, 0);
  }
}

TEST(Evaluator, Limits) {
  const auto deep = [](int levels) { return std::string(static_cast<std::size_t>(levels), '(') + "7"; };
  EXPECT_EQ(EvaluateFormula(deep(49)).Value, 7);
  EXPECT_EQ(EvaluateFormula(deep(50)).Place, 50);
  EXPECT_FALSE(EvaluateFormula(deep(100000)).Good());
  const auto chain = [](const std::string &term, int count) {
    std::string text = term;
    for (int i = 1; i < count; ++i) text += "+" + term;
    return text;
  };
  EXPECT_EQ(EvaluateFormula(chain("1", 20)).Value, 20);
  EXPECT_FALSE(EvaluateFormula(chain("1", 21)).Good());
  // Slots are counted over the whole text: 18 * 3 brackets stand on the third level.
  EXPECT_EQ(EvaluateFormula(chain("((1)+(2)+(3))", 16)).Value, 96);
  EXPECT_FALSE(EvaluateFormula(chain("((1)+(2)+(3))", 18)).Good());
}

// A random tree, written out with a bracket about every part and worked out beside it.
std::string RandomFormula(std::mt19937_64 &random, int depth, double &value) {
  const auto below = [&](unsigned n) { return static_cast<unsigned>(random() % n); };
  if (depth == 0 || below(4) == 0) {
    value = (1 + below(999)) / 8.0;
    std::string text = std::to_string(value);
    if (below(4) == 0) {
      value = -value;
      text = "-" + text;
    }
    return text;
  }
  double a = 0, b = 0;
  const std::string left = RandomFormula(random, depth - 1, a), right = RandomFormula(random, depth - 1, b);
  switch (below(7)) {
  case 0: value = a + b; return "(" + left + ")+(" + right + ")";
  case 1: value = a - b; return "(" + left + ") - (" + right + ")";
  case 2: value = a * b; return "(" + left + ")*(" + right + ")";
  case 3: value = a / b; return "(" + left + ")/(" + right + ")";
  case 4: value = std::sin(a); return "Sin(" + left + ")";
  case 5: value = -std::atan(a); return "-arctan(" + left + ")";
  default: {
    const unsigned power = below(4);
    value = std::pow(a, static_cast<double>(power));
    return "(" + left + ")^" + std::to_string(power);
  }
  }
}

TEST(Evaluator, RandomTrees) {
  std::mt19937_64 random(Seed() + 71);
  int good = 0;
  for (int i = 0; i < 5000 * Rounds() && !testing::Test::HasFailure(); ++i) {
    double value = 0;
    const std::string text = RandomFormula(random, 5, value);
    const Formula f = EvaluateFormula(text);
    SCOPED_TRACE(testing::Message() << "seed " << Seed() << ": " << text);
    if (!f.Good()) {
      EXPECT_TRUE(!std::isfinite(value) || f.Message.find("more than 50") != std::string::npos ||
                  f.Message.find("zero") != std::string::npos || f.Message.find("large") != std::string::npos)
          << f.Message;
      continue;
    }
    ++good;
    EXPECT_DOUBLE_EQ(f.Value, value);
  }
  EXPECT_GT(good, 3000);
}

TEST(Evaluator, AnyTextGivesAFiniteNumberOrAPlace) {
  std::mt19937_64 random(Seed() + 72);
  VariableTable table;
  SetGrainVariables(table, 100, 250);
  constexpr std::string_view parts[] = {"1", "2.5", "E",   "-",    "+",     "*",   "/",           "^",
                                        "(", ")",   "sin", "sqrt", "acos",  "pi",  "GRAINLENGTH", " ",
                                        ".", "{",   "x",   "0",    "1E300", "\xff"};
  int good = 0;
  for (int i = 0; i < 200000 * Rounds(); ++i) {
    std::string text;
    for (auto n = random() % 12; n-- > 0;) text += parts[random() % std::size(parts)];
    const Formula f = EvaluateFormula(text, table);
    if (f.Good()) ++good;
    ASSERT_TRUE(f.Good() ? std::isfinite(f.Value) && f.Place == 0
                         : f.Place >= 1 && f.Place <= static_cast<int>(text.size()) + 1)
        << text;
  }
  EXPECT_GT(good, 2000);
}

} // namespace
