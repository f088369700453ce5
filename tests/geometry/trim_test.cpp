#include "geometry/trim.h"

#include "cut_check.h"

namespace {

// Two rows that cross, with the crossing nearer to a pick on the second.
struct Pair {
  Entity Cut, Cutter;
  PickedRow CutPick, CutterPick;
  Point At;
};
bool RandomPair(Dice &dice, int types, Pair &pair) {
  const double size = dice.Size();
  pair.Cut = RandomRow(dice, size, types);
  pair.Cutter = RandomRow(dice, size);
  const std::vector<Point> at = TrueCrossings(pair.Cut, pair.Cutter);
  if (at.empty() || (at.size() == 2 && Distance(at[0], at[1]) < 0.02 * size)) return false;
  if (Distance(at[0], {0, 0}) > 5 * size) return false; // nearly parallel
  pair.CutPick = PickedAt(3, pair.Cut, RandomPointOn(dice, pair.Cut));
  pair.CutterPick = PickedAt(8, pair.Cutter, RandomPointOn(dice, pair.Cutter));
  std::vector<double> off;
  for (const Point p : at) off.push_back(Distance(p, pair.CutterPick.At));
  if (off.size() == 2 && std::abs(off[0] - off[1]) < 1e-6 * size) return false;
  pair.At = off.size() == 2 && off[1] < off[0] ? at[1] : at[0];
  return true;
}

// Circles that do not pass the existence test as first circle are cut by nothing.
bool Lost(const Entity &cut, const Entity &cutter) {
  return cut.EntType != LineType && cutter.EntType != LineType &&
         CircleCircleRoots(CentreOf(cut), cut.Radius, CentreOf(cutter), cutter.Radius).Case == RootCase::None;
}

void ExpectMoved(const Entity &old, const Entity &row, Point to, bool firstMoved) {
  ExpectSound(row);
  const Point moved = firstMoved ? FirstEnd1(row) : SecondEnd2(row);
  const Point kept = firstMoved ? SecondEnd2(row) : FirstEnd1(row);
  const Point was = firstMoved ? SecondEnd2(old) : FirstEnd1(old);
  EXPECT_LT(Distance(moved, to), CutSlack(old, to));
  EXPECT_LT(Distance(kept, was), 1e-9);
  EXPECT_TRUE(row.Slope == old.Slope && row.Intercept == old.Intercept);
}

TEST(Trim, RandomEndsKeepThePickedPart) {
  Dice dice(21);
  int inside = 0, outside = 0;
  for (int i = 0; i < 20000 * Rounds() && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << Seed() << " round " << i);
    Pair p;
    if (!RandomPair(dice, 5, p) || Lost(p.Cut, p.Cutter)) continue;
    const double at = PartOf(p.Cut, p.At), pick = PartOf(p.Cut, p.CutPick.At);
    if (std::abs(at - pick) < 0.01 || std::abs(at) < 1e-3 || std::abs(at - 1) < 1e-3) continue;
    const Solution s = TrimEnds(p.CutPick, p.CutterPick);
    ASSERT_TRUE(s.Solved()) << s.Failure.Text;
    ASSERT_TRUE(s.Changed.size() == 1 && s.Changed[0].Index == 3 && s.Added.empty() && s.Deleted.empty());
    bool first = at < pick; // inside, and a line beyond its first end
    if (at > 0 && at < 1)
      ++inside;
    else
      ++outside;
    if (p.Cut.EntType == ArcType && at > 1) {
      const double sweep = ArcSweep(p.Cut), ahead = pick * sweep, behind = (1 - pick) * sweep;
      const double e1 = std::min(ahead, TwoPi - ahead), e2 = std::min(behind, TwoPi - behind);
      if (std::abs(e1 - e2) < 1e-6) continue;
      first = e1 < e2;
    }
    ExpectMoved(p.Cut, s.Changed[0].Row, p.At, first);
  }
  EXPECT_GT(inside, 2000);
  EXPECT_GT(outside, 1000);
}

TEST(Trim, BothEndsMeet) {
  Dice dice(22);
  int solved = 0;
  for (int i = 0; i < 10000 * Rounds() && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << Seed() << " round " << i);
    Pair p;
    if (!RandomPair(dice, 5, p) || p.Cutter.EntType == CircleType) continue;
    if (Lost(p.Cut, p.Cutter) || Lost(p.Cutter, p.Cut)) continue;
    const Solution s = TrimBothEnds(p.CutPick, p.CutterPick);
    ASSERT_TRUE(s.Solved()) << s.Failure.Text;
    ASSERT_EQ(s.Changed.size(), 2U);
    for (const RowChange &change : s.Changed) {
      const Entity &old = change.Index == 3 ? p.Cut : p.Cutter;
      ExpectSound(change.Row);
      EXPECT_LT(std::min(Distance(FirstEnd1(change.Row), p.At), Distance(SecondEnd2(change.Row), p.At)),
                CutSlack(old, p.At));
    }
    ++solved;
  }
  EXPECT_GT(solved, 1000);
}

TEST(Trim, DoubleKeepsWhatLiesBetween) {
  Dice dice(23);
  int lines = 0, rounds = 0;
  for (int i = 0; i < 20000 * Rounds() && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << Seed() << " round " << i);
    Pair p, q;
    if (!RandomPair(dice, 7, p)) continue;
    q.Cutter = RandomRow(dice, p.Cut.EntType == LineType ? GetLineLength(p.Cut) : p.Cut.Radius);
    const bool same = dice.Below(4) == 0; // one cutter, both of its crossings
    const std::vector<Point> first = TrueCrossings(p.Cut, p.Cutter);
    const std::vector<Point> second = same ? first : TrueCrossings(p.Cut, q.Cutter);
    if (second.empty() || (same && second.size() < 2)) continue;
    const Point at1 = first[0], at2 = same ? first[1] : second[0];
    if (Distance(at1, at2) < 1e-2) continue;
    if (Lost(p.Cut, p.Cutter) || (!same && Lost(p.Cut, q.Cutter))) continue;
    const Solution s = TrimDoubleOp(p.CutPick, PickedAt(8, p.Cutter, at1),
                                    PickedAt(same ? 8 : 9, same ? p.Cutter : q.Cutter, at2));
    if (!s.Solved()) {
      EXPECT_EQ(s.Failure.Text, "Can't Solve for Parallel Lines"); // nearly vertical pairs
      continue;
    }
    const Entity &row = s.Changed[0].Row;
    ExpectSound(row);
    const Point ends[] = {FirstEnd1(row), SecondEnd2(row)};
    if (p.Cut.EntType == LineType) {
      ++lines;
      EXPECT_LT(Distance(ends[0], at1) + Distance(ends[1], at2), 1e-5);
      continue;
    }
    ++rounds;
    EXPECT_EQ(row.EntType, ArcType);
    for (const Point at : {at1, at2})
      EXPECT_LT(std::min(Distance(ends[0], at), Distance(ends[1], at)), CutSlack(p.Cut, at));
    EXPECT_TRUE(AngleInArc(Bearing(CentreOf(row), p.CutPick.At), row, ArcEnds::Closed, 1e-3));
  }
  EXPECT_GT(lines, 1000);
  EXPECT_GT(rounds, 1000);
}

TEST(Trim, DivideLeavesOutTheMiddle) {
  Dice dice(24);
  int divided = 0, refused = 0;
  for (int i = 0; i < 30000 * Rounds() && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << Seed() << " round " << i);
    Pair p;
    if (!RandomPair(dice, 5, p)) continue;
    Entity other = p.Cutter;
    if (dice.Below(3)) other = RandomRow(dice, p.Cutter.EntType == LineType ? 50 : p.Cutter.Radius * 2);
    const std::vector<Point> first = TrueCrossings(p.Cut, p.Cutter), second = TrueCrossings(p.Cut, other);
    if (second.empty() || Lost(p.Cut, p.Cutter) || Lost(p.Cut, other)) continue;
    const Point at1 = first[0], at2 = second.back();
    const double a = PartOf(p.Cut, at1), b = PartOf(p.Cut, at2);
    if (std::abs(a - b) < 1e-3 || std::min(std::abs(a), std::abs(1 - a)) < 1e-3 ||
        std::min(std::abs(b), std::abs(1 - b)) < 1e-3)
      continue;
    const Solution s = TrimDivideOp(p.CutPick, PickedAt(8, p.Cutter, at1), PickedAt(9, other, at2));
    if (s.Failure.Text == "Can't Solve for Parallel Lines") continue;
    const bool within = a > 0 && a < 1 && b > 0 && b < 1;
    EXPECT_EQ(s.Solved(), within) << s.Failure.Text;
    if (!within) {
      ++refused;
      EXPECT_EQ(s.Failure.Text, p.Cut.EntType == LineType ? "Trimming Points must be inside line End Points"
                                                          : "Trimming Points must be inside Arc");
      EXPECT_TRUE(s.Changed.empty() && s.Added.empty());
      continue;
    }
    ++divided;
    const Point nearer = a < b ? at1 : at2, farther = a < b ? at2 : at1;
    ExpectMoved(p.Cut, s.Changed[0].Row, nearer, false);
    ExpectMoved(p.Cut, s.Added[0], farther, true);
  }
  EXPECT_GT(divided, 500);
  EXPECT_GT(refused, 500);
}

TEST(Trim, CasesOfNote) {
  const Entity flat = MakeLine(-10, 0, 10, 0), upright = MakeLine(3, -5, 3, 5);
  const auto single = [](const Entity &cut, Point pick, const Entity &cutter, Point at) {
    return TrimEnds(PickedAt(0, cut, pick), PickedAt(1, cutter, at));
  };
  // A flat line at a vertical one, and the other way.
  Entity row = single(flat, {-5, 0}, upright, {3, 4}).Changed[0].Row;
  EXPECT_TRUE(row.X1 == -10 && std::abs(row.X2 - 3) < 1e-12 && std::abs(row.Y2) < 1e-12);
  row = single(upright, {3, 4}, flat, {0, 0}).Changed[0].Row;
  EXPECT_TRUE(std::abs(row.Y1) < 1e-12 && row.X1 == 3 && row.Y2 == 5);
  // Tangent: the margin lets a gap of a hair pass, a wider one not.
  const Entity ball = CircleRow({0, 7}, 7);
  row = single(MakeLine(-10, -1e-6, 10, -1e-6), {-5, 0}, ball, {0, 0}).Changed[0].Row;
  EXPECT_NEAR(row.X2, 0, 0.02);
  EXPECT_EQ(single(MakeLine(-10, -0.01, 10, -0.01), {-5, 0}, ball, {0, 0}).Failure.Text,
            "Error: Can't find Intersection");
  // An arc trimmed at the crossing that is its own other end becomes a circle.
  const Entity half = MakeArc(0, 0, 5, 0, Pi);
  row = single(half, {-4, 3}, MakeLine(0, 0, 9, 0), {5, 0}).Changed[0].Row;
  EXPECT_EQ(row.EntType, CircleType);
  EXPECT_TRUE(row.StartAngle == 0 && row.EndAngle == TwoPi && row.X1 == 5 && row.Y2 == 0);
  // A trimming arc acts as its whole circle.
  row = single(flat, {-5, 0}, MakeArc(0, 0, 5, 1, 2), {4, 3}).Changed[0].Row;
  EXPECT_NEAR(row.X2, 5, 1e-12);
  // A click just past the kept end keeps that end.
  row = single(flat, {10.2, 0}, upright, {3, 4}).Changed[0].Row;
  EXPECT_TRUE(std::abs(row.X1 - 3) < 1e-12 && row.X2 == 10);
  row = single(flat, {-10.2, 0}, upright, {3, 4}).Changed[0].Row;
  EXPECT_TRUE(row.X1 == -10 && std::abs(row.X2 - 3) < 1e-12);
  // A pick exactly at the crossing moves the second end.
  row = TrimMultiOp(PickedAt(0, flat, {3, 0}), PickedAt(1, upright, {3, 4})).Changed[0].Row;
  EXPECT_TRUE(row.X1 == -10 && std::abs(row.X2 - 3) < 1e-12);
  // The second pick beyond the crossing: both end there.
  const Solution both = TrimBothEnds(PickedAt(0, flat, {-5, 0}), PickedAt(1, upright, {3, 4}));
  EXPECT_NEAR(both.Changed[0].Row.X2, 3, 1e-12);
  EXPECT_NEAR(both.Changed[1].Row.Y1, 0, 1e-12);
  // Arcs that stay apart: no message, nothing moved. One inside the other in all directions: a message.
  const Solution apart = single(half, {0, 5}, CircleRow({40, 0}, 5), {35, 0});
  EXPECT_TRUE(apart.Solved() && SameRow(apart.Changed[0].Row, half));
  for (const double turn : {0.0, 0.7, Pi / 2, 2.5, Pi})
    EXPECT_EQ(single(half, {0, 5}, CircleRow(Turned({1, 0}, turn), 50), {0, 50}).Failure.Text,
              "Error: Can't find Intersection");
  EXPECT_EQ(single(half, {0, 5}, CircleRow({0, 0}, 5), {0, 5}).Failure.Text,
            "Error: Can't find Intersection");
}

// A line that was computed to touch misses or cuts by a rounding; it must still end where it touches.
TEST(Trim, ComputedTangentsEndAtTheirTouchingPoint) {
  Dice dice(25);
  for (int i = 0; i < 3000 * Rounds() && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << Seed() << " round " << i);
    const double r = dice.Size(), a = dice.Between(0, TwoPi), size = 500;
    const Entity circle = CircleRow({dice.Between(-0.9, 0.9) * size, dice.Between(-0.9, 0.9) * size}, r);
    const Point touch = OnRound(circle, a);
    const auto along = [&](double t) { return Point{touch.X - t * std::sin(a), touch.Y + t * std::cos(a)}; };
    const Point from = along(-dice.Between(50, 500)), to = along(dice.Between(50, 500));
    const Entity line = MakeLine(from.X, from.Y, to.X, to.Y);
    const Solution s = TrimEnds(PickedAt(0, line, from), PickedAt(1, circle, touch));
    ASSERT_TRUE(s.Solved());
    EXPECT_LT(Distance(SecondEnd2(s.Changed[0].Row), touch), 1e-6);
  }
}

TEST(Trim, Refusals) {
  const Entity line = MakeLine(0, 0, 10, 0), up = MakeLine(5, -5, 5, 5), next = MakeLine(0, 3, 9, 3);
  const Entity circle = CircleRow({0, 0}, 4);
  const auto at = [](int i, const Entity &e) { return PickedAt(i, e, MidOf(e)); };
  const std::string_view same = "ERROR: Entity already Selected!",
                         parallel = "Can't Solve for Parallel Lines";
  EXPECT_EQ(TrimEnds(at(0, line), at(0, line)).Failure.Text, same);
  EXPECT_EQ(TrimEnds(at(0, line), at(0, line)).Failure.Title, "Entity Selection Error");
  EXPECT_EQ(TrimEnds(at(0, line), at(1, next)).Failure.Text, parallel);
  EXPECT_EQ(TrimEnds(at(0, up), at(1, MakeLine(7, 0, 7, -3))).Failure.Text, parallel);
  EXPECT_EQ(TrimEnds(at(0, circle), at(1, up)).Failure.Text,
            "Can't Trim Circles with this Option! Use Trim Both Ends Option");
  EXPECT_EQ(TrimBothEnds(at(0, line), at(1, circle)).Failure.Text,
            "Can't Trim Circles with this Option! Use the 'Trim Entity at Both Ends' Button");
  EXPECT_EQ(TrimMultiOp(at(0, circle), at(1, up)).Failure.Text,
            "Entity not found or Invalid Entity Selected: Can't Single Trim Circles");
  EXPECT_EQ(TrimDoubleOp(at(0, line), at(0, line), at(1, up)).Failure.Text,
            "ERROR: Can't Select Entity to be Trimmed as Trimming Entity");
  EXPECT_EQ(TrimDoubleOp(at(0, line), at(1, up), at(0, line)).Failure.Text,
            "ERROR: Can't Select Entity to be Trimmed as Timming Entity");
  EXPECT_EQ(TrimDoubleOp(at(0, line), at(1, up), at(1, up)).Failure.Text, "Error: Can't find Intersection");
  EXPECT_EQ(TrimDoubleOp(at(0, line), at(1, up), at(2, next)).Failure.Text, parallel);
  EXPECT_EQ(TrimDivideOp(at(0, circle), at(1, up), at(2, line)).Failure.Text,
            "Use Double Trim to divide circles");
  EXPECT_EQ(TrimEnds(at(0, line), at(1, CircleRow({0, 90}, 4))).Failure.Text,
            "Error: Can't find Intersection");
}

} // namespace
