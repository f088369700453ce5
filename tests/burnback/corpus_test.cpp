// Designs that once burnt wrong: burns_* must give a burn that uses up the propellant, refused_* must be
// refused.
#include "burnback/burn_run.h"
#include "shell/grain_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace {

std::vector<std::string> Corpus() {
  std::vector<std::string> names;
  for (const auto &file : std::filesystem::directory_iterator(TEST_SOURCE "/tests/corpus"))
    if (file.path().extension() == ".mvd") names.push_back(file.path().stem().string());
  std::sort(names.begin(), names.end());
  return names;
}

class BurnCorpus : public testing::TestWithParam<std::string> {};

TEST_P(BurnCorpus, BurnsOrIsRefused) {
  Design design;
  ASSERT_EQ(ReadGrainFile(TEST_SOURCE "/tests/corpus/" + GetParam() + ".mvd", design), "");
  BurnRun run;
  BurnRefusal refusal;
  const bool burnt = BurnDesign(design, {}, run, refusal);
  if (GetParam().starts_with("refused_")) {
    EXPECT_FALSE(burnt);
    EXPECT_TRUE(refusal.HasPlace);
    return;
  }
  ASSERT_TRUE(burnt) << refusal.Text;
  EXPECT_EQ(run.Notice, "");
  EXPECT_LT(run.SectionCheck, 1e-3);
  // Between the steps the section shrinks by the front's length: nothing is missing, nothing burns twice.
  for (int i = 1; i < run.StepCount; ++i) {
    const double loss = run.StepSection[i - 1] - run.StepSection[i];
    EXPECT_GE(loss, -1e-9 * run.SectionAtStart) << "step " << i;
    EXPECT_LE(loss, 1.2 * run.BurnIncrement * std::max(run.StepPerimeter[i - 1], run.StepPerimeter[i]))
        << "step " << i;
  }
}

INSTANTIATE_TEST_SUITE_P(Kept, BurnCorpus, testing::ValuesIn(Corpus()),
                         [](const testing::TestParamInfo<std::string> &one) { return one.param; });

} // namespace
