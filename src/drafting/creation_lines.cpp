#include "drafting/ask_question.h"
#include "drafting/command_machine.h"
#include "drafting/commit.h"
#include "drafting/creation.h"
#include "drafting/creation_parts.h"
#include "drafting/point_modes.h"
#include "drafting/report.h"

#include "geometry/carrier.h"

#include <array>
#include <cmath>

namespace {

constexpr int LineAtAngle = 3, ParallelByDistance = 4, Perpendicular = 6;
constexpr double OnLine = 1e-6; // of the grain's radius

bool AddLine(Drafting &d, Point a, Point b) {
  return AddEntities(d, std::array{MakeLine(a.X, a.Y, b.X, b.Y)});
}

void HoldLine(Drafting &d, const PickedRow &pick) {
  d.Cmd.Pick[0] = pick;
  d.Cmd.EntPick = static_cast<std::int16_t>(pick.Index);
  d.Cmd.PickFound = d.Cmd.PickHaveFirst = true;
  d.Cmd.CmdState = 1;
  MarkRow(d, pick.Index);
}

void HoldAnchor(Drafting &d) {
  const Point last = LastPoint(d.Cmd);
  d.Cmd.AnchorX = last.X;
  d.Cmd.AnchorY = last.Y;
  d.Cmd.CmdState = 2;
}

// True when the click went to the pick of the line.
bool PicksLine(Drafting &d, Point at) {
  if (d.Cmd.Pick[0].Found) return false;
  if (const PickedRow pick = PickEntity(d, at, LineType, "No Line Found"); pick.Found) HoldLine(d, pick);
  return true;
}

bool AskDistance(Drafting &d) {
  const auto distance = AskQuestion(d, {.Label = "Enter Distance:",
                                        .Caption = "Distance of Parallel Line",
                                        .Value = static_cast<double>(d.Tool.ToolDistance),
                                        .Least = 0});
  if (distance) d.Tool.ToolDistance = static_cast<float>(*distance);
  return distance.has_value();
}

// The question offers the 32-bit default to as many digits as it has.
std::optional<double> AskLineAngle(Drafting &d) {
  const double offered = static_cast<double>(d.Grain.Defaults.LineAngleDefault) * 180 / Pi;
  const auto degrees = AskQuestion(d, {.Label = "Enter Angle",
                                       .Caption = "Angle of new line",
                                       .Value = std::round(offered * 1e4) / 1e4,
                                       .AllowZero = true});
  if (!degrees) return std::nullopt;
  d.Grain.Defaults.LineAngleDefault = static_cast<float>(*degrees * Pi / 180);
  return *degrees * Pi / 180;
}

Point Stepped(Point from, Point direction, double by) {
  return {from.X + direction.X * by, from.Y + direction.Y * by};
}

Point NormalOf(const Entity &line) { // to the left of its direction
  const Carrier c = CarrierOf(line);
  return {-c.UY, c.UX};
}

double Across(Point direction, Point from, Point to) {
  return direction.X * (to.X - from.X) + direction.Y * (to.Y - from.Y);
}

bool AddShifted(Drafting &d, const Entity &line, double by) {
  const Point n = NormalOf(line);
  return AddLine(d, Stepped({line.X1, line.Y1}, n, by), Stepped({line.X2, line.Y2}, n, by));
}

double Blur(const Drafting &d) { return OnLine * static_cast<double>(d.Grain.Doc.GrainRadius); }

} // namespace

bool StartParallel(Drafting &d) { return AskDistance(d); }

void BackParallel(Drafting &d) {
  if (d.Cmd.BackPos == d.Cmd.BackDepth - 1 && !AskDistance(d)) LeaveCommand(d);
}

void BackLineAngle(Drafting &d) {
  if (d.Cmd.CmdState <= 1) d.Cmd.PickHaveFirst = false;
}

void ClickLineAngle(Drafting &d, Point at) {
  if (!d.Cmd.Pick[0].Found) {
    const PickedRow pick = PickEntity(d, at, LineType, "No Line Found", 0);
    if (!pick.Found) return;
    const auto angle = AskLineAngle(d);
    if (!angle) return LeaveCommand(d);
    LogInput(d, LogFoundEnt, pick.Index, at.X, at.Y);
    HoldLine(d, pick);
    d.Cmd.RotationAngle = *angle;
    return;
  }
  if (!PointInput(d, at)) return;
  if (d.Cmd.PointCount == 0) return HoldAnchor(d);
  if (CommitShape(d)) RestartCommand(d);
}

void ClickParallel(Drafting &d, Point at) {
  if (PicksLine(d, at)) return;
  const Entity line = d.Cmd.Pick[0].Row;
  double by = 0;
  if (d.Cmd.CmdNo == ParallelByDistance) {
    TakePosition(d, at);
    by = static_cast<double>(d.Tool.ToolDistance) * (AsideOf(CarrierOf(line), LastPoint(d.Cmd)) < 0 ? -1 : 1);
  } else {
    if (!PointInput(d, at)) return;
    by = AsideOf(CarrierOf(line), LastPoint(d.Cmd));
    if (std::abs(by) <= Blur(d)) return Report(d, "Error: Can't Find Solution"); // it would lie on the line
  }
  if (AddShifted(d, line, by)) RestartCommand(d);
}

void ClickPerpendicular(Drafting &d, Point at) {
  if (PicksLine(d, at) || !PointInput(d, at)) return;
  const Entity line = d.Cmd.Pick[0].Row;
  const Carrier c = CarrierOf(line);
  const Point from = PointAt(d.Cmd, 0);
  Point to = FootOn(c, from);
  if (std::abs(AsideOf(c, from)) <= Blur(d)) {
    if (d.Cmd.PointCount == 0) return HoldAnchor(d);
    const Point n = NormalOf(line);
    to = Stepped(from, n, Across(n, from, LastPoint(d.Cmd)));
  }
  if (AddLine(d, from, to)) RestartCommand(d);
}

void CommitLine(Drafting &d) { CommitShape(d); }

const char *StemLineFirst(const Drafting &d) {
  if (!d.Cmd.Pick[0].Found) return "Select a line";
  const bool anchored = d.Cmd.PointCount >= 0;
  switch (d.Cmd.CmdNo) {
  case LineAtAngle: return anchored ? "Indicate end point of new line" : "Indicate Starting Point";
  case ParallelByDistance: return "Indicate Side";
  case Perpendicular: return anchored ? "Indicate end point of new line" : "Indicate Point";
  default: return "Indicate Point";
  }
}
