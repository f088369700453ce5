#pragma once
#include "burnback/live_burn.h"
#include "platform/screen.h"

#include <memory>
#include <vector>

struct Workbench;

// The live burn: the curve of the drawing at hand, burnt anew whenever the drawing has changed.
struct LiveView {
  unsigned Number = 0;                      // of the newest request; results of others are stale
  std::shared_ptr<const LiveRequest> Asked; // none before the first
  bool UnderWay = false;                    // its result is not there yet
  LiveResult Newest;                        // the last result, without its run
  BurnRun Run;                              // of the last one that burnt; StepCount 0: none
  std::vector<float> Before;   // the curve as it was when the running tool was started, on the same steps
  int Tool = 0;                // that tool, 0 when idle
  bool Due = true;             // chart and figures are to be brought to this state
  std::vector<DrawItem> Front; // of the drawing's overlay: the front under the chart's pointer
};

// Shown unless the user has said otherwise, where the window is at least 1280 pixels wide.
bool LiveWanted(const Workbench &);
void ToggleLive(Workbench &); // remembered in the settings

// Brings pane, chart and figures to the drawing's state, and asks for a new curve when one is due.
void RefreshLive(Workbench &);
void ForgetLive(LiveView &); // another design: the curve belongs to one that is gone

void LiveChartEvent(Workbench &, const Event &); // the pointer on the chart, 0..1 of its width
void LeaveLiveChart(Workbench &);                // the front goes from the drawing
void MarkLive(Workbench &, double burnDist);     // mm: as the pointer there would
