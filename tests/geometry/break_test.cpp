#include "geometry/break.h"

#include "cut_check.h"

namespace {

TEST(Break, RandomSinglesAndMultis) {
  Dice dice(31);
  int broken = 0, refused = 0;
  for (int i = 0; i < 20000 * Rounds() && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << Seed() << " round " << i);
    const double size = dice.Size();
    const Entity cut = RandomRow(dice, size, 5), cutter = RandomRow(dice, size);
    const std::vector<Point> at = TrueCrossings(cut, cutter);
    if (at.empty() || (at.size() == 2 && Distance(at[0], at[1]) < 0.01 * size)) continue;
    if (Distance(at[0], {0, 0}) > 5 * size) continue;
    // The pick on the cutter at the crossing, as the single break wants it; on the entity, for the multiple.
    const bool multi = dice.Below(2);
    const Solution s = multi ? BreakMultiOp(PickedAt(3, cut, at[0]), PickedAt(8, cutter, MidOf(cutter)))
                             : BreakEnds(PickedAt(3, cut, MidOf(cut)), PickedAt(8, cutter, at[0]));
    const double part = PartOf(cut, at[0]);
    const double length = cut.EntType == LineType ? GetLineLength(cut) : cut.Radius * ArcSweep(cut);
    const double toEnd = std::min(part, 1 - part) * length;
    if (std::abs(toEnd) < 0.2) continue; // near the limit, see below
    const bool asymmetric =
        cut.EntType != LineType && cutter.EntType != LineType &&
        CircleCircleRoots(CentreOf(cut), cut.Radius, CentreOf(cutter), cutter.Radius).Case == RootCase::None;
    if (asymmetric) continue;
    if (toEnd < 0) {
      ++refused;
      EXPECT_EQ(s.Failure.Text, cut.EntType == LineType ? "ERROR: Breakpoint must be *ON* line"
                                                        : "ERROR: Breakpoint must be *ON* arc");
      EXPECT_TRUE(s.Changed.empty() && s.Added.empty());
      continue;
    }
    ++broken;
    ASSERT_TRUE(s.Solved()) << s.Failure.Text;
    const Entity &row = s.Changed[0].Row, &added = s.Added[0];
    ExpectSound(row);
    EXPECT_LT(Distance(FirstEnd1(row), FirstEnd1(cut)), 1e-9);
    EXPECT_LT(Distance(SecondEnd2(row), at[0]), CutSlack(cut, at[0]));
    if (cut.EntType == LineType) {
      ExpectSound(added);
      EXPECT_LT(Distance(FirstEnd1(added), SecondEnd2(cut)), 1e-9); // runs backward
      EXPECT_LT(Distance(SecondEnd2(added), at[0]), 1e-6);
      EXPECT_TRUE(added.Slope == cut.Slope && added.Intercept == cut.Intercept);
    } else {
      EXPECT_EQ(added.StartAngle, row.EndAngle);
      EXPECT_EQ(added.EndAngle, cut.EndAngle);
      const Point mirrored{at[0].X, 2 * cut.CenterY - at[0].Y};
      EXPECT_LT(Distance(FirstEnd1(added), mirrored), CutSlack(cut, at[0]));
    }
  }
  EXPECT_GT(broken, 2000);
  EXPECT_GT(refused, 1000);
}

TEST(Break, DoubleGivesThreePartsInOrder) {
  Dice dice(32);
  int broken = 0;
  for (int i = 0; i < 20000 * Rounds() && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << Seed() << " round " << i);
    const double size = dice.Size();
    const Entity cut = RandomRow(dice, size), one = RandomRow(dice, size);
    const Entity two = dice.Below(3) ? RandomRow(dice, size) : one;
    const std::vector<Point> first = TrueCrossings(cut, one), second = TrueCrossings(cut, two);
    if (first.empty() || second.empty() || Distance(first[0], second.back()) < 0.5) continue;
    const double a = PartOf(cut, first[0]), b = PartOf(cut, second.back());
    const double length = cut.EntType == LineType
                              ? GetLineLength(cut)
                              : cut.Radius * (cut.EntType == CircleType ? 6 : ArcSweep(cut));
    if (std::min({a, b, 1 - a, 1 - b}) * length < 0.5) continue;
    const Solution s = BreakDoubleOp(PickedAt(0, cut, MidOf(cut)), PickedAt(1, one, first[0]),
                                     PickedAt(2, two, second.back()));
    if (!s.Solved()) continue; // asymmetric circles, parallel verticals
    ++broken;
    ASSERT_EQ(s.Added.size(), 2U);
    const Entity &row = s.Changed[0].Row;
    const Point cuts[] = {a < b ? first[0] : second.back(), a < b ? second.back() : first[0]};
    const Point ends[][2] = {{FirstEnd1(row), SecondEnd2(row)},
                             {FirstEnd1(s.Added[0]), SecondEnd2(s.Added[0])},
                             {FirstEnd1(s.Added[1]), SecondEnd2(s.Added[1])}};
    const Point start = cut.EntType == CircleType ? OnRound(cut, 0) : FirstEnd1(cut);
    const Point stop = cut.EntType == CircleType ? OnRound(cut, 0) : SecondEnd2(cut);
    const Point want[][2] = {{start, cuts[0]}, {cuts[0], cuts[1]}, {cuts[1], stop}};
    for (int k = 0; k < 3; ++k)
      for (int end = 0; end < 2; ++end)
        EXPECT_LT(Distance(ends[k][end], want[k][end]), CutSlack(cut, want[k][end])) << k << ' ' << end;
    for (const Entity &e : {row, s.Added[0], s.Added[1]}) ExpectSound(e);
  }
  EXPECT_GT(broken, 1000);
}

TEST(Break, RefusalsAndEdges) {
  const auto at = [](int i, const Entity &e) { return PickedAt(i, e, MidOf(e)); };
  const Entity line = MakeLine(0, 0, 10, 0);
  for (const double x : {0.05, 0.09, 9.95, -1.0, 12.0})
    EXPECT_EQ(BreakEnds(at(0, line), at(1, MakeLine(x, -5, x, 5))).Failure.Text,
              "ERROR: Breakpoint must be *ON* line")
        << x;
  // The product alone would let a short line break near its end.
  EXPECT_FALSE(BreakEnds(at(0, MakeLine(0, 0, 500, 0)), at(1, MakeLine(0.05, -5, 0.05, 5))).Solved());
  EXPECT_TRUE(BreakEnds(at(0, line), at(1, MakeLine(0.15, -5, 0.15, 5))).Solved());
  EXPECT_EQ(BreakEnds(at(0, CircleRow({0, 0}, 5)), at(1, line)).Failure.Text,
            "Can't Trim Circles with this Option! Use Trim Both Ends Option");
  EXPECT_EQ(BreakEnds(at(0, line), at(0, line)).Failure.Text, "ERROR: Entity already Selected!");
  EXPECT_EQ(BreakEnds(at(0, line), at(1, MakeLine(0, 2, 10, 2))).Failure.Text,
            "Can't Solve for Parallel Lines");
  const Entity half = MakeArc(0, 0, 5, 0, Pi);
  EXPECT_EQ(
      BreakDoubleOp(at(0, half), at(1, MakeLine(0, -9, 0, 9)), PickedAt(2, MakeLine(3, -9, 3, 9), {3, -4}))
          .Failure.Text,
      "Both Trimming Points must be inside Arc");
  EXPECT_EQ(
      BreakDoubleOp(at(0, half), at(1, MakeLine(0, -9, 0, 9)), at(1, MakeLine(0, -9, 0, 9))).Failure.Text,
      "Error: Can't find Intersection");
  // A circle broken where its angle is 0 has no third part.
  const Entity axis = MakeLine(-9, 0, 9, 0);
  const Solution s =
      BreakDoubleOp(at(0, CircleRow({0, 0}, 5)), PickedAt(1, axis, {5, 0}), PickedAt(1, axis, {-5, 0}));
  ASSERT_EQ(s.Added.size(), 1U);
  EXPECT_NEAR(ArcSweep(s.Changed[0].Row) + ArcSweep(s.Added[0]), TwoPi, 1e-6);
  // Each at the other, or neither.
  const Solution both = BreakBothEnds(PickedAt(0, line, {2, 0}), PickedAt(1, MakeLine(4, -5, 4, 5), {4, 3}));
  EXPECT_TRUE(both.Changed.size() == 2 && both.Added.size() == 2);
  EXPECT_FALSE(BreakBothEnds(PickedAt(0, line, {2, 0}), PickedAt(1, MakeLine(4, 1, 4, 5), {4, 3})).Solved());
}

} // namespace
