#include "drafting/ask_question.h"
#include "drafting/back_store.h"
#include "drafting/command_machine.h"
#include "drafting/commit.h"
#include "drafting/point_modes.h"
#include "drafting/pointer_notes.h"
#include "drafting/report.h"
#include "drafting/selection.h"
#include "drafting/transform_rows.h"
#include "drafting/transforms.h"
#include "geometry/carrier.h"

namespace {
bool AnyEndInside(const Entity &e, const SelectionValues &w) {
  return e.EntType == CircleType ? InRectangle(w, CentreOf(e))
                                 : InRectangle(w, {e.X1, e.Y1}) || InRectangle(w, {e.X2, e.Y2});
}

// While rotation draw is on the window stands at every pitch, and each end goes with the first one it lies
// in: the two ends of a row can lie in windows of their own.
Entity Stretched(const Drafting &d, const Entity &e, Point by) {
  const int turns = d.Rotation.Active ? d.Rotation.RotationCount : 1;
  const auto shift = [&](Point p) {
    for (int k = 0; k < turns; ++k) {
      const double turn = k * d.Rotation.RotationPitch;
      if (InRectangle(d.Select, Turned(p, -turn))) return Turned(by, turn);
    }
    return Point{};
  };
  return ShiftedEnds(e, {shift({e.X1, e.Y1}), shift({e.X2, e.Y2}), shift(CentreOf(e))});
}

Solution StretchRows(const Drafting &d, Point by) {
  Solution solution;
  for (const TurnedIndex &row : SelectedRows(d, d.Rotation.Active)) {
    const Entity &e = RowAt(d.Grain.Table, row.Index);
    RowChange change{row.Index, Stretched(d, e, by)};
    change.Row.Selected = false;
    const double size = e.EntType == LineType ? GetLineLength(change.Row) : change.Row.Radius;
    if (size < 0.0001) return Failed("ERROR: Entity's too small");
    solution.Changed.push_back(change);
  }
  return solution;
}

void ToFirstCorner(Drafting &d) {
  RestartCommand(d);
  d.Cmd.WindowSelect = true;
  d.Cmd.RefType = CursorRef;
  d.Out[Ctl::Movement_Frame].Visible = d.Out[Ctl::End_Frame].Visible = false;
  d.Out[Ctl::DrawPanel].Enabled = true;
}

bool Stretch(Drafting &d, Point by) {
  return CountSelected(d.Grain.Table) == 0 || Apply(d, StretchRows(d, by));
}

bool Choosing(const Drafting &d) { return d.Out[Ctl::Movement_Frame].Visible; }

void StretchBy(Drafting &d, Point by, int kind) {
  if (!Stretch(d, by)) return;
  LogInput(d, kind);
  ToFirstCorner(d);
}

void AskPoints(Drafting &d) {
  LogInput(d, LogPoint2Movement);
  PushBack(d);
  d.Cmd.Movement = true;
  d.Cmd.CmdState = 0;
  d.Out[Ctl::Movement_Frame].Visible = false;
  d.Out[Ctl::End_Frame].Visible = d.Out[Ctl::DrawPanel].Enabled = true;
  d.Out.Focus = Ctl::DrawPanel;
}

void TakeCorner(Drafting &d, Point at) {
  LogPosition(d, at);
  if (d.Cmd.CmdState == 0) {
    d.Cmd.AnchorX = at.X;
    d.Cmd.AnchorY = at.Y;
    d.Cmd.CmdState = 1;
    return;
  }
  SetWindow(d.Select, {d.Cmd.AnchorX, d.Cmd.AnchorY}, at);
  for (int i = 0; i <= d.Grain.Table.EntCount; ++i)
    if (AnyEndInside(RowAt(d.Grain.Table, i), d.Select)) MarkRow(d, i);
  d.Cmd.WindowSelect = false;
  d.Cmd.BackPos = static_cast<std::int16_t>(d.Cmd.BackDepth - 1); // Back returns to the first corner
  d.Out[Ctl::Movement_Frame].Visible = true;
  d.Out[Ctl::DrawPanel].Enabled = false;
}
} // namespace

bool StartBoxMove(Drafting &d) {
  ToFirstCorner(d);
  return true;
}

void ClickBoxMove(Drafting &d, Point at) {
  if (d.Cmd.WindowSelect) return TakeCorner(d, at);
  if (!PointInput(d, at)) return;
  d.Cmd.CmdState = static_cast<std::int16_t>(d.Cmd.PointCount + 1);
  if (d.Cmd.PointCount < 1) return;
  const Point from = PointAt(d.Cmd, 0), to = LastPoint(d.Cmd);
  if (Stretch(d, {to.X - from.X, to.Y - from.Y})) ToFirstCorner(d);
}

void PressMovement(Drafting &d, const Event &event) {
  if (!Choosing(d)) return;
  const SelectionValues &w = d.Select;
  Point by;
  switch (event.Target) {
  case Ctl::DeltaMovement:
    if (!AskDelta(d, by.X, by.Y)) return LeaveCommand(d);
    return StretchBy(d, by, LogDeltaMovement);
  case Ctl::Point2Movement: return AskPoints(d);
  case Ctl::GrainMovement:
    by = {-(w.WindowLeft + w.WindowRight) / 2, -(w.WindowBottom + w.WindowTop) / 2};
    return StretchBy(d, by, LogGrainMovement);
  default: LogInput(d, LogCancelMovement); return LeaveCommand(d);
  }
}

const char *StemBoxMove(const Drafting &d) {
  if (Choosing(d)) return "Select Movement Method";
  if (!d.Cmd.Movement) return nullptr;
  return d.Cmd.CmdState == 0 ? "Indicate Base Position" : "Indicate New Position";
}

void PreviewBoxMove(Drafting &d, Point at) {
  if (d.Cmd.WindowSelect && d.Cmd.CmdState == 1)
    ShowWindow(d, {d.Cmd.AnchorX, d.Cmd.AnchorY}, at, AnyEndInside, "Any End Inside");
  if (!d.Cmd.Movement || d.Cmd.PointCount < 0) return;
  const Point from = PointAt(d.Cmd, 0), by{at.X - from.X, at.Y - from.Y};
  ShowTransformed(d, [&](const Entity &e, int) { return Stretched(d, e, by); });
  ShowReading(d, at, OffsetText(by.X, by.Y));
}
