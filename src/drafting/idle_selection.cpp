#include "drafting/commit.h"
#include "drafting/point_modes.h"
#include "drafting/report.h"
#include "drafting/selection.h"
#include "drafting/tracker.h"
#include "geometry/carrier.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int AnyType = 7;

Point Anchor(const Drafting &d) { return {d.Cmd.AnchorX, d.Cmd.AnchorY}; }

bool Dragged(const Drafting &d, Point at) {
  return Distance(Anchor(d), at) > std::abs(d.Out.Panel.Height) / 100;
}

void SelectOne(Drafting &d, Point at) {
  const PickedRow pick = PickEntity(d, at, AnyType, "", LogSelectEnt, true);
  if (!pick.Found) {
    d.Grain.GeomAbort = d.Play.On;
    return;
  }
  if (pick.Row.Selected)
    RowAt(d.Grain.Table, pick.Index).Selected = false;
  else
    MarkRow(d, pick.Index);
  d.Cmd.BackPos = static_cast<std::int16_t>(std::max(0, d.Cmd.BackDepth - 3));
}
} // namespace

void IdlePress(Drafting &d, Point at) {
  d.Cmd.AnchorX = at.X;
  d.Cmd.AnchorY = at.Y;
  d.Select.Dragging = true;
}

void IdleMove(Drafting &d, Point at) {
  if (d.Select.Dragging && Dragged(d, at)) ShowWindow(d, Anchor(d), at);
}

void IdleRelease(Drafting &d, Point at) {
  if (!d.Select.Dragging) return;
  d.Select.Dragging = false;
  if (Dragged(d, at)) {
    IdleWindow(d, Anchor(d), at);
  } else {
    IdlePick(d, at);
  }
}

void IdleWindow(Drafting &d, Point from, Point to) {
  if (d.Log.On || d.Play.On) {
    from = NarrowPoint(from);
    to = NarrowPoint(to);
  }
  MarkWindow(d, from, to);
  LogInput(d, LogClick, from.X, from.Y, 1);
  LogInput(d, LogClick, to.X, to.Y, 1);
  d.Cmd.SelectCount = static_cast<std::int16_t>(CountSelected(d.Grain.Table));
}

void IdlePick(Drafting &d, Point at) {
  SelectOne(d, d.Log.On || d.Play.On ? NarrowPoint(at) : at);
  d.Cmd.SelectCount = static_cast<std::int16_t>(CountSelected(d.Grain.Table));
}
