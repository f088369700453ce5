#include "geometry/carrier.h"

#include <algorithm>
#include <cmath>
#include <utility>

Carrier CarrierOf(const Entity &line) {
  Carrier c{{line.X1, line.Y1}};
  const double dx = line.X2 - line.X1, dy = line.Y2 - line.Y1, length = std::hypot(dx, dy);
  if (length < 1e-6) {
    const double run = std::hypot(1, line.Slope);
    c.UX = 1 / run;
    c.UY = line.Slope / run;
  } else {
    c.UX = dx / length;
    c.UY = dy / length;
  }
  return c;
}

double AlongOf(const Carrier &c, Point p) { return (p.X - c.At.X) * c.UX + (p.Y - c.At.Y) * c.UY; }
double AsideOf(const Carrier &c, Point p) { return (p.Y - c.At.Y) * c.UX - (p.X - c.At.X) * c.UY; }
Point PointAlong(const Carrier &c, double along) { return {c.At.X + along * c.UX, c.At.Y + along * c.UY}; }
Point FootOn(const Carrier &c, Point p) { return PointAlong(c, AlongOf(c, p)); }

bool IsVertical(const Entity &line) { return std::abs(line.Slope) >= VerticalSlope; }
bool AreParallel(const Entity &one, const Entity &two) {
  return one.Slope == two.Slope || (IsVertical(one) && IsVertical(two));
}

Roots CarrierRoots(const Carrier &one, const Carrier &two) {
  Roots roots;
  const double across = one.UX * two.UY - one.UY * two.UX;
  if (std::abs(across) < 1e-14) return roots;
  const double along = ((two.At.X - one.At.X) * two.UY - (two.At.Y - one.At.Y) * two.UX) / across;
  roots.Case = RootCase::Two;
  roots.First = roots.Second = PointAlong(one, along);
  return roots;
}

Roots CarrierCircleRoots(const Carrier &c, Point centre, double radius, double margin) {
  Roots roots;
  const double off = std::abs(AsideOf(c, centre)), r = std::abs(radius);
  const double least = std::cos(80 * Pi / 180);
  const double cosine = std::max(std::abs(c.UX), least);
  const double reach = r + off + std::hypot(centre.X - c.At.X, centre.Y - c.At.Y);
  double half2 = (r - off) * (r + off);
  if (std::abs(r - off) <= 1e-13 * reach) half2 = 0;
  roots.Discriminant = 4 * half2 / (cosine * cosine);
  if (!(roots.Discriminant >= -margin)) return roots;
  const double middle = AlongOf(c, centre), half = std::sqrt(std::abs(half2));
  roots.Case = RootCase::Two;
  roots.First = PointAlong(c, middle + half);
  roots.Second = PointAlong(c, middle - half);
  if (c.UX < 0 || (c.UX == 0 && c.UY < 0)) std::swap(roots.First, roots.Second);
  return roots;
}

Point NormalToward(const Carrier &c, Point p) {
  const bool forward = c.UX > 0 || (c.UX == 0 && c.UY > 0);
  const Point upper = forward ? Point{-c.UY, c.UX} : Point{c.UY, -c.UX};
  const bool above = (p.X - c.At.X) * upper.X + (p.Y - c.At.Y) * upper.Y > 0;
  return above ? upper : Point{-upper.X, -upper.Y};
}

double Distance(Point a, Point b) { return std::hypot(a.X - b.X, a.Y - b.Y); }
Point CentreOf(const Entity &e) { return {e.CenterX, e.CenterY}; }
Point Midway(Point a, Point b) { return {(a.X + b.X) / 2, (a.Y + b.Y) / 2}; }

double NormalAngle(double angle) {
  if (angle == NoAngle || (angle >= 0 && angle < TwoPi)) return angle;
  double turned = std::fmod(angle, TwoPi);
  if (turned < 0) turned += TwoPi;
  return turned < TwoPi ? turned : 0;
}

bool SameAngle(double a, double b) {
  const double apart = NormalAngle(a - b);
  return apart < 1e-9 || TwoPi - apart < 1e-9;
}

double Bearing(Point from, Point to) { return NormalAngle(std::atan2(to.Y - from.Y, to.X - from.X)); }

Entity CircleRow(Point centre, double radius) {
  Entity circle = MakeCircle(centre.X, centre.Y, radius);
  circle.X1 = circle.X2 = centre.X + radius;
  circle.Y1 = circle.Y2 = centre.Y;
  return circle;
}

void SetLineEnds(Entity &line, Point first, Point second) {
  line.X1 = first.X;
  line.Y1 = first.Y;
  line.X2 = second.X;
  line.Y2 = second.Y;
  line.CenterX = (first.X + second.X) / 2;
  line.CenterY = (first.Y + second.Y) / 2;
}

void SpanChord(Entity &arc, Point first, Point second) {
  const double half = ArcSweep(arc) / 2, chord = Distance(first, second);
  const double rise = 1 / (2 * std::tan(half)); // of the centre over the chord, to its left
  const Point centre{(first.X + second.X) / 2 - (second.Y - first.Y) * rise,
                     (first.Y + second.Y) / 2 + (second.X - first.X) * rise};
  arc.CenterX = centre.X;
  arc.CenterY = centre.Y;
  arc.Radius = chord / (2 * std::sin(half));
  const double start = Bearing(centre, first);
  arc.StartAngle = NormalAngle(start);
  arc.EndAngle = NormalAngle(start + 2 * half);
  SetArcEnds(arc);
}
