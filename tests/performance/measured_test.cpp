#include "performance/measured_curve.h"
#include "rounds.h"

#include <gtest/gtest.h>
#include <random>

namespace {

TEST(Measured, ReadsWhatSpreadsheetsWriteAndRefusesTheRest) {
  const struct {
    const char *Text, *Trouble;
    double LastX, LastValue;
  } table[] = {{"time,thrust\r\n0,1\r\n0.5,2\r\n", "", 0.5, 2},
               {"0;1\n\n# note\n0,5;-2,25", "", 0.5, -2.25},
               {"\xEF\xBB\xBF\"t\";\"F\"\n\"0\";\"1\"\n\"1\";\"3\"\n", "", 1, 3},
               {"0\t1\n1e-1\t2\n", "", 0.1, 2},
               {"", "at least two", 0, 0},
               {"0,1\n", "at least two", 0, 0},
               {"t,F\nu,G\n", "line 2: (time)", 0, 0},
               {"0,1\n1,2\n1,3\n", "line 3: (time): expected more", 0, 0},
               {"-1,1\n1,2\n", "line 1: (time): expected 0 or more", 0, 0},
               {"0,1\n1,\n", "line 2: (value)", 0, 0},
               {"0,1\n1,2,3\n", "line 2: expected two columns", 0, 0},
               {"0 1\n", "line 1: expected two columns", 0, 0},
               {"0,1\n1,nan\n", "line 2: (value)", 0, 0}};
  for (const auto &[text, trouble, x, value] : table) {
    MeasuredCurve curve{{7}, {7}};
    const std::string told = ReadMeasured(text, "file.csv", curve);
    if (*trouble) {
      EXPECT_NE(told.find(trouble), std::string::npos) << text << ": " << told;
      EXPECT_EQ(told.find("file.csv"), 0u);
      EXPECT_EQ(curve.X.size(), 1u);
    } else {
      EXPECT_EQ(told, "") << text;
      EXPECT_EQ(curve.X.back(), x);
      EXPECT_EQ(curve.Value.back(), value);
    }
  }
}

TEST(Measured, RandomBytesAreReadOrRefused) {
  std::mt19937_64 random(Seed());
  constexpr std::string_view letters = "01295.,;\t\n\r\"#eE+- x\xEF";
  for (int round = 0; round < 20000 * Rounds(); ++round) {
    std::string text;
    for (auto n = random() % 60; n > 0; --n) text += letters[random() % letters.size()];
    MeasuredCurve curve;
    if (!ReadMeasured(text, "f", curve).empty()) continue;
    ASSERT_EQ(curve.X.size(), curve.Value.size());
    for (std::size_t i = 1; i < curve.X.size(); ++i) ASSERT_LT(curve.X[i - 1], curve.X[i]) << text;
  }
}

} // namespace
