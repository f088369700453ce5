#include "geometry/fillet.h"

#include "geometry/carrier.h"
#include "geometry/corner_cut.h"

#include <cmath>
#include <optional>
#include <utility>

namespace {

constexpr std::string_view ParallelText = "Error: Can't solve for parallel lines";
constexpr std::string_view TooLargeText = "Chosen Radius Too Large for chosen Arc(s)";
constexpr std::string_view TooSmallText = "ERROR: Entity's too small";
constexpr double RootMargin = 0.001;

struct Blend {
  Point Centre, T1, T2, Corner; // T1 on the first entity, T2 on the second
};
struct Sides {
  bool Inside = false; // of the arc
  Point Normal;        // of the line, into the sector
};

bool IsLine(const PickedRow &p) { return p.Row.EntType == LineType; }

// Crossing of two lines, each shifted along its normal.
Point ShiftedCrossing(Carrier a, Point na, double da, Carrier b, Point nb, double db) {
  a.At = {a.At.X + na.X * da, a.At.Y + na.Y * da};
  b.At = {b.At.X + nb.X * db, b.At.Y + nb.Y * db};
  return CarrierRoots(a, b).First;
}

Blend BlendLines(const PickedRow &e1, const PickedRow &e2, double radius) {
  const Carrier c1 = CarrierOf(e1.Row), c2 = CarrierOf(e2.Row);
  const Point reference = Midway(e1.At, e2.At);
  Blend b;
  b.Corner = CarrierRoots(c1, c2).First;
  b.Centre =
      ShiftedCrossing(c1, NormalToward(c1, reference), radius, c2, NormalToward(c2, reference), radius);
  b.T1 = FootOn(c1, b.Centre);
  b.T2 = FootOn(c2, b.Centre);
  return b;
}

// The point of the circle on the ray from its centre through p.
Point TowardOn(const Entity &round, Point p) {
  const Point c = CentreOf(round);
  const double reach = Distance(c, p);
  if (reach == 0) return {c.X + round.Radius, c.Y};
  return {c.X + (p.X - c.X) * round.Radius / reach, c.Y + (p.Y - c.Y) * round.Radius / reach};
}

bool Inside(const Entity &round, Point p) { return Distance(CentreOf(round), p) < round.Radius; }

// True when the circle about `centre` touches from the side asked for; a radius above that of an arc it
// should lie inside never does.
bool Touches(const Entity &round, bool inside, Point centre, double radius) {
  const double reach = inside ? round.Radius - radius : round.Radius + radius;
  if (reach < 1e-9) return false;
  return std::abs(Distance(CentreOf(round), centre) - reach) <= 1e-3;
}

Point NearerSecondOnlyIfStrict(const Roots &roots, Point to) {
  return Distance(roots.Second, to) < Distance(roots.First, to) ? roots.Second : roots.First;
}

// The two meeting points of circles, real or not: the roots of their absolute heights.
Roots CirclesUnchecked(Point c1, double r1, Point c2, double r2) {
  const double dx = c2.X - c1.X, dy = c2.Y - c1.Y, d = std::hypot(dx, dy);
  const double a = (d * d + r1 * r1 - r2 * r2) / (2 * d), h = std::sqrt(std::abs(r1 * r1 - a * a));
  const Point p{c1.X + a * dx / d, c1.Y + a * dy / d};
  Roots roots;
  roots.Case = RootCase::Two;
  roots.First = {p.X + h * dy / d, p.Y - h * dx / d};
  roots.Second = {p.X - h * dy / d, p.Y + h * dx / d};
  return roots;
}

Solution BlendArcs(const PickedRow &e1, const PickedRow &e2, double radius, Blend &b) {
  const Point c1 = CentreOf(e1.Row), c2 = CentreOf(e2.Row), reference = Midway(e1.At, e2.At);
  const double d = Distance(c1, c2), r1 = e1.Row.Radius, r2 = e2.Row.Radius;
  if (!(r1 + r2 >= d - 0.0001) || !(std::abs(r1 - r2) + 0.0001 <= d) || d == 0)
    return Failed("Error - 2 Arcs don't Intersect");
  const bool in1 = Inside(e1.Row, reference), in2 = Inside(e2.Row, reference);
  b.Centre = NearerRoot(
      CirclesUnchecked(c1, in1 ? r1 - radius : r1 + radius, c2, in2 ? r2 - radius : r2 + radius), reference);
  if (!Touches(e1.Row, in1, b.Centre, radius) || !Touches(e2.Row, in2, b.Centre, radius))
    return Failed(TooLargeText);
  b.T1 = TowardOn(e1.Row, b.Centre);
  b.T2 = TowardOn(e2.Row, b.Centre);
  b.Corner = NearerSecondOnlyIfStrict(CirclesUnchecked(c1, r1, c2, r2), reference);
  return {};
}

// The sector at the corner that holds the picks. Where line and arc nearly touch, the directions at the
// corner say nothing and the picks themselves decide.
Sides SidesAt(Point corner, const Carrier &line, Point linePick, const Entity &arc, Point arcPick) {
  const Point c = CentreOf(arc);
  const Point out{(corner.X - c.X) / arc.Radius, (corner.Y - c.Y) / arc.Radius};
  double along = Distance(linePick, corner);
  const Point way =
      along > 0 ? Point{(linePick.X - corner.X) / along, (linePick.Y - corner.Y) / along} : Point{};
  const double inward = -(way.X * out.X + way.Y * out.Y);
  const int turn = PickSideOfCorner(arc, arcPick, corner);
  const Point tangent{-out.Y * turn, out.X * turn};
  constexpr double grazing = 1e-3;
  Sides sides;
  if (std::abs(inward) < grazing) {
    sides.Inside = Inside(arc, linePick);
    sides.Normal = NormalToward(line, TowardOn(arc, arcPick));
    return sides;
  }
  sides.Inside = inward > 0;
  sides.Normal = NormalToward(line, {corner.X + tangent.X, corner.Y + tangent.Y});
  return sides;
}

Roots OffsetRoots(Carrier line, Point normal, double radius, const Entity &arc, bool inside) {
  line.At = {line.At.X + normal.X * radius, line.At.Y + normal.Y * radius};
  return CarrierCircleRoots(line, CentreOf(arc), inside ? arc.Radius - radius : arc.Radius + radius,
                            RootMargin);
}

// e1 the line.
Solution BlendLineArc(const PickedRow &e1, const PickedRow &e2, double radius, Blend &b) {
  const Carrier line = CarrierOf(e1.Row);
  const Entity &arc = e2.Row;
  Point reference = Midway(e1.At, e2.At);
  const Roots corners = CarrierCircleRoots(line, CentreOf(arc), arc.Radius, RootMargin);
  if (corners.Case == RootCase::None) {
    const Roots offset =
        OffsetRoots(line, NormalToward(line, reference), radius, arc, Inside(arc, reference));
    return Failed(offset.Case == RootCase::None ? "Error: No Solution" : "Error: Can't find Intersection");
  }
  b.Corner = NearerRoot(corners, reference);
  const Sides sides = SidesAt(b.Corner, line, e1.At, arc, e2.At);
  const Roots centres = OffsetRoots(line, sides.Normal, radius, arc, sides.Inside);
  if (centres.Case == RootCase::None) return Failed("Error: No Solution");
  b.Centre = NearerRoot(centres, b.Corner);
  if (!Touches(arc, sides.Inside, b.Centre, radius)) return Failed(TooLargeText);
  b.T1 = FootOn(line, b.Centre);
  b.T2 = TowardOn(arc, b.Centre);
  return {};
}

// False when the cut would turn the entity over.
bool CutBack(const PickedRow &pick, Point corner, Point tangent, Solution &solution) {
  Entity row = pick.Row;
  row.Selected = false;
  if (row.EntType == CircleType) return true;
  if (row.EntType == LineType) {
    if (!CutLineFromCorner(row, pick.At, corner, tangent)) return false;
  } else {
    const double angle = AngleAbout(tangent, CentreOf(row), row.Radius);
    if (angle == NoAngle || !CutArcFromCorner(row, pick.At, corner, angle)) return false;
  }
  solution.Changed.push_back({pick.Index, row});
  return true;
}

std::optional<Entity> FacingArc(const Blend &b, double radius) {
  const double angle1 = NormalAngle(AngleAbout(b.T1, b.Centre, radius));
  const double angle2 = NormalAngle(AngleAbout(b.T2, b.Centre, radius));
  if (angle1 == NoAngle || angle2 == NoAngle) return std::nullopt;
  // Which way round is told by full angles: near 0 the 32-bit ones may change places.
  const double g1 = Bearing(b.Centre, b.T1), g2 = Bearing(b.Centre, b.T2), gc = Bearing(b.Centre, b.Corner);
  const bool forward = (g2 > gc && gc > g1) || (g1 > g2 && (gc < g2 || gc > g1));
  Entity arc = MakeArc(b.Centre.X, b.Centre.Y, radius, forward ? angle1 : angle2, forward ? angle2 : angle1);
  const Point first = forward ? b.T1 : b.T2, second = forward ? b.T2 : b.T1;
  arc.X1 = first.X;
  arc.Y1 = first.Y;
  arc.X2 = second.X;
  arc.Y2 = second.Y;
  return arc;
}

} // namespace

Solution FilletSolve(const PickedRow &first, const PickedRow &second, FilletUse use, double radius,
                     double startAngle, double endAngle) {
  if (!(radius > 0)) return Failed(TooSmallText);
  PickedRow e1 = first, e2 = second;
  Blend b;
  if (IsLine(e1) && IsLine(e2)) {
    if (AreParallel(e1.Row, e2.Row)) return Failed(ParallelText);
    b = BlendLines(e1, e2, radius);
  } else {
    if (!IsLine(e1) && IsLine(e2)) std::swap(e1, e2);
    const Solution step = IsLine(e1) ? BlendLineArc(e1, e2, radius, b) : BlendArcs(e1, e2, radius, b);
    if (!step.Solved()) return step;
  }
  Solution solution;
  if (use == FilletUse::Blend &&
      (!CutBack(e1, b.Corner, b.T1, solution) || !CutBack(e2, b.Corner, b.T2, solution)))
    return Failed(TooLargeText);
  if (use == FilletUse::Circle) {
    solution.Added = {CircleRow(b.Centre, radius)};
  } else if (use == FilletUse::Arc) {
    solution.Added = {
        MakeArc(b.Centre.X, b.Centre.Y, radius, NormalAngle(startAngle), NormalAngle(endAngle))};
  } else {
    const std::optional<Entity> arc = FacingArc(b, radius);
    if (!arc) return Failed(TooLargeText);
    solution.Added = {*arc};
  }
  return solution;
}

Solution ChamferSolve(const PickedRow &l1, const PickedRow &l2, double w1, double w2) {
  if (!IsLine(l1) || !IsLine(l2)) return Failed("Error: Can't Find Solution");
  if (AreParallel(l1.Row, l2.Row)) return Failed(ParallelText);
  const Carrier c1 = CarrierOf(l1.Row), c2 = CarrierOf(l2.Row);
  const Point reference = Midway(l1.At, l2.At), corner = CarrierRoots(c1, c2).First;
  const Point on1 = ShiftedCrossing(c1, {}, 0, c2, NormalToward(c2, reference), std::abs(w2));
  const Point on2 = ShiftedCrossing(c2, {}, 0, c1, NormalToward(c1, reference), std::abs(w1));
  if (Distance(on1, on2) < 1e-6) return Failed(TooSmallText);
  Solution solution;
  Entity row1 = l1.Row, row2 = l2.Row;
  if (!CutLineFromCorner(row1, l1.At, corner, on1) || !CutLineFromCorner(row2, l2.At, corner, on2))
    return Failed("Error: Can't Find Solution");
  row1.Selected = row2.Selected = false;
  solution.Changed = {{l1.Index, row1}, {l2.Index, row2}};
  Entity row = MakeLine(on1.X, on1.Y, on2.X, on2.Y);
  const double dx = on2.X - on1.X, dy = on2.Y - on1.Y;
  if (std::abs(dx) < 1e-4)
    row.Slope = VerticalSlope;
  else
    row.Slope = std::abs(dy) < 1e-9 ? 0 : dy / dx;
  row.Intercept = row.Y1 - row.Slope * row.X1;
  solution.Added = {row};
  return solution;
}
