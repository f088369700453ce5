#include "drafting/ask_question.h"
#include "drafting/command_machine.h"
#include "drafting/commit.h"
#include "drafting/creation.h"
#include "drafting/creation_parts.h"
#include "drafting/point_modes.h"
#include "drafting/report.h"
#include "geometry/construct.h"

#include <cmath>

namespace {

constexpr int Polygon = 53, Segments = 54, LeastSides = 3, MostSides = 301, PlayingMode = 2;
constexpr double MostTurn = 36000; // degrees

bool RefuseField(Drafting &d, Ctl field, std::string_view text) {
  Report(d, text, "Input Error", Icon::Stop);
  d.Out.Focus = field;
  return false;
}

bool FitPolygon(Drafting &d, double sides, double radius, double rotate) {
  if (sides != std::floor(sides) || sides < LeastSides || sides > MostSides)
    return RefuseField(d, Ctl::PolySides, "ERROR: A whole number of sides from 3 to 301 must be entered");
  if (!(radius > 0 && radius <= MostLength))
    return RefuseField(d, Ctl::PolyRadius, "ERROR: The radius must be greater than 0");
  if (!(std::abs(rotate) <= MostTurn))
    return RefuseField(d, Ctl::PolyRotate, "ERROR: An angle from -36000 to 36000 must be entered");
  return true;
}

bool AddSolved(Drafting &d, const Solution &solution) {
  if (solution.Solved()) return AddEntities(d, solution.Added);
  Report(d, solution.Failure);
  return false;
}

// Below 3 is told and asked again.
std::optional<double> AskSegments(Drafting &d) {
  for (;;) {
    const auto count = AskQuestion(d, {.Label = "Number of Sections:",
                                       .Caption = "Number of Lines Used",
                                       .Value = static_cast<double>(d.Tool.Segments),
                                       .Most = MostSides,
                                       .Whole = true});
    if (!count || *count >= LeastSides) return count;
    d.Answers.pop_back();
    Report(d, "ERROR: Must be at least 2 segments");
    if (d.Grain.MacroMode == PlayingMode) return std::nullopt;
    d.Grain.GeomAbort = false;
  }
}

// Angles in degrees with no more digits than can be told apart in the question.
std::optional<double> AskDegrees(Drafting &d, std::string_view label, std::string_view caption,
                                 double radians) {
  return AskQuestion(d, {.Label = label,
                         .Caption = caption,
                         .Value = std::round(radians * 180 / Pi * 1e9) / 1e9,
                         .AllowZero = true});
}

} // namespace

bool StartPolygon(Drafting &d) {
  ShowFrame(d, Ctl::Poly_Frame, Ctl::PolySides);
  return true;
}

void BackPolygon(Drafting &d) { BackToFrame(d, Ctl::Poly_Frame, Ctl::PolySides); }

void PressPolygonOption(Drafting &d, const Event &event) {
  if (!d.Out[Ctl::Poly_Frame].Visible) return;
  d.Tool.PolyFlat = event.Target == Ctl::PolyFlat;
  LogInput(d, LogPolyOption, d.Tool.PolyFlat ? 0 : 1);
}

void AcceptPolygon(Drafting &d, const Event &) {
  if (!d.Out[Ctl::Poly_Frame].Visible) return;
  std::vector<std::string> formulas;
  const auto sides = FrameValue(d, Ctl::PolySides, formulas);
  if (!sides) return;
  const auto radius = FrameValue(d, Ctl::PolyRadius, formulas);
  if (!radius) return;
  const auto rotate = FrameValue(d, Ctl::PolyRotate, formulas);
  if (!rotate || !FitPolygon(d, *sides, *radius, *rotate)) return;
  d.Tool.PolySides = static_cast<int>(*sides);
  d.Tool.PolyRadius = *radius;
  d.Tool.PolyRotate = *rotate;
  HideFrame(d, Ctl::Poly_Frame);
  LogInput(d, Polygon, *sides, *radius, *rotate, EnterText(formulas));
}

void CommitPolygon(Drafting &d) { CommitShape(d); }

const char *StemPolygon(const Drafting &d) {
  return d.Out[Ctl::Poly_Frame].Visible ? "Enter Polygon Attributes" : nullptr;
}

void ClickSegments(Drafting &d, Point at) {
  const PickedRow pick = PickEntity(d, at, CircleType | ArcType, "No Circle or Arc Found", 0);
  if (!pick.Found) return;
  MarkRow(d, pick.Index);
  const bool circle = pick.Row.EntType == CircleType;
  const auto count = AskSegments(d);
  if (!count) return LeaveCommand(d);
  const auto start =
      AskDegrees(d, "Starting Angle (deg):", "Staring Angle of Segments", circle ? 0 : pick.Row.StartAngle);
  if (!start) return LeaveCommand(d);
  const auto end =
      AskDegrees(d, "Ending Angle (deg):", "Ending Angle of Segments", circle ? TwoPi : pick.Row.EndAngle);
  if (!end) return LeaveCommand(d);
  std::vector<std::string> formulas;
  for (const AnswerGiven &answer : d.Answers) formulas.push_back(answer.Formula);
  d.Answers.clear();
  d.Tool.Segments = static_cast<int>(*count);
  if (!AddSolved(d, CreateSegments(pick, d.Tool.Segments, *start * Pi / 180, *end * Pi / 180))) return;
  LogInput(d, LogFoundEnt, pick.Index, at.X, at.Y);
  LogInput(d, Segments, *count, *start, *end, EnterText(formulas));
  RestartCommand(d);
}

void RefreshPolygon(Drafting &d) {
  d.Out[Ctl::PolyFlat].Checked = d.Tool.PolyFlat;
  d.Out[Ctl::PolyCorner].Checked = !d.Tool.PolyFlat;
}
