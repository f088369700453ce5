// The shipped designs: their bytes are the program's own form, and each still burns as in its kept Kn table.
#include "burnback/burn_run.h"
#include "shell/grain_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

std::vector<std::filesystem::path> Designs() {
  std::vector<std::filesystem::path> all;
  for (const auto &entry : std::filesystem::directory_iterator(std::string(TEST_SOURCE) + "/examples"))
    if (entry.path().extension() == ".mvd") all.push_back(entry.path());
  std::sort(all.begin(), all.end());
  return all;
}

class Example : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(Example, StandsInTheProgramsOwnForm) {
  std::ifstream file(GetParam(), std::ios::binary);
  std::stringstream bytes;
  bytes << file.rdbuf();
  Design design;
  ASSERT_EQ(ReadGrainFile(GetParam().string(), design), "");
  EXPECT_EQ(GrainText(design, GrainForm::File), bytes.str());
}

TEST_P(Example, BurnsAsItsKeptTable) {
  Design design;
  ASSERT_EQ(ReadGrainFile(GetParam().string(), design), "");
  BurnRun run;
  BurnRefusal refusal;
  ASSERT_TRUE(BurnDesign(design, {}, run, refusal)) << refusal.Text;
  EXPECT_EQ(run.Notice, "");
  EXPECT_LT(run.SectionCheck, 1e-3);

  std::ifstream table(std::filesystem::path(GetParam()).replace_extension(".kn.csv"));
  std::string line;
  ASSERT_TRUE(std::getline(table, line));
  ASSERT_EQ(line,
            "burn_distance_mm,perimeter_mm,port_area_mm2,core_area_mm2,ends_area_mm2,total_area_mm2,kn");
  const double grain = Pi * run.GrainRadius * run.GrainRadius;
  int row = 0;
  for (; std::getline(table, line); ++row) {
    ASSERT_LT(row, run.RowsReached);
    const RowFigures &figures = run.Figures[row];
    const double got[] = {run.StepDist[row], run.StepPerimeter[row], grain - run.StepSection[row],
                          figures.CoreArea,  figures.EndsArea,       figures.CoreArea + figures.EndsArea,
                          figures.Kn};
    const double size[] = {run.GrainRadius, run.GrainRadius, grain,    run.MaxBurnArea,
                           run.MaxBurnArea, run.MaxBurnArea, run.MaxKn};
    std::stringstream fields(line);
    std::string field;
    for (int k = 0; k < 7; ++k) {
      ASSERT_TRUE(std::getline(fields, field, ','));
      EXPECT_NEAR(got[k], std::stod(field), 1e-7 * size[k]) << "row " << row + 1 << ", column " << k + 1;
    }
  }
  EXPECT_EQ(row, run.RowsReached);
}

INSTANTIATE_TEST_SUITE_P(Shipped, Example, testing::ValuesIn(Designs()),
                         [](const testing::TestParamInfo<std::filesystem::path> &one) {
                           return one.param.stem().string();
                         });

} // namespace
