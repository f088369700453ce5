// How a click becomes a point: the modes, the tracker, the grid and the fields. Circles of radius 1 tell
// where.
#include "shell/journey.h"

#include "drafting/point_modes.h"
#include "geometry/carrier.h"

#include <algorithm>
#include <cmath>

namespace {

std::string Lines(std::string text) {
  for (char &c : text)
    if (c == '|') c = '\n';
  return text;
}

struct Points : Journey {
  void Begin() {
    Program.reset();
    SetUp();
    Start({"Gd=100", "Gl=100", "Ea=1", "Eb=0", "Td=5"});
    EntityTable &table = Bench().Grain.Table;
    AppendRow(table, MakeLine(-20, -30, 10, -30));
    AppendRow(table, MakeLine(10, -35, 10, 15));
    AppendRow(table, CircleRow({0, 0}, 12));
    AppendRow(table, MakeArc(-25, 10, 10, 5 * Pi / 3, Pi / 3)); // through angle 0
    table.Row[3].Y1 = 10 - (table.Row[3].Y1 - 10);              // as a break leaves it
  }
  const Entity &Last() { return RowAt(Bench().Grain.Table, Bench().Grain.Table.EntCount); }
  void ExpectCentre(const std::string &text, Point at) {
    SCOPED_TRACE(text);
    Play(Lines("cmd 20|answer 1|" + text));
    EXPECT_EQ(Last().Radius, 1);
    EXPECT_NEAR(Last().CenterX, at.X, 1e-12);
    EXPECT_NEAR(Last().CenterY, at.Y, 1e-12);
  }
};

TEST_F(Points, EachModeGivesItsPoint) {
  const double up = std::sqrt(75), across = std::sqrt(44);
  const struct {
    std::string Text;
    Point At;
    int RefType, Marks;
  } cases[] = {
      {"click 3 4", {3, 4}, CursorRef, 0},
      {"press End_Ent|click -18 -30.5", {-20, -30}, EndRef, 1},
      {"press End_Ent|click 10.4 14", {10, 15}, EndRef, 1},
      {"press End_Ent|click 0.1 12.2", {12, 0}, EndRef, 1},
      {"press End_Ent|click -15.2 11.7", {-20, 10 + up}, EndRef, 1}, // 10 degrees: 50 from one end
      {"press End_Ent|click -15.5 6.6", {-20, 10 - up}, EndRef, 1},  // -20 degrees: 40 from the other
      {"press Center_of_Ent|click 8 -30.1", {-5, -30}, CentreRef, 1},
      {"press Center_of_Ent|click -15 10", {-25, 10}, CentreRef, 1},
      {"press Intersection|click -9 -30|click 10 3", {10, -30}, IntersectionRef, 1},
      {"press Intersection|click 10 14|click -12 1", {10, across}, IntersectionRef, 1},
      {"press Intersection|click 0 12|click 10 -14", {10, -across}, IntersectionRef, 1},
      {"press Intersection|click 0 12|click 0 12|expect box Line Already Selected"
       "|expect prompt Indicate Center / Indicate Second Entity|click 10 14",
       {10, across},
       IntersectionRef,
       1},
      {"press Along_Line|click -18 -30|answer 40", {20, -30}, AlongRef, 1}, // past the far end
      {"press Along_Line|click 8 -30|answer GRAINDIAMETER/20", {5, -30}, AlongRef, 1},
      {"press Along_Line|click 8 -30|answer -2", {12, -30}, AlongRef, 1},
      {"press Delta|click 1 1|answer 2|answer 3*2|click 20 20", {20, 20}, CursorRef, 0},
      {"press End_Ent|press Delta|click -18 -30|answer 1|answer 0", {-19, -30}, EndRef, 1},
      {"press Key_In|type X_Input 4|key Enter|type Y_Input 2*3|key Enter", {4, 6}, CursorRef, 0},
      {"type Y_Input 7|click 1 2", {1, 7}, CursorRef, 0},
      {"type X_Input 7|key Escape|click 1 2", {1, 2}, CursorRef, 0},
      {"press Intersection|click 0 12|press Cursor|click 2 2", {2, 2}, CursorRef, 0},
  };
  for (const auto &row : cases) {
    Begin();
    ExpectCentre(row.Text, row.At);
    EXPECT_EQ(Bench().Draft.Cmd.RefType, row.RefType) << row.Text;
    EXPECT_FALSE(Bench().Draft.Cmd.DeltaPending);
    // A commit clears the crosses; the first of two points keeps its own.
    Play(Lines("cmd 1"));
    const bool pointMode = row.RefType == CursorRef || row.RefType == CentreRef;
    if (pointMode) Play("click 0 12");
    EXPECT_EQ(Bench().Draft.Marks.size(), row.RefType == CentreRef ? 1U : 0U) << row.Text;
  }
}

TEST_F(Points, WhatFailsChangesNothing) {
  Begin();
  for (const std::string text :
       {"press End_Ent|click 30 30|expect box No Entity Found",
        "press Along_Line|click 0 12|expect box No Line",
        "press Intersection|click 0 12|click -15 10|expect box Error: Can't Find Solution",
        "press Along_Line|click 8 -30|answer cancel", "press Delta|click 8 -30|answer cancel",
        "press Key_In|type X_Input 4+|key Enter|expect box a number is missing",
        "type X_Input 1e9|key Enter|expect box from -1000000 to 1000000|key Escape"}) {
    Play("cmd 1\n");
    Play(Lines(text));
    EXPECT_EQ(Bench().Draft.Cmd.PointCount, -1) << text;
    EXPECT_EQ(Bench().Grain.Table.EntCount, 3);
    Play("press Cursor\n");
  }
}

TEST_F(Points, FieldsMeanWhatTheirLabelsSay) {
  const struct {
    std::string Text;
    Entity Row;
  } cases[] = {
      {"cmd 1|click 1 2|expect text X_Label Length|type X_Input 10|key Enter|type Y_Input 180/2|key Enter",
       MakeLine(1, 2, 1, 12)},
      {"cmd 1|type X_Input 1|key Enter|type Y_Input 2|key Enter|move 1 30|type X_Input 5|key Tab|key Enter",
       MakeLine(1, 2, 1, 7)},
      {"cmd 2|click 1 2|move 9 10|type Y_Input 0|key Enter", MakeLine(1, 2, 1 + std::hypot(8, 8), 2)},
      {"cmd 7|click 1 2|expect text X_Label X:|type X_Input 9|key Enter|key Enter", MakeLine(1, 2, 9, 2)},
      {"cmd 5|type X_Input -9|key Enter|type Y_Input -30|key Enter|click 1 2", MakeLine(-20, 2, 10, 2)},
      {"cmd 24|click 1 2|type X_Input 5|expect text Y_Input 2.500|key Enter", CircleRow({1, 2}, 2.5)},
      {"cmd 24|click 1 2|type Y_Input 3|key Enter", CircleRow({1, 2}, 3)},
      {"cmd 30|answer 1|answer 30|answer 40|expect text Y_Label Angle|type X_Input 4|key Enter"
       "|type Y_Input 60|key Enter|click 1 2",
       MakeArc(1, 2, 4, Pi / 6, Pi / 2)},
      {"cmd 52|click 1 2|type X_Input -3|key Enter|type Y_Input 4|key Enter", MakeLine(1, 6, 1, 2)},
  };
  for (const auto &row : cases) {
    SCOPED_TRACE(row.Text);
    Begin();
    Play(Lines(row.Text));
    EXPECT_EQ(Last().EntType, row.Row.EntType);
    for (const auto field : {&Entity::X1, &Entity::Y1, &Entity::X2, &Entity::Y2, &Entity::Radius})
      EXPECT_NEAR(Last().*field, row.Row.*field, 1e-12);
    EXPECT_EQ(Screen()[Ctl::X_Input].Text, row.Row.EntType == ArcType ? "4" : "");
  }
}

TEST_F(Points, TheTrackerHoldsEndsCentresGuidesAndEdges) {
  const struct {
    std::string Text; // a line, by two clicks
    Point Off, On;    // its second end
  } cases[] = {
      {"click 0 40|click 10.5 15.4", {10.5, 15.4}, {10, 15}},
      {"click 0 40|click -20.4 18.2", {-20.4, 18.2}, {-20, 10 + std::sqrt(75)}}, // where the arc does end
      {"click 0 40|click 0.3 -0.4", {0.3, -0.4}, {0, 0}},
      {"click 0 40|click 12.5 40.6", {12.5, 40.6}, {12.5, 40}},          // level with the first
      {"click 0 40|move 10.1 15.1|click 10.4 33", {10.4, 33}, {10, 33}}, // above the end passed over
      {"click 0 40|click 7.8 9.9",
       {7.8, 9.9},
       {7.8 * 12 / std::hypot(7.8, 9.9), 9.9 * 12 / std::hypot(7.8, 9.9)}},
      {"click 0 40|click 24 24", {24, 24}, {24, 24}},
  };
  for (const auto &row : cases)
    for (const bool automatic : {false, true}) {
      SCOPED_TRACE(row.Text);
      Begin();
      Play(Lines(std::string("cmd 1|") + (automatic ? "press AutoPoint|" : "") + row.Text));
      const Point expected = automatic ? row.On : row.Off;
      EXPECT_NEAR(Last().X2, expected.X, 1e-12);
      EXPECT_NEAR(Last().Y2, expected.Y, 1e-12);
    }
  Play(Lines("expect checked AutoPoint|cmd 1|click 0 40"));
  Event press; // without a move before it
  press.What = Event::Kind::MouseDown;
  press.Target = Ctl::DrawPanel;
  press.X = 9.6;
  press.Y = -35.3;
  press.Button = 1;
  Dispatch(Bench(), press);
  EXPECT_EQ(Last().X2, 10);
  EXPECT_EQ(Last().Y2, -35);
}

TEST_F(Points, ASnapNamesTheRowAndThePointerTheSide) {
  Begin();
  AppendRow(Bench().Grain.Table, MakeLine(-40, 20, -40, 40));
  AppendRow(Bench().Grain.Table, MakeLine(-40, 40, -20, 40));
  // Both picks lie within the capture of the corner, which the tracker holds for both.
  Play(Lines("press AutoPoint|cmd 55|answer 2|click -40 39.5|click -39.5 40"));
  EXPECT_EQ(Last().EntType, ArcType);
  EXPECT_NEAR(Last().CenterX, -38, 1e-9);
  EXPECT_NEAR(Last().CenterY, 38, 1e-9);
  for (const bool left : {true, false}) { // cut at the midpoint, which the tracker holds for the pick
    Begin();
    AppendRow(Bench().Grain.Table, MakeLine(-5, -40, -5, -25));
    Play(
        Lines(std::string("press AutoPoint|cmd 60|click ") + (left ? "-5.6" : "-4.4") + " -30|click -5 -38"));
    const Entity &line = RowAt(Bench().Grain.Table, 0);
    EXPECT_NEAR(line.X1, left ? -20 : -5, 1e-9);
    EXPECT_NEAR(line.X2, left ? -5 : 10, 1e-9);
  }
}

TEST_F(Points, ThePreviewIsWhatTheClickMakes) {
  for (const std::string text :
       {"cmd 1|click 1 2", "cmd 2|click 1 2|click 3 9", "cmd 3|click -9 -30|answer 30|click 1 2",
        "cmd 7|click 1 2", "cmd 8|click 1 2", "cmd 9|click 1 2", "cmd 20|answer 3", "cmd 21|answer 3",
        "cmd 22|click 1 2", "cmd 23|click 1 2|click 9 9", "cmd 24|click 1 2",
        "cmd 30|answer 3|answer 350|answer 10", "cmd 31|answer 3|answer 0|answer 90",
        "cmd 32|answer 20|answer 90|click 1 2", "cmd 33|answer -100|click 1 2", "cmd 34|click 1 2|click 9 9",
        "cmd 51|press RC|press AcceptBoxWH", "cmd 52|click 1 2", "cmd 53|press PolyAccept"})
    for (const bool turning : {false, true}) {
      SCOPED_TRACE(text);
      Begin();
      Play(Lines((turning ? "press RotateDraw|answer 3|" : "") + text + "|move 17 5"));
      const int before = Bench().Grain.Table.EntCount + 1;
      std::vector<DrawItem> shown = Screen().Panel.Overlay;
      std::erase_if(shown, [](const DrawItem &item) { return item.What == DrawItem::Kind::Label; });
      Play("click 17 5");
      const EntityTable &table = Bench().Grain.Table;
      EXPECT_GE(table.EntCount + 1 - before, turning ? 3 : 1);
      // Copies stand beside their own row in the table, behind all rows in the preview.
      ASSERT_EQ(static_cast<std::size_t>(table.EntCount + 1 - before), shown.size());
      for (int i = before; i <= table.EntCount; ++i)
        EXPECT_EQ(std::count(shown.begin(), shown.end(), RowItem(RowAt(table, i), Ink::WillBe)), 1) << i;
    }
}

TEST_F(Points, TheGridHoldsPointsButNoWindows) {
  Begin();
  Bench().Grain.Doc.SnapToGrid = 1;
  Bench().Grain.Doc.GridSpacing = 2.5F;
  ExpectCentre("click 3.6 -1.3", {2.5, -2.5});
  ExpectCentre("press AutoPoint|click -3.6 1.3", {-2.5, 2.5});
  ExpectCentre("click 10.3 15.2", {10, 15}); // an end rules over the grid
  Play("cmd 80\n");
  const Point corner = HeldPosition(Bench().Draft, {3.6, -1.3});
  EXPECT_EQ(corner.X, 3.6);
  EXPECT_EQ(corner.Y, -1.3);
}

TEST_F(Points, EachInputIsLoggedOnce) {
  Begin();
  Bench().Draft.Log.On = true;
  Play(Lines(
      "cmd 1|press End_Ent|press Delta|click -18 -30.5|answer 1|answer 2*3|press Cursor|click 30 30.1"
      "|press End_Ent|click -40 40|expect box No Entity|press Along_Line|click 8 -30|answer 4|press Key_In"
      "|type X_Input 4|key Enter|type Y_Input 2*3|key Enter|click 1 2|type X_Input 10|key Enter"
      "|type Y_Input 45*2|key Enter"));
  const double narrowed = static_cast<double>(30.1F), low = static_cast<double>(-30.5F);
  const std::vector<Instruction> expected{
      {1, 0, 0, 0, ""},       {142, 0, 0, 0, ""},         {146, 1, 6, 0, ";2*3"}, {130, 0, -18, low, ""},
      {141, 0, 0, 0, ""},     {151, 30, narrowed, 1, ""}, {142, 0, 0, 0, ""},     {145, 0, 0, 0, ""},
      {130, 0, 8, -30, ""},   {203, 4, 0, 0, ""}, // Key In leaves the point mode before it:
      {141, 0, 0, 0, ""},     {147, 4, 6, 0, ";2*3"},     {151, 1, 2, 1, ""},     {201, 10, 0, 0, ""},
      {202, 90, 0, 0, "45*2"}};
  std::vector<Instruction> got = Bench().Draft.Log.Row;
  for (Instruction &step : got) step.PlotType = step.SelectionType = 0; // what the screen stood at
  ASSERT_EQ(got.size(), expected.size());
  for (std::size_t i = 0; i < got.size(); ++i)
    EXPECT_TRUE(got[i] == expected[i]) << i << ' ' << got[i].PointArea;
}

} // namespace
