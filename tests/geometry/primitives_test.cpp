#include "geometry/primitives.h"

#include "base/fault.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {

TEST(Primitives, InverseTrigonometryAtItsLimits) {
  struct {
    float X;
    double Cosine, Sine;
  } const rows[] = {
      {1.00005f, 0, Pi / 2},
      {1, 0, Pi / 2},
      {1.0001f, 0, Pi / 2},
      {1.0002f, NoAngle, NoAngle},
      {-1.00005f, Pi, -Pi / 2},
      {-1, Pi, -Pi / 2},
      {-1.0001f, Pi, -Pi / 2},
      {-1.0002f, NoAngle, NoAngle},
      {0, Pi / 2, 0},
      {0.5f, Pi / 3, Pi / 6},
      {-0.5f, 2 * Pi / 3, -Pi / 6},
  };
  for (const auto &row : rows) {
    EXPECT_NEAR(ArcCosine(row.X), row.Cosine, 1e-13) << row.X;
    EXPECT_NEAR(ArcSine(row.X), row.Sine, 1e-13) << row.X;
  }
  EXPECT_EQ(ArcCosine(std::nanf("")), NoAngle);
  // The 32-bit argument shows: the nearest float below 1 is the smallest angle there is.
  EXPECT_EQ(ArcCosine(static_cast<float>(std::cos(1e-5))), 0);
  EXPECT_GT(std::abs(ArcCosine(static_cast<float>(std::cos(0.01))) - 0.01), 1e-8);
  for (double angle = 0.05; angle < 3.1; angle += 0.05)
    EXPECT_NEAR(ArcCosine(static_cast<float>(std::cos(angle))), angle, 2e-6);
}

TEST(Primitives, AngleAboutACentre) {
  for (double angle = 0.1; angle < 6.2; angle += 0.1)
    EXPECT_NEAR(AngleAbout({3 + 7 * std::cos(angle), -2 + 7 * std::sin(angle)}, {3, -2}, 7), angle, 2e-6);
  EXPECT_EQ(AngleAbout({10, 0}, {0, 0}, 5), NoAngle);
  EXPECT_THROW(AngleAbout({1, 1}, {1, 1}, 0), Fault);
}

TEST(Primitives, LineDirectionKeepsTheGuardSlope) {
  struct {
    double DX, DY, Angle;
  } const rows[] = {{5, 0, 1e-9},   {-5, 0, Pi + 1e-9}, {0, 5, std::atan(1e6)}, {0, -5, std::atan(1e6) + Pi},
                    {3, 3, Pi / 4}, {-3, 3, 0.75 * Pi}, {-3, -3, 1.25 * Pi},    {3, -3, 1.75 * Pi}};
  for (const auto &row : rows)
    EXPECT_NEAR(GetLineAng(MakeLine(1, 2, 1 + row.DX, 2 + row.DY)), row.Angle, 1e-14)
        << row.DX << ' ' << row.DY;
  EXPECT_EQ(GetLineLength(MakeLine(1, 1, 4, 5)), 5);
}

// Both roots by projection onto the line of the guarded slope, in long double.
void ExpectOnLineAndCircle(const Entity &line, Point centre, double radius, double tolerance) {
  const Roots roots = LineCircleRoots(line.Slope, line.Intercept, centre, radius);
  const long double ux = 1, uy = line.Slope, length = std::hypot(ux, uy);
  const long double px = centre.X - line.X1, py = centre.Y - line.Y1;
  const long double along = (px * ux + py * uy) / length, off = (px * uy - py * ux) / length;
  const long double half2 = static_cast<long double>(radius) * radius - off * off;
  if (std::abs(half2) < 1e-3L * radius * radius) return;
  ASSERT_EQ(roots.Case == RootCase::Two, half2 > 0);
  if (half2 < 0) return;
  EXPECT_GE(roots.First.X, roots.Second.X);
  double best[2] = {1e300, 1e300};
  for (const long double at : {along + std::sqrt(half2), along - std::sqrt(half2)}) {
    const long double x = line.X1 + ux * at / length, y = line.Y1 + uy * at / length;
    const Point *found[2] = {&roots.First, &roots.Second};
    for (int i = 0; i < 2; ++i)
      best[i] = std::min(best[i], static_cast<double>(std::hypot(found[i]->X - x, found[i]->Y - y)));
  }
  EXPECT_LT(std::max(best[0], best[1]), tolerance)
      << line.X1 << ' ' << line.Y1 << ' ' << line.X2 << ' ' << line.Y2 << " radius " << radius;
}

TEST(Primitives, LineAgainstCircle) {
  std::mt19937 random(20);
  std::uniform_real_distribution<double> part(-1, 1);
  for (int i = 0; i < 20000; ++i) {
    const double size = std::pow(10, 1.5 + 1.5 * part(random));
    const double x = size * part(random), y = size * part(random);
    Entity line = MakeLine(x, y, size * part(random), size * part(random));
    if (i % 4 == 0) line = MakeLine(x, y, x, y + size); // vertical
    if (i % 4 == 1) line = MakeLine(x, y, x + size * std::pow(10, -4 * part(random) - 4), y - size); // steep
    ExpectOnLineAndCircle(line, {size * part(random), size * part(random)}, size * (1.01 + part(random)) / 2,
                          1e-6 * size);
  }
  for (const double part2 : {0.0, 0.3, -0.6, 0.9, -0.9})
    for (const double radius : {2.0, 50.0, 1000.0})
      ExpectOnLineAndCircle(MakeLine(part2 * radius, -radius, part2 * radius, radius), {0, 0}, radius,
                            1e-9 * radius);
}

TEST(Primitives, TangencyIsJudgedInFifteenDigits) {
  // y = 1e-9 x + r touches the circle but for one part in 1e18: a double root, not a miss.
  EXPECT_EQ(LineCircleRoots(1e-9, 10, {0, 0}, 10).Case, RootCase::Two);
  EXPECT_EQ(LineCircleRoots(1, 10, {0, 0}, 5).Case, RootCase::None);
  EXPECT_EQ(LineCircleRoots(1e-9, 10, {0, 0}, 9.99999).Case, RootCase::None);
  EXPECT_EQ(LineCircleRoots(1e-9, 10, {0, 0}, 9.99999, 0.001).Case, RootCase::Two);
  // Terms alike in 15 digits give exactly 0 in decimal where a remainder stays in binary.
  int settled = 0;
  for (int i = 1; i < 200; ++i) {
    const double slope = i / 70.0, b = 10 * std::sqrt(slope * slope + 1);
    const double binary = LineCircleRoots(slope, b, {0, 0}, 10, 1, Discriminant::Binary).Discriminant;
    if (binary != 0 && LineCircleRoots(slope, b, {0, 0}, 10, 1).Discriminant == 0) ++settled;
  }
  EXPECT_GT(settled, 50);
  const double m = 1.0 / 3, r = 10;
  EXPECT_NEAR(LineCircleRoots(m, 1, {0, 0}, r).Discriminant,
              LineCircleRoots(m, 1, {0, 0}, r, 0, Discriminant::Binary).Discriminant, 1e-10);
  EXPECT_NEAR(LineCircleRoots(m, 1, {0, 0}, r).Discriminant,
              LineCircleRoots(m, 1, {0, 0}, r, 0, Discriminant::DifferenceInDecimal).Discriminant, 1e-10);
}

TEST(Primitives, CircleAgainstCircle) {
  std::mt19937 random(21);
  std::uniform_real_distribution<double> part(0, 1);
  for (int i = 0; i < 5000; ++i) {
    const Point a{part(random) * 20, part(random) * 20}, b{part(random) * 20, part(random) * 20};
    const double r1 = part(random) * 15, r2 = part(random) * 15, d = std::hypot(a.X - b.X, a.Y - b.Y);
    const Roots roots = CircleCircleRoots(a, r1, b, r2);
    EXPECT_EQ(roots.Case == RootCase::Two, d - 0.001 <= r1 + r2 && d + 0.001 >= r1 - r2);
    if (d > r1 + r2 || d < std::abs(r1 - r2)) continue;
    for (const Point p : {roots.First, roots.Second}) {
      EXPECT_NEAR(std::hypot(p.X - a.X, p.Y - a.Y), r1, 1e-9);
      EXPECT_NEAR(std::hypot(p.X - b.X, p.Y - b.Y), r2, 1e-9);
    }
    const double side = (b.X - a.X) * (roots.First.Y - a.Y) - (b.Y - a.Y) * (roots.First.X - a.X);
    EXPECT_LE(side, 1e-9);
  }
  EXPECT_EQ(CircleCircleRoots({0, 0}, 2, {1, 0}, 9).Case, RootCase::Two);  // inside the second: passes
  EXPECT_EQ(CircleCircleRoots({0, 0}, 9, {1, 0}, 2).Case, RootCase::None); // around it: does not
  EXPECT_THROW(CircleCircleRoots({1, 1}, 2, {1, 1}, 2), Fault);
}

TEST(Primitives, LinesMeetUnlessTheirSlopesAreEqual) {
  const Entity a = MakeLine(0, 0, 10, 10), b = MakeLine(0, 10, 10, 0);
  const Roots roots = LineLineRoots(a.Slope, a.Intercept, b.Slope, b.Intercept);
  EXPECT_EQ(roots.First.X, 5);
  EXPECT_EQ(roots.First.Y, 5);
  const Entity turned = MakeLine(13, 12, 3, 2);
  EXPECT_EQ(LineLineRoots(a.Slope, a.Intercept, turned.Slope, turned.Intercept).Case, RootCase::None);
}

TEST(Primitives, TheSecondRootWinsATie) {
  const Roots roots{RootCase::Two, {-1, 0}, {1, 0}, 0};
  EXPECT_EQ(NearerRoot(roots, {0, 5}).X, 1);
  EXPECT_EQ(NearerRoot(roots, {-0.001, 5}).X, -1);
}

TEST(Primitives, ArcMembership) {
  const Entity plain = MakeArc(0, 0, 5, 1, 2), wrapped = MakeArc(0, 0, 5, 6, 1);
  struct {
    const Entity &Arc;
    double Angle, Margin;
    bool Closed, Open;
  } const rows[] = {
      {plain, 1.5, 0, true, true},     {plain, 1, 0, true, false},    {plain, 2, 0, true, false},
      {plain, 0.999, 0, false, false}, {plain, 3, 0, false, false},   {plain, 0.9995, 0.001, true, true},
      {wrapped, 0, 0, true, true},     {wrapped, 6, 0, true, false},  {wrapped, 1, 0, true, false},
      {wrapped, 3, 0, false, false},   {wrapped, 6.2, 0, true, true}, {wrapped, 1.0005, 0.001, true, true},
  };
  for (const auto &row : rows) {
    EXPECT_EQ(AngleInArc(row.Angle, row.Arc, ArcEnds::Closed, row.Margin), row.Closed) << row.Angle;
    EXPECT_EQ(AngleInArc(row.Angle, row.Arc, ArcEnds::Open, row.Margin), row.Open) << row.Angle;
  }
  EXPECT_NEAR(ArcSweep(wrapped), 1 - 6 + 2 * Pi, 1e-12);
  EXPECT_NEAR(ArcSweep(MakeArc(0, 0, 1, 0, 2 * Pi)), 2 * Pi, 1e-12);
  EXPECT_EQ(ArcSweep(MakeArc(0, 0, 1, 2, 2)), 0);
  Entity arc = MakeArc(3, 4, 5, 1, 2);
  arc.StartAngle = 0, arc.EndAngle = Pi / 2;
  SetArcEnds(arc);
  EXPECT_NEAR(arc.X1, 8, 1e-12);
  EXPECT_NEAR(arc.Y2, 9, 1e-12);
}

} // namespace
