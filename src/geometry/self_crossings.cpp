#include "geometry/self_crossings.h"

#include "geometry/carrier.h"
#include "geometry/find_entity.h"
#include "geometry/row_measure.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {
constexpr double Touch = 1e-7; // of a radius squared: circles that cut no deeper touch

struct Shape {
  Entity Row;
  Carrier Along; // of a line
  std::array<Point, 2> End{};
  bool Whole = false;
  Extent Around;
};

Shape ShapeOf(const Entity &e) {
  Shape s{e, {}, EndsOf(e), IsWholeTurn(e), ExtentOf(e)};
  if (e.EntType == LineType) s.Along = CarrierOf(e);
  return s;
}

CrossingPair LineCircle(const Carrier &line, const Entity &round) {
  const double foot = AlongOf(line, CentreOf(round)), off = AsideOf(line, CentreOf(round)), r = round.Radius;
  const double half2 = (r - off) * (r + off);
  if (!(half2 > Touch * r * r)) return {};
  const double half = std::sqrt(half2);
  return {2, {PointAlong(line, foot - half), PointAlong(line, foot + half)}};
}

// From the smaller circle: the larger one's radius would drown the half chord.
CrossingPair CircleCircle(const Entity &small, const Entity &large) {
  const double dx = large.CenterX - small.CenterX, dy = large.CenterY - small.CenterY;
  const double apart = std::hypot(dx, dy), r = small.Radius;
  if (apart < 1e-12 * (r + large.Radius)) return {};
  const double along = (apart * apart + (r - large.Radius) * (r + large.Radius)) / (2 * apart);
  const double half2 = (r - along) * (r + along);
  if (!(half2 > Touch * r * r)) return {};
  const double ux = dx / apart, uy = dy / apart, half = std::sqrt(half2);
  const Point foot{small.CenterX + along * ux, small.CenterY + along * uy};
  return {2, {Point{foot.X - half * uy, foot.Y + half * ux}, Point{foot.X + half * uy, foot.Y - half * ux}}};
}

bool Inside(const Shape &s, Point p, double clear) {
  if (s.Whole) return true;
  if (std::min(Distance(s.End[0], p), Distance(s.End[1], p)) <= clear) return false;
  if (s.Row.EntType != LineType)
    return NormalAngle(Bearing(CentreOf(s.Row), p) - s.Row.StartAngle) < ArcSweep(s.Row);
  const double along = AlongOf(s.Along, p);
  return along > 0 && along < Distance(s.End[0], s.End[1]);
}

// Both ends of a line well to one side of another: most neighbours in a crowd are told apart so.
bool Aside(const Shape &line, const Shape &other) {
  if (line.Row.EntType != LineType || other.Row.EntType != LineType) return false;
  return AsideOf(line.Along, other.End[0]) * AsideOf(line.Along, other.End[1]) > 0;
}
} // namespace

CrossingPair CarrierCrossings(const Entity &a, const Entity &b) {
  const bool lineA = a.EntType == LineType, lineB = b.EntType == LineType;
  if (lineA && lineB) {
    const Roots roots = CarrierRoots(CarrierOf(a), CarrierOf(b));
    return roots.Case == RootCase::None ? CrossingPair{} : CrossingPair{1, {roots.First, {}}};
  }
  if (lineA) return LineCircle(CarrierOf(a), b);
  if (lineB) return LineCircle(CarrierOf(b), a);
  return a.Radius < b.Radius ? CircleCircle(a, b) : CircleCircle(b, a);
}

std::vector<Point> SelfCrossings(std::span<const Entity> rows, double clear, std::size_t most) {
  std::vector<Shape> shapes;
  shapes.reserve(rows.size());
  for (const Entity &row : rows) shapes.push_back(ShapeOf(row));
  std::sort(shapes.begin(), shapes.end(),
            [](const Shape &a, const Shape &b) { return a.Around.Left < b.Around.Left; });
  std::vector<Point> found;
  for (std::size_t i = 0; i < shapes.size(); ++i)
    for (std::size_t j = i + 1; j < shapes.size() && found.size() < most; ++j) {
      const Shape &a = shapes[i], &b = shapes[j];
      if (b.Around.Left > a.Around.Right) break;
      if (b.Around.Low > a.Around.High || a.Around.Low > b.Around.High || Aside(a, b) || Aside(b, a))
        continue;
      const CrossingPair crossing = CarrierCrossings(a.Row, b.Row);
      for (int k = 0; k < crossing.Count; ++k) {
        const Point p = crossing.At[static_cast<std::size_t>(k)];
        if (Inside(a, p, clear) && Inside(b, p, clear)) found.push_back(p);
      }
    }
  return found;
}
