// What is shown before a click against what the click does.
#include "base/number_text.h"
#include "drafting/click_preview.h"
#include "drafting/command_machine.h"
#include "drafting/hints.h"
#include "drafting/selection.h"
#include "drafting/view.h"
#include "geometry/carrier.h"
#include "platform/events.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

// Says OK and Yes to all, and takes what is offered.
class Agreeing final : public Screen {
public:
  Answer Ask(const Box &box) override { return box.Offer == Buttons::Ok ? Answer::Ok : Answer::Yes; }
  std::optional<std::string> AskFile(FileUse, std::string_view, std::string_view) override { return {}; }
  std::optional<std::uint32_t> AskColour(std::uint32_t) override { return {}; }
  void RunModal(Form) override {}
  void Wait(double) override {}
};

struct Preview : testing::Test {
  Agreeing Out;
  Design Grain;
  Drafting Draft{Grain, Out};
  std::mt19937 Luck{20260721};

  Preview() {
    SetDimensions(Grain.Doc, 100, 300, 20, 3);
    Out.Panel.PixelWidth = Out.Panel.PixelHeight = 520;
    ZoomReset(Out.Panel, Grain.Doc);
    LeaveCommand(Draft);
  }
  double Between(double least, double most) {
    return std::uniform_real_distribution<double>(least, most)(Luck);
  }
  Event At(Point p, int shift = 0) { return MouseAt(Event::Kind::Press, Ctl::DrawPanel, p.X, p.Y, 1, shift); }
  void Move(Point p, int shift = 0) { MouseMove(Draft, At(p, shift)); }
  void Click(Point p) {
    MouseDown(Draft, At(p));
    MouseUp(Draft, At(p));
  }
  void Scatter(int rows) {
    Grain.Table.EntCount = -1;
    for (int i = 0; i < rows; ++i) {
      const double x = Between(-40, 40), y = Between(-40, 40), a = Between(0, TwoPi);
      if (i % 3 == 2)
        AppendRow(Grain.Table, MakeArc(x, y, Between(3, 20), a, NormalAngle(a + Between(1, 6))));
      if (i % 6 == 1) AppendRow(Grain.Table, CircleRow({x, y}, Between(2, 15)));
      if (i % 3 == 0 || i % 6 == 4)
        AppendRow(Grain.Table, MakeLine(x, y, i == 3 ? x : Between(-40, 40), i == 9 ? y : Between(-40, 40)));
    }
  }
  Point Somewhere() { // mostly on some row
    const auto i = static_cast<int>(Between(0, Grain.Table.EntCount + 0.999));
    const Entity &e = RowAt(Grain.Table, i);
    const double t = Between(0, 1), a = e.EntType == ArcType ? e.StartAngle + t * ArcSweep(e) : t * TwoPi;
    if (e.EntType == LineType) return {e.X1 + t * (e.X2 - e.X1), e.Y1 + t * (e.Y2 - e.Y1)};
    return {e.CenterX + e.Radius * std::cos(a), e.CenterY + e.Radius * std::sin(a)};
  }
  std::vector<DrawItem> Shown(Ink role) {
    std::vector<DrawItem> items;
    for (const DrawItem &item : Out.Panel.Overlay)
      if (item.Role == role) items.push_back(item);
    return items;
  }
  std::string Words() {
    std::string words;
    for (const DrawItem &item : Out.Panel.Overlay)
      if (item.What == DrawItem::Kind::Label) words += (words.empty() ? "" : "|") + item.Text;
    return words;
  }
};

std::string Told(const EntityTable &table) {
  std::string text;
  for (int i = 0; i <= table.EntCount; ++i) {
    const Entity &e = RowAt(table, i);
    for (const double v : {static_cast<double>(e.EntType), e.X1, e.Y1, e.X2, e.Y2, e.CenterX, e.CenterY,
                           e.Radius, e.StartAngle, e.EndAngle, e.Slope, e.Intercept})
      text += PlainText(v) + " ";
    text += "\n";
  }
  return text;
}

double LengthOf(const DrawItem &i) {
  if (i.What == DrawItem::Kind::Line) return std::hypot(i.At[2] - i.At[0], i.At[3] - i.At[1]);
  if (i.What == DrawItem::Kind::Circle) return TwoPi * i.At[2];
  if (i.What != DrawItem::Kind::Arc) return 0;
  const double sweep = NormalAngle(i.At[4] - i.At[3]);
  return i.At[2] * (sweep == 0 ? TwoPi : sweep);
}
double LengthOf(const Entity &e) {
  if (e.EntType == LineType) return GetLineLength(e);
  return e.Radius * (e.EntType == CircleType ? TwoPi : ArcSweep(e));
}
double LengthOf(const EntityTable &table) {
  double sum = 0;
  for (int i = 0; i <= table.EntCount; ++i) sum += LengthOf(RowAt(table, i));
  return sum;
}

TEST_F(Preview, TheClickDoesWhatWasShown) {
  constexpr int tools[] = {3,  4,  5,  6,  10, 11, 12, 25, 26, 35, 36, 54, 55, 56, 57,
                           58, 60, 61, 62, 63, 64, 65, 66, 67, 68, 69, 85, 90, 93};
  for (const bool turning : {false, true})
    for (const int tool : tools) {
      int changes = 0;
      for (int round = 0; round < 24; ++round) {
        Scatter(30);
        Draft.Rotation = {3, TwoPi / 3, turning};
        Draft.Tool.ToolRadius = Between(0.5, 4);
        Draft.Track.AutoPoint = round % 2 == 1;
        StartCommand(Draft, *FindCommand(tool));
        for (int i = 0; i < 12; ++i) {
          SCOPED_TRACE("tool " + std::to_string(tool) + " round " + std::to_string(round) + " click " +
                       std::to_string(i) + (turning ? " turning" : ""));
          const std::string before = Told(Grain.Table);
          Draft.Cmd.RadiusHeld = tool == 26 || tool == 36; // the radius is typed
          const double had = LengthOf(Grain.Table);
          const Point p = i % 4 == 3 ? Point{Between(-45, 45), Between(-45, 45)} : Somewhere();
          Move(p);
          ASSERT_EQ(Told(Grain.Table), before);
          const std::string expected = Told(TableAfterClick(Draft, {Draft.Cmd.TrackX, Draft.Cmd.TrackY}));
          double grows = 0;
          for (const DrawItem &item : Shown(Ink::WillBe)) grows += LengthOf(item);
          for (const DrawItem &item : Shown(Ink::WillGo)) grows -= LengthOf(item);
          const unsigned made = Draft.Changes;
          Click(p);
          ASSERT_EQ(Told(Grain.Table), expected);
          if (Draft.Changes == made) continue;
          ++changes;
          EXPECT_NEAR(grows, LengthOf(Grain.Table) - had, 0.01);
          if (Draft.Cmd.CmdNo == 0) break;
        }
        LeaveCommand(Draft);
      }
      EXPECT_EQ(changes > 0, tool < 90) << tool;
    }
}

TEST_F(Preview, PartsAreToldApart) {
  AppendRow(Grain.Table, MakeLine(0, 0, 10, 0));
  AppendRow(Grain.Table, MakeLine(0, 0, 0, 10));
  AppendRow(Grain.Table, MakeLine(20, 5, 20, -5));
  const auto at = [](const DrawItem &i) {
    return PlainText(i.At[0]) + " " + PlainText(i.At[1]) + " " + PlainText(i.At[2]) + " " +
           PlainText(i.At[3]);
  };
  Draft.Tool.ToolRadius = 2;
  StartCommand(Draft, *FindCommand(55));
  Move({5, 0});
  ASSERT_EQ(Shown(Ink::Picked).size(), 1U); // the row it would pick
  Click({5, 0});
  Move({0, 5});
  ASSERT_EQ(Shown(Ink::WillGo).size(), 2U);
  EXPECT_EQ(at(Shown(Ink::WillGo)[0]), "0 0 2 0");
  EXPECT_EQ(at(Shown(Ink::Geometry)[0]), "2 0 10 0");
  ASSERT_EQ(Shown(Ink::WillBe).size(), 1U);
  EXPECT_EQ(Words(), "R 2  90°");

  StartCommand(Draft, *FindCommand(60)); // extended
  Click({8, 0});
  Move({20, 1});
  EXPECT_EQ(Shown(Ink::WillGo).size(), 0U);
  EXPECT_EQ(at(Shown(Ink::Geometry)[0]), "0 0 10 0");
  EXPECT_EQ(at(Shown(Ink::WillBe)[0]), "10 0 20 0");

  RowAt(Grain.Table, 0) = MakeLine(0, 0, 30, 0);
  StartCommand(Draft, *FindCommand(65)); // broken: all stays, and where
  Click({8, 0});
  Move({20, 1});
  EXPECT_EQ(Shown(Ink::WillGo).size() + Shown(Ink::WillBe).size(), 1U);
  EXPECT_EQ(Shown(Ink::WillBe)[0].What, DrawItem::Kind::Mark);
  EXPECT_NEAR(Shown(Ink::WillBe)[0].At[0], 20, 1e-9);
  StartCommand(Draft, *FindCommand(85));
  Move({20, 2});
  EXPECT_EQ(at(Shown(Ink::WillGo)[0]), "20 5 20 -5");
}

TEST_F(Preview, SnapsReadingsAndRulesAreNamed) {
  AppendRow(Grain.Table, MakeLine(10, 10, 30, 10));
  AppendRow(Grain.Table, CircleRow({-20, 0}, 8));
  AppendRow(Grain.Table, MakeArc(0, -30, 6, 0, Pi));
  Draft.Track.AutoPoint = true;
  StartCommand(Draft, *FindCommand(1));
  const struct {
    Point At;
    const char *Words;
  } snaps[] = {{{10.2, 10.2}, "End point"}, {{20.2, 10}, "Mid point"},
               {{-20, .3}, "Center point"}, {{-12, .1}, "On circle"},
               {{-20, 8.3}, "On circle"},   {{6, -29.8}, "End point"},
               {{.1, -23.8}, "On arc"},     {{0, 40}, ""}};
  for (const auto &s : snaps) {
    Move(s.At);
    EXPECT_EQ(Words(), s.Words) << s.At.X << ' ' << s.At.Y;
    Move(s.At, 4); // Alt
    EXPECT_EQ(Words(), "");
    EXPECT_EQ(Draft.Cmd.TrackX, s.At.X);
  }
  Click({1, 2});
  Move({4, 6});
  EXPECT_EQ(Words(), "5  53.13°");
  Move({31, 2.1});
  EXPECT_EQ(Words(), "Guide line|30  0°");
  const double pixel = std::abs(Out.Panel.Height) / Out.Panel.PixelHeight;
  ASSERT_EQ(Out.Panel.Overlay.back().Text, "30  0°");
  EXPECT_NEAR(Out.Panel.Overlay.back().At[0], 31 + 14 * pixel, 1e-9);

  LeaveCommand(Draft);
  Draft.Select.WindowRule = PartInside;
  MouseDown(Draft, At({5, 5}));
  Move({25, 25});
  EXPECT_EQ(Words(), "Part Inside");
  EXPECT_EQ(Shown(Ink::Picked).size(), 1U);
  MouseUp(Draft, At({25, 25}));
  EXPECT_EQ(CountSelected(Grain.Table), 1);
}

TEST_F(Preview, UndoNamesWhatItTakesBackAlongTheWholeRing) {
  const auto says = [&](const std::string &undo, const std::string &redo) {
    RefreshHints(Draft);
    EXPECT_EQ(Out[Ctl::mnuEditUndo].Text, undo);
    EXPECT_EQ(Out[Ctl::mnuEditRedo].Text, redo);
  };
  says("Undo", "Redo");
  EXPECT_EQ(Out[Ctl::tbUndo].Hint, "Nothing to undo");
  const int tools[] = {1, 7, 22, 52};
  const std::string names[] = {"Line", "Horizontal Line", "Circle by 2 Points", "Box by Corners"};
  const auto name = [&](int change) { return " " + names[change % 4]; };
  constexpr int changes = 13; // two more than the ring holds
  for (int i = 0; i < changes; ++i) {
    StartCommand(Draft, *FindCommand(tools[i % 4]));
    Click({0, i * 1.0});
    Click({5, i + 9.0});
    says("Undo" + name(i), "Redo");
  }
  int oldest = changes;
  while (NextUndo(Draft.Ring).There) {
    UndoChange(Draft);
    --oldest;
    says(NextUndo(Draft.Ring).There ? "Undo" + name(oldest - 1) : "Undo", "Redo" + name(oldest));
  }
  EXPECT_EQ(oldest, changes - (UndoSlots - 1));
  EXPECT_EQ(Out[Ctl::tbUndo].Hint, "Nothing older is kept");
  for (int i = oldest; i < changes; ++i) {
    RedoChange(Draft);
    says("Undo" + name(i), i + 1 < changes ? "Redo" + name(i + 1) : "Redo");
  }
}

TEST_F(Preview, TheLastToolStartsAgainAndTheHintsSayWhatKeysDo) {
  Event space;
  space.KeyCode = 32;
  PanelKey(Draft, space);
  EXPECT_EQ(Draft.Cmd.CmdNo, 0);
  EXPECT_EQ(HintText(Draft), "Left: select   Drag: window   Del: delete");
  StartCommand(Draft, *FindCommand(1));
  Draft.Track.AutoPoint = true;
  EXPECT_EQ(HintText(Draft), "Left: place the point   Right: leave the tool   Tab: type values   Alt: no "
                             "snap   Esc: leave the tool");
  Click({1, 1});
  EXPECT_NE(HintText(Draft).find("Right: one step back"), std::string::npos);
  Escape(Draft);
  EXPECT_EQ(HintText(Draft), "Left: select   Drag: window   Del: delete   Enter: Line again");
  Draft.Log.On = true;
  PanelKey(Draft, space);
  EXPECT_EQ(Draft.Cmd.CmdNo, 1);
  ASSERT_EQ(Draft.Log.Row.size(), 1U);
  EXPECT_EQ(Draft.Log.Row[0].PointArea, 1);
  Escape(Draft);
  Draft.HotKeyTable[7] = {32, 0}; // a bound key does what it is bound to
  PanelKey(Draft, space);
  EXPECT_EQ(Draft.Cmd.CmdNo, 0);
}

} // namespace
