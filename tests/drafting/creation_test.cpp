// Lines, circles, arcs, boxes and polygons: a script of clicks and answers, and the rows it must leave.
#include "shell/journey.h"

#include "geometry/carrier.h"

#include <cmath>

namespace {

constexpr double Degree = 3.14159265358979323846 / 180;

Entity Arc(double x, double y, double r, double from, double to) {
  return MakeArc(x, y, r, from * Degree, to * Degree);
}
Entity Circle(double x, double y, double r) { return CircleRow({x, y}, r); }

double Bad(const Entity &a, const Entity &b) {
  if (a.EntType != b.EntType) return 1e9;
  double worst = a.EntType == LineType ? std::abs(a.Slope - b.Slope) : 0;
  for (const double off :
       {a.X1 - b.X1, a.Y1 - b.Y1, a.X2 - b.X2, a.Y2 - b.Y2, a.CenterX - b.CenterX, a.CenterY - b.CenterY,
        a.Radius - b.Radius, a.StartAngle - b.StartAngle, a.EndAngle - b.EndAngle})
    worst = std::max(worst, std::abs(off));
  return worst;
}

// Lines of a script stand apart by "|".
std::string Script(std::string text) {
  for (char &c : text)
    if (c == '|') c = '\n';
  return "grain 40 100 5 none\n" + text + "\n";
}

struct Creation : Journey {
  void Run(const std::string &text) {
    Program.reset();
    SetUp(); // an empty work folder: no drawing is found again
    Start();
    Play(Script(text));
  }
  const EntityTable &Table() { return Bench().Grain.Table; }
};

const std::string Upright = "cmd 1|click 3 -8|click 3 8|", Sloped = "cmd 1|click 0 0|click 8 6|";

TEST_F(Creation, EachToolLeavesItsRows) {
  const double s = std::sqrt(0.5) * 5, h = std::sqrt(0.75);
  const struct {
    std::string Text;
    std::vector<Entity> Rows; // the last ones of the table
  } cases[] = {
      {"cmd 1|click 0 0|click 10 5", {MakeLine(0, 0, 10, 5)}},
      {"cmd 2|click 0 0|click 5 0|click 5 5|click 5 5|click 0 5",
       {MakeLine(0, 0, 5, 0), MakeLine(5, 0, 5, 5), MakeLine(5, 5, 0, 5)}},
      {Upright + "cmd 3|click 3 0|answer -60|click 2 3|click 12 3", {MakeLine(2, 3, 9.5, 3 + 5 * h)}},
      {Upright + "cmd 4|answer 2.5|click 3 0|click 9 -30|click 3 1|click 0 0",
       {MakeLine(5.5, -8, 5.5, 8), MakeLine(.5, -8, .5, 8)}},
      {Upright + "cmd 5|click 3 0|click -4 1", {MakeLine(-4, -8, -4, 8)}},
      {Sloped + "cmd 6|click 4 3|click 7 -1", {MakeLine(7, -1, 4, 3)}},
      {Sloped + "cmd 6|click 4 3|click 4 3|click 2 7", {MakeLine(4, 3, 1.36, 6.52)}},
      {"cmd 7|click 1 2|click 9 50", {MakeLine(1, 2, 9, 2)}},
      {"cmd 8|click 1 2|click 90 5", {MakeLine(1, 2, 1, 5)}},
      {"cmd 9|click 1 2|click 9 5|click 1 2|click 3 -5", {MakeLine(1, 2, 9, 2), MakeLine(1, 2, 1, -5)}},
      {"cmd 20|answer 3|click 1 2|click 5 2", {Circle(1, 2, 3), Circle(5, 2, 3)}},
      {"cmd 21|answer 2*3|click 1 2", {Circle(1, 2, 3)}},
      {"cmd 22|click -4 1|click 4 1", {Circle(0, 1, 4)}},
      {"cmd 23|click 5 0|click 0 5|click -5 0", {Circle(0, 0, 5)}},
      {"cmd 24|click 1 1|click 4 5", {Circle(1, 1, 5)}},
      {"cmd 24|click 1 1|type X_Input 10|key Enter", {Circle(1, 1, 5)}},
      {"cmd 30|answer 4|answer 350|answer 370|click 0 1", {Arc(0, 1, 4, 350, 10)}},
      {"cmd 30|answer 4|answer 0|answer 360|click 0 1", {Circle(0, 1, 4)}},
      {"cmd 31|answer 8|answer -90|answer 90|click 0 1", {Arc(0, 1, 4, 270, 90)}},
      {"cmd 32|answer 0|answer 90|click 1 1|click 4 5", {Arc(1, 1, 5, 0, 90)}},
      {"cmd 33|answer 90|click 5 0|click 0 5", {Arc(0, 0, 5, 0, 90)}},
      {"cmd 33|answer -90|click 5 0|click 0 5", {Arc(5, 5, 5, 180, 270)}},
      {"cmd 33|answer 270|click 5 0|click 0 5", {Arc(5, 5, 5, 270, 180)}},
      {"cmd 34|click 5 0|click 0 5|click -5 0", {Arc(0, 0, 5, 0, 180)}},
      {"cmd 34|click 0 5|click 5 0|click 0 -5", {Arc(0, 0, 5, 270, 90)}},
      {"cmd 51|type BoxWidth 6|type BoxHeight 2*2|press CC|press AcceptBoxWH|click 1 1",
       {MakeLine(-2, 3, 4, 3), MakeLine(4, 3, 4, -1), MakeLine(4, -1, -2, -1), MakeLine(-2, -1, -2, 3)}},
      {"cmd 51|press BR|type BoxWidth 6|key Enter|click 7 -1",
       {MakeLine(1, 9, 7, 9), MakeLine(7, 9, 7, -1), MakeLine(7, -1, 1, -1), MakeLine(1, -1, 1, 9)}},
      {"cmd 52|click 3 4|click -1 1",
       {MakeLine(3, 4, -1, 4), MakeLine(-1, 4, -1, 1), MakeLine(-1, 1, 3, 1), MakeLine(3, 1, 3, 4)}},
      {"cmd 53|type PolySides 4|press PolyAccept|click 0 0",
       {MakeLine(5, -5, 5, 5), MakeLine(5, 5, -5, 5), MakeLine(-5, 5, -5, -5), MakeLine(-5, -5, 5, -5)}},
      {"cmd 53|type PolySides 4|press PolyCorner|type PolyRotate 45|key Enter|click 0 0",
       {MakeLine(5, 0, 0, 5), MakeLine(0, 5, -5, 0), MakeLine(-5, 0, 0, -5), MakeLine(0, -5, 5, 0)}},
      {"cmd 20|answer 5|click 0 0|cmd 54|click 5 0|answer 2|box OK|answer 4|answer 45|answer 405",
       {Circle(0, 0, 5), MakeLine(s, s, -s, s), MakeLine(-s, s, -s, -s), MakeLine(-s, -s, s, -s),
        MakeLine(s, -s, s, s)}},
  };
  for (const auto &c : cases) {
    SCOPED_TRACE(c.Text);
    Run(c.Text);
    const int before = Table().EntCount + 1 - static_cast<int>(c.Rows.size());
    ASSERT_GE(before, 0);
    for (std::size_t i = 0; i < c.Rows.size(); ++i)
      EXPECT_LT(Bad(RowAt(Table(), before + static_cast<int>(i)), c.Rows[i]), 1e-9) << i;
  }
}

TEST_F(Creation, RefusalsLeaveTheDrawingAndTheStep) {
  const struct {
    std::string Text, Message;
    int Rows;
  } cases[] = {
      {"cmd 23|click 1 1|click 5 5|click 1 1|box OK|expect prompt Indicate 3rd Point / Indicate Position",
       "Error: All 3 Points Must be at different Positions", 0},
      {"cmd 34|click 1 1|click 5 5|click 9 9|box OK", "Error: Can't Find Solution", 0},
      {"cmd 33|answer 90|click 1 1|click 1 1|box OK|click 4 4", "Start and Ending Points are identical", 1},
      {"cmd 52|click 1 1|click 1 5|box OK|expect hidden UserPrompt",
       "ERROR: Height & Width of Box must be Greater than 0", 0},
      {"cmd 51|type BoxWidth -1|press AcceptBoxWH|box OK|expect visible BoxWH_Frame",
       "ERROR: Height & Width of Box must be Greater than 0", 0},
      {"cmd 51|type BoxWidth 1/0|key Enter|box OK|expect visible BoxWH_Frame", "ERROR: ", 0},
      {"cmd 53|type PolySides 2.5|key Enter|box OK|type PolySides 302|key Enter|box OK", "ERROR: A whole", 0},
      {Upright + "cmd 5|click 3 0|click 3 30|box OK|click 5 5", "Error: Can't Find Solution", 2},
      {"cmd 6|click 3 0|box OK|expect prompt Select a line / Indicate Position", "No Line Found", 0},
      {"cmd 54|click 3 0|box OK", "No Circle or Arc Found", 0},
      {"cmd 24|click 1 1|click 1 1|box OK", "ERROR: Entity's too small", 0},
      {"cmd 20|answer 0|box OK|answer -3|box OK|answer abc|box OK|answer cancel|expect hidden UserPrompt",
       "ERROR: ", 0},
  };
  for (const auto &c : cases) {
    SCOPED_TRACE(c.Text);
    Run(c.Text);
    EXPECT_EQ(Table().EntCount + 1, c.Rows);
    EXPECT_TRUE(Screen().LastBox.starts_with(c.Message)) << Screen().LastBox;
  }
}

TEST_F(Creation, BackGoesThroughTheQuestionsAndFrames) {
  Run("cmd 51|press AcceptBoxWH|expect hidden BoxWH_Frame|click 0 0|back 0 0|expect visible BoxWH_Frame|"
      "expect disabled DrawPanel|click 1 1|expect count 4|back 0 0|expect hidden BoxWH_Frame|"
      "expect enabled DrawPanel|expect hidden UserPrompt");
  Run("cmd 53|expect prompt Enter Polygon Attributes / Indicate Position|key Enter|"
      "expect prompt Indicate Center Point / Indicate Position|back 0 0|expect visible Poly_Frame|"
      "press PolyCancel|expect hidden UserPrompt|expect hidden Poly_Frame");
  Run(Upright + "cmd 4|answer 2|click 3 0|expect prompt Indicate Side / Indicate Position|back 0 0|answer 4|"
                "expect prompt Select a line / Indicate Position|click 3 0|click 9 0");
  EXPECT_NEAR(RowAt(Table(), 1).X1, 7, 1e-9);
  Run(Upright + "cmd 3|click 3 0|answer 10|expect prompt Indicate Starting Point / Indicate Position|"
                "click 0 0|back 0 0|back 0 0|expect prompt Select a line / Indicate Position|back 0 0|"
                "expect hidden UserPrompt");
}

TEST_F(Creation, RotationDrawRepeatsAsOneChange) {
  Run("cmd 97|answer 0|box OK|answer 302|box OK|answer 7|expect text RotateDraw R=7|"
      "expect enabled DeactivateRDraw|cmd 1|click 5 1|click 9 2|expect count 7|key Ctrl+Z|expect count 0|"
      "cmd 20|answer 3|click 0 0|box No|expect count 1|click 0 0|box Yes|expect count 8|"
      "press DeactivateRDraw|expect text RotateDraw R=1|expect disabled DeactivateRDraw|click 0 0|"
      "expect count 9");
  EXPECT_EQ(Bench().Draft.Rotation.RotationCount, 7);
  Run("cmd 97|answer 301|cmd 1|click 5 1|click 9 2|expect count 301|click 1 1|click 2 2|box OK|"
      "expect count 301");
}

TEST_F(Creation, InputsAreLoggedWithTheirValues) {
  Run("cmd 20|answer 5|click 0 0|key Escape");
  Bench().Draft.Log = {};
  Bench().Draft.Log.On = true;
  Play("cmd 51\ntype BoxWidth 6\ntype BoxHeight 2*2\npress CC\npress AcceptBoxWH\ncmd 53\npress PolyCorner\n"
       "key Escape\ncmd 54\nclick 5 0\nanswer 4\nanswer 0\nanswer 45*8\nkey Escape\n");
  const std::vector<Instruction> expected{{51, 0, 0, 0, ""},          {51, 6, 4, 5, ";2*2"},
                                          {53, 0, 0, 0, ""},          {LogPolyOption, 1, 0, 0, ""},
                                          {LogEscape, 0, 0, 0, ""},   {54, 0, 0, 0, ""},
                                          {LogFoundEnt, 0, 5, 0, ""}, {54, 4, 0, 360, ";;45*8"},
                                          {LogEscape, 0, 0, 0, ""}};
  std::vector<Instruction> got = Bench().Draft.Log.Row;
  for (Instruction &step : got) step.PlotType = step.SelectionType = 0; // what the screen stood at
  EXPECT_EQ(got, expected);
}

} // namespace
