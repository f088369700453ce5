#include "geometry/three_lines.h"

#include "geometry/carrier.h"
#include "geometry/corner_cut.h"

#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace {

constexpr std::string_view NoSolutionText = "Error: Can't Find Solution";
using Lines = std::array<PickedRow, 3>;

bool TouchesEnd(const Entity &line, Point end, double tolerance) {
  return Distance({line.X1, line.Y1}, end) < tolerance || Distance({line.X2, line.Y2}, end) < tolerance;
}

bool StandsBetween(const Entity &middle, const Entity &a, const Entity &b, double tolerance) {
  const Point first{middle.X1, middle.Y1}, second{middle.X2, middle.Y2};
  return (TouchesEnd(a, first, tolerance) && TouchesEnd(b, second, tolerance)) ||
         (TouchesEnd(b, first, tolerance) && TouchesEnd(a, second, tolerance));
}

// Side, middle, side; the picked second line stays in the middle when it may.
void PutMiddleSecond(Lines &l, double tolerance) {
  if (StandsBetween(l[1].Row, l[0].Row, l[2].Row, tolerance)) return;
  if (StandsBetween(l[0].Row, l[1].Row, l[2].Row, tolerance))
    std::swap(l[0], l[1]);
  else if (StandsBetween(l[2].Row, l[0].Row, l[1].Row, tolerance))
    std::swap(l[1], l[2]);
}

struct Touching {
  Point Centre;
  double Radius = 0;
  std::array<Point, 3> Foot;
};

// With n the unit normals toward the reference, n.(centre - line) is the radius for all three: the two
// differences are the bisectors, which need no special case for a parallel pair.
std::optional<Touching> TouchThree(const Lines &l) {
  Point reference;
  for (const PickedRow &line : l) {
    reference.X += line.At.X / 3;
    reference.Y += line.At.Y / 3;
  }
  std::array<Carrier, 3> c;
  std::array<Point, 3> n;
  std::array<double, 3> off{}; // from the line to the reference
  for (std::size_t i = 0; i < 3; ++i) {
    c[i] = CarrierOf(l[i].Row);
    n[i] = NormalToward(c[i], reference);
    off[i] = std::abs(AsideOf(c[i], reference));
  }
  const double ax = n[0].X - n[1].X, ay = n[0].Y - n[1].Y, bx = n[2].X - n[1].X, by = n[2].Y - n[1].Y;
  const double across = ax * by - ay * bx;
  if (std::abs(across) < 1e-9) return std::nullopt;
  const double p = off[1] - off[0], q = off[1] - off[2];
  const double x = (p * by - q * ay) / across, y = (ax * q - bx * p) / across;
  Touching t;
  t.Centre = {reference.X + x, reference.Y + y};
  t.Radius = off[1] + n[1].X * x + n[1].Y * y;
  if (!(t.Radius > 1e-9)) return std::nullopt;
  for (std::size_t i = 0; i < 3; ++i) t.Foot[i] = FootOn(c[i], t.Centre);
  return t;
}

std::optional<Entity> ArcThrough(const Touching &t) {
  std::array<double, 3> angle{}, a{}; // what is kept, and what the order is told by
  for (std::size_t i = 0; i < 3; ++i) {
    angle[i] = NormalAngle(AngleAbout(t.Foot[i], t.Centre, t.Radius));
    if (angle[i] == NoAngle) return std::nullopt;
    a[i] = Bearing(t.Centre, t.Foot[i]);
  }
  const bool forward = (a[2] > a[1] && a[1] > a[0]) || (a[0] > a[2] && (a[1] < a[2] || a[1] > a[0]));
  const std::size_t from = forward ? 0 : 2, to = forward ? 2 : 0;
  Entity arc = MakeArc(t.Centre.X, t.Centre.Y, t.Radius, angle[from], angle[to]);
  arc.X1 = t.Foot[from].X;
  arc.Y1 = t.Foot[from].Y;
  arc.X2 = t.Foot[to].X;
  arc.Y2 = t.Foot[to].Y;
  return arc;
}

// A side, cut at its tangent point on the part away from the middle line.
bool CutSide(const PickedRow &side, const Entity &middle, Point tangent, Entity &cut) {
  const Roots corner = CarrierRoots(CarrierOf(side.Row), CarrierOf(middle));
  cut = side.Row;
  cut.Selected = false;
  return corner.Case == RootCase::Two && CutLineFromCorner(cut, tangent, corner.First, tangent);
}

} // namespace

Solution Circle3Tan(const PickedRow &l1, const PickedRow &l2, const PickedRow &l3, ThreeLineUse use,
                    double grainRadius) {
  Lines l{l1, l2, l3};
  for (const PickedRow &line : l)
    if (line.Row.EntType != LineType) return Failed(NoSolutionText);
  if (AreParallel(l1.Row, l2.Row) && AreParallel(l2.Row, l3.Row))
    return Failed("Error: Can't solve for 3 parallel lines");
  if (use == ThreeLineUse::RoundEnd) PutMiddleSecond(l, grainRadius / 1000);
  const std::optional<Touching> touching = TouchThree(l);
  if (!touching) return Failed(NoSolutionText);
  Solution solution;
  if (use == ThreeLineUse::Circle) {
    solution.Added = {CircleRow(touching->Centre, touching->Radius)};
    return solution;
  }
  const std::optional<Entity> arc = ArcThrough(*touching);
  if (!arc) return Failed(NoSolutionText);
  solution.Added = {*arc};
  if (use == ThreeLineUse::Arc) return solution;
  Entity first, third;
  if (!CutSide(l[0], l[1].Row, touching->Foot[0], first) ||
      !CutSide(l[2], l[1].Row, touching->Foot[2], third))
    return Failed(NoSolutionText);
  third.CenterX = l[2].Row.CenterX;
  third.CenterY = l[2].Row.CenterY;
  solution.Changed = {{l[0].Index, first}, {l[2].Index, third}};
  solution.Deleted = {l[1].Index};
  return solution;
}
