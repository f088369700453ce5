// Outlines that do not burn: the system's words and the place, and nothing written.
#include "base/whole_file.h"
#include "burnback/burn_run.h"
#include "burnback/designs.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <unistd.h>

namespace {

constexpr const char *Unconnected = "Error: Can't Connect Entities";
constexpr const char *EndBurning = "Can't Simulate End Burning Geometries";
constexpr const char *NotClosed = "Error: Selection may not be fully closed:";

std::vector<Entity> Square(double a) {
  return RoundedPolygon({{-a, -a, 0}, {a, -a, 0}, {a, a, 0}, {-a, a, 0}});
}

struct Refused {
  const char *Name;
  std::vector<Entity> Rows;
  std::vector<const char *> AnyOf;
  double X = 1e9, Y = 1e9; // where the place is due, when it is known
};

TEST(Refusal, SaysWhyAndWhere) {
  std::vector<Entity> open = Square(8);
  open[0] = MakeLine(-8, -8, 7.5, -8);
  std::vector<Entity> missing = Square(8);
  missing.pop_back();
  std::vector<Entity> doubled = Square(8);
  doubled.push_back(doubled[1]);
  std::vector<Entity> twice = Square(8);
  for (const Entity &e : Square(8)) twice.push_back(e);
  std::vector<Entity> twoLoops = Square(8);
  for (const Entity &e : Square(3)) twoLoops.push_back(e);
  std::vector<Entity> withCircle = Square(8);
  withCircle.push_back(MakeCircle(0, 0, 3));
  const std::vector<Refused> table = {
      {"empty", {}, {EndBurning}},
      {"gap of half a millimetre", open, {Unconnected, NotClosed}, 7.5, -8},
      {"missing side", missing, {Unconnected, NotClosed}},
      {"one line", {MakeLine(0, 0, 5, 0.3)}, {Unconnected, NotClosed}},
      {"open arc", {MakeArc(0, 0, 5, 0, 4)}, {Unconnected, NotClosed}},
      {"a side drawn twice", doubled, {Unconnected, NotClosed}},
      {"all sides drawn twice", twice, {Unconnected}},
      {"two outlines", twoLoops, {Unconnected}},
      {"a circle beside an outline", withCircle, {Unconnected}},
      {"bow tie", RoundedPolygon({{-8, -5, 0}, {8, 5, 0}, {8, -5, 0}, {-8, 5, 0}}), {Unconnected}, 0, 0},
      {"loop inside",
       RoundedPolygon({{-9, -9, 0}, {9, -9, 0}, {9, 9, 0}, {-2, -6, 0}, {3, -7, 0}, {-9, 9, 0}}),
       {Unconnected}},
      {"only the grain circle", {MakeCircle(0, 0, 20)}, {EndBurning}},
      {"circle larger than the grain", {MakeCircle(1, 0, 30)}, {EndBurning}},
      {"outside the grain", {MakeCircle(40, 0, 5)}, {EndBurning}},
      {"touching from outside", {MakeCircle(25, 0, 5)}, {EndBurning}},
  };
  const std::filesystem::path folder =
      std::filesystem::path(testing::TempDir()) / ("refused_" + std::to_string(getpid()));
  std::filesystem::create_directories(folder);
  for (const Refused &r : table) {
    Design d = MakeDesign(40);
    AddRows(d, r.Rows);
    BurnRun run;
    run.StepCount = 77;
    BurnRefusal refusal;
    BurnOptions options;
    options.WorkFolder = folder.string() + "/";
    EXPECT_FALSE(BurnDesign(d, options, run, refusal)) << r.Name;
    EXPECT_TRUE(std::any_of(r.AnyOf.begin(), r.AnyOf.end(),
                            [&](const char *text) { return refusal.Text.rfind(text, 0) == 0; }))
        << r.Name << ": " << refusal.Text;
    EXPECT_EQ(run.StepCount, 77) << r.Name;
    if (r.X < 1e9) {
      EXPECT_TRUE(refusal.HasPlace) << r.Name;
      EXPECT_NEAR(refusal.X, r.X, 0.51) << r.Name;
      EXPECT_NEAR(refusal.Y, r.Y, 0.51) << r.Name;
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder)) << r.Name;
  }
}

TEST(Refusal, ImpossibleStepsAndFolders) {
  Design d = MakeDesign(40);
  AddRows(d, Square(8));
  BurnRun run;
  for (const double step : {-1.0, 0.001, 21.0, std::nan("")}) {
    BurnRefusal refusal;
    BurnOptions options;
    options.Step = step;
    EXPECT_FALSE(BurnDesign(d, options, run, refusal)) << step;
    EXPECT_TRUE(refusal.BadUse) << step;
  }
  BurnRefusal refusal;
  BurnOptions options;
  options.WorkFolder = "/nowhere/at/all/";
  EXPECT_FALSE(BurnDesign(d, options, run, refusal));
  EXPECT_TRUE(refusal.BadUse);
  EXPECT_NE(refusal.Text.find("/nowhere/at/all/"), std::string::npos);
}

// Rows that burn nothing, and outlines at the edge of what burns, give the plain burn.
TEST(Refusal, HarmlessOddities) {
  const auto burn = [](const std::vector<Entity> &rows) {
    Design d = MakeDesign(40);
    AddRows(d, rows);
    BurnRun run;
    BurnRefusal refusal;
    EXPECT_TRUE(BurnDesign(d, {}, run, refusal)) << refusal.Text;
    return run;
  };
  const BurnRun plain = burn(Square(8));
  std::vector<Entity> withDot = Square(8);
  withDot.push_back(MakeLine(8, 8, 8, 8));
  EXPECT_NEAR(burn(withDot).MaxBurnArea, plain.MaxBurnArea, 1e-6);
  // Angles of another turn, and a file that holds no joining tolerance.
  const std::vector<Entity> round = RoundedPolygon({{-8, -8, 2}, {8, -8, 2}, {8, 8, 2}, {-8, 8, 2}});
  Design odd = MakeDesign(40);
  odd.Doc.JoinTolerance = 0;
  int turn = -1;
  for (Entity e : round) {
    if (e.EntType == ArcType) e.StartAngle += TwoPi * turn, e.EndAngle += TwoPi, ++turn;
    AppendRow(odd.Table, e);
  }
  BurnRun run;
  BurnRefusal refusal;
  ASSERT_TRUE(BurnDesign(odd, {}, run, refusal)) << refusal.Text;
  EXPECT_NEAR(run.MaxBurnArea, burn(round).MaxBurnArea, 1e-6);
  const BurnRun touching = burn(RoundedPolygon({{-8, -8, 0}, {8, -8, 0}, {20, 0, 0}, {8, 8, 0}, {-8, 8, 0}}));
  EXPECT_NEAR(touching.TouchDist, 0.01, 1e-6);
  EXPECT_NEAR(touching.SectionAtStart, Pi * 400 - 256 - 96, 1e-6);
}

TEST(Refusal, StopsWhenAsked) {
  Design d = MakeDesign(40);
  AddRows(d, Square(8));
  BurnOptions options;
  int calls = 0;
  options.Progress = [&](double) { return ++calls < 3; };
  BurnRun run;
  BurnRefusal refusal;
  EXPECT_FALSE(BurnDesign(d, options, run, refusal));
  EXPECT_TRUE(refusal.Stopped);
  EXPECT_EQ(calls, 3);
}

} // namespace
