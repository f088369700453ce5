#include "drafting/cutting.h"

#include "drafting/command_machine.h"
#include "drafting/commit.h"
#include "drafting/cutting_picks.h"
#include "drafting/point_modes.h"
#include "drafting/report.h"
#include "geometry/break.h"
#include "geometry/carrier.h"
#include "geometry/trim.h"

namespace {
enum TrimCommand : int {
  Single = 60,
  Both = 61,
  Double = 62,
  Divide = 63,
  Multi = 64,
  SingleBreak = 65,
  BothBreak = 66,
  DoubleBreak = 67,
  MultiBreak = 68
};
constexpr std::string_view NoEntity = "Entity not found";
constexpr std::string_view NoCutter = "Entity not found or Invalid Entity Selected";
constexpr std::string_view NoMulti = "Entity not found or Invalid Entity Selected: Can't Single Trim Circles";
constexpr std::string_view SelectedText = "ERROR: Entity already Selected!";

bool TakesTwo(int cmdNo) { return cmdNo == Double || cmdNo == Divide || cmdNo == DoubleBreak; }
bool TakesEdge(int cmdNo) { return cmdNo != Both && cmdNo != BothBreak; }
bool Breaks(int cmdNo) { return cmdNo >= SingleBreak; }

// What is said when a pick hits nothing but the entity already held.
Box HeldText(const Drafting &d) {
  if (d.Cmd.CmdNo != Double && d.Cmd.CmdNo != Divide)
    return {std::string(SelectedText), "Entity Selection Error", Buttons::Ok, Icon::Stop};
  return {d.Cmd.CmdState == 1 ? "ERROR: Can't Select Entity to be Trimmed as Trimming Entity"
                              : "ERROR: Can't Select Entity to be Trimmed as Timming Entity",
          "Selection Error", Buttons::Ok, Icon::Stop};
}

PickedRow PickToCut(Drafting &d, Point at, bool grainCircle, std::string_view none) {
  const int running = d.Cmd.CmdNo;
  const PickedRow pick = PickEntity(d, at, AnyType, "", 0, false, grainCircle);
  if (pick.GeomAbort || d.Cmd.CmdNo != running) return {};
  const int held = d.Cmd.CmdState > 0 ? d.Cmd.Pick[0].Index : -1;
  bool again = pick.Found && pick.Index == held;
  if (!pick.Found && held >= 0) {
    PickScope scope;
    scope.AllowSelected = true;
    again = PickRow(d.Grain.Table, at, static_cast<double>(d.Grain.Doc.GrainRadius), scope).Index == held;
  }
  if (again) {
    Report(d, HeldText(d));
    return {};
  }
  if (!pick.Found) Report(d, none);
  return pick;
}

// The entity to cut, at the first pick.
Solution Refusal(const Drafting &d, const Entity &row) {
  if (row.EntType != CircleType) return {};
  switch (d.Cmd.CmdNo) {
  case Double:
  case DoubleBreak: return {};
  case Divide: return d.Rotation.Active ? Solution{} : Failed("Use Double Trim to divide circles");
  default: return Failed(CircleTrimText, "", Icon::Stop);
  }
}

bool ParallelTo(const Entity &cut, const Entity &cutter) {
  return cut.EntType == LineType && cutter.EntType == LineType && AreParallel(cut, cutter);
}

Solution Cut(const Drafting &d, std::span<const PickedRow> p) {
  switch (d.Cmd.CmdNo) {
  case Single: return TrimEnds(p[0], p[1]);
  case Both: return TrimBothEnds(p[0], p[1]);
  case Double: return TrimDoubleOp(p[0], p[1], p[2]);
  case Divide: return TrimDivideOp(p[0], p[1], p[2], d.Rotation.Active);
  case SingleBreak: return BreakEnds(p[0], p[1]);
  case BothBreak: return BreakBothEnds(p[0], p[1]);
  default: return BreakDoubleOp(p[0], p[1], p[2]);
  }
}
} // namespace

void ClickTrim(Drafting &d, Point at) {
  const int cmdNo = d.Cmd.CmdNo, state = d.Cmd.CmdState;
  const PickedRow pick = PickToCut(d, at, state > 0 && TakesEdge(cmdNo), state > 0 ? NoCutter : NoEntity);
  if (!pick.Found) return;
  if (state == 0) {
    if (const Solution no = Refusal(d, pick.Row); !no.Solved()) return Report(d, no.Failure);
    HoldPick(d, pick, at, LogFoundEnt);
    return MarkRow(d, pick.Index);
  }
  if (ParallelTo(d.Cmd.Pick[0].Row, pick.Row)) return Report(d, "Can't Solve for Parallel Lines");
  HoldPick(d, pick, at, LogTrimmingEnt);
  if (state == 1 && TakesTwo(cmdNo)) return;
  int done = 0;
  const bool applied = ApplyPicks(d, HeldPicks(d), [&](const EntityTable &, std::span<const PickedRow> p) {
    Solution cut = Cut(d, p);
    done += cut.Solved();
    return cut;
  });
  if (!applied) return;
  RestartCommand(d);
  if (Breaks(cmdNo) && d.Rotation.Active && done < d.Rotation.RotationCount)
    Report(d, "An Error has Occured During the Rotational Break: Forced to Abort");
}

void ClickMulti(Drafting &d, Point at) {
  const bool first = d.Cmd.CmdState == 0;
  const PickedRow pick = PickToCut(d, at, first, first ? NoCutter : NoMulti);
  if (!pick.Found) return;
  const int rows = d.Grain.Table.EntCount;
  if (first) {
    HoldPick(d, pick, at, LogTrimmingEnt);
    if (pick.Index <= rows) MarkRow(d, pick.Index);
    return;
  }
  PickedRow cutter = d.Cmd.Pick[0];
  const Solution cut = d.Cmd.CmdNo == Multi ? TrimMultiOp(pick, cutter) : BreakMultiOp(pick, cutter);
  if (!cut.Solved()) return Report(d, cut.Failure);
  if (!Apply(d, cut)) return;
  LogInput(d, LogFoundEnt, pick.Index, at.X, at.Y);
  // The cutter stays for further picks, and one step back gives it up.
  if (cutter.Index > rows)
    cutter.Index = d.Grain.Table.EntCount + 1; // the grain's edge
  else
    RowAt(d.Grain.Table, cutter.Index).Selected = true;
  d.Cmd.Pick[0] = cutter;
  d.Cmd.EntPick = static_cast<std::int16_t>(cutter.Index);
  d.Cmd.BackPos = static_cast<std::int16_t>(d.Cmd.BackDepth - 1);
}
