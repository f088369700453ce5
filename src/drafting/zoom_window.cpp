#include "drafting/zoom_window.h"

#include "drafting/commit.h"
#include "drafting/point_modes.h"
#include "drafting/prompt.h"
#include "drafting/report.h"
#include "drafting/view.h"

namespace {
constexpr std::int16_t ZoomCommand = 80;
}

void StartZoomWindow(Drafting &d) {
  if (d.Cmd.CmdNo != ZoomCommand) d.Under = d.Cmd;
  const std::int32_t mode = CursorRef;
  static_cast<StepState &>(d.Cmd) = StepState{};
  d.Cmd.CmdNo = ZoomCommand;
  d.Cmd.RefType = mode;
  d.Cmd.WindowSelect = true;
  d.Out[Ctl::UserPrompt].Visible = true;
  d.Out.Focus = Ctl::DrawPanel;
  LogInput(d, ZoomCommand);
  SetPrompt(d);
}

void LeaveZoomWindow(Drafting &d) {
  if (d.Under) d.Cmd = *d.Under;
  d.Under.reset();
  d.Out.Panel.Overlay.clear();
  SetPrompt(d);
  RedrawPanel(d);
}

void ClickZoomWindow(Drafting &d, Point at) {
  TakePosition(d, at);
  d.Cmd.CmdState = 1;
  if (d.Cmd.PointCount < 1) return;
  ZoomWindow(d.Out.Panel, PointAt(d.Cmd, 0), PointAt(d.Cmd, 1));
  LeaveZoomWindow(d);
}
