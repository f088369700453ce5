// The propellant library and the numerical helpers.
#include "base/whole_file.h"
#include "performance/least_squares.h"
#include "performance/propellants.h"
#include "rounds.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

const std::string Shipped = TEST_SOURCE "/data/propellants.txt";

TEST(Propellants, ShippedOnesAreSensibleAndKeepTheirForm) {
  std::string bytes;
  ASSERT_EQ(ReadWhole(Shipped, bytes), "");
  std::vector<Propellant> list;
  ASSERT_EQ(ParsePropellants(bytes, Shipped, list), "");
  EXPECT_GE(list.size(), 8u);
  EXPECT_EQ(PropellantsText(list), bytes);
  for (const Propellant &p : list) {
    SCOPED_TRACE(p.Name);
    EXPECT_FALSE(p.Source.empty());
    const double rate = p.A * std::pow(5e6, p.N); // mm/s at 5 MPa
    EXPECT_TRUE(rate > 2 && rate < 25) << rate;
    EXPECT_TRUE(p.Density > 1.4 && p.Density < 1.9 && p.CStar > 850 && p.CStar < 1700);
    const double thrustCoefficient = p.Isp * 9.80665 / p.CStar;
    EXPECT_TRUE(thrustCoefficient > 1.2 && thrustCoefficient < 1.7) << thrustCoefficient;
  }
  ASSERT_NE(FindPropellant(list, "knSB"), nullptr);
  EXPECT_EQ(FindPropellant(list, "KN"), nullptr);
}

TEST(Propellants, FaultsNameLineAndField) {
  const std::string good = "[A]\na = 1\nn = 0.3\ndensity = 1.7\ncstar = 1500\nisp = 180\n";
  for (const auto &[text, says] :
       {std::pair<std::string, const char *>{"a = 1\n", "F: line 1 (a): expected a [name]"},
        {"[A\n", "line 1 (name)"},
        {good + "x = 1\n", "line 7 (x): is none"},
        {good + "a = 1\n", "line 7 (a): stands twice"},
        {good + good, "line 7 (A): the name stands twice"},
        {good + "source\n", "line 7 (entry)"},
        {"\n[A]\r\na = 1\r\n", "line 2 (A): n is missing"},
        {"[A]\na = 1 mm\n", "line 2 (a): expected a number, found \"1 mm\""},
        {"[A]\na = 1e999\n", "line 2 (a)"},
        {"[A]\na = 0\nn = 0.3\ndensity = 1.7\ncstar = 1500\nisp = 180\n", "a: expected a number above 0"},
        {"[A]\na = 1\nn = 1\ndensity = 1.7\ncstar = 1500\nisp = 180\n", "n: expected a number below 1"},
        {good + "lowest_pressure = 5\nhighest_pressure = 2\n", "highest_pressure"},
        {"[]\n" + good.substr(4), "name: expected 1 to 60"}}) {
    std::vector<Propellant> list(3);
    EXPECT_NE(ParsePropellants(text, "F", list).find(says), std::string::npos)
        << text << ParsePropellants(text, "F", list);
    EXPECT_EQ(list.size(), 3u);
  }
}

TEST(Propellants, AnyBytesAreReadOrRefusedAndWhatIsReadComesBack) {
  std::string seed;
  ASSERT_EQ(ReadWhole(Shipped, seed), "");
  std::mt19937_64 random(Seed());
  int read = 0;
  for (int round = 0; round < 3000 * Rounds(); ++round) {
    std::string bytes = seed;
    for (int change = 0; change < 1 + round % 4; ++change) {
      const std::size_t at = random() % bytes.size(), far = random() % bytes.size();
      if (random() % 3 == 0)
        bytes[at] = static_cast<char>(random());
      else if (random() % 2)
        bytes.erase(at, random() % 40);
      else
        bytes.insert(at, bytes.substr(far, random() % 200));
    }
    std::vector<Propellant> list, again;
    if (!ParsePropellants(bytes, "F", list).empty()) continue;
    ++read;
    ASSERT_EQ(ParsePropellants(PropellantsText(list), "F", again), "");
    ASSERT_EQ(PropellantsText(again), PropellantsText(list));
  }
  EXPECT_GT(read, 0);
}

TEST(Propellants, FirstUseKeepsTheShippedOnesAndABadListIsNotWritten) {
  const ScratchFolder folder;
  const std::string own = folder.Path + "propellants.txt";
  std::vector<Propellant> list;
  ASSERT_EQ(LoadPropellants(folder.Path, TEST_SOURCE "/", list), "");
  ASSERT_TRUE(FileExists(own));
  list.resize(1);
  ASSERT_EQ(WritePropellants(own, list), "");
  list.push_back(list[0]);
  EXPECT_NE(WritePropellants(own, list), "");
  ASSERT_EQ(LoadPropellants(folder.Path, TEST_SOURCE "/", list), "");
  EXPECT_EQ(list.size(), 1u);
  ASSERT_EQ(WriteWhole(own, "[broken"), "");
  EXPECT_NE(LoadPropellants(folder.Path, TEST_SOURCE "/", list).find("line 1"), std::string::npos);
  EXPECT_EQ(list.size(), 1u);
}

TEST(LeastSquares, ExactPolynomialsComeBackAndSingularOnesAreRefused) {
  const std::vector<double> truth{3, -2, 0.5, 0.25};
  std::vector<double> xs, ys;
  for (const double x : {-2.0, -1.0, 0.0, 1.0, 2.0, 3.0}) {
    xs.push_back(x);
    ys.push_back(truth[0] + x * (truth[1] + x * (truth[2] + x * truth[3])));
  }
  const auto fit = LeastSquaresPoly(xs, ys, 3);
  ASSERT_TRUE(fit);
  for (int i = 0; i < 4; ++i) EXPECT_NEAR((*fit)[i], truth[i], 1e-10);
  const auto mean = LeastSquaresPoly({1, 2, 3}, {4, 5, 9}, 0);
  ASSERT_TRUE(mean);
  EXPECT_NEAR((*mean)[0], 6, 1e-12);
  EXPECT_FALSE(LeastSquaresPoly({1, 1}, {2, 3}, 1));
  EXPECT_FALSE(LeastSquaresPoly({1, 2}, {2}, 1));
  EXPECT_FALSE(LeastSquaresPoly({}, {}, 0));
  EXPECT_FALSE(LeastSquaresPoly({1}, {1}, -1));
  const auto swapped = GaussElim({{0, 0, 2, 6}, {0, 4, 1, 11}, {5, 1, 1, 15}}); // zeros on the diagonal
  ASSERT_TRUE(swapped);
  EXPECT_NEAR((*swapped)[0], 2, 1e-12);
  EXPECT_NEAR((*swapped)[1], 2, 1e-12);
  EXPECT_NEAR((*swapped)[2], 3, 1e-12);
  EXPECT_FALSE(GaussElim({{1, 2, 3}, {2, 4, 6}}));
}

} // namespace
