#include "shell/design_view.h"

#include "base/number_text.h"
#include "drafting/ask_question.h"
#include "drafting/command_machine.h"
#include "drafting/commit.h"
#include "drafting/view.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int MiddleButton = 4;
constexpr double NotchFactor = 1.25, MostPixels = 100000;

void PointerStatus(Workbench &bench) {
  bench.Out[Ctl::sbStatusBar].Text = "X:" + FormatMask(bench.PointerX, "0.000") +
                                     "  Y:" + FormatMask(bench.PointerY, "0.000") +
                                     "    [Right Mouse Button] Back Step     [Esc] Exit Function ";
}

// While the view moves under a held point the pointer's own place in the drawing stays that point.
void PointerMoved(Workbench &bench, const Event &event) {
  if (bench.Panning) {
    Pan(bench.Out.Panel, bench.PanX - event.X, bench.PanY - event.Y);
    RedrawDrawing(bench);
    return;
  }
  bench.PointerX = event.X;
  bench.PointerY = event.Y;
  PointerStatus(bench);
  if (!bench.Sim.ResultMode) MouseMove(bench.Draft, event);
}

// A place no panel shows: the event is a mistake of its sender.
bool BeyondDrawing(const Event &event) {
  return event.What != Event::Kind::Resize && std::max(std::abs(event.X), std::abs(event.Y)) > MostLength;
}
} // namespace

void RedrawDrawing(Workbench &bench) {
  if (bench.Sim.ResultMode)
    RedrawResults(bench.Grain, bench.Out, bench.Sim);
  else
    RedrawPanel(bench.Draft);
}

void ShowWholeGrain(Workbench &bench) {
  ZoomReset(bench.Out.Panel, bench.Grain.Doc);
  RedrawDrawing(bench);
}

void ClearResults(Workbench &bench) {
  bench.Sim = {};
  ForgetLive(bench.Live);
  bench.Out.MyChart1 = bench.Out.MyChart2 = {};
  bench.Out.Panel.ContourFrom = bench.Out.Panel.ContourTo = 0;
}

void PanelEvent(Workbench &bench, const Event &event) {
  DrawSurface &panel = bench.Out.Panel;
  if (BeyondDrawing(event)) return;
  switch (event.What) {
  case Event::Kind::MouseMove: PointerMoved(bench, event); break;
  case Event::Kind::MouseDown:
    if (event.Button != MiddleButton) {
      if (!bench.Sim.ResultMode) MouseDown(bench.Draft, event);
      break;
    }
    bench.Panning = true;
    bench.PanX = event.X;
    bench.PanY = event.Y;
    break;
  case Event::Kind::MouseUp:
    if (event.Button == MiddleButton)
      bench.Panning = false;
    else if (!bench.Sim.ResultMode)
      MouseUp(bench.Draft, event);
    break;
  case Event::Kind::Wheel:
    ZoomAbout(panel, {event.X, event.Y}, std::pow(NotchFactor, event.Notches));
    RedrawDrawing(bench);
    break;
  case Event::Kind::Resize:
    if (!(std::min(event.X, event.Y) >= 1 && std::max(event.X, event.Y) <= MostPixels)) break;
    ResizePanel(panel, event.X, event.Y);
    RedrawDrawing(bench);
    break;
  default: break;
  }
}
