#include "geometry/tangents.h"

#include "geometry/construct.h"
#include "solver_check.h"

namespace {

Entity RandomRound(Dice &dice, double size, double largest) {
  const Point c{dice.Between(-0.9, 0.9) * size, dice.Between(-0.9, 0.9) * size};
  const double r = dice.Between(0.05, largest) * size;
  if (dice.Below(2)) return CircleRow(c, r);
  const double a = dice.Between(0, TwoPi);
  return MakeArc(c.X, c.Y, r, a, NormalAngle(a + dice.Between(0.2, 6)));
}
double Side(Point from, Point to, Point p) {
  return (to.X - from.X) * (p.Y - from.Y) - (to.Y - from.Y) * (p.X - from.X);
}

// Picks beside the candidates choose; every one of the four tangents is asked for, both ways round.
TEST(Tangents, FourTangentsOfTwoRounds) {
  Dice dice(51);
  int outer = 0, inner = 0, none = 0;
  for (int i = 0; i < 5000 * Rounds() && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << Seed() << " round " << i);
    const double size = dice.Size();
    Entity one = RandomRound(dice, size, 0.6), two = RandomRound(dice, size, 0.6);
    if (dice.Below(4) == 0) two.CenterY = one.CenterY;
    if (dice.Below(4) == 0) two.CenterX = one.CenterX;
    if (dice.Below(4) == 0) two.Radius = one.Radius;
    const Point c1 = CentreOf(one), c2 = CentreOf(two);
    const double d = Distance(c1, c2);
    if (std::abs(d - one.Radius - two.Radius) < 0.01 * d ||
        std::abs(d - std::abs(one.Radius - two.Radius)) < 0.01 * d)
      continue;
    for (const int side1 : {-1, 1})
      for (const int side2 : {-1, 1}) {
        // Square to the centre line: nearer to the tangent point on that side.
        const auto pick = [&](const Entity &e, int side) {
          return Point{e.CenterX - side * e.Radius * (c2.Y - c1.Y) / d,
                       e.CenterY + side * e.Radius * (c2.X - c1.X) / d};
        };
        const PickedRow p = PickedAt(0, one, pick(one, side1)), q = PickedAt(1, two, pick(two, side2));
        const Solution s = CreateTanTan(p, q), back = CreateTanTan(q, p);
        const bool exists =
            side1 == side2 ? d > std::abs(one.Radius - two.Radius) : d > one.Radius + two.Radius;
        ASSERT_EQ(s.Solved(), exists) << s.Failure.Text;
        ASSERT_EQ(back.Solved(), exists);
        if (!exists) {
          ++none;
          EXPECT_TRUE(s.Failure.Text == "ERROR: No Solution Found" && s.Failure.Title == "Equation Error");
          continue;
        }
        ++(side1 == side2 ? outer : inner);
        const Entity &line = s.Added[0];
        EXPECT_NEAR(OffLine(line, c1), one.Radius, 1e-8);
        EXPECT_NEAR(OffLine(line, c2), two.Radius, 1e-8);
        EXPECT_LT(OffRound(one, FirstEnd1(line)), 1e-9);
        EXPECT_LT(OffRound(two, SecondEnd2(line)), 1e-9);
        EXPECT_GT(side1 * Side(c1, c2, FirstEnd1(line)), -1e-6);
        EXPECT_GT(side2 * Side(c1, c2, SecondEnd2(line)), -1e-6);
        EXPECT_LT(Distance(FirstEnd1(back.Added[0]), SecondEnd2(line)), 1e-8);
      }
  }
  EXPECT_GT(outer, 1000);
  EXPECT_GT(inner, 1000);
  EXPECT_GT(none, 1000);
}

TEST(Tangents, OfNote) {
  const auto tan = [](const Entity &a, Point p, const Entity &b, Point q) {
    return CreateTanTan(PickedAt(0, a, p), PickedAt(1, b, q));
  };
  const Entity left = CircleRow({0, 0}, 1), right = CircleRow({10, 0}, 1);
  Entity line = tan(left, {0, 1}, right, {10, 1}).Added[0];
  EXPECT_TRUE(line.X1 == 0 && line.Y1 == 1 && line.X2 == 10 && line.Y2 == 1);
  line = tan(left, {0, 1}, right, {10, -1}).Added[0];
  EXPECT_LT(OffLine(line, {5, 0}), 1e-12);
  // Overlapping circles keep their outer tangents.
  const Entity near = CircleRow({1, 0}, 1);
  EXPECT_TRUE(tan(left, {0, 1}, near, {1, 1}).Solved());
  EXPECT_EQ(tan(left, {0, 1}, near, {1, -1}).Failure.Text, "ERROR: No Solution Found");
  EXPECT_EQ(tan(left, {0, 1}, CircleRow({0, 0}, 3), {0, 3}).Failure.Text, "ERROR: No Solution Found");
  // Touching from outside: the inner tangents are a point.
  EXPECT_EQ(tan(left, {0, 1}, CircleRow({2, 0}, 1), {2, -1}).Failure.Text, "ERROR: Entity's too small");
  // Picks as far from both candidates take the second of each.
  line = tan(left, {1, 0}, right, {11, 0}).Added[0];
  EXPECT_NEAR(line.Y1, -std::sqrt(0.96), 1e-12);
  EXPECT_NEAR(line.Y2, std::sqrt(0.96), 1e-12);
  EXPECT_LT(tan(left, {-1, 0}, CircleRow({-10, 0}, 1), {-11, 0}).Added[0].Y1, 0);
}

TEST(Tangents, SquareToBothAtTheirOwnPicks) {
  Dice dice(52);
  for (int i = 0; i < 5000 * Rounds() && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << Seed() << " round " << i);
    const double size = dice.Size();
    const Entity two = RandomRound(dice, size, 0.6);
    const Point c2 = CentreOf(two);
    Entity one = RandomRound(dice, size, 0.6);
    if (dice.Below(4) == 0) one.CenterX = two.CenterX;
    if (dice.Below(2)) {
      const Point a{dice.Between(-0.9, 0.9) * size, dice.Between(-0.9, 0.9) * size};
      const double turn = dice.Below(2) ? dice.Below(4) * Pi / 2 : dice.Between(0, TwoPi);
      one = MakeLine(a.X, a.Y, a.X + size * std::round(std::cos(turn) * 1e6) / 1e6,
                     a.Y + size * std::round(std::sin(turn) * 1e6) / 1e6);
    }
    const double a1 = dice.Between(0, TwoPi), a2 = dice.Between(0, TwoPi);
    const PickedRow p = PickedAt(0, one, one.EntType == LineType ? MidOf(one) : OnRound(one, a1));
    const PickedRow q = PickedAt(1, two, OnRound(two, a2));
    const Solution s = CreatePerpPerp(p, q);
    ASSERT_TRUE(s.Solved()) << s.Failure.Text;
    const Entity &row = s.Added[0];
    EXPECT_LT(Off(one, FirstEnd1(row)), 1e-8);
    EXPECT_LT(Off(two, SecondEnd2(row)), 1e-8);
    EXPECT_LT(OffLine(row, c2), 1e-6); // through the centre, so square to the circle
    if (one.EntType == LineType) {
      const double dot = (row.X2 - row.X1) * (one.X2 - one.X1) + (row.Y2 - row.Y1) * (one.Y2 - one.Y1);
      EXPECT_LT(std::abs(dot) / size, 1e-7);
      EXPECT_LE(std::abs(row.Slope), 1000000);
    } else {
      EXPECT_LT(OffLine(row, CentreOf(one)), 1e-6);
      const Point other{2 * one.CenterX - row.X1, 2 * one.CenterY - row.Y1};
      EXPECT_LE(Distance(FirstEnd1(row), p.At), Distance(other, p.At) + 1e-9);
    }
    const Point other{2 * c2.X - row.X2, 2 * c2.Y - row.Y2};
    EXPECT_LE(Distance(SecondEnd2(row), q.At), Distance(other, q.At) + 1e-9);
  }
  EXPECT_EQ(
      CreatePerpPerp(PickedAt(0, CircleRow({1, 1}, 2), {3, 1}), PickedAt(1, CircleRow({1, 1}, 5), {6, 1}))
          .Failure.Text,
      "ERROR: No Solution");
}

TEST(Tangents, FromAPoint) {
  Dice dice(53);
  for (int i = 0; i < 3000 * Rounds() && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << Seed() << " round " << i);
    const Entity round = RandomRound(dice, dice.Size(), 0.6);
    const double a = dice.Between(0, TwoPi), reach = round.Radius * dice.Between(0.5, 4);
    const Point from{round.CenterX + reach * std::cos(a), round.CenterY + reach * std::sin(a)};
    if (std::abs(reach - round.Radius) < 1e-3) continue;
    const Point pick = OnRound(round, dice.Between(0, TwoPi));
    const Solution s = TangentFromPoint(PickedAt(0, round, pick), from);
    ASSERT_EQ(s.Solved(), reach > round.Radius);
    if (!s.Solved()) {
      EXPECT_TRUE(s.Failure.Text == "ERROR: Point must be Outside Circle or Arc" &&
                  s.Failure.Title == "No Solution");
      continue;
    }
    const Entity &line = s.Added[0];
    EXPECT_TRUE(line.X1 == from.X && line.Y1 == from.Y);
    EXPECT_NEAR(OffLine(line, CentreOf(round)), round.Radius, 1e-8);
    EXPECT_LT(OffRound(round, SecondEnd2(line)), 1e-9);
    // The other touching point, mirrored in the line to the centre, is no nearer to the pick.
    const Entity axis = MakeLine(from.X, from.Y, round.CenterX, round.CenterY);
    const Point foot = FootOn(CarrierOf(axis), SecondEnd2(line));
    EXPECT_LE(Distance(SecondEnd2(line), pick),
              Distance({2 * foot.X - line.X2, 2 * foot.Y - line.Y2}, pick) + 1e-7);
  }
}

TEST(Construct, PolygonsAndSegments) {
  for (int sides = 3; sides <= 12; ++sides)
    for (const bool flat : {false, true}) {
      const Solution s = CreatePolygon({2, 3}, sides, 7, 0, flat);
      ASSERT_EQ(s.Added.size(), static_cast<std::size_t>(sides));
      double lowest = 1e9;
      for (const Entity &line : s.Added) {
        lowest = std::min(lowest, MidOf(line).Y);
        EXPECT_NEAR(flat ? OffLine(line, {2, 3}) : Distance(FirstEnd1(line), {2, 3}), 7, 1e-12);
      }
      int bottoms = 0;
      for (const Entity &line : s.Added)
        if (std::abs(line.Y1 - line.Y2) < 1e-9 && MidOf(line).Y < lowest + 1e-9) ++bottoms;
      EXPECT_EQ(bottoms, 1) << sides;
      const Entity turned = CreatePolygon({2, 3}, sides, 7, 0.3, flat).Added[0];
      EXPECT_NEAR(Bearing({2, 3}, FirstEnd1(turned)),
                  NormalAngle(Bearing({2, 3}, FirstEnd1(s.Added[0])) + 0.3), 1e-12);
    }
  EXPECT_FALSE(CreatePolygon({0, 0}, 2, 7, 0, false).Solved());
  EXPECT_EQ(CreatePolygon({0, 0}, 302, 7, 0, false).Failure.Text, TableFullText);
  const PickedRow arc = PickedAt(0, MakeArc(1, 2, 10, 0, 1), {11, 2});
  EXPECT_EQ(CreateSegments(arc, 2, 0, 1).Failure.Text, "ERROR: Must be at least 2 segments");
  const Solution part = CreateSegments(arc, 5, 350 * Pi / 180, 10 * Pi / 180);
  ASSERT_TRUE(part.Added.size() == 5 && part.Changed.empty() && part.Deleted.empty());
  double length = 0;
  for (const Entity &line : part.Added) length += GetLineLength(line);
  EXPECT_NEAR(length, 5 * 2 * 10 * std::sin(2 * Pi / 180), 1e-9);
  const Solution whole = CreateSegments(arc, 6, 0, TwoPi);
  EXPECT_LT(Distance(FirstEnd1(whole.Added[0]), SecondEnd2(whole.Added[5])), 1e-9);
}

TEST(Construct, CircleThroughThreePoints) {
  Dice dice(54);
  for (int i = 0; i < 3000 * Rounds() && !testing::Test::HasFailure(); ++i) {
    const double size = dice.Size();
    std::array<Point, 3> p;
    for (Point &q : p) q = {dice.Between(-1, 1) * size, dice.Between(-1, 1) * size};
    const CircleThrough c = ThroughThree(p);
    for (const Point q : p) EXPECT_NEAR(Distance(c.Centre, q), c.Radius, 1e-9 * (c.Radius + size));
  }
  EXPECT_EQ(ThroughThree({{{0, 0}, {1, 1}, {3, 3}}}).Radius, 0);
  EXPECT_EQ(ThroughThree({{{0, 0}, {0, 0}, {3, 1}}}).Radius, 0);
}

} // namespace
