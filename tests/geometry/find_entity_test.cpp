#include "geometry/find_entity.h"

#include "base/fault.h"
#include "rounds.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace {

constexpr double Grain = 50; // pick radii 5 mm to 0.05 mm

EntityTable TableOf(std::initializer_list<Entity> rows) {
  EntityTable table;
  for (const Entity &e : rows) AppendRow(table, e);
  return table;
}

int IndexAt(const EntityTable &table, double x, double y, const PickScope &scope = {}) {
  return FindEntity(table, {x, y}, Grain, scope).Index;
}

TEST(FindEntity, TheTightestRadiusDecidesThenTheHigherRow) {
  const EntityTable table = TableOf(
      {MakeLine(-20, 0, 20, 0), MakeLine(-20, 4, 20, 4), MakeLine(20, 4, -20, 4), MakeCircle(0, 0, 30)});
  EXPECT_EQ(IndexAt(table, 3, 1.6), 0);
  EXPECT_EQ(IndexAt(table, 3, 2.4), 2); // of two alike the last
  EXPECT_EQ(IndexAt(table, 0, 29), 3);
  EXPECT_EQ(IndexAt(table, 3, 10), -1);
  EXPECT_EQ(IndexAt(table, 3, 2.4, {.TypeMask = 2}), -1);
  EXPECT_EQ(IndexAt(table, 3, 2.4, {.LastRow = 1}), 1);
  EXPECT_EQ(IndexAt(table, 3, 2.4, {.ForcedIndex = 1}), 0);
  EXPECT_EQ(IndexAt(table, 3, 2.4, {.ForcedIndex = 1, .SnapActive = true, .SnapEntity = 1}), 1);
  EXPECT_EQ(IndexAt(table, 3, 2.4, {.ForcedIndex = 9}), -1);
  EXPECT_FALSE(FindEntity(table, {3, 2.1}, 0).Found);
  EXPECT_FALSE(FindEntity(table, {3, 4}, 0).Found);
}

TEST(FindEntity, FootOnTheLineAndAngleOnTheArc) {
  const EntityTable table =
      TableOf({MakeLine(-20, -20, 20, 20), MakeCircle(0, 0, 30), MakeLine(-10, -20, -10, 20)});
  const Pick line = FindEntity(table, {5.5, 4.5}, Grain);
  EXPECT_NEAR(line.PickX, 5, 1e-9);
  EXPECT_NEAR(line.PickY, 5, 1e-9);
  const Pick circle = FindEntity(table, {0, -29.5}, Grain);
  EXPECT_EQ(circle.Index, 1);
  EXPECT_NEAR(circle.PickAngle, 1.5 * Pi, 1e-6);
  const Pick upright = FindEntity(table, {-9.5, 7}, Grain);
  EXPECT_EQ(upright.Index, 2);
  EXPECT_NEAR(upright.PickX, -10, 1e-4); // the guard slope leans by a millionth
  EXPECT_NEAR(upright.PickY, 7, 1e-4);
}

// Every pick radius over every row, the last hit kept.
int SlowIndex(const EntityTable &table, Point at, double grain, int mask) {
  int found = -1;
  for (int k = 10; k <= 1000; k += 10)
    for (int i = 0; i <= table.EntCount; ++i) {
      const Entity &e = table.Row[static_cast<std::size_t>(i)];
      const double radius = grain / k, d = std::hypot(at.X - e.CenterX, at.Y - e.CenterY);
      if ((e.EntType & mask) == 0 || e.Selected) continue;
      bool hit = false;
      if (e.EntType == LineType) {
        const Roots chord = LineCircleRoots(e.Slope, e.Intercept, at, radius, 0, Discriminant::Binary);
        const bool upright = std::abs(e.Slope) >= VerticalSlope;
        for (const Point p : {chord.First, chord.Second})
          hit = hit || (upright ? (e.Y1 - p.Y) * (p.Y - e.Y2) > 0 : (e.X1 - p.X) * (p.X - e.X2) >= 0);
        hit = hit && chord.Case == RootCase::Two;
      } else if (e.Radius - radius < d && d < e.Radius + radius) {
        hit = e.EntType == CircleType ||
              AngleInArc(AngleAbout(at, {e.CenterX, e.CenterY}, d), e, ArcEnds::Closed) ||
              std::hypot(at.X - e.X1, at.Y - e.Y1) < radius || std::hypot(at.X - e.X2, at.Y - e.Y2) < radius;
      }
      if (hit) found = i;
    }
  return found;
}

TEST(FindEntity, AnswersAsTheWalkOverAllRadiiDoes) {
  std::mt19937_64 chance(Seed());
  const auto within = [&chance](double a, double b) {
    return std::uniform_real_distribution<double>(a, b)(chance);
  };
  for (int round = 0; round < 40 * Rounds(); ++round) {
    const double grain = std::pow(10, within(0.5, 2.7));
    EntityTable table;
    for (int i = 0; i < 40; ++i) {
      const double x = within(-grain, grain), y = within(-grain, grain), size = grain * within(0.001, 1);
      const double a = within(0, TwoPi), steep = within(-3e-4, 3e-4);
      Entity row = MakeArc(x, y, size, a, within(0, TwoPi));
      if (i % 5 == 0) row = MakeCircle(x, y, size);
      if (i % 5 == 1) row = MakeLine(x, y, x + size * std::cos(a), y + size * std::sin(a));
      if (i % 5 == 2) row = MakeLine(x, y, x + (i % 2 ? steep : 0), y + size);
      if (i % 9 == 8) row = RowAt(table, i / 2);
      row.Selected = i % 7 == 0;
      AppendRow(table, row);
    }
    for (int pick = 0; pick < 25; ++pick) {
      const Entity &near = RowAt(table, pick);
      const double off = grain * std::pow(10, within(-5, -0.8));
      Point at{within(-grain, grain), within(-grain, grain)};
      if (pick % 2) at = {near.X1 + within(-off, off), near.Y1 + within(-off, off)};
      for (const int mask : {7, 1, 6})
        EXPECT_EQ(FindEntity(table, at, grain, {.TypeMask = mask}).Index, SlowIndex(table, at, grain, mask))
            << "seed " << Seed() << " grain " << grain << " at " << at.X << ' ' << at.Y;
    }
  }
}

TEST(FindEntity, SelectedRowsArePassedOverUnlessAllowedOrSnapped) {
  EntityTable table = TableOf({MakeLine(-20, 0, 20, 0)});
  table.Row[0].Selected = true;
  EXPECT_EQ(IndexAt(table, 0, 1), -1);
  EXPECT_EQ(IndexAt(table, 0, 1, {.AllowSelected = true}), 0);
  EXPECT_EQ(IndexAt(table, 0, 1, {.SnapActive = true, .SnapEntity = 0}), 0);
}

TEST(FindEntity, ArcsCountOnTheirSweepAndNearTheirEnds) {
  const EntityTable table = TableOf({MakeArc(0, 0, 20, 0, Pi / 2)});
  struct {
    double X, Y;
    int Index;
  } const rows[] = {{14.2, 14.2, 0}, {-14.2, 14.2, -1}, {20, -3, 0}, {20, -6, -1}, {0, 0, -1}};
  for (const auto &row : rows) EXPECT_EQ(IndexAt(table, row.X, row.Y), row.Index) << row.X << ' ' << row.Y;
  EXPECT_EQ(IndexAt(table, 0.4, 0), -1);
  EXPECT_EQ(IndexAt(table, 0.4, 0, {.SnapActive = true, .SnapEntity = 0}), 0);
  EXPECT_EQ(IndexAt(table, 0, 0, {.SnapActive = true, .SnapEntity = 0}), 0);
  const EntityTable small = TableOf({MakeCircle(7, 7, 1)});
  EXPECT_EQ(IndexAt(small, 7, 7), -1);
  EXPECT_FALSE(FindEntity(small, {7, 7}, Grain).GeomAbort);
}

TEST(FindEntity, LineEndsUprightAndOtherwise) {
  // Exactly level with an end, off by 3: the chord of every radius above 3 has one end within the range. The
  // position 5 beyond the end is out of the widest radius's reach but for a touch, which counts on X and not
  // on Y.
  const EntityTable level = TableOf({MakeLine(0, 0, 10, 10)}), upright = TableOf({MakeLine(0, 0, 0, 10)});
  EXPECT_EQ(IndexAt(level, 12, 12), 0);
  EXPECT_EQ(IndexAt(level, 14, 14), -1);
  EXPECT_EQ(IndexAt(upright, 0, 14), 0);
  EXPECT_EQ(IndexAt(upright, 0, 15.5), -1);
  EXPECT_EQ(IndexAt(upright, 0.5, 10), 0);
}

TEST(Snap, NearestOfEndsAndCentresThenEdges) {
  const EntityTable table = TableOf({MakeLine(0, 0, 2, 0), MakeArc(20, 0, 5, 0, Pi), MakeCircle(-20, 0, 5)});
  struct {
    double X, Y;
    int Entity, Kind;
    double SnapX, SnapY;
  } const rows[] = {
      {0.2, 0.1, 0, FirstEnd, 0, 0},    {1.8, 0.1, 0, SecondEnd, 2, 0},  {1.1, 0.1, 0, CentreSnap, 1, 0},
      {20.3, 0, 1, CentreSnap, 20, 0},  {-20, 5.5, 2, EdgeSnap, -20, 5}, {20, 5.5, 1, EdgeSnap, 20, 5},
      {20, -5.5, -1, NoSnap, 20, -5.5}, {30, 30, -1, NoSnap, 30, 30},    {24.9, 0.4, 1, FirstEnd, 25, 0},
  };
  for (const auto &row : rows) {
    Point at{row.X, row.Y};
    Snap snap;
    Find_End_Or_Center(table, Grain, 1, true, at, snap);
    EXPECT_EQ(snap.SnapEntity, row.Entity) << row.X << ' ' << row.Y;
    EXPECT_EQ(snap.SnapKind, row.Kind) << row.X << ' ' << row.Y;
    EXPECT_EQ(snap.SnapActive, row.Entity >= 0);
    EXPECT_NEAR(at.X, row.SnapX, 1e-12);
    EXPECT_NEAR(at.Y, row.SnapY, 1e-12);
  }
  Entity mirrored = MakeArc(0, 0, 10, Pi / 4, Pi); // its stored first end stands mirrored
  mirrored.Y1 = -mirrored.Y1;
  const EntityTable broken = TableOf({mirrored});
  Point end{7, 7.1}, ghost{7, -7.1};
  Snap snap;
  Find_End_Or_Center(broken, Grain, 1, false, end, snap);
  EXPECT_NEAR(end.Y, 10 * std::sqrt(0.5), 1e-12);
  Find_End_Or_Center(broken, Grain, 1, true, ghost, snap);
  EXPECT_FALSE(snap.SnapActive);

  Point at{-20, 5.5};
  snap = {true, 2, EdgeSnap};
  Find_End_Or_Center(table, Grain, 1, false, at, snap);
  EXPECT_EQ(at.Y, 5.5);
  EXPECT_FALSE(snap.SnapActive);
  EXPECT_EQ(snap.SnapKind, EdgeSnap);
}

TEST(GrainCircle, IsAddedOnceAndRemovedOnlyWhenItIsThere) {
  EntityTable table;
  AddGrainCircle(table, Grain);
  AddGrainCircle(table, Grain);
  EXPECT_EQ(table.EntCount, 0);
  EXPECT_EQ(table.Row[0].Radius, Grain);
  EXPECT_EQ(table.Row[0].X1, Grain);
  EXPECT_EQ(table.Row[0].EndAngle, 2 * Pi);
  RemoveGrainCircle(table, Grain);
  EXPECT_EQ(table.EntCount, -1);
  RemoveGrainCircle(table, Grain);
  EXPECT_EQ(table.EntCount, -1);
  AppendRow(table, MakeCircle(0, 0, Grain - 1));
  RemoveGrainCircle(table, Grain);
  EXPECT_EQ(table.EntCount, 0);
  for (int i = 0; i < 300; ++i) AppendRow(table, MakeLine(0, 0, 1, 1));
  EXPECT_THROW(AddGrainCircle(table, Grain), Fault);
  EXPECT_EQ(table.EntCount, 300);
}

} // namespace
