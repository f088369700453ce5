#include "drafting/ask_question.h"
#include "drafting/command_machine.h"
#include "drafting/creation.h"
#include "drafting/creation_parts.h"
#include "drafting/report.h"

#include <algorithm>
#include <array>

namespace {
constexpr int ByDiameter = 21;
} // namespace

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

void CommitRound(Drafting &d) {
  if (const auto rows = CommitShape(d)) d.Tool.ToolRadius = rows->front().Radius;
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
