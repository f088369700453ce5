#include "drafting/rotation_draw.h"

#include "base/number_text.h"
#include "drafting/ask_question.h"
#include "drafting/report.h"

#include <algorithm>
#include <string>

namespace {

constexpr int RotateDrawSlot = 97; // its number among the commands

struct Extents {
  double Left = 1000000, Right = -1000000, Bottom = 1000000, Top = -1000000;
  void Take(double x, double y) {
    Left = std::min(Left, x);
    Right = std::max(Right, x);
    Bottom = std::min(Bottom, y);
    Top = std::max(Top, y);
  }
};

void TakeRow(Extents &all, const Entity &e) {
  if (e.EntType != CircleType) {
    all.Take(e.X1, e.Y1);
    all.Take(e.X2, e.Y2);
  }
  if (e.EntType == LineType) return;
  for (int quarter = 0; quarter < 4; ++quarter) {
    if (e.EntType == ArcType && !AngleInArc(quarter * Pi / 2, e, ArcEnds::Closed)) continue;
    const double dx = quarter == 0 ? e.Radius : quarter == 2 ? -e.Radius : 0;
    const double dy = quarter == 1 ? e.Radius : quarter == 3 ? -e.Radius : 0;
    all.Take(e.CenterX + dx, e.CenterY + dy);
  }
}

void PressRotateDraw(Drafting &d, const Event &) {
  const auto count = AskQuestion(d, {.Label = "Enter Number of Rotations:",
                                     .Caption = "Rotation Number",
                                     .Value = static_cast<double>(d.Rotation.RotationCount),
                                     .Least = 1,
                                     .Most = 301,
                                     .Whole = true});
  if (!count) return;
  d.Rotation.RotationCount = static_cast<std::int16_t>(*count);
  d.Rotation.RotationPitch = TwoPi / *count;
  d.Rotation.Active = true;
  RefreshRotation(d);
  LogInput(d, RotateDrawSlot);
}

void PressDeactivate(Drafting &d, const Event &) {
  if (!d.Rotation.Active) return;
  d.Rotation.Active = false;
  RefreshRotation(d);
  LogInput(d, LogDeactivateRDraw);
}

constexpr ButtonRow Presses[] = {{Ctl::RotateDraw, PressRotateDraw},
                                 {Ctl::tbRotationDraw, PressRotateDraw},
                                 {Ctl::DeactivateRDraw, PressDeactivate}};

} // namespace

bool RepeatOriginCircle(Drafting &d, const Entity &e) {
  if (!d.Rotation.Active || d.Rotation.RotationCount < 2 || !OnOrigin(e, d.Grain.Doc.JoinTolerance))
    return true;
  if (d.Play.On && d.Play.Taken < d.Play.Answer.size()) return d.Play.Answer[d.Play.Taken++] != 0;
  if (d.Grain.MacroMode == 2) return false;
  const std::string text =
      "Are you sure you wish to proceed with the rotation draw for this circle?\nCenter X: " +
      FormatMask(e.CenterX, "0.000") + "  Y: " + FormatMask(e.CenterY, "0.000") +
      "  Radius: " + FormatMask(e.Radius, "0.000") +
      "\nNumber of Rotations: " + std::to_string(d.Rotation.RotationCount);
  const bool yes = d.Out.Ask({text, "", Buttons::YesNo, Icon::Question}) == Answer::Yes;
  Instruction answer; // its input is logged already
  answer.PointArea = LogAnswers;
  answer.Value1 = yes ? 1 : 0;
  LogStep(d.Log, answer);
  return yes;
}

bool TransformationQuery(Drafting &d) {
  if (!d.Rotation.Active || d.Grain.MacroMode == 2 || d.Play.On) return true;
  Extents all;
  for (int i = 0; i <= d.Grain.Table.EntCount; ++i)
    if (const Entity &e = RowAt(d.Grain.Table, i); e.Selected) TakeRow(all, e);
  const double past = d.Grain.Doc.JoinTolerance; // rows that end on an axis do not go around the centre
  if (!(all.Left < -past && all.Right > past && all.Bottom < -past && all.Top > past)) return true;
  const std::string text = "Caution: You may have selected entites *AROUND* the grain center whilst\n"
                           "the 'Rotation Draw' function is active. This will perform the chosen\n"
                           "transformation function " +
                           std::to_string(d.Rotation.RotationCount) +
                           " times generally producing erroneous results!\n"
                           "Are you sure you wish to continue with this transformation?";
  return d.Out.Ask({text, "Transformation Query", Buttons::YesNo, Icon::Exclamation}) == Answer::Yes;
}

std::span<const ButtonRow> RotationButtons() { return Presses; }

void RefreshRotation(Drafting &d) {
  const bool on = d.Rotation.Active;
  Control &draw = d.Out[Ctl::RotateDraw];
  draw.Text = "R=" + std::to_string(on ? d.Rotation.RotationCount : 1);
  draw.Colour = d.Out[Ctl::tbRotationDraw].Colour = on ? 255 : 0;
  d.Out[Ctl::DeactivateRDraw].Enabled = on;
}
