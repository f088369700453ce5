#include "geometry/tangents.h"

#include "geometry/carrier.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

constexpr std::string_view TooSmallText = "ERROR: Entity's too small";
constexpr double LeastLength = 1e-6;   // mm
constexpr double CosineLimit = 1.0001; // as ArcCosine takes it: up to here a cosine counts as 1

Solution NewLine(Point a, Point b) {
  if (Distance(a, b) < LeastLength) return Failed(TooSmallText);
  Solution solution;
  solution.Added = {MakeLine(a.X, a.Y, b.X, b.Y)};
  return solution;
}

// The unit normal at angle acos(cosine) to the left (side 1) or right (-1) of the way from c1 to c2.
std::optional<Point> Normal(Point way, double cosine, int side) {
  if (std::abs(cosine) > CosineLimit) return std::nullopt;
  const double c = std::clamp(cosine, -1.0, 1.0), s = side * std::sqrt(1 - c * c);
  return Point{way.X * c - way.Y * s, way.Y * c + way.X * s};
}
Point Shifted(Point p, Point n, double by) { return {p.X + n.X * by, p.Y + n.Y * by}; }

bool IsRound(const PickedRow &p) { return p.Row.EntType != LineType; }

// The two points of a round on a ray through its centre, the nearer to the pick.
Point NearerPole(const Entity &round, Point way, Point pick) {
  Roots poles;
  poles.First = Shifted(CentreOf(round), way, round.Radius);
  poles.Second = Shifted(CentreOf(round), way, -round.Radius);
  return NearerRoot(poles, pick);
}

} // namespace

Solution CreateTanTan(const PickedRow &one, const PickedRow &two) {
  const Solution none = Failed("ERROR: No Solution Found", "Equation Error");
  if (!IsRound(one) || !IsRound(two)) return none;
  const Point c1 = CentreOf(one.Row), c2 = CentreOf(two.Row);
  const double d = Distance(c1, c2), r1 = one.Row.Radius, r2 = two.Row.Radius;
  if (d == 0 || std::abs(r1 - r2) > d) return none;
  const Point way{(c2.X - c1.X) / d, (c2.Y - c1.Y) / d};
  // The first candidate lies on the side that decides ties: left of a way that climbs to the right.
  const int side = (way.X >= 0) == (way.Y >= 0) ? 1 : -1;
  const Point a = *Normal(way, (r1 - r2) / d, side), b = *Normal(way, (r1 - r2) / d, -side);
  const double a1 = Distance(Shifted(c1, a, r1), one.At), b1 = Distance(Shifted(c1, b, r1), one.At);
  const double a2 = Distance(Shifted(c2, a, r2), two.At), b2 = Distance(Shifted(c2, b, r2), two.At);
  const bool firstSide = a1 < b1;
  const bool outer = firstSide ? a2 < b2 : a2 > b2;
  if (outer) {
    const Point n = firstSide ? a : b;
    return NewLine(Shifted(c1, n, r1), Shifted(c2, n, r2));
  }
  const std::optional<Point> n = Normal(way, (r1 + r2) / d, firstSide ? side : -side);
  if (!n) return none;
  return NewLine(Shifted(c1, *n, r1), Shifted(c2, *n, -r2));
}

Solution CreatePerpPerp(const PickedRow &one, const PickedRow &two) {
  const Solution none = Failed("ERROR: No Solution");
  if (!IsRound(two)) return none;
  const Point c2 = CentreOf(two.Row);
  Point first, way;
  double slope = 0;
  if (IsRound(one)) {
    const Point c1 = CentreOf(one.Row);
    const double d = Distance(c1, c2);
    if (d == 0) return none;
    way = {(c2.X - c1.X) / d, (c2.Y - c1.Y) / d};
    first = NearerPole(one.Row, way, one.At);
    slope = GuardedSlope(c1.X, c1.Y, c2.X, c2.Y);
  } else {
    const Carrier line = CarrierOf(one.Row);
    way = {-line.UY, line.UX};
    first = FootOn(line, c2);
    slope = std::clamp(-1 / one.Row.Slope, -VerticalSlope, VerticalSlope);
  }
  const Point second = NearerPole(two.Row, way, two.At);
  Solution solution = NewLine(first, second);
  if (!solution.Solved()) return solution;
  solution.Added[0].Slope = slope;
  solution.Added[0].Intercept = c2.Y - slope * c2.X;
  return solution;
}

Solution TangentFromPoint(const PickedRow &round, Point from) {
  const Solution inside = Failed("ERROR: Point must be Outside Circle or Arc", "No Solution");
  if (!IsRound(round)) return inside;
  const Point c = CentreOf(round.Row);
  const double d = Distance(c, from), r = round.Row.Radius;
  if (!(d > r + LeastLength)) return inside;
  const Point way{(from.X - c.X) / d, (from.Y - c.Y) / d};
  Roots at;
  at.First = Shifted(c, *Normal(way, r / d, 1), r);
  at.Second = Shifted(c, *Normal(way, r / d, -1), r);
  return NewLine(from, NearerRoot(at, round.At));
}
