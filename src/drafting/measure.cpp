#include "drafting/measure.h"

#include "base/fault.h"
#include "base/number_text.h"
#include "drafting/ask_question.h"
#include "drafting/command_machine.h"
#include "drafting/commit.h"
#include "drafting/point_modes.h"
#include "drafting/report.h"
#include "drafting/selection.h"
#include "geometry/carrier.h"
#include "geometry/verify.h"

#include <string>
#include <utility>
#include <vector>

namespace {
constexpr int AnyType = 7, PerimeterCommand = 94;

std::string Number(double value) { return FormatMask(value, "0.000"); }
std::string Degrees(double angle) { return Number(angle * 180 / Pi) + " Deg"; }
std::string Place(double x, double y) { return "X: " + Number(x) + "   Y: " + Number(y); }

// What is asked for, not a failure.
void Tell(Drafting &d, const Box &box) {
  Report(d, box);
  d.Grain.GeomAbort = false;
}

// In the drawing as it stands; the scan turned it.
Point InDrawing(const AreaScan &scan, double x) { return Turned({x, scan.ScanY}, -scan.Turn); }

void ShowCrossings(Drafting &d, const AreaScan &scan) {
  double order = 0;
  for (const double x : scan.Crossing) {
    const Point at = InDrawing(scan, x);
    d.Out.Panel.Overlay.push_back(
        {.What = DrawItem::Kind::Circle, .Role = Ink::Fault, .At = {at.X, at.Y, 0.05 * ++order}, .Text = {}});
    MarkPoint(d, at);
  }
  RedrawPanel(d);
}

bool ShowArea(Drafting &d) {
  const auto resolution = AskQuestion(
      d, {.Label = "Enter Step Resolution:", .Caption = "Step Resolution", .Value = 0.01, .Least = 0});
  if (!resolution) {
    LeaveCommand(d);
    return false;
  }
  if (d.Play.On) return true; // nobody looks at it
  const GrainDoc &doc = d.Grain.Doc;
  const AreaScan scan =
      ScanArea(d.Grain.Table, static_cast<double>(doc.GrainRadius), *resolution, true, doc.JoinTolerance);
  if (!scan.Closed) {
    ShowCrossings(d, scan);
    Report(d, OpenOutlineText(scan));
    d.Answers.clear();
    return false;
  }
  for (const Stretch &s : scan.Filled)
    d.Out.Panel.Overlay.push_back({.Role = Ink::Guide, .At = {s.X1, s.Y1, s.X2, s.Y2}, .Text = {}});
  d.Out.Panel.Overlay.push_back({.What = DrawItem::Kind::Mark,
                                 .Role = Ink::Note,
                                 .At = {scan.CentroidX, scan.CentroidY, -d.Out.Panel.Height / 100},
                                 .Text = {}});
  Tell(d, VerifyArea(scan));
  return true;
}
} // namespace

Box VerifyAttributes(const Entity &e) {
  std::string text;
  const auto line = [&](std::string_view label, const std::string &value) {
    text += (text.empty() ? " " : "\n ") + std::string(label) + ": " + value;
  };
  if (e.EntType == LineType) {
    line("Type", "Line");
    line("First End", Place(e.X1, e.Y1));
    line("Second End", Place(e.X2, e.Y2));
    line("Length", Number(GetLineLength(e)));
    line("Direction", Degrees(Bearing({e.X1, e.Y1}, {e.X2, e.Y2})));
  } else {
    const bool arc = e.EntType == ArcType;
    const double sweep = arc ? ArcSweep(e) : TwoPi;
    line("Type", arc ? "Arc" : "Circle");
    if (arc) {
      line("First End", Place(e.X1, e.Y1));
      line("Second End", Place(e.X2, e.Y2));
    }
    line("Length", Number(sweep * e.Radius));
    line("Center", Place(e.CenterX, e.CenterY));
    line("Radius", Number(e.Radius));
    if (arc) {
      line("Start Angle", Degrees(e.StartAngle));
      line("End Angle", Degrees(e.EndAngle));
      line("Sweep", Degrees(sweep));
    }
  }
  return {text, "Verify Attributes"};
}

void ClickVerify(Drafting &d, Point at) {
  const PickedRow pick = PickEntity(d, at, AnyType, "No Entity Found");
  if (!pick.Found) return;
  Tell(d, VerifyAttributes(pick.Row));
  RestartCommand(d);
}

void CommitVerifyPos(Drafting &d) {
  const Point p = LastPoint(d.Cmd);
  Tell(d, VerifyPosition(p.X, p.Y));
}

void CommitVerifyDist(Drafting &d) {
  const Point p = PointAt(d.Cmd, 0), q = PointAt(d.Cmd, 1);
  Tell(d, VerifyDistance(p.X, p.Y, q.X, q.Y));
}

void ClickVerifyAngle(Drafting &d, Point at) {
  const PickedRow pick = PickEntity(d, at, LineType, "No Entity Found");
  if (!pick.Found) return;
  if (!d.Cmd.PickHaveFirst) {
    d.Cmd.Pick[0] = pick;
    d.Cmd.EntPick = static_cast<std::int16_t>(pick.Index);
    d.Cmd.PickHaveFirst = true;
    d.Cmd.CmdState = 1;
    return MarkRow(d, pick.Index);
  }
  const PickedRow &first = d.Cmd.Pick[0];
  if (AreParallel(first.Row, pick.Row)) return Report(d, "Can't Solve for Parallel Lines");
  try {
    Tell(d, VerifyAngle({first.Row, first.At.X, first.At.Y}, {pick.Row, pick.At.X, pick.At.Y}));
  } catch (const Fault &) { // a pick on the corner itself tells no side
    return Report(d, "Error: Can't Find Solution");
  }
  RestartCommand(d);
}

void VerifySelected(Drafting &d, int kind) {
  if (d.Cmd.CmdNo == PerimeterCommand)
    Tell(d, VerifyPerimeter(d.Grain.Table));
  else if (!ShowArea(d))
    return;
  LogAccept(d, kind);
  std::vector<DrawItem> measured = std::move(d.Out.Panel.Overlay); // stays in view until the pointer moves on
  SelectAgain(d);
  d.Out.Panel.Overlay = std::move(measured);
}

const char *StemVerifyAngle(const Drafting &d) {
  return d.Cmd.PickHaveFirst ? "Select Second Line" : "Select First Line";
}
