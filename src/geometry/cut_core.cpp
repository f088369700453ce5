#include "geometry/cut_core.h"

#include "geometry/carrier.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double RootMargin = 0.001;

// The existence test passes a circle inside the second, whose roots then lie on neither.
constexpr double OffRoot = 0.01;

Roots RoundRoots(const Entity &cut, const Entity &cutter, bool strict, bool &apart) {
  const Point c1 = CentreOf(cut), c2 = CentreOf(cutter);
  const double d = Distance(c1, c2), r1 = cut.Radius, r2 = cutter.Radius;
  if (d == 0) return {};
  Roots roots = CircleCircleRoots(c1, r1, c2, r2);
  if (strict && (d - 0.001 == r1 + r2 || d + 0.001 == r1 - r2)) roots.Case = RootCase::None;
  apart = roots.Case == RootCase::None;
  if (!apart && (std::abs(Distance(roots.First, c1) - r1) > OffRoot ||
                 std::abs(Distance(roots.First, c2) - r2) > OffRoot))
    roots.Case = RootCase::None;
  return roots;
}

// apart: two lines are parallel, or two rounds fail the existence test.
Roots AllRoots(const Entity &cut, const Entity &cutter, bool strict, bool &apart) {
  if (cut.EntType == LineType && cutter.EntType == LineType) {
    const Roots roots = AreParallel(cut, cutter) ? Roots{} : CarrierRoots(CarrierOf(cut), CarrierOf(cutter));
    apart = roots.Case == RootCase::None;
    return roots;
  }
  if (cut.EntType == LineType)
    return CarrierCircleRoots(CarrierOf(cut), CentreOf(cutter), cutter.Radius, RootMargin);
  if (cutter.EntType == LineType)
    return CarrierCircleRoots(CarrierOf(cutter), CentreOf(cut), cut.Radius, RootMargin);
  return RoundRoots(cut, cutter, strict, apart);
}

} // namespace

Roots CarrierMeetings(const Entity &cut, const Entity &cutter) {
  bool apart = false;
  return AllRoots(cut, cutter, false, apart);
}

Meeting MeetingOf(const Entity &cut, const Entity &cutter, Point nearTo, bool strict) {
  Meeting m;
  bool apart = false;
  const Roots roots = AllRoots(cut, cutter, strict, apart);
  if (apart) m.Case = cut.EntType == LineType ? MeetCase::Parallel : MeetCase::Apart;
  if (roots.Case == RootCase::None) return m;
  m.At = NearerRoot(roots, nearTo);
  if (cut.EntType != LineType) {
    m.Angle = NormalAngle(AngleAbout(m.At, CentreOf(cut), cut.Radius));
    if (m.Angle == NoAngle) return m;
  }
  m.Case = MeetCase::Meet;
  return m;
}

Solution MeetingFailure(const Meeting &m) {
  return Failed(m.Case == MeetCase::Parallel ? ParallelCutText : NoIntersectionText);
}

double LineCoordinate(const Entity &line, Point p) { return std::abs(line.Slope) < 1 ? p.X : p.Y; }

void MoveLineEnd(Entity &line, Point pick, Point at, double least) {
  const Point first{line.X1, line.Y1}, second{line.X2, line.Y2};
  const double u1 = LineCoordinate(line, first), u2 = LineCoordinate(line, second);
  const double p = std::clamp(LineCoordinate(line, pick), std::min(u1, u2), std::max(u1, u2));
  const bool moveFirst = (u1 - p) * (p - LineCoordinate(line, at)) < least;
  SetLineEnds(line, moveFirst ? at : first, moveFirst ? second : at);
}

void MakeFullCircle(Entity &arc) {
  arc.EntType = CircleType;
  arc.StartAngle = 0;
  arc.EndAngle = TwoPi;
  arc.X1 = arc.X2 = arc.CenterX + arc.Radius;
  arc.Y1 = arc.Y2 = arc.CenterY;
}

void MoveArcEnd(Entity &arc, double p, double a) {
  const double sweep = ArcSweep(arc);
  double picked = NormalAngle(p - arc.StartAngle);
  if (picked > sweep) picked = picked - sweep < TwoPi - picked ? sweep : 0; // clicked just past an end
  bool moveStart = false;
  if (AngleInArc(a, arc, ArcEnds::Open)) {
    moveStart = picked > NormalAngle(a - arc.StartAngle);
  } else {
    const double at = NormalAngle(arc.StartAngle + picked);
    const double e1 = std::abs(at - arc.StartAngle), e2 = std::abs(at - arc.EndAngle);
    moveStart = (e2 > e1) != (e2 > TwoPi - e1); // the end nearer to the pick around the circle
  }
  (moveStart ? arc.StartAngle : arc.EndAngle) = a;
  if (SameAngle(arc.StartAngle, arc.EndAngle))
    MakeFullCircle(arc);
  else
    SetArcEnds(arc);
}
