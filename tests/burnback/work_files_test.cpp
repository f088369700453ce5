// The work files of a run, read back as another program would.
#include "base/text_record.h"
#include "base/whole_file.h"
#include "burnback/burn_run.h"
#include "burnback/designs.h"
#include "burnback/run_at_step.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <unistd.h>

namespace {

struct Files : testing::Test {
  std::string Folder;
  Design Star = MakeDesign(50);
  BurnRun Run;
  void SetUp() override {
    Folder = testing::TempDir() + "/work_files_" + std::to_string(getpid()) + "/";
    std::filesystem::remove_all(Folder);
    std::filesystem::create_directories(Folder);
    AddRows(Star, RoundedPolygon(StarCorners(6, 16, 8, 0.1, 0.8, 0.5)));
  }
  void TearDown() override { std::filesystem::remove_all(Folder); }
  void Burn(int debugMode, bool knBatch) {
    BurnOptions options;
    options.WorkFolder = Folder;
    options.DebugMode = debugMode;
    options.KnBatch = knBatch;
    BurnRefusal refusal;
    ASSERT_TRUE(BurnDesign(Star, options, Run, refusal)) << refusal.Text;
  }
  std::string Bytes(const char *name) {
    std::string bytes;
    EXPECT_EQ(ReadWhole(Folder + name, bytes), "");
    return bytes;
  }
};

TEST_F(Files, GraphicFileHoldsTheWholeBurn) {
  for (const int debug : {0, 1}) {
    Burn(debug, false);
    const std::string bytes = Bytes("GraphicFile");
    RecordReader in{bytes};
    double perimeter = 0;
    int steps = 0, cases = 0;
    for (int type; Take(in, type);) {
      if (type == 8) {
        if (perimeter > 0) {
          EXPECT_NEAR(perimeter, Run.StepPerimeter.at(steps++), 1e-9);
        }
        perimeter = 0;
        continue;
      }
      ASSERT_TRUE(type == 1 || type == 4 || type == 2);
      double f[9];
      const int count = type == 1 ? 8 : 9;
      for (int i = 0; i < count; ++i) ASSERT_TRUE(Take(in, f[i])) << in.Trouble;
      int index;
      ASSERT_TRUE(Take(in, index));
      const double *wall = f + count - 4;
      cases += wall[0] != 0 || wall[1] != 0 || wall[2] != 0 || wall[3] != 0;
      const bool caseArc = type != 1 && f[0] == 0 && f[1] == 0 && f[2] == 25; // the debug display's wall arcs
      if (caseArc) continue;
      if (type == 1)
        perimeter += std::hypot(f[2] - f[0], f[3] - f[1]);
      else
        perimeter += f[2] * (f[4] > f[3] ? f[4] - f[3] : f[4] - f[3] + TwoPi);
    }
    EXPECT_TRUE(AtEnd(in));
    EXPECT_EQ(steps, Run.StepCount);
    EXPECT_EQ(cases > 0, debug == 1); // the points at the wall are told in debug mode only
  }
}

TEST_F(Files, CheckFileAndKnProfile) {
  Burn(0, true);
  const std::string check = Bytes("CheckFile"), kn = Bytes("KnProfile");
  RecordReader in{check};
  std::string text;
  for (const char *head : {"Core Area", "Ends Area", "Regression Dist"}) {
    ASSERT_TRUE(Take(in, text));
    EXPECT_EQ(text, head);
  }
  RecordReader profile{kn};
  for (const ResultRow &row : Run.Result) {
    double b, value;
    ASSERT_TRUE(Take(in, text));
    EXPECT_NEAR(std::stod(text), row.CoreArea, 1e-6 * row.CoreArea + 1e-4);
    ASSERT_TRUE(Take(in, text));
    EXPECT_NEAR(std::stod(text), row.EndsArea / 2, 1e-6 * row.EndsArea + 1e-4); // the section, once
    ASSERT_TRUE(Take(in, text));
    EXPECT_NEAR(std::stod(text), row.BurnDist, 0.00501);
    ASSERT_TRUE(Take(profile, b) && Take(profile, value));
    EXPECT_NEAR(b, row.BurnDist, 1e-5);
    EXPECT_NEAR(value, row.Kn, 1e-6 * value);
  }
  EXPECT_TRUE(AtEnd(in));
  EXPECT_TRUE(AtEnd(profile));
}

TEST_F(Files, ExportRunAtAStepOfItsOwn) {
  // A tube in closed form: whole steps give the core, half steps the conduit.
  Design tube = MakeDesign(50, 120, 9, 3);
  AppendRow(tube.Table, MakeCircle(0, 0, 10));
  BurnOptions options;
  options.WorkFolder = Folder;
  BurnRefusal refusal;
  const double s = 0.7;
  ASSERT_TRUE(RunSim3(tube, options, s, Run, refusal)) << refusal.Text;
  ASSERT_EQ(Run.StepCount, 21); // 10 + 21 x 0.7 = 24.7
  for (int i = 0; i < Run.RowsReached; ++i) {
    const double b = (i + 1) * s, r = 10 + b;
    EXPECT_NEAR(Run.Figures[i].CoreArea, (120 - 2 * b) * TwoPi * r, 1e-7);
    // The midpoint rule is exact for a perimeter that grows evenly; it ends at 24.7.
    const double outer = 10 + 21 * s;
    EXPECT_NEAR(Run.Figures[i].EndsArea, 2 * Pi * (outer * outer - r * r), 1e-6);
    EXPECT_NEAR(Run.Result[i].ConduitArea, Pi * 625 - Pi * (outer * outer - r * r), 1e-3);
  }
  EXPECT_FALSE(Bytes("GraphicFile").empty());
  EXPECT_FALSE(Bytes("GraphicFile2").empty());
  for (const double bad : {0.0, -1.0, 25.1, 0.001})
    EXPECT_FALSE(RunSim3(tube, options, bad, Run, refusal)) << bad;
}

TEST_F(Files, OutlinesLieOnTheDrawing) {
  Burn(0, false);
  // The first outline stands half a step from the design as drawn, whatever turn the run needed.
  for (std::size_t i = Run.Steps.Start[0]; i < Run.Steps.Start[1]; ++i) {
    const OutlineRow &o = Run.Steps.Row[i];
    double nearest = 1e9;
    for (int k = 0; k <= Star.Table.EntCount; ++k) {
      const Entity &e = Star.Table.Row[k];
      nearest =
          std::min({nearest, std::hypot(e.X1 - o.X1, e.Y1 - o.Y1), std::hypot(e.X2 - o.X1, e.Y2 - o.Y1)});
    }
    EXPECT_LT(nearest, 0.05);
  }
}

} // namespace
