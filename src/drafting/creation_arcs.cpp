#include "drafting/ask_question.h"
#include "drafting/creation.h"
#include "drafting/creation_parts.h"
#include "drafting/report.h"

#include "geometry/carrier.h"

#include <cmath>
#include <utility>

namespace {

constexpr int ByDiameter = 31, CentreEdge = 32, TwoPoints = 33, ThreePoints = 34;
constexpr double SamePlace = 0.0001; // mm

// Counter-clockwise from one angle to the other; a full circle when they are a whole turn apart or equal.
Entity ArcRow(Point centre, double radius, double start, double end) {
  if (SameAngle(start, end)) return CircleRow(centre, radius);
  return MakeArc(centre.X, centre.Y, radius, NormalAngle(start), NormalAngle(end));
}

Entity ArcFromTo(Point centre, double radius, Point from, Point to) {
  return ArcRow(centre, radius, Bearing(centre, from), Bearing(centre, to));
}

bool AskArcAngles(Drafting &d, double &start, double &end) {
  const auto first =
      AskAngle(d, "Enter Start Angle (deg):", "Arc Starting Angle", d.Grain.Defaults.ArcStartDefault);
  if (!first) return false;
  const auto second =
      AskAngle(d, "Enter End Angle (deg):", "Arc Ending Angle", d.Grain.Defaults.ArcEndDefault);
  if (!second) return false;
  start = *first;
  end = *second;
  return true;
}

void CommitByAngle(Drafting &d) {
  Point from = PointAt(d.Cmd, 0), to = PointAt(d.Cmd, 1);
  const double chord = Distance(from, to), angle = std::abs(d.Grain.Defaults.ArcAngleDefault);
  if (chord < SamePlace) return Report(d, "Start and Ending Points are identical");
  const double radius = chord / 2 / std::sin(angle / 2);
  if (!(radius > 0 && radius <= MostLength)) return Report(d, "Error: Can't Find Solution");
  if (d.Grain.Defaults.ArcAngleDefault < 0) std::swap(from, to);
  // Of a counter-clockwise arc below half a turn the centre lies to the left of the chord.
  const double aside = 0.5 / std::tan(angle / 2);
  const Point middle = Midway(from, to);
  const Point centre{middle.X - (to.Y - from.Y) * aside, middle.Y + (to.X - from.X) * aside};
  AddRound(d, ArcFromTo(centre, radius, from, to));
}

void CommitThroughPoints(Drafting &d) {
  const CircleThrough circle = CircleOfPoints(d);
  if (circle.Radius == 0) return;
  Point from = PointAt(d.Cmd, 0), to = PointAt(d.Cmd, 2);
  const Point by = PointAt(d.Cmd, 1);
  if ((by.X - from.X) * (to.Y - from.Y) < (by.Y - from.Y) * (to.X - from.X)) std::swap(from, to);
  AddRound(d, ArcFromTo(circle.Centre, circle.Radius, from, to));
}

} // namespace

bool StartArcRadius(Drafting &d) {
  const bool diameter = d.Cmd.CmdNo == ByDiameter;
  const double times = diameter ? 2 : 1;
  const auto answer = AskQuestion(d, {.Label = diameter ? "Enter Arc Diameter:" : "Enter Radius of Arc",
                                      .Caption = diameter ? "Arc Diameter" : "Radius Input",
                                      .Value = times * d.Tool.ToolRadius,
                                      .Least = 0});
  if (!answer || !StartArcAngles(d)) return false;
  d.Tool.ToolRadius = *answer / times;
  return true;
}

bool StartArcAngles(Drafting &d) {
  return AskArcAngles(d, d.Grain.Defaults.ArcStartDefault, d.Grain.Defaults.ArcEndDefault);
}

bool StartArcAngle(Drafting &d) {
  const auto degrees = AskQuestion(d, {.Label = "Enter Angle (deg):",
                                       .Caption = "Arc Angle",
                                       .Value = d.Grain.Defaults.ArcAngleDefault * 180 / Pi,
                                       .Least = -360,
                                       .Most = 360});
  if (degrees) d.Grain.Defaults.ArcAngleDefault = *degrees * Pi / 180;
  return degrees.has_value();
}

void CommitArc(Drafting &d) {
  if (d.Cmd.CmdNo == TwoPoints) return CommitByAngle(d);
  if (d.Cmd.CmdNo == ThreePoints) return CommitThroughPoints(d);
  const Point centre = PointAt(d.Cmd, 0);
  const double radius = d.Cmd.CmdNo == CentreEdge ? Distance(centre, PointAt(d.Cmd, 1)) : d.Tool.ToolRadius;
  AddRound(d, ArcRow(centre, radius, d.Grain.Defaults.ArcStartDefault, d.Grain.Defaults.ArcEndDefault));
}

void TypedArcRadius(Drafting &d, double radius) {
  if (!(radius > 0 && radius <= MostLength)) return Report(d, "ERROR: Entity's too small");
  d.Tool.ToolRadius = radius;
  d.Out.Focus = Ctl::Y_Input;
}
