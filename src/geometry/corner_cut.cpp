#include "geometry/corner_cut.h"

#include "geometry/carrier.h"

#include <cmath>

namespace {
constexpr double Overrun = 1e-6;    // mm that a tangent point may pass the kept end by rounding
constexpr double ArcOverrun = 1e-6; // radians
} // namespace

bool CutLineFromCorner(Entity &line, Point pick, Point corner, Point to) {
  const Point first{line.X1, line.Y1}, second{line.X2, line.Y2};
  Point toward{pick.X - corner.X, pick.Y - corner.Y};
  double length = std::hypot(toward.X, toward.Y);
  if (length < 1e-9) { // picked in the corner: the longer part stays
    const Point far = Distance(first, corner) > Distance(second, corner) ? first : second;
    toward = {far.X - corner.X, far.Y - corner.Y};
    length = std::hypot(toward.X, toward.Y);
    if (length == 0) return false;
  }
  const auto reach = [&](Point p) {
    return ((p.X - corner.X) * toward.X + (p.Y - corner.Y) * toward.Y) / length;
  };
  const bool keepFirst = reach(first) > reach(second);
  const double kept = reach(keepFirst ? first : second), at = reach(to);
  if (at < -Overrun || at > kept + Overrun) return false;
  SetLineEnds(line, keepFirst ? first : to, keepFirst ? to : second);
  return true;
}

int PickSideOfCorner(const Entity &arc, Point pick, Point corner) {
  const double p = Bearing(CentreOf(arc), pick), c = Bearing(CentreOf(arc), corner);
  if (arc.EntType == ArcType) {
    const double sweep = ArcSweep(arc), cornerAt = NormalAngle(c - arc.StartAngle);
    double pickAt = NormalAngle(p - arc.StartAngle);
    if (pickAt > sweep) pickAt = pickAt - sweep < TwoPi - pickAt ? sweep : 0; // clicked just past an end
    constexpr double margin = 0.001;
    if (TwoPi - cornerAt < margin) return 1;
    if (cornerAt <= sweep + margin) return pickAt > cornerAt ? 1 : -1;
  }
  return NormalAngle(p - c) < Pi ? 1 : -1;
}

bool CutArcFromCorner(Entity &arc, Point pick, Point corner, double to) {
  const double c = Bearing(CentreOf(arc), corner);
  const bool moveStart = PickSideOfCorner(arc, pick, corner) > 0;
  // Both measured from the kept end toward the corner.
  double cornerAt = moveStart ? NormalAngle(arc.EndAngle - c) : NormalAngle(c - arc.StartAngle);
  double at = moveStart ? NormalAngle(arc.EndAngle - to) : NormalAngle(to - arc.StartAngle);
  if (cornerAt < ArcOverrun) cornerAt = TwoPi;
  if (TwoPi - at < ArcOverrun) at = 0;
  if (at > cornerAt + 0.001) return false;
  (moveStart ? arc.StartAngle : arc.EndAngle) = NormalAngle(to);
  SetArcEnds(arc);
  return true;
}
