#include "geometry/random_outline.h"
#include "geometry/verify.h"

#include "base/fault.h"

#include <gtest/gtest.h>

namespace {

EntityTable TableOf(std::initializer_list<Entity> rows) {
  EntityTable table;
  for (const Entity &e : rows) AppendRow(table, e);
  return table;
}

Outline Polygon(int corners, double outer, double inner, double turn, double shiftX = 0, double shiftY = 0) {
  std::vector<Corner> corner;
  for (int i = 0; i < corners; ++i) {
    const double r = i % 2 ? inner : outer, a = turn + i * 2 * Pi / corners;
    corner.push_back({shiftX + r * std::cos(a), shiftY + r * std::sin(a)});
  }
  return ChainOf(corner);
}

void ExpectMeasures(const AreaScan &scan, double area, double x, double y, double areaPart, double shift) {
  ASSERT_TRUE(scan.Closed);
  EXPECT_NEAR(scan.Area, area, area * areaPart);
  EXPECT_NEAR(scan.CentroidX, x, shift);
  EXPECT_NEAR(scan.CentroidY, y, shift);
}

TEST(Area, CircleHasItsOwnCentre) {
  ExpectMeasures(ScanArea(TableOf({MakeCircle(3, -4, 10)}), 50, 0.01, false), Pi * 100, 3, -4, 1e-5, 1e-6);
}

TEST(Area, FlatSidesAreTurnedAwayAndTheTableStays) {
  const Outline square = Polygon(4, 10, 10, Pi / 4, 2, 5);
  const EntityTable before = square.Table;
  const AreaScan scan = ScanArea(square.Table, 50, 0.01, false);
  ExpectMeasures(scan, 200, 2, 5, 1e-5, 1e-4);
  EXPECT_NEAR(scan.Turn, 10 * Pi / 180, 1e-12);
  for (int i = 0; i <= before.EntCount; ++i) {
    EXPECT_EQ(before.Row[i].X1, square.Table.Row[i].X1);
    EXPECT_EQ(before.Row[i].Y2, square.Table.Row[i].Y2);
  }
}

TEST(Area, ClosedFormsAtEveryTurn) {
  for (const double turn : {0.0, 0.1, Pi / 6, 1.0, Pi / 2}) {
    SCOPED_TRACE(turn);
    const Outline star = Polygon(12, 30, 12, turn, -1, 2), bits = Polygon(300, 40, 40, turn);
    ExpectMeasures(ScanArea(star.Table, 50, 0.01, false), star.Area, -1, 2, 1e-5, 1e-3);
    ExpectMeasures(ScanArea(bits.Table, 50, 0.01, false), bits.Area, 0, 0, 1e-5, 1e-3);
    const Outline lens = ChainOf({{20 * std::cos(turn), 20 * std::sin(turn), 0.4},
                                  {-20 * std::cos(turn), -20 * std::sin(turn), -0.2}});
    ExpectMeasures(ScanArea(lens.Table, 50, 0.01, false), lens.Area, lens.CentroidX, lens.CentroidY, 1e-4,
                   0.01);
  }
}

TEST(Area, OnlySelectedRowsCountWhenAsked) {
  EntityTable table = TableOf({MakeCircle(10, 0, 5), MakeLine(0, 0, 3, 3)});
  table.Row[0].Selected = true;
  ExpectMeasures(ScanArea(table, 50, 0.01, true), Pi * 25, 10, 0, 1e-5, 1e-5);
  EXPECT_FALSE(ScanArea(table, 50, 0.01, false).Closed);
}

TEST(Area, PortsSmallerThanTheResolutionKeepTheirCentre) {
  ExpectMeasures(ScanArea(TableOf({MakeCircle(30, 40, 0.3)}), 1000, 10, false), Pi * 0.09, 30, 40, 1e-2,
                 1e-3);
}

TEST(Area, NoClosedOutlineIsRefused) {
  for (unsigned seed = 1; seed <= 6000; ++seed) {
    std::mt19937 random(seed);
    const double radius = std::pow(10, std::uniform_real_distribution<double>(std::log10(2), 3)(random));
    const int count = 3 + static_cast<int>(random() % (seed % 20 ? 40 : 299));
    const Outline o = ChainOf(RandomCorners(random, radius, count), seed % 3 ? 0 : 0.009, &random);
    const AreaScan scan = ScanArea(o.Table, radius, radius / 100, false);
    ASSERT_TRUE(scan.Closed) << "seed " << seed << ", radius " << radius << ", " << count << " edges, y "
                             << scan.ScanY;
  }
}

TEST(Area, RandomOutlinesAgreeWithTheShoelace) {
  for (unsigned seed = 1; seed <= 60; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> part(0, 1);
    std::vector<Corner> corner;
    for (int i = 0; i < 12; ++i) { // no edge crosses another
      const double r = 40 + 30 * part(random), a = i * Pi / 6;
      corner.push_back({r * std::cos(a) + 5, r * std::sin(a) - 9, i % 2 ? 0 : 0.5 * part(random) - 0.2});
    }
    const Outline o = ChainOf(corner, 0, &random);
    ExpectMeasures(ScanArea(o.Table, 100, 0.005, false), o.Area, o.CentroidX, o.CentroidY, 2e-4, 0.02);
  }
}

TEST(Area, TangentTouchesAndCornersOnScanLinesAreNoGaps) {
  // Corners on whole multiples of the resolution, circles that touch each other and the outline.
  const Outline comb = ChainOf({{-20, -20}, {20, -20.5}, {20, 20}, {10, 0}, {0, 20}, {-10, 0}, {-20, 20}});
  EntityTable table = comb.Table;
  AppendRow(table, MakeCircle(0, -10, 3));
  AppendRow(table, MakeCircle(6, -10, 3));
  for (const double resolution : {0.25, 0.5, 1.0, 0.1})
    for (const double grain : {50.0, 25.0})
      EXPECT_TRUE(ScanArea(table, grain, resolution, false).Closed) << resolution;
}

TEST(Area, AGapIsFoundWhereAScanLinePassesIt) {
  int passed = 0;
  for (unsigned seed = 1; seed <= 300; ++seed) {
    std::mt19937 random(seed);
    const double radius = seed % 2 ? 50 : 800, gap = 0.04 * radius;
    std::vector<Corner> corner = RandomCorners(random, radius, 20);
    const std::size_t at = random() % corner.size();
    // An upright edge of its own is the gap.
    Corner &from = corner[at], &to = corner[(at + 1) % corner.size()];
    from.Bulge = 0;
    to.X = from.X;
    to.Y = from.Y + gap;
    Outline o = ChainOf(corner);
    DeleteRow(o.Table, static_cast<int>(at));
    const AreaScan scan = ScanArea(o.Table, radius, radius / 100, false);
    const double a = Turned({from.X, from.Y}, scan.Turn).Y, b = Turned({to.X, to.Y}, scan.Turn).Y;
    if (std::abs(b - a) < 0.02 * radius) continue;
    ++passed;
    ASSERT_FALSE(scan.Closed) << "seed " << seed;
    EXPECT_EQ(scan.Crossing.size() % 2, 1u);
    EXPECT_TRUE(std::is_sorted(scan.Crossing.begin(), scan.Crossing.end()));
    EXPECT_GT(scan.ScanY, std::min(a, b));
    EXPECT_LT(scan.ScanY, std::max(a, b));
  }
  EXPECT_GT(passed, 100);
}

TEST(Area, DegenerateTablesEnd) {
  EXPECT_TRUE(ScanArea(EntityTable{}, 50, 0.5, false).Closed);
  EXPECT_EQ(ScanArea(TableOf({MakeLine(1, 1, 1, 1)}), 50, 0.5, false).Area, 0);
  EXPECT_FALSE(ScanArea(TableOf({MakeLine(0, 0, 1e9, 1e9)}), 50, 0.5, false).Closed);
  EXPECT_FALSE(ScanArea(TableOf({MakeLine(-1e308, -1e308, 1e308, 1e308)}), 50, 0.5, false).Closed);
  EXPECT_TRUE(ScanArea(TableOf({MakeCircle(0, 0, 5)}), 0, 0, false).Closed);
  EXPECT_TRUE(ScanArea(TableOf({MakeCircle(0, 0, 1e7)}), 1, 0.01, false).Closed);
}

TEST(Verify, BoxesSayWhatWasMeasured) {
  EXPECT_EQ(VerifyPosition(3, -4).Text, " X: 3.000   Y: -4.000\nDist from center: 5.000");
  EXPECT_EQ(VerifyPosition(3, -4).Title, "Verify Position");
  EXPECT_EQ(VerifyDistance(1, 1, 4, 5).Text, " Distance Between Points: 5.000");
  EXPECT_EQ(VerifyDistance(1, 1, 4, 5).Title, "Verify Distance Between Points");
  AreaScan scan;
  scan.Area = 12.3456, scan.CentroidX = 1, scan.CentroidY = -0.25;
  EXPECT_EQ(VerifyArea(scan).Text, " Area: 12.346 Centroid: X=1.000 Y=-0.250");
  EXPECT_EQ(VerifyArea(scan).Title, "Verify Area");
}

TEST(Verify, PerimeterTakesSelectedRowsAndWrappedArcs) {
  EntityTable table =
      TableOf({MakeLine(0, 0, 3, 4), MakeCircle(0, 0, 1), MakeArc(0, 0, 2, 1.5 * Pi, 0.5 * Pi),
               MakeArc(0, 0, 2, 0.5 * Pi, 1.5 * Pi), MakeLine(0, 0, 100, 0)});
  for (int i = 0; i < 4; ++i) table.Row[static_cast<std::size_t>(i)].Selected = true;
  EXPECT_EQ(VerifyPerimeter(table).Text, " Perimeter: 23.850"); // 5 + 6 pi
  EXPECT_EQ(VerifyPerimeter(table).Title, "Verify Perimeter");
}

TEST(Verify, AngleTurnsWithThePicks) {
  const LinePick along{MakeLine(0, 0, 10, 0), 5, 0};
  struct {
    LinePick Other;
    const char *Text;
  } const rows[] = {
      {{MakeLine(0, 0, 10, 10), 4, 4}, " Angle: 45.000 Deg / 0.785 Rad"},
      {{MakeLine(10, 10, 0, 0), 4, 4}, " Angle: 45.000 Deg / 0.785 Rad"},
      {{MakeLine(-10, -10, 10, 10), -4, -4}, " Angle: 135.000 Deg / 2.356 Rad"},
      {{MakeLine(3, -8, 3, 8), 3, 5}, " Angle: 90.000 Deg / 1.571 Rad"},
  };
  for (const auto &row : rows) EXPECT_EQ(VerifyAngle(along, row.Other).Text, row.Text);
  EXPECT_EQ(VerifyAngle(along, rows[0].Other).Title, "Verify Angle");
  EXPECT_THROW(VerifyAngle(along, {MakeLine(0, 1, 10, 1), 5, 1}), Fault);
}

} // namespace
