#include "drafting/creation_shapes.h"

#include "drafting/ask_question.h"
#include "geometry/carrier.h"
#include "geometry/construct.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace {

constexpr double SamePlace = 0.0001; // mm
constexpr std::string_view NoSolutionText = "Error: Can't Find Solution";

Solution Made(const Entity &row) {
  Solution shape;
  shape.Added = {row};
  return shape;
}

Solution LineTo(Point a, Point b) { return Made(MakeLine(a.X, a.Y, b.X, b.Y)); }

// Along the picked line's direction turned by the angle asked for, as far as the second point stands along
// it.
Solution LineAtAngle(const Drafting &d, Point from, Point to) {
  const Carrier c = CarrierOf(d.Cmd.Pick[0].Row);
  const Point u = Turned({c.UX, c.UY}, d.Cmd.RotationAngle);
  const double along = u.X * (to.X - from.X) + u.Y * (to.Y - from.Y);
  return LineTo(from, {from.X + u.X * along, from.Y + u.Y * along});
}

Solution StraightLine(int cmdNo, Point from, Point to) {
  const bool flat = cmdNo == 7 || (cmdNo == 9 && std::abs(to.X - from.X) >= std::abs(to.Y - from.Y));
  (flat ? to.Y : to.X) = flat ? from.Y : from.X;
  return LineTo(from, to);
}

// Counter-clockwise from one angle to the other; a full circle when they are a whole turn apart or equal.
Entity ArcRow(Point centre, double radius, double start, double end) {
  if (SameAngle(start, end)) return CircleRow(centre, radius);
  return MakeArc(centre.X, centre.Y, radius, NormalAngle(start), NormalAngle(end));
}

Entity ArcFromTo(Point centre, double radius, Point from, Point to) {
  return ArcRow(centre, radius, Bearing(centre, from), Bearing(centre, to));
}

Solution ArcByAngle(double angle, Point from, Point to) {
  const double chord = Distance(from, to), sweep = std::abs(angle);
  if (chord < SamePlace) return Failed("Start and Ending Points are identical");
  const double radius = chord / 2 / std::sin(sweep / 2);
  if (!(radius > 0 && radius <= MostLength)) return Failed(NoSolutionText);
  if (angle < 0) std::swap(from, to);
  // Of a counter-clockwise arc below half a turn the centre lies to the left of the chord.
  const double aside = 0.5 / std::tan(sweep / 2);
  const Point middle = Midway(from, to);
  const Point centre{middle.X - (to.Y - from.Y) * aside, middle.Y + (to.X - from.X) * aside};
  return Made(ArcFromTo(centre, radius, from, to));
}

Solution ThroughPoints(const std::array<Point, 3> &p, bool arc) {
  const double least = std::min({Distance(p[0], p[1]), Distance(p[1], p[2]), Distance(p[2], p[0])});
  if (least < SamePlace) return Failed("Error: All 3 Points Must be at different Positions");
  const CircleThrough circle = ThroughThree(p);
  if (!(circle.Radius > 0 && circle.Radius <= MostLength)) return Failed(NoSolutionText);
  if (!arc) return Made(CircleRow(circle.Centre, circle.Radius));
  Point from = p[0], to = p[2];
  if ((p[1].X - from.X) * (to.Y - from.Y) < (p[1].Y - from.Y) * (to.X - from.X)) std::swap(from, to);
  return Made(ArcFromTo(circle.Centre, circle.Radius, from, to));
}

Solution BoxBetween(Point a, Point b) {
  if (std::abs(b.X - a.X) < SamePlace || std::abs(b.Y - a.Y) < SamePlace)
    return Failed("ERROR: Height & Width of Box must be Greater than 0");
  Solution box;
  box.Added = {MakeLine(a.X, a.Y, b.X, a.Y), MakeLine(b.X, a.Y, b.X, b.Y), MakeLine(b.X, b.Y, a.X, b.Y),
               MakeLine(a.X, b.Y, a.X, a.Y)};
  return box;
}

Solution BoxAt(const ToolValues &tool, Point at) {
  const int column = (tool.BoxReference - 1) % 3, row = (tool.BoxReference - 1) / 3;
  const Point corner{at.X - tool.BoxWidth * column / 2, at.Y + tool.BoxHeight * row / 2};
  return BoxBetween(corner, {corner.X + tool.BoxWidth, corner.Y - tool.BoxHeight});
}

Solution ByOnePoint(const Drafting &d, Point p) {
  const ToolValues &tool = d.Tool;
  const DraftDefaults &angles = d.Grain.Defaults;
  switch (d.Cmd.CmdNo) {
  case 20:
  case 21: return Made(CircleRow(p, tool.ToolRadius));
  case 30:
  case 31: return Made(ArcRow(p, tool.ToolRadius, angles.ArcStartDefault, angles.ArcEndDefault));
  case 51: return BoxAt(tool, p);
  case 53:
    return CreatePolygon(p, tool.PolySides, tool.PolyRadius, tool.PolyRotate * Pi / 180, tool.PolyFlat);
  default: return {};
  }
}

Solution ByTwoPoints(const Drafting &d, Point a, Point b) {
  const DraftDefaults &angles = d.Grain.Defaults;
  switch (d.Cmd.CmdNo) {
  case 1:
  case 2: return LineTo(a, b);
  case 3: return LineAtAngle(d, a, b);
  case 7:
  case 8:
  case 9: return StraightLine(d.Cmd.CmdNo, a, b);
  case 22: return Made(CircleRow(Midway(a, b), Distance(a, b) / 2));
  case 24: return Made(CircleRow(a, Distance(a, b)));
  case 32: return Made(ArcRow(a, Distance(a, b), angles.ArcStartDefault, angles.ArcEndDefault));
  case 33: return ArcByAngle(angles.ArcAngleDefault, a, b);
  case 52: return BoxBetween(a, b);
  default: return {};
  }
}

} // namespace

Solution ShapeOf(const Drafting &d, std::span<const Point> p) {
  if (p.empty()) return {};
  const int no = d.Cmd.CmdNo;
  if (no == 23 || no == 34) return p.size() < 3 ? Solution{} : ThroughPoints({p[0], p[1], p[2]}, no == 34);
  const Solution one = ByOnePoint(d, p.front());
  if (!one.Added.empty() || !one.Solved() || p.size() < 2) return one;
  return ByTwoPoints(d, p[0], p[1]);
}
