#include "drafting/cutting.h"

#include "drafting/command_machine.h"
#include "drafting/commit.h"
#include "drafting/cutting_picks.h"
#include "drafting/point_modes.h"
#include "drafting/report.h"
#include "geometry/tangents.h"
#include "geometry/three_lines.h"

#include <array>

namespace {
constexpr int RoundType = CircleType | ArcType;
constexpr std::string_view NoneText = "No Entity Found";

ThreeLineUse UseOf(int cmdNo) {
  return cmdNo == 25 ? ThreeLineUse::Circle : cmdNo == 35 ? ThreeLineUse::Arc : ThreeLineUse::RoundEnd;
}

// A failure leaves the picks before this click.
void AddLine(Drafting &d, const Solution &solution) {
  if (!solution.Solved()) return Report(d, solution.Failure);
  if (AddEntities(d, solution.Added)) RestartCommand(d);
}
} // namespace

void ClickTangentPoint(Drafting &d, Point at) {
  if (d.Cmd.CmdState > 0) {
    if (PointInput(d, at)) AddLine(d, TangentFromPoint(d.Cmd.Pick[0], LastPoint(d.Cmd)));
    return;
  }
  const PickedRow pick = PickEntity(d, at, RoundType, "No Circle or Arc Found", 0);
  if (!pick.Found) return;
  HoldPick(d, pick, at, LogFoundEnt);
  d.Cmd.PickHaveArc = true;
  MarkRow(d, pick.Index);
}

void ClickTangentLine(Drafting &d, Point at) {
  const bool first = d.Cmd.CmdState == 0, perpendicular = d.Cmd.CmdNo == 12;
  const PickedRow pick = PickEntity(d, at, first && perpendicular ? AnyType : RoundType, NoneText, 0);
  if (!pick.Found) return;
  HoldPick(d, pick, at, LogFoundEnt);
  d.Cmd.PickHaveArc = !perpendicular;
  MarkRow(d, pick.Index);
  if (first) return;
  const std::array<PickedRow, 3> &p = d.Cmd.Pick;
  AddLine(d, perpendicular ? CreatePerpPerp(p[0], p[1]) : CreateTanTan(p[0], p[1]));
}

void ClickThreeLines(Drafting &d, Point at) {
  const PickedRow pick = PickEntity(d, at, LineType, NoneText, 0);
  if (!pick.Found) return;
  if (d.Cmd.CmdState < 2) {
    HoldPick(d, pick, at, LogFoundEnt);
    return MarkRow(d, pick.Index);
  }
  const std::array picks{d.Cmd.Pick[0], d.Cmd.Pick[1], pick};
  const double grainRadius = static_cast<double>(d.Grain.Doc.GrainRadius);
  const bool done = ApplyPicks(d, picks, [&](const EntityTable &, std::span<const PickedRow> p) {
    return Circle3Tan(p[0], p[1], p[2], UseOf(d.Cmd.CmdNo), grainRadius);
  });
  if (!done) return DropPicks(d);
  LogInput(d, LogFoundEnt, pick.Index, at.X, at.Y);
  RestartCommand(d);
}
