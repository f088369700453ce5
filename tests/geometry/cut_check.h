#pragma once
#include "solver_check.h"

#include <vector>

// Crossings of the whole carriers, in long double by projection and angles.
inline std::vector<Point> TrueCrossings(const Entity &a, const Entity &b) {
  using Wide = long double;
  if (a.EntType != LineType && b.EntType == LineType) return TrueCrossings(b, a);
  const auto point = [](Wide x, Wide y) { return Point{static_cast<double>(x), static_cast<double>(y)}; };
  if (a.EntType == LineType) {
    const Wide ux = Wide(a.X2) - a.X1, uy = Wide(a.Y2) - a.Y1;
    if (b.EntType == LineType) {
      const Wide vx = Wide(b.X2) - b.X1, vy = Wide(b.Y2) - b.Y1, det = ux * vy - uy * vx;
      if (det == 0) return {};
      const Wide t = ((Wide(b.X1) - a.X1) * vy - (Wide(b.Y1) - a.Y1) * vx) / det;
      return {point(a.X1 + t * ux, a.Y1 + t * uy)};
    }
    const Wide length = std::hypot(ux, uy), px = Wide(b.CenterX) - a.X1, py = Wide(b.CenterY) - a.Y1;
    const Wide off = (px * uy - py * ux) / length, along = (px * ux + py * uy) / length;
    const Wide half2 = Wide(b.Radius) * b.Radius - off * off;
    if (half2 < 0) return {};
    std::vector<Point> found;
    for (const Wide t : {along + std::sqrt(half2), along - std::sqrt(half2)})
      found.push_back(point(a.X1 + t * ux / length, a.Y1 + t * uy / length));
    return found;
  }
  const Wide dx = Wide(b.CenterX) - a.CenterX, dy = Wide(b.CenterY) - a.CenterY, d = std::hypot(dx, dy);
  const Wide cosine = (d * d + Wide(a.Radius) * a.Radius - Wide(b.Radius) * b.Radius) / (2 * d * a.Radius);
  if (!(std::abs(cosine) <= 1)) return {};
  const Wide base = std::atan2(dy, dx), part = std::acos(cosine);
  return {point(a.CenterX + a.Radius * std::cos(base + part), a.CenterY + a.Radius * std::sin(base + part)),
          point(a.CenterX + a.Radius * std::cos(base - part), a.CenterY + a.Radius * std::sin(base - part))};
}

// A line (often axis-parallel), arc or circle about the middle of a drawing of that size.
inline Entity RandomRow(Dice &dice, double size, int types = 7) {
  for (;;) {
    const Point c{dice.Between(-0.9, 0.9) * size, dice.Between(-0.9, 0.9) * size};
    const double r = size * dice.Between(0.1, 1), a = dice.Between(0, TwoPi);
    switch (1 << dice.Below(3)) {
    case 1: {
      if (!(types & 1)) continue;
      const int kind = dice.Below(4);
      if (kind == 0) return MakeLine(c.X, c.Y, c.X, c.Y + dice.Sign() * r);
      if (kind == 1) return MakeLine(c.X, c.Y, c.X + dice.Sign() * r, c.Y);
      return MakeLine(c.X, c.Y, c.X + r * std::cos(a), c.Y + r * std::sin(a));
    }
    case 2:
      if (types & 2) return CircleRow(c, r);
      continue;
    default:
      if (types & 4) return MakeArc(c.X, c.Y, r, a, NormalAngle(a + dice.Between(0.2, 6)));
    }
  }
}
inline Point RandomPointOn(Dice &dice, const Entity &e) {
  const double part = dice.Between(0.02, 0.98);
  if (e.EntType == LineType) return {e.X1 + part * (e.X2 - e.X1), e.Y1 + part * (e.Y2 - e.Y1)};
  const double sweep = e.EntType == CircleType ? TwoPi : ArcSweep(e);
  return OnRound(e, e.StartAngle + part * sweep);
}
// 0..1 between the first and second end, beyond them outside.
inline double PartOf(const Entity &e, Point p) {
  if (e.EntType == LineType) {
    const double dx = e.X2 - e.X1, dy = e.Y2 - e.Y1;
    return ((p.X - e.X1) * dx + (p.Y - e.Y1) * dy) / (dx * dx + dy * dy);
  }
  const double from = e.EntType == CircleType ? 0 : e.StartAngle;
  return NormalAngle(Bearing(CentreOf(e), p) - from) / (e.EntType == CircleType ? TwoPi : ArcSweep(e));
}
inline double CutSlack(const Entity &e, Point p) { return e.EntType == LineType ? 1e-6 : AngleSlack(e, p); }
