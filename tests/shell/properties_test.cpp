#include "drafting/command_machine.h"
#include "geometry/primitives.h"
#include "journey.h"

#include <algorithm>
#include <cmath>

namespace {

struct Properties : Journey {
  void SetUp() override {
    Journey::SetUp();
    ASSERT_TRUE(Start());
  }
  const Entity &Row(int i) { return RowAt(Bench().Grain.Table, i); }
  void Draw(const std::vector<Entity> &rows) {
    EntityTable &table = Bench().Grain.Table;
    table.EntCount = -1;
    for (const Entity &row : rows) AppendRow(table, row);
    ResetDrafting(Bench().Draft);
    Play("press Refresh");
  }
  int Items(Ink role, DrawItem::Kind what) {
    const auto &item = Screen().Panel.Item;
    return static_cast<int>(std::count_if(
        item.begin(), item.end(), [&](const DrawItem &x) { return x.Role == role && x.What == what; }));
  }
  const DrawItem *Preview() {
    for (const DrawItem &item : Screen().Panel.Overlay)
      if (item.Role == Ink::WillBe) return &item;
    return nullptr;
  }
};

// Each field typed on the row picked at At; the numbers that other fields then hold.
TEST_F(Properties, FieldsEditTheirEntity) {
  const double third = 1.0 / 3;
  const Entity line = MakeLine(third, 0, 9 + third, 0), circle = MakeCircle(0, 0, 7),
               arc = MakeArc(1, 2, 5, Pi / 6, Pi);
  const struct {
    Entity Of;
    double X, Y;
    const char *Script;
  } cases[] = {
      {line, 5, 0, "expect text Prop_X1 0.333333\ntype Prop_Length 20\nexpect text Prop_X2 20.333333"},
      {line, 5, 0, "type Prop_Angle 180\nexpect text Prop_X2 -8.666667\nexpect text Prop_Length 9"},
      {line, 5, 0, "type Prop_Y2 12\ntype Prop_X2 9+1/3\nexpect text Prop_Length 15"},
      {line, 5, 0, "type Prop_Length 4\nkey Tab\ntype Prop_Angle 90\nexpect text Prop_Y2 4"},
      {line, 5, 0, "type Prop_X2 3\ntype Prop_Y1 4\ntype Prop_X1 0\nexpect text Prop_Length 5"},
      {circle, 7, 0, "type Prop_Diameter 11\nexpect text Prop_Radius 5.5\nexpect hidden Prop_Length"},
      {circle, 7, 0, "type Prop_Radius sqrt(2)\nexpect text Prop_Diameter 2.828427"},
      {circle, 7, 0, "type Prop_CX -3\nexpect text Prop_CY 0\nexpect hidden Prop_Sweep"},
      {arc, 1, 7, "expect text Prop_Sweep 150\ntype Prop_Sweep 90\nexpect text Prop_End 120"},
      {arc, 1, 7, "type Prop_Start 90\nexpect text Prop_Sweep 90\nexpect hidden Prop_X1"},
      {arc, 1, 7, "type Prop_End -90\nexpect text Prop_Sweep 240"},
      {arc, 1, 7, "type Prop_Radius 2.5\nexpect text Prop_Diameter 5\nexpect text Prop_End 180"},
      {arc, 1, 7, "type Prop_Sweep 360\nexpect text Prop_Radius 5"},
  };
  for (const auto &c : cases) {
    SCOPED_TRACE(c.Script);
    Draw({MakeLine(-15, -15, -12, -15), c.Of});
    Play("click " + std::to_string(c.X) + " " + std::to_string(c.Y) + "\n" + c.Script);
    ASSERT_NE(Preview(), nullptr);
    Play("move 3 3"); // the pointer does not take the preview away
    ASSERT_NE(Preview(), nullptr);
    const DrawItem shown = *Preview();
    EXPECT_EQ(Row(1).X2, c.Of.X2);
    Play("key Enter");
    EXPECT_EQ(Preview(), nullptr);
    const Entity &made = Row(1);
    const std::array<double, 5> at =
        made.EntType == LineType
            ? std::array<double, 5>{made.X1, made.Y1, made.X2, made.Y2, 0}
            : std::array<double, 5>{made.CenterX, made.CenterY, made.Radius, made.StartAngle, made.EndAngle};
    EXPECT_EQ(at, shown.At);
    EXPECT_TRUE(made.Selected);
    if (made.EntType == LineType) {
      EXPECT_EQ(made.Slope, GuardedSlope(made.X1, made.Y1, made.X2, made.Y2));
    } else {
      EXPECT_NEAR(std::hypot(made.X2 - made.CenterX, made.Y2 - made.CenterY), made.Radius, 1e-12);
    }
    Play("press Undo\nexpect hidden Property_Frame");
    EXPECT_EQ(Row(1).X1, c.Of.X1);
    EXPECT_EQ(Row(1).X2, c.Of.X2);
    EXPECT_EQ(Row(1).EndAngle, c.Of.EndAngle);
  }
  // A length keeps all digits of the first end, which its field does not show.
  Draw({line});
  Play("click 5 0\ntype Prop_X1 0.333333\ntype Prop_Length 20\nkey Enter");
  EXPECT_EQ(Row(0).X1, third);
  EXPECT_EQ(Row(0).X2, third + 20);
}

TEST_F(Properties, RefusedAndGivenUpEditsChangeNothing) {
  const Entity line = MakeLine(0, 0, 9, 0), arc = MakeArc(0, 0, 5, 0, 2);
  const struct {
    Entity Of;
    const char *Script;
  } cases[] = {
      {line, "type Prop_Length abc\nkey Enter\nexpect box ERROR"},
      {line, "type Prop_Length 0\nkey Enter\nexpect box ERROR: Entity's too small"},
      {line, "type Prop_X2 0\nkey Enter\nexpect box ERROR: Entity's too small"},
      {line, "type Prop_X2 1e7\nkey Enter\nexpect box ERROR: A number from"},
      {arc, "type Prop_Radius -1\nkey Enter\nexpect box ERROR: Entity's too small"},
      {arc, "type Prop_Sweep 361\nkey Enter\nexpect box ERROR: A number from 0 to 360"},
      {line, "type Prop_Length 5\nkey Escape\nexpect text Prop_Length 9"},
      {line, "type Prop_Length 5\ntype Prop_Length\nkey Enter\nexpect text Prop_Length 9"},
      {line, "type Prop_Length 9\nkey Enter\nexpect text Prop_Length 9"},
      {line, "type Prop_Length 5\ncmd 20\nanswer 3\nkey Escape"},
  };
  for (const auto &c : cases) {
    SCOPED_TRACE(c.Script);
    Draw({c.Of});
    Play("click 5 0\n" + std::string(c.Script));
    EXPECT_EQ(Row(0).X2, c.Of.X2);
    EXPECT_EQ(Row(0).Radius, c.Of.Radius);
    EXPECT_EQ(Bench().Draft.Ring.UndoPos, 0);
  }
  Draw({line, MakeLine(0, 5, 9, 5)});
  Play("click 5 0\ntype Prop_Length 4\nclick 5 5\nexpect text Prop_Text 2 entities\nexpect hidden "
       "Prop_Length");
  Play("click 5 5\nexpect text Prop_Length 9");
  EXPECT_EQ(Preview(), nullptr);
}

// Words, marks and the tinted core through commits, undo and redo.
TEST_F(Properties, DiagnosisFollowsTheDrawing) {
  Play("expect hidden Diagnosis_Text\n"
       "cmd 2\nclick 0 0\nclick 10 0\nclick 10 10\n"
       "expect text Diagnosis_Text 1 gap of 14.1 mm\nexpect disabled Close_Gaps");
  EXPECT_EQ(Items(Ink::Fault, DrawItem::Kind::Circle), 0); // no rings while one draws
  Play("key Escape");
  EXPECT_EQ(Items(Ink::Fault, DrawItem::Kind::Circle), 2);
  Play("cmd 1\nclick 10 10");
  EXPECT_EQ(Items(Ink::Fault, DrawItem::Kind::Circle), 2);
  Play("click 0 0\nexpect text Diagnosis_Text The outline is closed\nexpect disabled Diagnosis_Next");
  EXPECT_EQ(Items(Ink::Fault, DrawItem::Kind::Circle), 0);
  EXPECT_EQ(Screen().Panel.Core.size(), 3u);
  Play("press Undo\nexpect text Diagnosis_Text 1 gap of 14.1 mm");
  EXPECT_TRUE(Screen().Panel.Core.empty());
  Play("press Redo\nexpect text Diagnosis_Text The outline is closed");
  EXPECT_EQ(Screen().Panel.Core.size(), 3u);
  Play("key Escape\nclick 5 0\ntype Prop_Length 9\nkey Enter\nexpect text Diagnosis_Text 1 gap of 1 mm");
  EXPECT_TRUE(Screen().Panel.Core.empty());
  Play("press Undo\nexpect text Diagnosis_Text The outline is closed"); // as many rows as before

  Draw({MakeLine(0, 0, 10, 0), MakeLine(10, 0.005, 10, 10), MakeLine(10, 10, 0.2, 0), MakeLine(5, 0, 2, 0),
        MakeLine(1, 1, 1, 1)});
  Play("expect text Diagnosis_Text 1 gap of 0.2 mm, 1 duplicate entity, 1 entity of no length\n"
       "press Diagnosis_Next");
  const DrawSurface &panel = Screen().Panel;
  EXPECT_NEAR(std::min(panel.Width, -panel.Height), 2, 1e-9); // the place fills a tenth
  EXPECT_NEAR(panel.Left + panel.Width / 2, 0.1, 1e-9);
  const auto ring = std::find_if(panel.Item.begin(), panel.Item.end(), [](const DrawItem &x) {
    return x.Role == Ink::Fault && x.What == DrawItem::Kind::Circle;
  });
  ASSERT_NE(ring, panel.Item.end());
  EXPECT_NEAR(ring->At[2] / -panel.Height * panel.PixelHeight, 7, 1e-9);
  Play("press Close_Gaps\nexpect count 3\nexpect text Diagnosis_Text 1 gap of 0.2 mm\nexpect disabled "
       "Close_Gaps");
  EXPECT_EQ(Row(0).X2, Row(1).X1);
  EXPECT_EQ(Row(0).Y2, Row(1).Y1);
  Play("press Undo\nexpect count 5\npress Redo\nexpect count 3");
  Bench().Grain.Doc.JoinTolerance = 0.3;
  Play("press Refresh\nexpect text Diagnosis_Text The outline is closed\npress Close_Gaps");
  EXPECT_EQ(Row(2).X2, Row(0).X1);
}

} // namespace
