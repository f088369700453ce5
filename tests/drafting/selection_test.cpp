// How rows are selected: the window rules, idle clicks and drags, the deletes and measurements.
#include "drafting/measure.h"
#include "drafting/selection.h"
#include "geometry/carrier.h"
#include "rounds.h"
#include "shell/journey.h"

#include <cmath>
#include <random>

namespace {

TEST(WindowRules, AgainstPointsAlongTheRow) {
  std::mt19937_64 luck(Seed());
  const auto in = [&](double a, double b) { return std::uniform_real_distribution<double>(a, b)(luck); };
  std::array<int, 5> held{};
  for (int round = 0; round < 4000 * Rounds(); ++round) {
    SCOPED_TRACE("seed " + std::to_string(Seed()) + " round " + std::to_string(round));
    const int kind = round % 3;
    Entity e = MakeLine(in(-9, 9), in(-9, 9), in(-9, 9), in(-9, 9));
    if (kind == 1) e = CircleRow({in(-9, 9), in(-9, 9)}, in(0.5, 6));
    if (kind == 2) e = MakeArc(in(-9, 9), in(-9, 9), in(0.5, 6), in(0, TwoPi), in(0, TwoPi));
    SelectionValues w;
    SetWindow(w, {in(-12, 12), in(-12, 12)}, {in(-12, 12), in(-12, 12)});
    const auto inside = [&](Point p) {
      return p.X >= w.WindowLeft && p.X <= w.WindowRight && p.Y >= w.WindowBottom && p.Y <= w.WindowTop;
    };
    bool all = true, any = false;
    double margin = 1; // of a point to the window's border: sampling tells nothing within it
    for (int i = 0; i <= 400; ++i) {
      const double part = i / 400.0, angle = e.StartAngle + part * (kind == 1 ? TwoPi : ArcSweep(e));
      const Point p =
          kind == 0 ? Point{e.X1 + part * (e.X2 - e.X1), e.Y1 + part * (e.Y2 - e.Y1)}
                    : Point{e.CenterX + e.Radius * std::cos(angle), e.CenterY + e.Radius * std::sin(angle)};
      all = all && inside(p);
      any = any || inside(p);
      for (const double off :
           {p.X - w.WindowLeft, p.X - w.WindowRight, p.Y - w.WindowBottom, p.Y - w.WindowTop})
        margin = std::min(margin, std::abs(off));
    }
    std::array<bool, 5> rule{};
    for (std::int16_t r = AllInside; r <= PartOutside; ++r) {
      w.WindowRule = r;
      rule[static_cast<std::size_t>(r)] = InWindow(e, w);
      held[static_cast<std::size_t>(r)] += rule[static_cast<std::size_t>(r)];
    }
    if (margin > 1e-3 || kind == 0) {
      EXPECT_EQ(rule[AllInside], all);
    }
    if (rule[PartInside]) {
      EXPECT_TRUE(any || margin < 1e-3);
    } // a row may pass through and tell no point
    EXPECT_TRUE(!rule[AllInside] || rule[PartInside]);
    EXPECT_NE(rule[AllOutside], rule[PartInside]);
    EXPECT_NE(rule[PartOutside], rule[AllInside]);
  }
  for (int r = 1; r <= 4; ++r) EXPECT_GT(held[static_cast<std::size_t>(r)], 100);
}

struct Selection : Journey {
  // A box of four lines, 0..3, and a circle about the origin, row 4.
  void SetUp() override {
    Journey::SetUp();
    ASSERT_TRUE(Start());
    Play("cmd 52\nclick -8 -6\nclick 8 6\ncmd 20\nanswer 3\nclick 0 0\nkey Escape\nexpect count 5");
  }
  int Selected() { return CountSelected(Bench().Grain.Table); }
};

TEST_F(Selection, IdleClicksAndDrags) {
  Play("click 0 6\nclick 3 0");
  EXPECT_EQ(Selected(), 2);
  EXPECT_EQ(Bench().Draft.Cmd.SelectCount, 2);
  Play("click 0 6\nclick -15 15");
  EXPECT_EQ(Selected(), 1);
  Play("drag 9 7 -9 5"); // the upper line alone lies whole inside
  EXPECT_EQ(Selected(), 2);
  Play("back 0 0");
  EXPECT_EQ(Selected(), 0);
  Play("click 0 6\nkey Delete\nexpect count 4\npress mnuEditUndo\nexpect count 5\nclick 3 0\ncmd 86\nexpect "
       "count 4\n"
       "expect prompt\npress mnuEditUndo");
  Play("click 0 6\nkey Escape\ncmd 94\nexpect visible Selection_Frame\nkey Escape");
}

TEST_F(Selection, DeleteBySelection) {
  Play("cmd 86\npress SelectAll\nexpect box Are you sure you want to Deleter ALL Entities?\nbox Cancel\n"
       "expect count 5\nexpect visible Selection_Frame\npress SelectAll\nbox OK\nexpect count 0\nexpect "
       "prompt\n"
       "press mnuEditUndo\nexpect count 5");
  Play("cmd 86\nclick 12 12\nexpect box No Entity Found\nexpect visible Selection_Frame\n"
       "press SelectWindow\npress Part_Inside_Window\nexpect checked Part_Inside_Window\nclick 9 7\n"
       "expect prompt Indicate Second Corner of Window / Indicate Position\nback 0 0\n"
       "expect prompt Indicate First Corner of Window / Indicate Position\nclick 9 7\nclick 7 5");
  EXPECT_EQ(Selected(), 2);
  Play("back 0 0\nexpect visible Selection_Frame\nexpect hidden Window_Frame");
  EXPECT_EQ(Selected(), 0);
  Play("press SelectByType\npress SelectCircles\nexpect count 4\nexpect prompt\npress mnuEditUndo\n"
       "cmd 85\nclick 0 6\nclick 3 0\nexpect count 3\npress mnuEditUndo\npress mnuEditUndo\nexpect count 5");
}

TEST_F(Selection, Measures) {
  Play("cmd 94\npress SelectByType\npress SelectLines\nexpect box Perimeter: 56.000\nexpect visible "
       "Selection_Frame\n"
       "cmd 95\nclick 0 6\nkey Enter\nanswer 0.05\nexpect box Selection may not be fully closed\n"
       "click 8 0\nclick -8 0\nclick 0 -6\nkey Enter\nanswer 0.01\nexpect box Area: 192.0\n"
       "cmd 93\nclick 5 6\nclick 5 -6\nexpect box Can't Solve for Parallel Lines\n"
       "expect prompt Select Second Line / Indicate Position\nclick 8 -3\nexpect box 90.000 Deg / 1.571 Rad\n"
       "cmd 91\nclick 3 4\nexpect box Dist from center: 5.000\ncmd 92\nclick 0 0\nclick 1 1\nexpect box "
       "1.414\n"
       "cmd 90\nclick 8 3\nexpect box Length: 12.000\nclick 3 0\nexpect box Radius: 3.000\nkey "
       "Escape\nexpect count 5");
  EXPECT_EQ(
      VerifyAttributes(MakeArc(1, 2, 2, Pi / 2, Pi)).Text,
      " Type: Arc\n First End: X: 1.000   Y: 4.000\n Second End: X: -1.000   Y: 2.000\n Length: 3.142\n"
      " Center: X: 1.000   Y: 2.000\n Radius: 2.000\n Start Angle: 90.000 Deg\n End Angle: 180.000 Deg\n"
      " Sweep: 90.000 Deg");
}

TEST_F(Selection, LogsEachStepOnce) {
  Bench().Draft.Log.On = true;
  Play("cmd 71\npress XFormOption:Copy\npress SelectWindow\nclick 9 7\nclick -9 5\nkey Enter\nanswer "
       "1+1\nclick 0 0\n"
       "click 0 1\npress SelectSingle\nclick 12 12\nexpect box No Entity Found\nclick 3 0\nkey Escape");
  const auto &log = Bench().Draft.Log.Row;
  std::vector<int> kinds;
  for (const Instruction &step : log) kinds.push_back(step.PointArea);
  EXPECT_EQ(kinds, (std::vector<int>{71, 161, 102, 151, 151, 71, 203, 151, 151, 101, 131, 190}));
  EXPECT_EQ(log[5].Value4, "ENTERKEY");
  EXPECT_EQ(log[6].Value1, 2);
  EXPECT_EQ(log[6].Value4, "1+1");
}
} // namespace
