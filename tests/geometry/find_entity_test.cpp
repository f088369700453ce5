#include "geometry/find_entity.h"

#include "base/fault.h"

#include <cmath>
#include <gtest/gtest.h>

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

TEST(FindEntity, OutwardStopsAtTheSmallestRadiusThatHits) {
  // At 0.04 from one and 0.045 from the other both lie within the smallest radius: the higher row, either
  // way.
  const EntityTable table = TableOf({MakeLine(-20, 0, 20, 0), MakeLine(-20, 0.085, 20, 0.085)});
  EXPECT_EQ(IndexAt(table, 1, 0.04, {.Outward = true}), 1);
  EXPECT_EQ(IndexAt(table, 1, -0.95, {.Outward = true}), 0);
  EXPECT_EQ(IndexAt(table, 1, -0.95), 0);
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
  Point at{-20, 5.5};
  Snap snap{true, 2, EdgeSnap};
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
