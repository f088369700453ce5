#include "geometry/fillet.h"

#include "solver_check.h"

namespace {

// A corner with an entity leading away from it: the kept part runs from the corner to beyond the pick.
struct Leg {
  Entity Row;
  Point Pick, Kept; // where it was picked; the end that must stay
  double Length = 0;
};

// A line from a little before or behind the corner; axis-parallel ones often.
Leg LineLeg(Dice &dice, Point corner, double angle, double length) {
  const double lead = dice.Below(3) == 0 ? 0 : dice.Between(-0.3, 0.05) * length;
  double ux = std::cos(angle), uy = std::sin(angle);
  if (std::abs(ux) < 1e-9) ux = 0;
  if (std::abs(uy) < 1e-9) uy = 0;
  const Point from{corner.X + lead * ux, corner.Y + lead * uy};
  const Point to{corner.X + length * ux, corner.Y + length * uy};
  Leg leg;
  leg.Row = dice.Below(2) ? MakeLine(from.X, from.Y, to.X, to.Y) : MakeLine(to.X, to.Y, from.X, from.Y);
  const double at = dice.Between(0.3, 0.95) * length;
  leg.Pick = {corner.X + at * ux, corner.Y + at * uy};
  leg.Kept = to;
  leg.Length = length;
  return leg;
}

// An arc through the corner whose kept part runs `way` (1 counter-clockwise) over `sweep` radians.
Leg ArcLeg(Dice &dice, Point corner, double outward, double radius, int way, double sweep) {
  const Point centre{corner.X - radius * std::cos(outward), corner.Y - radius * std::sin(outward)};
  const double lead = dice.Below(3) == 0 ? 0 : dice.Between(-0.3, 0.05) * sweep;
  const double a = NormalAngle(outward + way * lead), b = NormalAngle(outward + way * sweep);
  Leg leg;
  leg.Row = MakeArc(centre.X, centre.Y, radius, way > 0 ? a : b, way > 0 ? b : a);
  leg.Pick = OnRound(leg.Row, outward + way * dice.Between(0.3, 0.95) * sweep);
  leg.Kept = OnRound(leg.Row, b);
  leg.Length = sweep * radius;
  return leg;
}

double SomeAngle(Dice &dice) { return dice.Below(2) ? dice.Between(0, 2 * Pi) : dice.Below(4) * Pi / 2; }

// The blend must touch both, face the corner, and the cut rows must run from their kept ends to it.
void CheckBlend(const Leg &one, const Leg &two, Point corner, double radius, const Solution &s) {
  ASSERT_TRUE(s.Solved()) << s.Failure.Text;
  ASSERT_EQ(s.Added.size(), 1U);
  const Entity &arc = s.Added[0];
  EXPECT_EQ(arc.Radius, radius);
  ExpectSound(arc);
  const double scale = 1e-6;
  for (const Leg *leg : {&one, &two}) EXPECT_LT(OffTangent(leg->Row, CentreOf(arc), radius), scale);
  // Between its ends the arc turns its bulge to the corner.
  EXPECT_LT(Distance(MidOf(arc), corner), Distance(CentreOf(arc), corner) + 1e-9);
  ASSERT_EQ(s.Changed.size(), 2U);
  for (const RowChange &change : s.Changed) {
    const Leg &leg = change.Index == 4 ? one : two;
    const Entity &row = change.Row;
    ExpectSound(row);
    const Point a = FirstEnd1(row), b = SecondEnd2(row);
    const bool firstKept = Distance(a, leg.Kept) < Distance(b, leg.Kept);
    const Point kept = firstKept ? a : b, moved = firstKept ? b : a;
    EXPECT_LT(Distance(kept, leg.Kept), 1e-9 * (1 + leg.Length));
    const double slack = row.EntType == LineType ? 1e-6 : AngleSlack(row, moved);
    EXPECT_LT(std::min(Distance(moved, FirstEnd1(arc)), Distance(moved, SecondEnd2(arc))), slack);
    // A smooth joint: the radii of two arcs in line, that of a line square to it.
    EXPECT_LT(Off(leg.Row, moved), 1e-6);
    EXPECT_LT(OffRound(arc, moved), slack);
  }
}

// Every random corner is solved as it stands, mirrored, and with its picks swapped.
void CheckEveryWay(const Leg &one, const Leg &two, Point corner, double radius) {
  const PickedRow p = PickedAt(4, one.Row, one.Pick), q = PickedAt(9, two.Row, two.Pick);
  const Solution s = FilletSolve(p, q, FilletUse::Blend, radius);
  CheckBlend(one, two, corner, radius, s);
  if (!s.Solved()) return;
  const Solution swapped = FilletSolve(q, p, FilletUse::Blend, radius);
  ASSERT_TRUE(swapped.Solved());
  EXPECT_LT(Distance(CentreOf(s.Added[0]), CentreOf(swapped.Added[0])), 1e-6);
  const Solution mirrored =
      FilletSolve(PickedAt(4, MirroredRow(one.Row), {one.Pick.X, -one.Pick.Y}),
                  PickedAt(9, MirroredRow(two.Row), {two.Pick.X, -two.Pick.Y}), FilletUse::Blend, radius);
  ASSERT_TRUE(mirrored.Solved());
  const Point c = CentreOf(mirrored.Added[0]);
  EXPECT_LT(Distance(CentreOf(s.Added[0]), {c.X, -c.Y}), 1e-6);
  for (const FilletUse use : {FilletUse::Circle, FilletUse::Arc, FilletUse::BlendOnly}) {
    const Solution alone = FilletSolve(p, q, use, radius, 1, 2);
    ASSERT_TRUE(alone.Solved());
    EXPECT_TRUE(alone.Changed.empty() && alone.Deleted.empty());
    EXPECT_EQ(CentreOf(alone.Added[0]).X, CentreOf(s.Added[0]).X);
    EXPECT_EQ(alone.Added[0].EntType, use == FilletUse::Circle ? CircleType : ArcType);
    EXPECT_EQ(use == FilletUse::Arc, alone.Added[0].StartAngle == 1 && alone.Added[0].EndAngle == 2);
  }
}

TEST(Fillet, RandomCornersOfTwoLines) {
  Dice dice(1);
  for (int i = 0; i < 4000 * Rounds() && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << Seed() << " round " << i);
    const double size = dice.Size();
    const Point corner{dice.Between(-0.9, 0.9) * size, dice.Between(-0.9, 0.9) * size};
    const double a = SomeAngle(dice), open = dice.Below(2) ? Pi / 2 : dice.Between(0.2, 2.9);
    const Leg one = LineLeg(dice, corner, a, size), two = LineLeg(dice, corner, a + dice.Sign() * open, size);
    CheckEveryWay(one, two, corner, dice.Between(0.01, 0.95) * size * std::tan(open / 2));
  }
}

// The largest radius that fits is found by asking for tangent points within the legs.
TEST(Fillet, RandomCornersOfLineAndArc) {
  Dice dice(2);
  int solved = 0;
  for (int i = 0; i < 6000 * Rounds() && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << Seed() << " round " << i);
    const double radius = dice.Size();
    const Point corner{dice.Between(-0.9, 0.9) * radius, dice.Between(-0.9, 0.9) * radius};
    const double outward = SomeAngle(dice);
    const double lean = dice.Between(0.1, Pi / 2) * dice.Sign(); // between the line and the radius
    const bool inside = dice.Below(2) == 0;
    const int way = dice.Below(2) ? 1 : -1;
    const double sweep = dice.Between(0.4, 2.2);
    const double blend = dice.Between(0.005, 0.05) * radius * std::min(sweep, 1.0);
    const double direction = inside ? outward + Pi + lean * 0.8 : outward + lean * 0.8;
    const Leg one = LineLeg(dice, corner, direction, radius * (inside ? 0.5 * std::cos(lean * 0.8) : 1));
    const Leg two = ArcLeg(dice, corner, outward, radius, way, sweep);
    // The nearer crossing must be the corner, or another corner is meant.
    const Roots crossings = CarrierCircleRoots(CarrierOf(one.Row), CentreOf(two.Row), radius, 0);
    if (Distance(NearerRoot(crossings, Midway(one.Pick, two.Pick)), corner) > 1e-6) continue;
    CheckEveryWay(one, two, corner, blend * std::abs(std::cos(lean * 0.8)));
    ++solved;
  }
  EXPECT_GT(solved, 3000);
}

TEST(Fillet, RandomCornersOfTwoArcs) {
  Dice dice(3);
  int solved = 0;
  for (int i = 0; i < 6000 * Rounds() && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << Seed() << " round " << i);
    const double r1 = dice.Size(), r2 = r1 * dice.Between(0.3, 3);
    const Point corner{dice.Between(-0.9, 0.9) * r1, dice.Between(-0.9, 0.9) * r1};
    const double out1 = SomeAngle(dice), out2 = out1 + dice.Sign() * dice.Between(0.5, 2.6);
    // Short legs, so that the mean of the picks lies in the sector they span.
    const Leg one = ArcLeg(dice, corner, out1, r1, dice.Below(2) ? 1 : -1, dice.Between(0.05, 0.12));
    const Leg two =
        ArcLeg(dice, corner, out2, r2, dice.Below(2) ? 1 : -1, dice.Between(0.05, 0.12) * r1 / r2);
    const Point middle = Midway(one.Pick, two.Pick);
    const auto inside = [](const Entity &e, Point p) { return Distance(CentreOf(e), p) < e.Radius; };
    if (inside(one.Row, middle) != inside(one.Row, two.Pick)) continue;
    if (inside(two.Row, middle) != inside(two.Row, one.Pick)) continue;
    CheckEveryWay(one, two, corner, dice.Between(0.0005, 0.005) * std::min(r1, r2));
    ++solved;
  }
  EXPECT_GT(solved, 3000);
}

// Whatever the radius, a fillet either touches both and leaves sound rows, or says one of its messages.
TEST(Fillet, AnyRadiusIsRightOrRefused) {
  Dice dice(4);
  int right = 0, large = 0;
  for (int i = 0; i < 20000 * Rounds() && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << Seed() << " round " << i);
    const double size = dice.Size();
    const auto any = [&]() -> PickedRow {
      const Point c{dice.Between(-0.9, 0.9) * size, dice.Between(-0.9, 0.9) * size};
      const double a = SomeAngle(dice), r = size * dice.Between(0.2, 1);
      if (dice.Below(2)) {
        const Leg leg = LineLeg(dice, c, a, r);
        return PickedAt(0, leg.Row, leg.Pick);
      }
      const Entity circle = CircleRow(c, r);
      if (dice.Below(3) == 0) return PickedAt(0, circle, OnRound(circle, a));
      const Entity arc = MakeArc(c.X, c.Y, r, a, NormalAngle(a + dice.Between(0.3, 6)));
      return PickedAt(0, arc, OnRound(arc, a + dice.Between(0, 1) * ArcSweep(arc)));
    };
    PickedRow p = any(), q = any();
    q.Index = 1;
    const double radius = size * std::exp(dice.Between(-5, 2));
    const Solution s = FilletSolve(p, q, FilletUse::Blend, radius);
    if (!s.Solved()) {
      EXPECT_TRUE(s.Changed.empty() && s.Added.empty());
      const std::string &t = s.Failure.Text;
      if (t == "Chosen Radius Too Large for chosen Arc(s)") ++large;
      EXPECT_TRUE(t == "Error: Can't solve for parallel lines" || t == "Error - 2 Arcs don't Intersect" ||
                  t == "Error: No Solution" || t == "Error: Can't find Intersection" ||
                  t == "Chosen Radius Too Large for chosen Arc(s)")
          << t;
      continue;
    }
    ++right;
    for (const PickedRow &pick : {p, q}) EXPECT_LT(OffTangent(pick.Row, CentreOf(s.Added[0]), radius), 1e-3);
    for (const RowChange &change : s.Changed) {
      ExpectSound(change.Row);
      const Entity &old = change.Index == 0 ? p.Row : q.Row;
      EXPECT_TRUE(change.Row.EntType == ArcType ||
                  (change.Row.X2 - change.Row.X1) * (old.X2 - old.X1) +
                          (change.Row.Y2 - change.Row.Y1) * (old.Y2 - old.Y1) >=
                      -1e-3);
    }
    EXPECT_EQ(s.Changed.size(),
              static_cast<std::size_t>((p.Row.EntType != CircleType) + (q.Row.EntType != CircleType)));
  }
  EXPECT_GT(right, 1000);
  EXPECT_GT(large, 1000);
}

TEST(Fillet, MessagesByKindOfPair) {
  const Entity flat = MakeLine(0, 0, 10, 0), upright = MakeLine(0, 0, 0, 10);
  const Entity arc = MakeArc(0, 0, 10, 0, Pi), other = MakeArc(8, 0, 10, 0, Pi),
               circle = CircleRow({0, 0}, 10);
  struct {
    Entity One, Two;
    Point P, Q;
    double Radius;
    const char *Text;
  } const rows[] = {
      {flat, MakeLine(0, 3, 10, 3), {5, 0}, {5, 3}, 1, "Error: Can't solve for parallel lines"},
      {upright, MakeLine(3, 0, 3, -9), {0, 5}, {3, 5}, 1, "Error: Can't solve for parallel lines"},
      {flat, upright, {5, 0}, {0, 5}, 10.5, "Chosen Radius Too Large for chosen Arc(s)"},
      {flat, upright, {5, 0}, {0, 5}, 1e9, "Chosen Radius Too Large for chosen Arc(s)"},
      {flat, upright, {5, 0}, {0, 5}, 0, "ERROR: Entity's too small"},
      {upright, arc, {0, 5}, {-7, 7}, 8, "Error: No Solution"},
      {upright, circle, {0, 9}, {-7, 7}, 200, "Error: No Solution"},
      {MakeLine(20, 0, 20, 9), arc, {20, 3}, {9, 3}, 1, "Error: No Solution"},
      {arc, other, {-2, 9}, {9, 9}, 11, "Chosen Radius Too Large for chosen Arc(s)"},
      // The tangent point would lie beyond the short arc's other end.
      {MakeLine(10, 0, 20, 0),
       MakeArc(0, 0, 10, 0, 0.3),
       {15, 0},
       {9.9, 1.4},
       5,
       "Chosen Radius Too Large for chosen Arc(s)"},
      {MakeLine(10, 0, 20, 0), MakeArc(0, 0, 10, 0, 0.4), {15, 0}, {9.9, 1.4}, 5, ""},
      {arc, MakeArc(40, 0, 10, 0, Pi), {9, 3}, {31, 3}, 1, "Error - 2 Arcs don't Intersect"},
      {arc, MakeArc(0, 0, 7, 0, Pi), {9, 3}, {6, 3}, 1, "Error - 2 Arcs don't Intersect"},
  };
  for (const auto &row : rows)
    for (const bool swap : {false, true}) {
      const PickedRow p = PickedAt(0, row.One, row.P), q = PickedAt(1, row.Two, row.Q);
      const Solution s = swap ? FilletSolve(q, p, FilletUse::Blend, row.Radius)
                              : FilletSolve(p, q, FilletUse::Blend, row.Radius);
      EXPECT_EQ(s.Failure.Text, row.Text) << &row - rows;
    }
}

TEST(Fillet, QuarterArcAndCommit) {
  EntityTable table;
  AppendRow(table, MakeLine(0, 0, 10, 0));
  AppendRow(table, MakeLine(0, 10, 0, 0));
  RowAt(table, 0).Selected = true;
  const Solution s =
      FilletSolve(RowPick(table, 0, {5, 0.1}), RowPick(table, 1, {0.1, 5}), FilletUse::Blend, 1);
  EXPECT_EQ(Commit(table, s).Text, "");
  ASSERT_EQ(table.EntCount, 2);
  EXPECT_NEAR(RowAt(table, 0).X1, 1, 1e-12);
  EXPECT_NEAR(RowAt(table, 1).Y2, 1, 1e-12);
  EXPECT_FALSE(RowAt(table, 0).Selected);
  const Entity &arc = RowAt(table, 2);
  EXPECT_NEAR(arc.StartAngle, Pi, 1e-12);
  EXPECT_NEAR(arc.EndAngle, 1.5 * Pi, 1e-7);

  while (table.EntCount < 300) AppendRow(table, MakeCircle(0, 0, 1));
  const EntityTable full = table;
  EXPECT_EQ(Commit(table, s).Text, TableFullText);
  EXPECT_EQ(table.EntCount, 300);
  for (int i = 0; i <= 300; ++i) EXPECT_TRUE(SameRow(RowAt(full, i), RowAt(table, i)));
}

TEST(Chamfer, RandomCorners) {
  Dice dice(5);
  for (int i = 0; i < 3000 * Rounds() && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << Seed() << " round " << i);
    const double size = dice.Size();
    const Point corner{dice.Between(-0.9, 0.9) * size, dice.Between(-0.9, 0.9) * size};
    const double a = SomeAngle(dice), open = dice.Below(2) ? Pi / 2 : dice.Between(0.3, 2.8);
    const Leg one = LineLeg(dice, corner, a, size), two = LineLeg(dice, corner, a + dice.Sign() * open, size);
    const double w1 = dice.Between(0.01, 0.9) * size * std::sin(open);
    const double w2 = dice.Between(0.01, 0.9) * size * std::sin(open);
    const Solution s = ChamferSolve(PickedAt(0, one.Row, one.Pick), PickedAt(1, two.Row, two.Pick), w1, w2);
    ASSERT_TRUE(s.Solved()) << s.Failure.Text;
    const Entity &row = s.Added[0];
    EXPECT_LT(OffLine(one.Row, FirstEnd1(row)), 1e-8);
    EXPECT_LT(OffLine(two.Row, SecondEnd2(row)), 1e-8);
    EXPECT_NEAR(OffLine(two.Row, FirstEnd1(row)), w2, 1e-7); // each width is square to the other line
    EXPECT_NEAR(OffLine(one.Row, SecondEnd2(row)), w1, 1e-7);
    for (const RowChange &change : s.Changed) {
      const Leg &leg = change.Index == 0 ? one : two;
      const Point moved = change.Index == 0 ? FirstEnd1(row) : SecondEnd2(row);
      ExpectSound(change.Row);
      const Point a1 = FirstEnd1(change.Row), b1 = SecondEnd2(change.Row);
      EXPECT_LT(std::min(Distance(a1, moved) + Distance(b1, leg.Kept),
                         Distance(b1, moved) + Distance(a1, leg.Kept)),
                1e-7);
      EXPECT_LT(Distance(moved, leg.Kept), Distance(corner, leg.Kept));
    }
  }
}

TEST(Chamfer, SlopesOfTheRowAndRefusals) {
  const auto chamfer = [](double tip, double w) {
    return ChamferSolve(PickedAt(0, MakeLine(0, 0, 10, tip), {5, tip / 2}),
                        PickedAt(1, MakeLine(0, 0, 10, -tip), {5, -tip / 2}), w, w);
  };
  EXPECT_EQ(chamfer(10, 1).Added[0].Slope, 1000000);
  const Solution flat = ChamferSolve(PickedAt(0, MakeLine(0, 0, 10, 10), {5, 5}),
                                     PickedAt(1, MakeLine(0, 0, -10, 10), {-5, 5}), 1, 1);
  EXPECT_EQ(flat.Added[0].Slope, 0);
  const Solution even = ChamferSolve(PickedAt(0, MakeLine(0, 0, 10, 0), {5, 0}),
                                     PickedAt(1, MakeLine(0, 0, 0, 10), {0, 5}), 2, 2);
  EXPECT_NEAR(even.Added[0].Slope, -1, 1e-12);
  EXPECT_EQ(chamfer(10, 1e6).Failure.Text, "Error: Can't Find Solution");
  EXPECT_EQ(chamfer(10, 0).Failure.Text, "ERROR: Entity's too small");
  EXPECT_EQ(chamfer(0, 1).Failure.Text, "Error: Can't solve for parallel lines");
}

} // namespace
