#include "drafting/ask_question.h"
#include "drafting/command_machine.h"
#include "drafting/commit.h"
#include "drafting/creation.h"
#include "drafting/creation_parts.h"
#include "drafting/report.h"

#include "geometry/carrier.h"

#include <algorithm>
#include <array>

namespace {
constexpr int ByDiameter = 21, TwoPoints = 22, ThreePoints = 23, CentreEdge = 24;
constexpr double SamePlace = 0.0001; // mm
} // namespace

bool AddRound(Drafting &d, const Entity &round) {
  if (!AddEntities(d, std::array{round})) return false;
  d.Tool.ToolRadius = round.Radius;
  return true;
}

CircleThrough CircleOfPoints(Drafting &d) {
  const std::array p{PointAt(d.Cmd, 0), PointAt(d.Cmd, 1), PointAt(d.Cmd, 2)};
  const double least = std::min({Distance(p[0], p[1]), Distance(p[1], p[2]), Distance(p[2], p[0])});
  if (least < SamePlace) {
    Report(d, "Error: All 3 Points Must be at different Positions");
    return {};
  }
  const CircleThrough circle = ThroughThree(p);
  if (circle.Radius > 0 && circle.Radius <= MostLength) return circle;
  Report(d, "Error: Can't Find Solution");
  return {};
}

bool StartCircleRadius(Drafting &d) {
  const bool diameter = d.Cmd.CmdNo == ByDiameter;
  const double times = diameter ? 2 : 1;
  const auto answer =
      AskQuestion(d, {.Label = diameter ? "Enter Diameter of circle" : "Enter Radius of circle",
                      .Caption = diameter ? "Diameter Input" : "Radius Input",
                      .Value = times * d.Tool.ToolRadius,
                      .Least = 0});
  if (answer) d.Tool.ToolRadius = *answer / times;
  return answer.has_value();
}

void CommitCircle(Drafting &d) {
  Point centre = PointAt(d.Cmd, 0);
  double radius = d.Tool.ToolRadius;
  switch (d.Cmd.CmdNo) {
  case TwoPoints: {
    const Point other = PointAt(d.Cmd, 1);
    radius = Distance(centre, other) / 2;
    centre = Midway(centre, other);
    break;
  }
  case ThreePoints: {
    const CircleThrough circle = CircleOfPoints(d);
    if (circle.Radius == 0) return;
    centre = circle.Centre;
    radius = circle.Radius;
    break;
  }
  case CentreEdge: radius = Distance(centre, PointAt(d.Cmd, 1)); break;
  default: break;
  }
  AddRound(d, CircleRow(centre, radius));
}

void TypedDiameter(Drafting &d, double diameter) {
  if (d.Cmd.PointCount < 0) return;
  if (!(diameter > 0)) return Report(d, "ERROR: Entity's too small");
  const Point centre = LastPoint(d.Cmd);
  ClickAt(d, {centre.X + diameter / 2, centre.Y});
}

const char *StemThreePoints(const Drafting &d) {
  constexpr std::array stems{"Indicate First Point", "Indicate Second Point", "Indicate 3rd Point"};
  return stems[static_cast<std::size_t>(std::clamp<int>(d.Cmd.PointPhase, 0, 2))];
}
