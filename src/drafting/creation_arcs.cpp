#include "drafting/ask_question.h"
#include "drafting/creation.h"
#include "drafting/report.h"

namespace {

constexpr int ByDiameter = 31;

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

void TypedArcRadius(Drafting &d, double radius) {
  if (!(radius > 0 && radius <= MostLength)) return Report(d, "ERROR: Entity's too small");
  d.Tool.ToolRadius = radius;
  d.Out.Focus = Ctl::Y_Input;
}
