#include "drafting/cutting.h"

#include "base/number_text.h"
#include "drafting/ask_question.h"
#include "drafting/back_store.h"
#include "drafting/command_machine.h"
#include "drafting/commit.h"
#include "drafting/cutting_picks.h"
#include "drafting/point_modes.h"
#include "drafting/report.h"
#include "geometry/fillet.h"

#include <array>

namespace {
constexpr int CircleCommand = 26, ArcCommand = 36, BlendCommand = 55, ChamferCommand = 57;

// 26 and 36 take their radius from X_Input, the others have asked for it.
bool TypesRadius(int cmdNo) { return cmdNo == CircleCommand || cmdNo == ArcCommand; }

FilletUse UseOf(int cmdNo) {
  switch (cmdNo) {
  case CircleCommand: return FilletUse::Circle;
  case ArcCommand: return FilletUse::Arc;
  case BlendCommand: return FilletUse::Blend;
  default: return FilletUse::BlendOnly;
  }
}

// The corners of the images follow, an arc's own angles turned with them.
bool SolveTwo(Drafting &d, std::span<const PickedRow> picks) {
  int round = 0;
  return ApplyPicks(d, picks, [&](const EntityTable &, std::span<const PickedRow> p) {
    if (d.Cmd.CmdNo == ChamferCommand)
      return ChamferSolve(p[0], p[1], d.Tool.ChamferFirst, d.Tool.ChamferSecond);
    const double turn = round++ * d.Rotation.RotationPitch;
    const DraftDefaults &angles = d.Grain.Defaults;
    return FilletSolve(p[0], p[1], UseOf(d.Cmd.CmdNo), d.Tool.ToolRadius, angles.ArcStartDefault + turn,
                       angles.ArcEndDefault + turn);
  });
}

bool AskRadius(Drafting &d) {
  const auto radius = AskQuestion(
      d, {.Label = "Enter Arc Radius:", .Caption = "Arc Radius", .Value = d.Tool.ToolRadius, .Least = 0});
  if (radius) d.Tool.ToolRadius = *radius;
  return radius.has_value();
}

// A radius for the picks, whether or not they are there yet.
bool TakeRadius(Drafting &d, double radius) {
  if (!(radius > 0)) {
    Report(d, radius == 0 ? "ERROR: Zero Value not Allowed" : "ERROR: Entity's too small", "Input Error",
           Icon::Stop);
    return false;
  }
  d.Tool.ToolRadius = radius;
  d.Cmd.RadiusHeld = true;
  return true;
}

// Both picks are held and no radius: the field waits for it, and so does a click.
void WaitForRadius(Drafting &d) {
  if (d.Out[Ctl::X_Input].Text.empty()) d.Out[Ctl::X_Input].Text = PlainText(d.Tool.ToolRadius);
  d.Out.Focus = Ctl::X_Input;
}
} // namespace

bool StartFillet(Drafting &d) { return AskRadius(d); }

bool StartChamfer(Drafting &d) {
  double *const width[] = {&d.Tool.ChamferFirst, &d.Tool.ChamferSecond};
  constexpr std::array<std::array<std::string_view, 2>, 2> asked{
      {{"Enter First Distance:", "First Distance of Chamfer"},
       {"Enter Second Distance:", "Second Distance of Chamfer"}}};
  for (std::size_t i = 0; i < 2; ++i) {
    const auto answer =
        AskQuestion(d, {.Label = asked[i][0], .Caption = asked[i][1], .Value = *width[i], .Least = 0});
    if (!answer) return false;
    *width[i] = *answer;
  }
  return true;
}

void ClickCorner(Drafting &d, Point at) {
  const bool typed = TypesRadius(d.Cmd.CmdNo);
  if (d.Cmd.CmdState == 2) {
    d.Grain.GeomAbort = true; // no step
    return WaitForRadius(d);
  }
  const int mask = d.Cmd.CmdNo == ChamferCommand ? LineType : AnyType;
  const PickedRow pick = PickEntity(d, at, mask, "No Entity Found", 0);
  if (!pick.Found) return;
  if (d.Cmd.CmdState == 0 || (typed && !d.Cmd.RadiusHeld)) {
    HoldPick(d, pick, at, LogFoundEnt);
    MarkRow(d, pick.Index);
    if (d.Cmd.CmdState == 2) WaitForRadius(d);
    return;
  }
  const std::array picks{d.Cmd.Pick[0], pick};
  if (!SolveTwo(d, picks)) return DropPicks(d);
  LogInput(d, LogFoundEnt, pick.Index, at.X, at.Y);
  RestartCommand(d);
}

void TypedTangentRadius(Drafting &d, double radius) {
  d.Grain.GeomAbort = false;
  if (!TakeRadius(d, radius)) return;
  if (d.Cmd.CmdState < 2) return;
  const std::array picks{d.Cmd.Pick[0], d.Cmd.Pick[1]};
  if (SolveTwo(d, picks))
    RestartCommand(d);
  else
    DropPicks(d);
}

void BackTypedRadius(Drafting &d) {
  for (BackSlot &slot : d.Store.Slot) slot.Step.RadiusHeld = false; // it is asked for again
}

void BackFillet(Drafting &d) {
  if (d.Cmd.BackPos < d.Cmd.BackDepth) return;
  if (AskRadius(d))
    PushBack(d); // what the step back returns to: the command stays
  else
    LeaveCommand(d);
}
