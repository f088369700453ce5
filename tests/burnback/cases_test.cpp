// The reference designs against an independent exact method: perimeter and section by distance, and the
// report's figures.
#include "burnback/burn_run.h"
#include "shell/grain_file.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Row = std::vector<std::string>;

std::vector<Row> ReadCsv(const std::string &path) {
  std::ifstream file(path);
  std::vector<Row> rows;
  for (std::string line; std::getline(file, line);) {
    Row row;
    std::stringstream fields(line);
    for (std::string field; std::getline(fields, field, ',');) row.push_back(field);
    if (!line.empty() && line.back() == ',') row.emplace_back();
    rows.push_back(row);
  }
  return rows;
}

const std::string Folder = std::string(TEST_DATA) + "/cases/";

struct Reference {
  std::string Name;
  std::map<std::string, std::string> Figure;
};

std::vector<Reference> References() {
  const std::vector<Row> rows = ReadCsv(Folder + "figures.csv");
  std::vector<Reference> all;
  for (std::size_t i = 1; i < rows.size(); ++i) {
    Reference r{rows[i][0], {}};
    for (std::size_t k = 1; k < rows[i].size(); ++k) r.Figure[rows[0][k]] = rows[i][k];
    all.push_back(r);
  }
  return all;
}

bool InJump(const std::string &jumps, double d) {
  std::stringstream list(jumps);
  for (std::string jump; std::getline(list, jump, ';');) {
    const double from = std::atof(jump.c_str()), to = std::atof(jump.c_str() + jump.find(':') + 1);
    if (d >= from && d <= to) return true;
  }
  return false;
}

class Case : public testing::TestWithParam<Reference> {};

TEST_P(Case, BurnsAsTheExactOffset) {
  const Reference &ref = GetParam();
  Design design;
  ASSERT_EQ(ReadGrainFile(Folder + ref.Name + ".mvd", design), "");
  BurnRun run;
  BurnRefusal refusal;
  ASSERT_TRUE(BurnDesign(design, {}, run, refusal)) << refusal.Text;
  EXPECT_EQ(run.Notice, "");

  const auto figure = [&](const char *key) { return std::atof(ref.Figure.at(key).c_str()); };
  const double h = run.BurnIncrement;
  double top = 0;
  int judged = 0;
  const std::vector<Row> table = ReadCsv(Folder + ref.Name + ".expected.csv");
  for (std::size_t i = 1; i < table.size(); ++i) top = std::max(top, std::atof(table[i][1].c_str()));
  for (std::size_t i = 1; i < table.size(); ++i) {
    const double d = std::atof(table[i][0].c_str());
    if (d > figure("burn_end") || InJump(ref.Figure.at("jumps"), d)) continue;
    const int step = static_cast<int>(std::lround(d / h - 0.5));
    ASSERT_LT(step, run.StepCount) << "at " << d;
    EXPECT_NEAR(run.StepDist[step], d, 1e-9);
    EXPECT_NEAR(run.StepPerimeter[step], std::atof(table[i][1].c_str()), 1e-6 * top) << "at " << d;
    EXPECT_NEAR(run.StepSection[step], std::atof(table[i][2].c_str()), 1e-6 * run.SectionAtStart)
        << "at " << d;
    ++judged;
  }
  EXPECT_GT(judged, 40);

  const auto near = [&](const char *key, double got, double within) {
    EXPECT_NEAR(got, figure(key), within * std::max(1e-9, std::abs(figure(key)))) << key;
  };
  EXPECT_EQ(run.StepCount, std::lround(figure("step_count")));
  EXPECT_EQ(run.RowsReached, std::lround(figure("csv_rows")));
  near("max_burn_area", run.MaxBurnArea, 1e-6);
  near("volume_loading", run.VolumeLoading, 1e-6);
  near("kn_max", run.MaxKn, 1e-6);
  near("ap_at", run.ApAt, 1e-5);
  near("neutrality", run.Neutrality, 1e-6);
  near("propellant_area_exact", run.SectionAtStart, 1e-8);
  EXPECT_NEAR(run.TouchDist, figure("touch_dist_sampled"), h * 1.01);
  EXPECT_EQ(run.HasSliver, !ref.Figure.at("sliver_fraction").empty());
  if (run.HasSliver) near("sliver_fraction", run.SliverFraction, 1e-4);
  EXPECT_LT(run.SectionCheck, 1e-3);
}

INSTANTIATE_TEST_SUITE_P(Shipped, Case, testing::ValuesIn(References()),
                         [](const testing::TestParamInfo<Reference> &one) { return one.param.Name; });

} // namespace
