// Moving, turning, scaling, mirroring and stretching: rows against maps of their points, and journeys.
#include "drafting/transform_rows.h"
#include "geometry/carrier.h"
#include "rounds.h"
#include "shell/journey.h"

#include <cmath>
#include <functional>
#include <random>

namespace {
using PointMap = std::function<Point(Point)>;

struct Chance {
  std::mt19937_64 Luck{Seed()};
  double In(double a, double b) { return std::uniform_real_distribution<double>(a, b)(Luck); }
  Point Place() { return {In(-50, 50), In(-50, 50)}; }
  Entity Row(int kind) {
    Point p = Place(), q = Place();
    if (kind == 1) q.X = p.X;
    if (kind == 2) q.Y = p.Y;
    if (kind < 4) return MakeLine(p.X, p.Y, q.X, q.Y);
    if (kind == 4) return CircleRow(p, In(1, 40));
    return MakeArc(p.X, p.Y, In(1, 40), In(0, TwoPi), In(0, TwoPi));
  }
};

Point On(const Entity &e, double part) {
  if (e.EntType == LineType) return {e.X1 + part * (e.X2 - e.X1), e.Y1 + part * (e.Y2 - e.Y1)};
  const double angle = e.EntType == ArcType ? e.StartAngle + part * ArcSweep(e) : part * TwoPi;
  return {e.CenterX + e.Radius * std::cos(angle), e.CenterY + e.Radius * std::sin(angle)};
}

void ExpectNear(Point a, Point b) { EXPECT_LT(Distance(a, b), 1e-9); }

void ExpectWellMade(const Entity &e, bool slopeByRule) {
  if (e.EntType == LineType) {
    Entity fresh = e;
    SetLineSlope(fresh);
    if (slopeByRule) {
      EXPECT_EQ(e.Slope, fresh.Slope);
    }
    EXPECT_EQ(e.Intercept, e.Y1 - e.Slope * e.X1);
    ExpectNear(CentreOf(e), CentreOf(fresh));
  } else {
    ExpectNear({e.X1, e.Y1}, On(e, 0));
    ExpectNear({e.X2, e.Y2}, On(e, 1));
    EXPECT_TRUE(e.StartAngle >= 0 && e.StartAngle < TwoPi && e.EndAngle >= 0 && e.EndAngle < TwoPi);
  }
}

// The points of the new row are those of the old one through the map, in the same order, or, of a mirrored
// round, in the opposite one.
void ExpectMapped(const Entity &before, const Entity &after, const PointMap &map, bool turnsOver = false) {
  for (double part = 0; part <= 1; part += 0.125) {
    if (before.EntType == CircleType)
      EXPECT_NEAR(Distance(map(On(before, part)), CentreOf(after)), after.Radius, 1e-9);
    else
      ExpectNear(map(On(before, part)), On(after, turnsOver && before.EntType == ArcType ? 1 - part : part));
  }
  EXPECT_EQ(before.Selected, after.Selected);
}

TEST(TransformRows, MapTheirPointsAndComeBack) {
  Chance chance;
  for (int round = 0; round < 600 * Rounds(); ++round) {
    SCOPED_TRACE("seed " + std::to_string(Seed()) + " round " + std::to_string(round));
    const Entity row = chance.Row(round % 6);
    const Point by = chance.Place(), p = chance.Place();
    Point q = chance.Place();
    if (round % 5 == 0) q.X = p.X;
    if (round % 5 == 1) q.Y = p.Y;
    const double angle = round % 7 == 0 ? Pi / 2 : chance.In(-7, 7), factor = chance.In(0.2, 5);
    const auto same = [](Point at) { return at; };

    const Entity moved = MovedRow(row, by.X, by.Y);
    EXPECT_EQ(moved.Slope, row.Slope);
    ExpectWellMade(moved, false);
    ExpectMapped(row, moved, [&](Point at) { return Point{at.X + by.X, at.Y + by.Y}; });
    ExpectMapped(row, MovedRow(moved, -by.X, -by.Y), same);

    const Entity turned = RotatedRow(row, p, angle);
    ExpectWellMade(turned, true);
    ExpectMapped(row, turned, [&](Point at) {
      const double far = Distance(p, at), to = std::atan2(at.Y - p.Y, at.X - p.X) + angle;
      return Point{p.X + far * std::cos(to), p.Y + far * std::sin(to)};
    });
    ExpectMapped(row, RotatedRow(turned, p, -angle), same);

    const Entity scaled = ScaledRow(row, p, factor);
    ExpectWellMade(scaled, true);
    ExpectMapped(row, scaled, [&](Point at) {
      return Point{p.X + factor * (at.X - p.X), p.Y + factor * (at.Y - p.Y)};
    });
    ExpectMapped(row, ScaledRow(scaled, p, 1 / factor), same);

    const Entity mirrored = MirroredRow(row, p, q);
    ExpectWellMade(mirrored, true);
    const PointMap across = [&](Point at) { // turned by twice the line's direction, as complex conjugates
      const double twice = 2 * std::atan2(q.Y - p.Y, q.X - p.X), dx = at.X - p.X, dy = at.Y - p.Y;
      return Point{p.X + dx * std::cos(twice) + dy * std::sin(twice),
                   p.Y + dx * std::sin(twice) - dy * std::cos(twice)};
    };
    ExpectMapped(row, mirrored, across, true);
    ExpectMapped(row, MirroredRow(mirrored, p, q), same);
    if (p.X == q.X && row.EntType == LineType) {
      EXPECT_EQ(mirrored.Y1, row.Y1);
    }
  }
}

TEST(TransformRows, StretchMovesTheEndsInside) {
  Chance chance;
  int oneEnd = 0;
  for (int round = 0; round < 600 * Rounds(); ++round) {
    SCOPED_TRACE("seed " + std::to_string(Seed()) + " round " + std::to_string(round));
    const Entity row = chance.Row(round % 6);
    SelectionValues w;
    w.WindowLeft = w.WindowBottom = -20;
    w.WindowRight = w.WindowTop = 30;
    const Point by = chance.Place();
    const Entity after = StretchedRow(row, w, by.X, by.Y);
    const auto end = [&](double x, double y) {
      const bool in = x >= -20 && x <= 30 && y >= -20 && y <= 30;
      return in ? Point{x + by.X, y + by.Y} : Point{x, y};
    };
    if (row.EntType == CircleType) {
      ExpectNear(CentreOf(after), end(row.CenterX, row.CenterY));
      EXPECT_EQ(after.Radius, row.Radius);
      continue;
    }
    const Point first = end(row.X1, row.Y1), second = end(row.X2, row.Y2);
    oneEnd += (first.X == row.X1) != (second.X == row.X2);
    EXPECT_LT(Distance({after.X1, after.Y1}, first) + Distance({after.X2, after.Y2}, second), 1e-7);
    ExpectWellMade(after, false);
    if (row.EntType == ArcType) {
      EXPECT_NEAR(ArcSweep(after), ArcSweep(row), 1e-9);
    }
  }
  EXPECT_GT(oneEnd, 100);
}

struct Transforms : Journey {
  // Two rows: a line from 2,1 to 8,4 and a circle of radius 2 about -6,-6.
  void SetUp() override {
    Journey::SetUp();
    ASSERT_TRUE(Start());
    Play("cmd 1\nclick 2 1\nclick 8 4\ncmd 20\nanswer 2\nclick -6 -6\nkey Escape");
  }
  const Entity &Row(int i) { return RowAt(Bench().Grain.Table, i); }
  void ExpectLine(int i, double x1, double y1, double x2, double y2) {
    const Entity &e = Row(i);
    EXPECT_LT(std::hypot(e.X1 - x1, e.Y1 - y1) + std::hypot(e.X2 - x2, e.Y2 - y2), 1e-9)
        << i << ": " << e.X1 << " " << e.Y1 << " " << e.X2 << " " << e.Y2;
  }
};

TEST_F(Transforms, CopiesStandAtMultiplesAndAreOneUndo) {
  const char *choose = "press XFormOption:Copy\nexpect prompt Select Entities to ";
  Play(std::string("cmd 70\nexpect prompt Select Move or Copy Entities Option / Indicate Position\n") +
       "press XFormOption:Copy\npress SelectSingle\nclick 5 2.5\n"
       "expect prompt Hit Enter/Accept to Reposition / Indicate Position\n"
       "key Enter\nanswer 3\nanswer 1\nanswer -2\nexpect count 5\nexpect visible Selection_Frame\n");
  for (int k = 1; k <= 3; ++k) ExpectLine(1 + k, 2 + k, 1 - 2 * k, 8 + k, 4 - 2 * k);
  Play("press mnuEditUndo\nexpect count 2\npress mnuEditUndo\nexpect count 1\npress mnuEditRedo\nexpect "
       "count 2");
  // The angle is typed and not entered; further copies at the pitch.
  Play(std::string("cmd 72\n") + choose + "Rotate\nclick 5 2.5\nkey Enter\nanswer 2\ntype X_Input 90\n" +
       "type Y_Input 90/2\nclick 0 0\nexpect count 4\n");
  const double half = std::sqrt(0.5);
  ExpectLine(2, -1, 2, -4, 8);
  ExpectLine(3, -3 * half, half, -12 * half, 4 * half);
  EXPECT_NEAR(Bench().Grain.Defaults.RotationAngleDefault, Pi / 2, 1e-12);
  Play(std::string("press mnuEditUndo\ncmd 73\n") + choose +
       "Scale\npress SelectByType\npress SelectCircles\n" +
       "answer 2\ntype X_Input 0\nclick 0 0\nexpect box above 0\nexpect count 2\n"
       "type X_Input 0.5\nkey Enter\nclick 0 0\nexpect count 4\n");
  EXPECT_DOUBLE_EQ(Row(2).Radius, 1);
  EXPECT_DOUBLE_EQ(Row(3).CenterX, -1.5);
  Play(
      "press mnuEditUndo\ncmd 71\npress XFormOption:Copy\npress SelectAll\nanswer 300\nclick 0 0\nclick 1 0\n"
      "expect box 301 entities at most\nexpect count 2\nexpect prompt Indicate New Position\nkey Escape\n");
  EXPECT_FALSE(Row(0).Selected);
}

TEST_F(Transforms, MoveMirrorAndStepsBack) {
  Play("cmd 71\nclick 5 2.5\nkey Enter\nexpect prompt Indicate Base Position\nclick 2 1\n"
       "expect prompt Indicate New Position\nback 0 0\nexpect prompt Indicate Base Position\n"
       "back 0 0\nexpect prompt Select Entities to Move\nback 0 0\nexpect visible Selection_Frame\nback 0 0\n"
       "expect prompt\n"
       "cmd 71\nclick 5 2.5\nkey Enter\nclick 2 1\nclick -2 -1\nexpect prompt Select Entities to Move\nkey "
       "Escape");
  ExpectLine(0, -2, -1, 4, 2);
  Play("cmd 76\npress XFormOption:Move\npress SelectWindow\nexpect visible Window_Frame\n"
       "expect prompt Indicate First Corner of Window\ndrag 5 3 -3 -2\nkey Enter\n"
       "expect prompt Select Mirror Type\npress Mirror_2Points\nclick 0 0\nclick 0 0\nexpect box identical\n"
       "click 3 3\nexpect count 2\nkey Escape");
  ExpectLine(0, -1, -2, 2, 4);
  EXPECT_EQ(Row(1).CenterX, -6);
  // An idle selection is taken, and the command ends with it.
  Play("click 0 0\ncmd 76\npress XFormOption:Copy\npress Mirror_Vertical\nclick 1 9\nexpect prompt\nexpect "
       "count 3");
  ExpectLine(2, 3, -2, 0, 4);
  Play("cmd 72\npress XFormOption:Move\nkey Enter\nexpect prompt\nexpect count 3"); // nothing selected
}

TEST_F(Transforms, RotationDrawTakesTheImagesAlong) {
  Play("press RotateDraw\nanswer 4\ncmd 1\nclick 10 -3\nclick 10 3\nexpect count 6\n"
       "cmd 70\npress XFormOption:Move\npress SelectSingle\nclick 10 0\nclick 0 10\nkey Enter\nbox Yes\n"
       "answer 2\nanswer 0");
  ExpectLine(2, 12, -3, 12, 3);
  ExpectLine(3, 5, 10, -1, 10); // picked itself: done once, by its own
  ExpectLine(4, -12, 3, -12, -3);
  ExpectLine(5, -3, -12, 3, -12);
  Play("press mnuEditUndo\ncmd 76\npress XFormOption:Move\npress SelectByType\npress SelectLines\n"
       "expect box function 4 times\nbox No\nexpect prompt");
  ExpectLine(2, 10, -3, 10, 3);
  // Both ends of each side go with the corner they stand at.
  Play("cmd 86\nclick 10 0\nclick 0 10\nclick -10 0\nclick 0 -10\nkey Enter\nexpect count 2\n"
       "cmd 1\nclick 9 0\nclick 0 9\nexpect count 6\ncmd 77\nclick 8 1\nclick 10 -1\npress DeltaMovement\n"
       "answer 1\nanswer 2\nkey Escape");
  for (int k = 0; k < 4; ++k) {
    const Point a = Turned({10, 2}, k * Pi / 2), b = Turned({10, 2}, (k + 1) * Pi / 2);
    ExpectLine(2 + k, a.X, a.Y, b.X, b.Y);
  }
  Play("cmd 85\npress Delete_Mode:Rotation Mode\nclick 4 6\nexpect count 2\npress mnuEditUndo\nexpect count "
       "6\n"
       "cmd 85\nclick 4 6\nexpect count 5\nkey Escape");
}

TEST_F(Transforms, BoxMoveStretches) {
  Play("cmd 77\nexpect prompt Indicate First Window Corner\nclick 7 5\nclick 9 3\n"
       "expect prompt Select Movement Method\nback 0 0\nexpect prompt Indicate First Window Corner\n"
       "drag 9 3 7 5\npress Point2Movement\nexpect prompt Indicate Base Position\nclick 0 0\nback 0 0\n"
       "expect prompt Indicate Base Position\nback 0 0\nexpect prompt Select Movement Method\n"
       "press Point2Movement\nclick 0 0\nclick 1 -1\n");
  ExpectLine(0, 2, 1, 9, 3);
  Play(
      "click -7 -7\nclick -5 -5\npress GrainMovement\nclick 1 0\nclick 3 2\npress DeltaMovement\nanswer "
      "7\nanswer 2\n"
      "expect box too small\nclick 12 12\nexpect count 2\npress DeltaMovement\nanswer cancel\nexpect prompt");
  EXPECT_EQ(Row(1).CenterX, 0);
  ExpectLine(0, 2, 1, 9, 3);
  Play("press mnuEditUndo\npress mnuEditUndo");
  ExpectLine(0, 2, 1, 8, 4);
  EXPECT_EQ(Row(1).CenterX, -6);
}
} // namespace
