#pragma once
#include "geometry/carrier.h"
#include "geometry/solution.h"
#include "rounds.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

// Independent measures for the solvers: by ends, centres and atan2 alone.

struct Dice {
  std::mt19937_64 Random;
  explicit Dice(std::uint64_t offset) : Random(Seed() + offset) {}
  double Between(double a, double b) { return std::uniform_real_distribution<double>(a, b)(Random); }
  int Below(int n) { return static_cast<int>(Random() % static_cast<std::uint64_t>(n)); }
  double Size() { return std::exp(Between(std::log(2.0), std::log(500.0))); } // 2 to 500 mm
  double Sign() { return Below(2) == 0 ? -1 : 1; }
};

inline double OffLine(const Entity &line, Point p) {
  const long double dx = line.X2 - line.X1, dy = line.Y2 - line.Y1;
  return static_cast<double>(std::abs((p.X - line.X1) * dy - (p.Y - line.Y1) * dx) / std::hypot(dx, dy));
}
inline double OffRound(const Entity &e, Point p) {
  return std::abs(std::hypot(p.X - e.CenterX, p.Y - e.CenterY) - e.Radius);
}
inline double Off(const Entity &e, Point p) { return e.EntType == LineType ? OffLine(e, p) : OffRound(e, p); }
// How far a circle is from touching an entity's unbounded carrier.
inline double OffTangent(const Entity &e, Point centre, double radius) {
  if (e.EntType == LineType) return std::abs(OffLine(e, centre) - radius);
  const double d = std::hypot(centre.X - e.CenterX, centre.Y - e.CenterY);
  return std::min(std::abs(d - e.Radius - radius), std::abs(std::abs(e.Radius - d) - radius));
}
inline Point FirstEnd1(const Entity &e) { return {e.X1, e.Y1}; }
inline Point SecondEnd2(const Entity &e) { return {e.X2, e.Y2}; }
inline Point OnRound(const Entity &e, double angle) {
  return {e.CenterX + e.Radius * std::cos(angle), e.CenterY + e.Radius * std::sin(angle)};
}
inline Point MidOf(const Entity &e) {
  if (e.EntType == LineType) return {(e.X1 + e.X2) / 2, (e.Y1 + e.Y2) / 2};
  return OnRound(e, e.StartAngle + ArcSweep(e) / 2);
}
// What the 32-bit inverse cosine may cost at an angle, mm on the circle.
inline double AngleSlack(const Entity &e, Point p) {
  const double sine = std::max(std::abs(p.Y - e.CenterY) / e.Radius, 4e-4);
  return 1e-6 + e.Radius * 1.3e-7 / sine;
}

inline PickedRow PickedAt(int index, const Entity &row, Point at) {
  EntityTable table;
  AppendRow(table, row);
  PickedRow pick = RowPick(table, 0, at);
  pick.Index = index;
  return pick;
}

// The whole picture turned about the origin, and mirrored in the X axis.
inline Entity TurnedRow(Entity e, double angle) {
  if (e.EntType == LineType) {
    const Point a = Turned(FirstEnd1(e), angle), b = Turned(SecondEnd2(e), angle);
    return MakeLine(a.X, a.Y, b.X, b.Y);
  }
  const Point c = Turned(CentreOf(e), angle);
  if (e.EntType == CircleType) return CircleRow(c, e.Radius);
  return MakeArc(c.X, c.Y, e.Radius, NormalAngle(e.StartAngle + angle), NormalAngle(e.EndAngle + angle));
}
inline Entity MirroredRow(const Entity &e) {
  if (e.EntType == LineType) return MakeLine(e.X1, -e.Y1, e.X2, -e.Y2);
  if (e.EntType == CircleType) return CircleRow({e.CenterX, -e.CenterY}, e.Radius);
  return MakeArc(e.CenterX, -e.CenterY, e.Radius, NormalAngle(-e.EndAngle), NormalAngle(-e.StartAngle));
}

inline bool SameRow(const Entity &a, const Entity &b) {
  return a.EntType == b.EntType && a.X1 == b.X1 && a.Y1 == b.Y1 && a.X2 == b.X2 && a.Y2 == b.Y2 &&
         a.CenterX == b.CenterX && a.CenterY == b.CenterY && a.Radius == b.Radius &&
         a.StartAngle == b.StartAngle && a.EndAngle == b.EndAngle && a.Slope == b.Slope &&
         a.Intercept == b.Intercept && a.Selected == b.Selected;
}

// Does a row in use stand beyond the fields of its type? Angles in range, ends on the circle, slope not 0.
inline void ExpectSound(const Entity &e) {
  if (e.EntType == LineType) {
    EXPECT_NEAR(e.CenterX, (e.X1 + e.X2) / 2, 1e-9);
    EXPECT_NEAR(e.CenterY, (e.Y1 + e.Y2) / 2, 1e-9);
    return;
  }
  EXPECT_GT(e.Radius, 0);
  if (e.EntType != ArcType) return;
  for (const double angle : {e.StartAngle, e.EndAngle}) {
    EXPECT_GE(angle, 0);
    EXPECT_LT(angle, TwoPi);
  }
  for (const auto &[p, angle] : {std::pair{FirstEnd1(e), e.StartAngle}, {SecondEnd2(e), e.EndAngle}})
    EXPECT_LT(Distance(p, OnRound(e, angle)), AngleSlack(e, p));
}
