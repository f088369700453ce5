// Repeating about the origin: each image against the same step taken by hand on the turned picks.
#include "drafting/rotation_draw.h"
#include "geometry/carrier.h"
#include "geometry/fillet.h"
#include "geometry/section.h"
#include "geometry/three_lines.h"
#include "geometry/trim.h"
#include "platform/scripted_screen.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

struct Repeated : testing::Test {
  ScriptedScreen Screen;
  Design Grain;
  Drafting Draft{Grain, Screen};
  void SetUp() override { SetDimensions(Grain.Doc, 100, 100, 10, 0); }
  void Turns(int count) {
    Draft.Rotation.Active = true;
    Draft.Rotation.RotationCount = static_cast<std::int16_t>(count);
    Draft.Rotation.RotationPitch = TwoPi / count;
  }
  void Draw(const Entity &e) {
    std::vector<Entity> rows{e};
    if (Draft.Rotation.Active) AppendCopies(Draft.Rotation, e, rows);
    for (const Entity &row : rows) AppendRow(Grain.Table, row);
  }
  PickedRow At(int row, double x, double y) const { return RowPick(Grain.Table, row, {x, y}); }
};

double Bad(const Entity &a, const Entity &b) {
  if (a.EntType != b.EntType) return 1e9;
  double worst = 0;
  for (const double off : {a.X1 - b.X1, a.Y1 - b.Y1, a.X2 - b.X2, a.Y2 - b.Y2, a.CenterX - b.CenterX,
                           a.CenterY - b.CenterY, a.Radius - b.Radius})
    worst = std::max(worst, std::abs(off));
  return worst;
}

// Every row has its image a pitch on, so the drawing is a rosette.
void ExpectRosette(const EntityTable &t, double pitch) {
  for (int i = 0; i <= t.EntCount; ++i) EXPECT_GE(ImageOf(t, RowAt(t, i), pitch, 1e-3), 0) << "row " << i;
}

double TotalSweep(const EntityTable &t) {
  double sum = 0;
  for (int i = 0; i <= t.EntCount; ++i)
    if (RowAt(t, i).EntType == ArcType) sum += ArcSweep(RowAt(t, i));
  return sum;
}

TEST_F(Repeated, CopiesStandAtMultiplesOfThePitch) {
  Turns(7);
  const Entity rows[] = {MakeLine(3, 1, 12, 5), CircleRow({9, 2}, 1.5), MakeArc(5, -4, 2, 5.5, 0.7)};
  for (const Entity &row : rows) {
    std::vector<Entity> copies;
    AppendCopies(Draft.Rotation, row, copies);
    ASSERT_EQ(copies.size(), 6u);
    for (std::size_t k = 0; k < copies.size(); ++k) {
      const double angle = static_cast<double>(k + 1) * TwoPi / 7;
      const Entity &e = copies[k];
      const Point centre = Turned(CentreOf(row), angle), first = Turned({row.X1, row.Y1}, angle);
      EXPECT_LT(Distance(CentreOf(e), centre), 1e-12);
      if (e.EntType == CircleType) {
        EXPECT_EQ(e.X2, e.CenterX + e.Radius);
        continue;
      }
      EXPECT_LT(Distance({e.X1, e.Y1}, first), 1e-12);
      if (e.EntType == LineType) {
        EXPECT_EQ(e.Slope, GuardedSlope(e.X1, e.Y1, e.X2, e.Y2));
        continue;
      }
      EXPECT_NEAR(ArcSweep(e), ArcSweep(row), 1e-12);
      for (const double a : {e.StartAngle, e.EndAngle}) EXPECT_TRUE(a >= 0 && a < TwoPi) << a;
    }
  }
}

TEST_F(Repeated, StarTipsAreFilletedAsOneChange) {
  Turns(6);
  const Point tip{30, 0}, valley = Turned({12, 0}, Pi / 6);
  Draw(MakeLine(tip.X, tip.Y, valley.X, valley.Y));
  Draw(MakeLine(tip.X, tip.Y, valley.X, -valley.Y));
  const auto fillet = [](const EntityTable &, std::span<const PickedRow> p) {
    return FilletSolve(p[0], p[1], FilletUse::Blend, 1);
  };
  EntityTable byHand = Grain.Table;
  for (int k = 0; k < 6; ++k) {
    const Point up = Turned({20, 3}, k * TwoPi / 6), down = Turned({20, -3}, k * TwoPi / 6);
    const Solution step =
        FilletSolve(RowPick(byHand, k, up), RowPick(byHand, 6 + k, down), FilletUse::Blend, 1);
    ASSERT_EQ(Commit(byHand, step).Text, "");
  }
  const PickedRow picks[] = {At(0, 20, 3), At(6, 20, -3)};
  const Solution whole = SolveWithImages(Draft, picks, fillet);
  EXPECT_EQ(whole.Changed.size(), 12u);
  ASSERT_EQ(Commit(Grain.Table, whole).Text, "");
  ASSERT_EQ(Grain.Table.EntCount, 17);
  for (int i = 0; i < 18; ++i) EXPECT_LT(Bad(RowAt(Grain.Table, i), RowAt(byHand, i)), 1e-9) << i;
}

TEST_F(Repeated, DeletedRowsShiftAndAMissingImageEndsTheRounds) {
  Turns(5);
  for (const auto &[x1, y1, x2, y2] : {std::array{10, -2, 20, -2}, {20, -2, 20, 2}, {20, 2, 10, 2}})
    Draw(MakeLine(x1, y1, x2, y2));
  const auto roundEnd = [](const EntityTable &, std::span<const PickedRow> p) {
    return Circle3Tan(p[0], p[1], p[2], ThreeLineUse::RoundEnd, 50);
  };
  const PickedRow picks[] = {At(0, 15, -2), At(5, 20, 0), At(10, 15, 2)};
  EntityTable all = Grain.Table;
  const Solution whole = SolveWithImages(Draft, picks, roundEnd);
  EXPECT_EQ(whole.Deleted, (std::vector{5, 6, 7, 8, 9}));
  ASSERT_EQ(Commit(all, whole).Text, "");
  EXPECT_EQ(all.EntCount, 14);
  ExpectRosette(all, TwoPi / 5);
  DeleteRow(Grain.Table, 12); // the third finger has lost a side
  const Solution part = SolveWithImages(Draft, picks, roundEnd);
  EXPECT_EQ(part.Added.size(), 2u);
  EXPECT_EQ(part.Deleted, (std::vector{5, 6}));
}

// A circle on the origin cut by six spokes: what stays between two of them, or all but a spoke's width.
TEST_F(Repeated, OriginCircleOpensAtEverySpoke) {
  const double half = std::asin(0.1);
  AppendRow(Grain.Table, CircleRow({0, 0}, 20));
  Turns(6);
  Draw(MakeLine(15, -2, 25, -2));
  Draw(MakeLine(15, 2, 25, 2));
  const struct {
    int First, Second; // rows of the cutters
    Point Pick;        // on what stays
    double Sweep;
  } cases[] = {{7, 2, Turned({20, 0}, Pi / 6), TwoPi - 12 * half},
               {1, 7, {20, 0}, 12 * half},
               {1, 7, {-20, 0.5}, TwoPi - 12 * half}};
  for (const auto &c : cases) {
    SCOPED_TRACE(c.Pick.X);
    const auto cutter = [&](int row) { return RowPick(Grain.Table, row, CentreOf(RowAt(Grain.Table, row))); };
    const PickedRow picks[] = {At(0, c.Pick.X, c.Pick.Y), cutter(c.First), cutter(c.Second)};
    EntityTable t = Grain.Table;
    const auto trim = [](const EntityTable &, std::span<const PickedRow> p) {
      return TrimDoubleOp(p[0], p[1], p[2]);
    };
    ASSERT_EQ(Commit(t, SolveWithImages(Draft, picks, trim)).Text, "");
    EXPECT_EQ(t.EntCount, 17);
    EXPECT_NEAR(TotalSweep(t), c.Sweep, 1e-5);
    ExpectRosette(t, TwoPi / 6);
  }
}

TEST_F(Repeated, QueryComesForRowsAroundTheCentre) {
  const struct {
    Entity Row;
    bool Asks;
  } cases[] = {{CircleRow({1, 1}, 5), true},
               {CircleRow({10, 0}, 5), false},
               {MakeLine(-1, -1, 5, 5), true},
               {MakeArc(-5, 0, 10, 250 * Pi / 180, 110 * Pi / 180), true}, // by its crossing of the axis
               {MakeArc(-5, 0, 10, 110 * Pi / 180, 250 * Pi / 180), false}};
  for (const auto &c : cases)
    for (const bool selected : {true, false}) {
      Grain.Table = {};
      AppendRow(Grain.Table, c.Row);
      RowAt(Grain.Table, 0).Selected = selected;
      Turns(6);
      EXPECT_EQ(TransformationQuery(Draft), !(c.Asks && selected)); // no answer stands, which counts as No
      Draft.Rotation.Active = false;
      EXPECT_TRUE(TransformationQuery(Draft));
    }
  EXPECT_NE(Screen.LastBox.find("transformation function 6 times generally producing"), std::string::npos);
}

TEST_F(Repeated, SectionOfADiameterGoesOnBothSides) {
  AppendRow(Grain.Table, CircleRow({0, 0}, 20));
  AppendRow(Grain.Table, MakeLine(30, 0, -30, 0));
  Turns(2);
  for (const Point at : {Point{25, 0}, Point{-25, 0}}) {
    const Section s = SectionTrim(Grain.Table, at, 50);
    const PickedRow picks[] = {s.Cut, s.Left, s.Right};
    const Solution whole =
        SolveWithImages(Draft, picks, [&](const EntityTable &, std::span<const PickedRow> p) {
          Section image = s;
          image.Cut = p[0];
          image.Left = p[1];
          image.Right = p[2];
          return SectionCut(image);
        });
    ASSERT_EQ(whole.Changed.size(), 1u);
    EXPECT_LT(Bad(whole.Changed[0].Row, MakeLine(20, 0, -20, 0)), 1e-9);
    EXPECT_TRUE(whole.Added.empty());
  }
}

} // namespace
