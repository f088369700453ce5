// Numbers as text against the exact conversion, and back.
#include "base/decimal.h"
#include "base/fault.h"
#include "base/number_text.h"
#include "base/numeral.h"
#include "base/rounding.h"
#include "rounds.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {

void ExpectExact(double x) {
  const Decimal fast = DecimalOf(x), exact = ExactDecimalOf(x, DoubleDigits);
  ASSERT_TRUE(fast.Digits == exact.Digits && fast.Exponent == exact.Exponent &&
              fast.Negative == exact.Negative)
      << std::hexfloat << x << ": " << fast.Digits << " e" << std::dec << fast.Exponent;
}

void ExpectExact(float x) {
  const Decimal fast = DecimalOf(x), exact = ExactDecimalOf(static_cast<double>(x), FloatDigits);
  ASSERT_TRUE(fast.Digits == exact.Digits && fast.Exponent == exact.Exponent &&
              fast.Negative == exact.Negative)
      << std::hexfloat << x;
}

TEST(NumberText, FastRoadGivesTheExactDigits) {
  const auto seed = Seed();
  SCOPED_TRACE(seed);
  std::mt19937_64 random(seed);
  std::uniform_real_distribution<double> coordinate(-100, 100);
  for (int i = 0; i < 500000 * Rounds(); ++i) {
    const auto bits = random();
    if (const double x = std::bit_cast<double>(bits); std::isfinite(x)) ExpectExact(x);
    if (const float x = std::bit_cast<float>(static_cast<std::uint32_t>(bits)); std::isfinite(x))
      ExpectExact(x);
    const double at = coordinate(random);
    ExpectExact(at);
    ExpectExact(std::round(at * 1000) / 1000);
    ExpectExact(at * 1e-16); // what is left of a subtraction
  }
}

TEST(NumberText, FastRoadGivesTheExactDigitsAtTiesAndPowers) {
  for (int p = -323; p <= 308; ++p) {
    double ten = 0;
    const std::string text = "1e" + std::to_string(p);
    std::from_chars(text.data(), text.data() + text.size(), ten);
    double below = ten, above = ten;
    for (int k = 0; k < 40; ++k) {
      ExpectExact(below = std::nextafter(below, 0));
      ExpectExact(above = std::nextafter(above, std::numeric_limits<double>::infinity()));
    }
    ExpectExact(ten);
  }
  // Halves behind the last digit are exact in binary: n + 1/2 of 15 digits, n + 1/4 and n + 3/4 beside them.
  std::mt19937_64 random(Seed());
  for (int i = 0; i < 50000; ++i) {
    const auto n = static_cast<double>(100000000000000 + random() % 900000000000000);
    for (const double part : {0.5, 0.25, 0.75, 0.375, 0.625}) ExpectExact(n + part);
    const auto few = static_cast<float>(1000000 + random() % 7000000);
    ExpectExact(few + 0.5f);
    ExpectExact((few + 0.5f) * 0x1p-20f);
  }
  for (const double x : {std::numeric_limits<double>::max(), std::numeric_limits<double>::min(),
                         std::numeric_limits<double>::denorm_min(), 0x1p-1022 - 0x1p-1074})
    ExpectExact(x);
}

TEST(NumberText, WhatIsWrittenReadsBackAsTheSameText) {
  std::mt19937_64 random(Seed());
  std::uniform_real_distribution<double> power(-30, 30), one(-1, 1);
  for (int i = 0; i < 100000; ++i) {
    const double x = one(random) * std::pow(10, power(random));
    const auto narrow = static_cast<float>(x);
    double again = 0;
    float narrowAgain = 0;
    ASSERT_TRUE(NumeralValue(NumberText(x), again));
    EXPECT_EQ(NumberText(again), NumberText(x));
    EXPECT_NEAR(again, x, std::fabs(x) * 5.1e-15);
    ASSERT_TRUE(NumeralValue(NumberText(narrow), narrowAgain));
    EXPECT_EQ(NumberText(narrowAgain), NumberText(narrow));
    EXPECT_EQ(Val(PlainText(x)), again);
    ASSERT_LE(NumberText(x).size(), 22u);
  }
}

TEST(NumberText, LongestFormsStayInTheBuffer) {
  for (const double x : {-1.23456789012345e-308, -0.000000000000001, -0.123456789012345, -999999999999999.0,
                         -1.00000000000001, -0.00000000000012}) {
    char buffer[40];
    std::fill(std::begin(buffer), std::end(buffer), '#');
    EXPECT_LE(WriteNumber(buffer, x), buffer + 32);
    for (int i = 32; i < 40; ++i) EXPECT_EQ(buffer[i], '#') << x;
  }
}

TEST(Numeral, ReadsEveryLegalFormAndRefusesTheRest) {
  const struct {
    const char *Text;
    double Value;
  } good[] = {{"2.5e-05", 2.5e-5}, {"1E-09", 1e-9}, {"0.5", 0.5},    {".5", 0.5},     {"5.", 5},
              {"+7", 7},           {"-1d+2", -100}, {"1e-400", 0},   {"-1e-400", 0},  {"0e999999999", 0},
              {"5e-324", 5e-324},  {"000012", 12},  {"1.5D3", 1500}, {"-.25E1", -2.5}};
  for (const auto &row : good) {
    double value = 99;
    EXPECT_EQ(NumeralLength(row.Text), std::string_view(row.Text).size()) << row.Text;
    EXPECT_TRUE(NumeralValue(row.Text, value)) << row.Text;
    EXPECT_EQ(value, row.Value) << row.Text;
  }
  for (const char *text : {"1e400", "-1e309", "1e99999999999999999999"}) {
    double value = 99;
    EXPECT_FALSE(NumeralValue(text, value)) << text;
    EXPECT_EQ(value, 99);
  }
  float narrow = 0;
  EXPECT_FALSE(NumeralValue("1e39", narrow));
  const std::string zeros(380, '0');
  double value = 0;
  EXPECT_TRUE(NumeralValue("0." + zeros + "1", value)); // below the least double
  EXPECT_EQ(value, 0);
  EXPECT_FALSE(NumeralValue("1" + zeros, value));
  for (const char *text : {"", ".", "-", "+.", "e5", "inf", "nan", "0x10", "--1"}) {
    const auto length = NumeralLength(text);
    EXPECT_EQ(length, std::string_view(text) == "0x10" ? 1u : 0u) << text;
  }
}

TEST(FormatMask, AgreesWithPrintfAwayFromTies) {
  std::mt19937_64 random(Seed());
  std::uniform_real_distribution<double> one(-1, 1), power(-3, 6);
  const struct {
    const char *Mask, *Form;
  } forms[] = {{"0.000", "%.3f"}, {"0", "%.0f"}, {"0.00", "%.2f"}, {"0.00E+00", "%.2E"}, {"0.0000", "%.4f"}};
  for (int i = 0; i < 20000; ++i) {
    const double x = one(random) * std::pow(10, power(random));
    for (const auto &form : forms) {
      char expected[64];
      std::snprintf(expected, sizeof expected, form.Form, x);
      const bool zero = std::string_view(expected).find_first_of("123456789") == std::string_view::npos;
      EXPECT_EQ(FormatMask(x, form.Mask), zero && expected[0] == '-' ? expected + 1 : expected) << x;
    }
  }
}

TEST(Rounding, ValuesThatFitNoTypeAreFaults) {
  const double nan = std::numeric_limits<double>::quiet_NaN(), inf = std::numeric_limits<double>::infinity();
  for (const double x : {nan, inf, -inf, 1e39, 9.3e18}) {
    if (x != 9.3e18) {
      EXPECT_THROW(NarrowFloat(x), Fault) << x;
    }
    EXPECT_THROW(RoundInt(x), Fault) << x;
    EXPECT_THROW(Narrow16(x), Fault) << x;
  }
  EXPECT_EQ(NarrowFloat(3.4028235e38), std::numeric_limits<float>::max());
  EXPECT_EQ(NarrowFloat(std::nextafter(0x1.ffffffp127, 0)), std::numeric_limits<float>::max());
  EXPECT_THROW(NarrowFloat(0x1.ffffffp127), Fault); // half a step above the greatest
  EXPECT_EQ(Narrow16(-32768.5), -32768);
  EXPECT_THROW(Narrow16(-32769), Fault);
  EXPECT_EQ(RoundInt(-9223372036854775808.0), std::numeric_limits<long long>::min());
  EXPECT_EQ(RoundEven(4503599627370497.0), 4503599627370497.0);
  EXPECT_EQ(RoundEven(-2.5), -2);
  EXPECT_EQ(GridSnap(-0.75, 0.5), -1);
  EXPECT_THROW(Quotient(1, 0), Fault);
  EXPECT_THROW(Root(-1e-300), Fault);
}

} // namespace
