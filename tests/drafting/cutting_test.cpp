// The commands that pick and solve, through the machine: rows in, a script, rows out; then undo.
#include "shell/journey.h"

#include "geometry/carrier.h"

#include <cmath>
#include <sstream>

namespace {

// "L x1 y1 x2 y2", "C x y radius", "A x y radius from to" (degrees), parted by ";".
EntityTable Rows(const std::string &text) {
  EntityTable table;
  std::istringstream rows(text);
  for (std::string row; std::getline(rows, row, ';');) {
    std::istringstream in(row);
    char kind = 0;
    double a = 0, b = 0, c = 0, e = 0, f = 0;
    in >> kind >> a >> b >> c >> e >> f;
    if (kind == 'L') AppendRow(table, MakeLine(a, b, c, e));
    if (kind == 'C') AppendRow(table, CircleRow({a, b}, c));
    if (kind == 'A') AppendRow(table, MakeArc(a, b, c, NormalAngle(e * Pi / 180), NormalAngle(f * Pi / 180)));
  }
  return table;
}

// A line's midpoint is left out: the round end keeps one as it was.
double Apart(const Entity &a, const Entity &b) {
  if (a.EntType != b.EntType) return 1e9;
  const double ends = std::hypot(a.X1 - b.X1, a.Y1 - b.Y1) + std::hypot(a.X2 - b.X2, a.Y2 - b.Y2);
  const double turned = std::hypot(a.X1 - b.X2, a.Y1 - b.Y2) + std::hypot(a.X2 - b.X1, a.Y2 - b.Y1);
  if (a.EntType == LineType) return std::min(ends, turned);
  return std::max({ends, Distance(CentreOf(a), CentreOf(b)), std::abs(a.Radius - b.Radius)});
}

struct Cutting : Journey {
  void Run(std::string steps) { // parted by "; "
    for (auto at = steps.find("; "); at != steps.npos; at = steps.find("; ")) steps.replace(at, 2, "\n");
    Play(steps);
  }
  void Expect(const std::string &rows) {
    const EntityTable wanted = Rows(rows), &found = Bench().Grain.Table;
    ASSERT_EQ(found.EntCount, wanted.EntCount);
    for (int i = 0; i <= wanted.EntCount; ++i) {
      EXPECT_LT(Apart(RowAt(found, i), RowAt(wanted, i)), 5e-6) << "row " << i;
      EXPECT_FALSE(RowAt(found, i).Selected) << "row " << i;
    }
  }
};

const std::string Corner = "L 0 0 10 0; L 0 0 0 10";
const std::string Triangle = "L 0 0 12 0; L 0 0 0 9; L 12 0 0 9";
const std::string Slot = "L -5 0 6 0; L 6 0 6 4; L 6 4 -5 4";
const std::string Cross = "L -10 0 10 0; L -3 -8 -3 8; L 4 -8 4 8";
const std::string Disc = "C 0 0 5; L 3 -8 3 8; L -3 -8 -3 8";

struct Case {
  const char *Name;
  std::string Before;
  const char *Script;
  std::string After;
  int Changes = 1; // undo steps back to Before
};

TEST_F(Cutting, EachCommand) {
  const Case cases[] = {
      {"10", "C 0 0 5", "cmd 10; click 1.9 4.6; expect prompt Indicate Point / Indicate Position; click 13 0",
       "C 0 0 5; L 13 0 1.923076923 4.615384615"},
      {"11 outer", "C -8 0 2; C 8 0 2", "cmd 11; click -8 2; click 8 2", "C -8 0 2; C 8 0 2; L -8 2 8 2"},
      {"11 inner", "C -8 0 2; C 8 0 2", "cmd 11; click -8 2; click 8 -2",
       "C -8 0 2; C 8 0 2; L -7.5 1.936491673 7.5 -1.936491673"},
      {"12", "L -10 -5 10 -5; C 0 5 3", "cmd 12; click -6 -5; click 0 8; click -6 -5; click 0 2",
       "L -10 -5 10 -5; C 0 5 3; L 0 -5 0 8; L 0 -5 0 2", 2},
      {"25", Triangle, "cmd 25; click 6 0; click 0 4.5; click 6 4.5", Triangle + "; C 3 3 3"},
      {"35", Triangle, "cmd 35; click 6 0; click 0 4.5; click 6 4.5", Triangle + "; A 3 3 3 53.13010235 270"},
      {"26, typed last", Corner,
       "cmd 26; click 5 0; click 0 5; expect prompt Enter Radius / Indicate Position; click 5 5; type "
       "X_Input 4/2; key Enter",
       Corner + "; C 2 2 2"},
      {"26, typed first and again by Enter", Corner,
       "cmd 26; type X_Input 3; key Enter; click 5 0; click 0 5; click 5 0; click 0 5; type X_Input 1; key "
       "Enter",
       Corner + "; C 3 3 3; C 1 1 1", 2},
      {"26, a step back asks again", Corner,
       "cmd 26; type X_Input 3; key Enter; click 5 0; back 0 0; click 5 0; click 0 5; expect count 2; type "
       "X_Input 1; key Enter",
       Corner + "; C 1 1 1"},
      {"36", Corner, "cmd 36; click 5 0; click 0 5; type X_Input 2; key Enter", Corner + "; A 2 2 2 0 90"},
      {"55", Corner, "cmd 55; answer 2; click 5 0; click 0 5", "L 2 0 10 0; L 0 2 0 10; A 2 2 2 180 270"},
      {"55, another radius by a step back", Corner,
       "cmd 55; answer 2; back 0 0; answer 3; click 5 0; click 0 5",
       "L 3 0 10 0; L 0 3 0 10; A 3 3 3 180 270"},
      {"56", Corner, "cmd 56; answer 2; click 5 0; back 0 0; click 0 5; click 5 0",
       Corner + "; A 2 2 2 180 270"},
      {"57", Corner, "cmd 57; answer 1; answer 2; click 5 0; click 0 5", "L 2 0 10 0; L 0 1 0 10; L 2 0 0 1"},
      {"58, middle first", Slot, "cmd 58; click 6 2; click 2 0; click 2 4",
       "L -5 0 4 0; L 4 4 -5 4; A 4 2 2 270 90"},
      {"60", Cross, "cmd 60; click -5 0; click 4 3; click 4 -3; click -5 0",
       "L -10 0 4 0; L -3 -8 -3 8; L 4 -8 4 0", 2},
      {"60 to the grain's edge", "L 0 1 9 1", "cmd 60; click 5 1; click 19.9 1", "L 0 1 19.974984356 1"},
      {"61", Cross, "cmd 61; click 0 0; click 4 5", "L -10 0 4 0; L -3 -8 -3 8; L 4 0 4 8"},
      {"62", Cross, "cmd 62; click 8 0; click -3 5; click 4 5", "L -3 0 4 0; L -3 -8 -3 8; L 4 -8 4 8"},
      {"62, one cutter twice", Disc, "cmd 62; click 5 0; click 3 -4.5; click 3 4.5",
       "A 0 0 5 -53.13010235 53.13010235; L 3 -8 3 8; L -3 -8 -3 8"},
      {"63", Cross, "cmd 63; click 0 0; click -3 5; click 4 5",
       "L -10 0 -3 0; L -3 -8 -3 8; L 4 -8 4 8; L 4 0 10 0"},
      {"64", Cross,
       "cmd 64; click 0 0; click -3 5; expect prompt Select Entity to Trim / Indicate Position; click 4 5; "
       "back 0 0; expect prompt Select Trimming Entity / Indicate Position",
       "L -10 0 10 0; L -3 0 -3 8; L 4 0 4 8", 2},
      {"65", Cross, "cmd 65; click 0 0; click 4 5", "L -10 0 4 0; L -3 -8 -3 8; L 4 -8 4 8; L 10 0 4 0"},
      {"66", "L -10 0 10 0; L 4 -8 4 8", "cmd 66; click 0 0; click 4 5",
       "L -10 0 4 0; L 4 -8 4 0; L 10 0 4 0; L 4 8 4 0"},
      {"67", Cross, "cmd 67; click 0 0; click -3 5; click 4 5",
       "L -10 0 -3 0; L -3 -8 -3 8; L 4 -8 4 8; L -3 0 4 0; L 4 0 10 0"},
      {"68", Cross, "cmd 68; click 0 0; click -3 5; click 4 5",
       "L -10 0 10 0; L -3 -8 -3 0; L 4 -8 4 0; L -3 8 -3 0; L 4 8 4 0", 2},
      {"69, all four ways", Disc + "; L 9 9 9 12", "cmd 69; click 3 0; click -3 7; click 5 0; click 9 10",
       "A 0 0 5 53.13010235 -53.13010235; L 3 -8 3 -4; L -3 -8 -3 4; L 3 4 3 8", 4},
  };
  ASSERT_TRUE(Start());
  for (const Case &c : cases) {
    SCOPED_TRACE(c.Name);
    Bench().Grain.Table = Rows(c.Before);
    Run(std::string(c.Script) + "; key Escape");
    Expect(c.After);
    for (int i = 0; i < c.Changes; ++i) Play("key Ctrl+Z");
    Expect(c.Before);
  }
}

// Each ends with rows as they were; the prompt tells which picks are still held.
TEST_F(Cutting, FailuresChangeNothing) {
  const Case cases[] = {
      {"nothing near", Cross,
       "cmd 55; answer 2; click 12 12; expect box No Entity Found; cmd 60; click 12 12; expect box Entity "
       "not found; cmd 69; click 12 12; expect box Entity not found",
       ""},
      {"only lines for a chamfer, only rounds for a tangent", Disc,
       "cmd 57; answer 1; answer 1; click 0 5; expect box No Entity Found; click 3 2; expect prompt Select "
       "Second Line / Indicate Position; cmd 10; click 3 7; expect box No Circle or Arc Found; click 5 0; "
       "click 1 1; expect box ERROR: Point must be Outside Circle or Arc; expect prompt Indicate Point / "
       "Indicate Position",
       ""},
      {"tangents: the first pick stays", "C 0 0 5; C 0 0 3; C 1 0 2",
       "cmd 11; click 0 5; click 0 -3; expect box ERROR: No Solution Found; expect prompt Select the Second "
       "Arc or Circle / Indicate Position; cmd 12; click 0 5; click 0 -3; expect box ERROR: No Solution",
       ""},
      {"three lines begin again", "L 0 0 9 0; L 0 3 9 3; L 0 6 9 6",
       "cmd 25; click 4 0; click 4 3; click 4 6; expect box Error: Can't solve for 3 parallel lines; expect "
       "prompt Select First Line / Indicate Position",
       ""},
      {"fillets begin again", Corner + "; A 0 -10 3 0 180; A 12 -10 3 0 180",
       "cmd 55; answer 20; click 5 0; click 0 5; expect box Chosen Radius Too Large for chosen Arc(s); "
       "expect prompt Select First Entity / Indicate Position; click 0 -7; click 12 -7; expect box Error - 2 "
       "Arcs don't Intersect; click 5 0; click 0 -7; expect box Error: Can't find Intersection",
       ""},
      {"a typed radius", Corner,
       "cmd 26; click 5 0; click 0 5; type X_Input 0; key Enter; expect box ERROR: Zero Value not Allowed; "
       "expect prompt Enter Radius / Indicate Position",
       ""},
      {"questions", Corner,
       "cmd 55; answer -1; expect box must be entered; answer 0; expect box ERROR: Zero Value not Allowed; "
       "answer cancel; expect prompt; cmd 57; answer 1; answer cancel; expect prompt; cmd 56; answer 1; back "
       "0 0; answer cancel; expect prompt",
       ""},
      {"circles that cannot be cut so", Disc,
       "cmd 60; click 5 0; expect box Can't Trim Circles with this Option! Use Trim Both Ends Option; cmd "
       "61; click 3 7; click 5 0; expect box Use the 'Trim Entity at Both Ends' Button; expect prompt Select "
       "Second Entity to Trim or Extend / Indicate Position; cmd 63; click 5 0; expect box Use Double Trim "
       "to divide circles; cmd 64; click 3 7; click 5 0; expect box Entity not found or Invalid Entity "
       "Selected: Can't Single Trim Circles; click 12 12; expect box Can't Single Trim Circles; expect "
       "prompt Select Entity to Trim / Indicate Position",
       ""},
      {"the entity held", Cross,
       "cmd 60; click -8 0; click -8 0; expect box ERROR: Entity already Selected!; cmd 62; click -8 0; "
       "click -8 0; expect box Entity to be Trimmed as Trimming Entity; click -3 5; click -8 0; expect box "
       "Entity to be Trimmed as Timming Entity; expect prompt Select Second Trimming Entity / Indicate "
       "Position; click -3 6; expect box Error: Can't find Intersection; cmd 64; click -8 0; click -8 0; "
       "expect box ERROR: Entity already Selected!",
       ""},
      {"cutters", Cross + "; L -10 6 -6 6",
       "cmd 60; click -8 6; click -8 0; expect box Can't Solve for Parallel Lines; click 12 12; expect box "
       "Entity not found or Invalid Entity Selected; cmd 63; click -8 6; click -3 5; click 4 5; expect box "
       "Trimming Points must be inside line End Points; cmd 65; click -8 6; click -3 5; expect box ERROR: "
       "Breakpoint must be *ON* line; expect prompt Select Breaking Entity / Indicate Position; cmd 61; "
       "click -8 6; click -14.1421356 14.1421356; expect box Entity not found or Invalid",
       ""},
      {"arcs apart: nothing to do, no step", "A -8 0 3 0 180; A 8 0 3 0 180", "cmd 60; click -8 3; click 8 3",
       ""},
  };
  ASSERT_TRUE(Start());
  for (const Case &c : cases) {
    SCOPED_TRACE(c.Name);
    Bench().Grain.Table = Rows(c.Before);
    const unsigned changes = Bench().Draft.Changes;
    Run(std::string(c.Script) + "; key Escape");
    Expect(c.Before);
    EXPECT_EQ(Bench().Draft.Changes, changes);
  }
}

TEST_F(Cutting, RotationDrawCutsTheImagesAsOneChange) {
  const std::string spokes = "L 0 0 15 0; L 0 0 0 15; L 0 0 -15 0; L 0 0 0 -15";
  const std::string corners = "L 5 5 12 5; L 5 5 5 12; L -5 5 -5 12; L -5 5 -12 5; L -5 -5 -12 -5; L -5 -5 "
                              "-5 -12; L 5 -5 5 -12; L 5 -5 12 -5";
  const Case cases[] = {
      {"fillets", corners, "cmd 55; answer 1; click 8 5; click 5 8",
       "L 6 5 12 5; L 5 6 5 12; L -5 6 -5 12; L -6 5 -12 5; L -6 -5 -12 -5; L -5 -6 -5 -12; L 5 -6 5 -12; L "
       "6 -5 12 -5; A 6 6 1 180 270; A -6 6 1 270 0; A -6 -6 1 0 90; A 6 -6 1 90 180"},
      {"tangent arcs turn their angles", corners, "cmd 36; click 8 5; click 5 8; type X_Input 2; key Enter",
       corners + "; A 7 7 2 0 90; A -7 7 2 90 180; A -7 -7 2 180 270; A 7 -7 2 270 0"},
      {"sections of spokes past a circle", spokes + "; C 0 0 10", "cmd 69; click 12 0; click 5 0", "C 0 0 10",
       2},
      {"the mouths of slots",
       "C 0 0 10; L 6 2 14 2; L 6 -2 14 -2; L -2 6 -2 14; L 2 6 2 14; L -6 -2 -14 -2; L -6 2 -14 2; L 2 -6 2 "
       "-14; L -2 -6 -2 -14",
       "cmd 69; click 10 0",
       "A 0 0 10 11.53695903 78.46304097; L 6 2 14 2; L 6 -2 14 -2; L -2 6 -2 14; L 2 6 2 14; L -6 -2 -14 "
       "-2; L -6 2 -14 2; L 2 -6 2 -14; L -2 -6 -2 -14; A 0 0 10 101.53695903 168.46304097; A 0 0 10 "
       "191.53695903 258.46304097; A 0 0 10 281.53695903 348.46304097"},
      {"breaks stop with a message where an image is missing", spokes + "; C 10 0 3; C 0 10 3",
       "cmd 65; click 3 0; click 7.1 0.7; expect box An Error has Occured During the Rotational Break: "
       "Forced to Abort",
       "L 0 0 7 0; L 0 0 0 7; L 0 0 -15 0; L 0 0 0 -15; C 10 0 3; C 0 10 3; L 15 0 7 0; L 0 15 0 7"},
      {"the multiple trim cuts one alone", spokes + "; C 0 0 10",
       "cmd 64; click 7.0710678 7.0710678; click 5 0",
       "L 0 0 10 0; L 0 0 0 15; L 0 0 -15 0; L 0 0 0 -15; C 0 0 10"},
  };
  ASSERT_TRUE(Start());
  Run("cmd 97; answer 4");
  for (const Case &c : cases) {
    SCOPED_TRACE(c.Name);
    Bench().Grain.Table = Rows(c.Before);
    Run(std::string(c.Script) + "; key Escape");
    Expect(c.After);
    for (int i = 0; i < c.Changes; ++i) Play("key Ctrl+Z");
    Expect(c.Before);
  }
}

TEST_F(Cutting, TheSectionUnderThePointerIsShownAndNothingTouched) {
  ASSERT_TRUE(Start());
  Bench().Grain.Table = Rows(Cross + "; C 0 0 20"); // the user's own outer circle as the last row
  Run("cmd 69; move 0 0");
  const auto shown = [&] {
    std::vector<DrawItem> goes = Screen().Panel.Overlay;
    std::erase_if(goes, [](const DrawItem &item) { return item.Role != Ink::WillGo; });
    return goes;
  };
  ASSERT_EQ(shown().size(), 1U);
  EXPECT_NEAR(shown()[0].At[0], -3, 1e-9);
  EXPECT_NEAR(shown()[0].At[2], 4, 1e-9);
  Play("move 12 12");
  EXPECT_EQ(shown().size(), 0U);
  Expect(Cross + "; C 0 0 20");
}

TEST_F(Cutting, PicksAreLoggedOnceTheyCount) {
  ASSERT_TRUE(Start());
  Bench().Grain.Table = Rows(Cross);
  InstructionLog &log = Bench().Draft.Log;
  log.On = true;
  Run("cmd 60; click -8 0; click -8 0; expect box ERROR: Entity already Selected!; click 4 5; cmd 25; click "
      "-3 2; click 4 5; click -3 -5; expect box No Entity Found; back 0 0; back 0 0; cmd 68; click 4 5; "
      "click -6 0; expect box ERROR: Breakpoint must be *ON* line; cmd 57; answer 1; answer 1; click -3 2; "
      "click 4 5; expect box Can't solve for parallel lines; cmd 55; answer 2; back 0 0; answer 3");
  std::string kinds;
  for (const Instruction &step : log.Row) {
    kinds += std::to_string(step.PointArea);
    if (step.PointArea == LogFoundEnt || step.PointArea == LogTrimmingEnt)
      kinds += ":" + std::to_string(static_cast<int>(step.Value1));
    kinds += " ";
  }
  EXPECT_EQ(kinds, "60 130:0 150:2 25 130:1 130:2 151 151 68 150:2 57 203 130:1 151 55 203 151 203 ");
}

} // namespace
