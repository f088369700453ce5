#include "geometry/construct.h"

#include "geometry/carrier.h"

#include <cmath>

namespace {
constexpr int RowLimit = 301;

Solution Chain(Point c, double radius, int count, double from, double step) {
  if (count > RowLimit) return Failed(TableFullText);
  const auto at = [&](int k) {
    return Point{c.X + radius * std::cos(from + step * k), c.Y + radius * std::sin(from + step * k)};
  };
  Solution solution;
  for (int k = 1; k <= count; ++k) {
    const Point a = at(k - 1), b = at(k);
    if (Distance(a, b) < 1e-6) return Failed("ERROR: Entity's too small");
    solution.Added.push_back(MakeLine(a.X, a.Y, b.X, b.Y));
  }
  return solution;
}
} // namespace

Solution CreatePolygon(Point centre, int sides, double radius, double rotate, bool flat) {
  if (sides < 3 || !(radius > 0)) return Failed("ERROR: Entity's too small");
  const double step = 2 * Pi / sides;
  const double corner = flat ? radius / std::cos(step / 2) : radius;
  return Chain(centre, corner, sides, rotate - (sides - 2) / 4.0 * step, step);
}

Solution CreateSegments(const PickedRow &round, int segments, double startAngle, double endAngle) {
  if (segments < 3) return Failed("ERROR: Must be at least 2 segments");
  if (round.Row.EntType == LineType) return Failed("No Entity Found", "ERROR", Icon::Stop);
  double sweep = NormalAngle(endAngle - startAngle);
  if (SameAngle(startAngle, endAngle)) sweep = TwoPi;
  return Chain(CentreOf(round.Row), round.Row.Radius, segments, startAngle, sweep / segments);
}

CircleThrough ThroughThree(const std::array<Point, 3> &p) {
  CircleThrough through;
  const double ax = p[1].X - p[0].X, ay = p[1].Y - p[0].Y, bx = p[2].X - p[0].X, by = p[2].Y - p[0].Y;
  const double a2 = ax * ax + ay * ay, b2 = bx * bx + by * by, across = 2 * (ax * by - ay * bx);
  if (!(std::abs(across) > 1e-12 * std::sqrt(a2 * b2))) return through;
  const double x = (a2 * by - b2 * ay) / across, y = (b2 * ax - a2 * bx) / across;
  through.Centre = {p[0].X + x, p[0].Y + y};
  through.Radius = std::hypot(x, y);
  return through;
}
