#include "cli/program.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <tuple>

namespace {

using Optimise = Program;
using TableRow = std::map<std::string, std::string>;

std::vector<TableRow> Rows(const std::string &csv) {
  std::istringstream lines(csv);
  std::vector<std::string> head;
  std::vector<TableRow> rows;
  for (std::string line; std::getline(lines, line);) {
    std::vector<std::string> cell;
    std::istringstream cells(line);
    for (std::string c; std::getline(cells, c, ',');) cell.push_back(c);
    if (head.empty()) {
      head = cell;
      continue;
    }
    TableRow &row = rows.emplace_back();
    for (std::size_t i = 0; i < std::min(head.size(), cell.size()); ++i) row[head[i]] = cell[i];
  }
  return rows;
}

TEST_F(Optimise, ATemplateIsSweptAsItIsPlayed) {
  ASSERT_EQ(Run("sweep --template star --var Points=5,6 TipRad=13:15:1 --set ValleyRad=TipRad/3 "
                "--grain 40,90,10,AB --throat 9,10 --table rows.csv"),
            0)
      << Err;
  const std::vector<TableRow> rows = Rows(Read("rows.csv"));
  ASSERT_EQ(rows.size(), 12u);
  EXPECT_EQ(rows[5].at("Points"), "5");
  EXPECT_EQ(rows[5].at("TipRad"), "15");
  EXPECT_EQ(rows[5].at("throat_mm"), "10");
  ASSERT_EQ(Run("play star Points=5 TipRad=15 ValleyRad=TipRad/3 --grain 40,90,10,AB --json"), 0);
  for (const char *key : {"max_kn", "volume_loading", "neutrality", "burn_end_mm"})
    EXPECT_NE(Out.find(std::string("\"") + key + "\": " + rows[5].at(key)), std::string::npos) << key << Out;
  EXPECT_GT(std::stod(rows[5].at("peak_pressure_mpa")), 0);
}

// Against every combination of a grid, at the same loading; twice, as the seed alone decides.
TEST_F(Optimise, FindsBetterStarsThanAGridAndTheSameOnesAgain) {
  const std::string grain = " --grain 40,90,10,AB ", vary = "--template star --set Points=7 --var ";
  ASSERT_EQ(Run("sweep " + vary + "TipRad=11:18:0.5 ValleyRad=2:8:0.5" + grain + "--table grid.csv"), 0)
      << Err;
  double best = 0;
  for (TableRow &row : Rows(Read("grid.csv"))) {
    if (row["volume_loading"].empty()) continue;
    const double loading = std::stod(row["volume_loading"]);
    if (loading >= 0.815 && loading <= 0.825) best = std::max(best, std::stod(row["neutrality"]));
  }
  ASSERT_GT(best, 0);
  const std::string search =
      "optimise " + vary + "TipRad ValleyRad" + grain +
      "--maximise neutrality --keep 'volume_loading>=0.815' 'volume_loading<0.825' --seconds 300 "
      "--trials 500 --seed 3 --table ";
  ASSERT_EQ(Run(search + "a.csv --save best.mvd"), 0) << Err;
  const std::vector<TableRow> found = Rows(Read("a.csv"));
  ASSERT_FALSE(found.empty());
  EXPECT_EQ(found.back().at("rules_broken_by"), "0");
  EXPECT_GT(std::stod(found.back().at("neutrality")), best);
  ASSERT_EQ(Run("burn best.mvd --json"), 0) << Err;
  EXPECT_NE(Out.find("\"neutrality\": " + found.back().at("neutrality")), std::string::npos) << Out;
  ASSERT_EQ(Run(search + "b.csv"), 0);
  EXPECT_EQ(Read("a.csv"), Read("b.csv"));
}

TEST_F(Optimise, WhatCannotBeSoughtIsTold) {
  for (
      const auto &[line, code, words] :
      {std::tuple{"optimise --template none --var A --minimise neutrality", 2,
                  "Can't find Macro Template file."},
       {"optimise --template star --var Tip --minimise neutrality", 2, "there is no variable Tip; there are"},
       {"optimise --template star --var TipRad --minimise beauty", 2, "there is no figure beauty; there are"},
       {"optimise --template star --var TipRad --minimise motor_class", 2, "there is no figure motor_class"},
       {"optimise --template star --var TipRad=3:2 --minimise neutrality", 2, "TipRad: expected a range"},
       {"optimise --template star --var TipRad=a:b --minimise neutrality", 2, "--var: expected NAME=LO:HI"},
       {"optimise --template star --var TipRad TIPRAD --minimise neutrality", 2, "TIPRAD is given twice"},
       {"optimise --template star --var TipRad", 2, "give --maximise or --minimise"},
       {"optimise --template star --var TipRad --minimise neutrality --keep neutrality", 2,
        "expected FIGURE<"},
       {"optimise --template star --var TipRad --minimise max_kn --trials 20", 1, "no trial of 20"},
       {"optimise --template star --var TipRad --minimise neutrality --trials 30 --keep 'volume_loading<0.1'",
        1, "no trial keeps all rules"},
       {"sweep --template star --var TipRad=12", 2, "the grain has no throat"},
       {"sweep --template star --grain 40,90,10,AB --var Tip=12", 2, "there is no variable Tip"},
       {"sweep", 2, "give grain files, or --template"}}) {
    EXPECT_EQ(Run(line), code) << line << Err;
    EXPECT_TRUE(Err.starts_with(words)) << line << ": " << Err;
  }
}

} // namespace
