#include "geometry/three_lines.h"

#include "solver_check.h"

#include <array>

namespace {

using Order = std::array<std::size_t, 3>;
constexpr Order Orders[] = {{0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}};

Entity Either(Dice &dice, Point a, Point b) {
  return dice.Below(2) ? MakeLine(a.X, a.Y, b.X, b.Y) : MakeLine(b.X, b.Y, a.X, a.Y);
}

// A slot end: two sides that lean by up to `lean` and a middle that joins them, turned by any angle.
struct Slot {
  std::array<Entity, 3> Row; // side, middle, side
  std::array<Point, 3> Pick;
  double Width = 0;
};
Slot RandomSlot(Dice &dice, double lean) {
  Slot slot;
  slot.Width = dice.Size();
  const double turn = dice.Below(2) ? dice.Below(4) * Pi / 2 : dice.Between(0, 2 * Pi);
  const Point at{dice.Between(-1, 1) * slot.Width, dice.Between(-1, 1) * slot.Width};
  const auto place = [&](double x, double y) {
    const Point p = Turned({x, y}, turn);
    return Point{p.X + at.X, p.Y + at.Y};
  };
  const double w = slot.Width, l1 = w * dice.Between(1.2, 3), l2 = w * dice.Between(1.2, 3);
  const double a = lean > 0 ? dice.Between(-lean, lean) : 0, b = lean > 0 ? dice.Between(-lean, lean) : 0;
  const Point ends[] = {place(0, 0), place(l1 * std::cos(a), l1 * std::sin(a)), place(0, w),
                        place(l2 * std::cos(b), w + l2 * std::sin(b))};
  slot.Row = {Either(dice, ends[0], ends[1]), Either(dice, ends[0], ends[2]), Either(dice, ends[2], ends[3])};
  for (std::size_t i = 0; i < 3; ++i) {
    const double part = dice.Between(0.3, 0.7);
    slot.Pick[i] = {slot.Row[i].X1 + part * (slot.Row[i].X2 - slot.Row[i].X1),
                    slot.Row[i].Y1 + part * (slot.Row[i].Y2 - slot.Row[i].Y1)};
  }
  return slot;
}

TEST(ThreeLines, RoundEndInAllSixOrders) {
  Dice dice(11);
  for (int i = 0; i < 3000 * Rounds() && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << Seed() << " round " << i);
    const Slot slot = RandomSlot(dice, dice.Below(2) ? 0.0 : 0.3);
    for (const Order &order : Orders) {
      const auto pick = [&](std::size_t k) {
        return PickedAt(static_cast<int>(order[k]), slot.Row[order[k]], slot.Pick[order[k]]);
      };
      const Solution s = Circle3Tan(pick(0), pick(1), pick(2), ThreeLineUse::RoundEnd, slot.Width);
      ASSERT_TRUE(s.Solved()) << s.Failure.Text;
      ASSERT_EQ(s.Deleted, std::vector<int>{1});
      ASSERT_EQ(s.Changed.size(), 2U);
      const Entity &arc = s.Added[0];
      for (const Entity &row : slot.Row) EXPECT_LT(OffTangent(row, CentreOf(arc), arc.Radius), 1e-8);
      ExpectSound(arc);
      // Through the side of the middle line, between the two sides' tangent points.
      EXPECT_LT(OffLine(slot.Row[1], MidOf(arc)), OffLine(slot.Row[1], CentreOf(arc)));
      for (const RowChange &change : s.Changed) {
        const Entity &old = slot.Row[static_cast<std::size_t>(change.Index)], &row = change.Row;
        const double joint =
            std::min({Distance(FirstEnd1(row), FirstEnd1(arc)), Distance(FirstEnd1(row), SecondEnd2(arc)),
                      Distance(SecondEnd2(row), FirstEnd1(arc)), Distance(SecondEnd2(row), SecondEnd2(arc))});
        EXPECT_LT(joint, 1e-9);
        EXPECT_LT(GetLineLength(row), GetLineLength(old));
        // The third line of the worked order keeps its midpoint, the first gets a new one.
        const bool rebuilt = std::abs(row.CenterX - (row.X1 + row.X2) / 2) < 1e-9 &&
                             std::abs(row.CenterY - (row.Y1 + row.Y2) / 2) < 1e-9;
        EXPECT_EQ(rebuilt, &change == &s.Changed[0]);
        EXPECT_TRUE(rebuilt || (row.CenterX == old.CenterX && row.CenterY == old.CenterY));
        EXPECT_TRUE(row.Slope == old.Slope && row.Intercept == old.Intercept);
      }
    }
  }
}

TEST(ThreeLines, RandomTrianglesAndTheirOutsides) {
  Dice dice(12);
  int refused = 0;
  for (int i = 0; i < 5000 * Rounds() && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << Seed() << " round " << i);
    const double size = dice.Size();
    std::array<Entity, 3> line;
    std::array<Point, 3> pick;
    Point reference;
    for (std::size_t k = 0; k < 3; ++k) {
      const Point at{dice.Between(-0.9, 0.9) * size, dice.Between(-0.9, 0.9) * size};
      const double a = dice.Below(2) ? dice.Below(4) * Pi / 2 : dice.Between(0, 2 * Pi);
      line[k] = MakeLine(at.X, at.Y, at.X + size * std::round(1e9 * std::cos(a)) / 1e9,
                         at.Y + size * std::round(1e9 * std::sin(a)) / 1e9);
      const double part = dice.Between(0, 1);
      pick[k] = {at.X + part * (line[k].X2 - at.X), at.Y + part * (line[k].Y2 - at.Y)};
      reference = {reference.X + pick[k].X / 3, reference.Y + pick[k].Y / 3};
    }
    const auto solve = [&](ThreeLineUse use, const Order &o) {
      return Circle3Tan(PickedAt(0, line[o[0]], pick[o[0]]), PickedAt(1, line[o[1]], pick[o[1]]),
                        PickedAt(2, line[o[2]], pick[o[2]]), use, size);
    };
    const Solution s = solve(ThreeLineUse::Circle, Orders[0]);
    for (const Order &order : Orders) {
      const Solution arc = solve(ThreeLineUse::Arc, order);
      ASSERT_EQ(arc.Failure.Text, s.Failure.Text);
      if (!s.Solved()) continue;
      const Entity &row = arc.Added[0], &circle = s.Added[0];
      EXPECT_LT(Distance(CentreOf(row), CentreOf(circle)), 1e-5 * (1 + circle.Radius / size));
      // From the first picked line to the third (either sense), over the second.
      EXPECT_LT(std::min(OffLine(line[order[0]], FirstEnd1(row)), OffLine(line[order[2]], FirstEnd1(row))),
                1e-6 * (1 + circle.Radius / size));
      const Point over = FootOn(CarrierOf(line[order[1]]), CentreOf(row));
      EXPECT_TRUE(AngleInArc(Bearing(CentreOf(row), over), row, ArcEnds::Closed, 1e-3));
    }
    if (!s.Solved()) {
      ++refused;
      continue;
    }
    const Entity &circle = s.Added[0];
    for (const Entity &row : line) {
      EXPECT_LT(OffTangent(row, CentreOf(circle), circle.Radius), 1e-6 * (1 + circle.Radius / size));
      const Carrier c = CarrierOf(row); // the same side as the mean of the picks
      EXPECT_GT(AsideOf(c, CentreOf(circle)) * AsideOf(c, reference), -1e-6);
    }
  }
  EXPECT_GT(refused, 100);
  EXPECT_LT(refused, 2500 * Rounds());
}

TEST(ThreeLines, ParallelPairsAndRefusals) {
  const Entity low = MakeLine(0, 0, 30, 0), high = MakeLine(0, 8, 30, 8), slant = MakeLine(-3, 0, 5, 30);
  const Entity far = MakeLine(0, 50, 30, 50);
  for (const Order &o : Orders) {
    const std::array<Entity, 3> line{low, slant, high};
    const Point pick[] = {{20, 0}, FootOn(CarrierOf(slant), {0, 4}), {20, 8}};
    const Solution s = Circle3Tan(PickedAt(0, line[o[0]], pick[o[0]]), PickedAt(1, line[o[1]], pick[o[1]]),
                                  PickedAt(2, line[o[2]], pick[o[2]]), ThreeLineUse::Circle, 100);
    ASSERT_TRUE(s.Solved());
    EXPECT_NEAR(s.Added[0].Radius, 4, 1e-9);
    EXPECT_NEAR(s.Added[0].CenterY, 4, 1e-9);
  }
  const auto text = [&](const Entity &a, Point p, const Entity &b, Point q, const Entity &c, Point r) {
    return Circle3Tan(PickedAt(0, a, p), PickedAt(1, b, q), PickedAt(2, c, r), ThreeLineUse::Arc, 100)
        .Failure.Text;
  };
  EXPECT_EQ(text(low, {1, 0}, high, {1, 8}, far, {1, 50}), "Error: Can't solve for 3 parallel lines");
  // Beyond both parallels no circle touches them from that side.
  EXPECT_EQ(text(low, {1, 0}, MakeLine(0, 0, 0, 90), {0, 90}, high, {1, 8}), "Error: Can't Find Solution");
  // Three lines through one point.
  EXPECT_EQ(text(MakeLine(0, 0, 9, 0), {5, 0}, MakeLine(0, 0, 9, 9), {5, 5}, MakeLine(0, 0, 0, 9), {0, 5}),
            "Error: Can't Find Solution");
  EXPECT_EQ(text(low, {1, 0}, CircleRow({0, 0}, 4), {4, 0}, high, {1, 8}), "Error: Can't Find Solution");
}

} // namespace
