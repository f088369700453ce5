#include "drafting/commit.h"
#include "drafting/point_modes.h"
#include "drafting/report.h"
#include "drafting/selection.h"
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
    d.Grain.GeomAbort = false;
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
    const Point from = Anchor(d);
    MarkWindow(d, from, at);
    LogInput(d, LogClick, from.X, from.Y, 1);
    LogInput(d, LogClick, at.X, at.Y, 1);
  } else {
    SelectOne(d, at);
  }
  d.Cmd.SelectCount = static_cast<std::int16_t>(CountSelected(d.Grain.Table));
}
