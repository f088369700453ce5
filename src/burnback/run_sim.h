#pragma once
#include "burnback/burn_run.h"
#include "platform/screen.h"

#include <string>

// A run and its view: result mode lasts from a run that succeeded to Design_Mode.
struct SimulationView {
  BurnRun Run;
  bool ResultMode = false;
  int ReplayStep = 0;          // step drawn under the pointer, 0: none
  std::size_t SteadyItems = 0; // items of the drawing below the replayed outline
};

struct SimulationPlace {
  std::string TempFile; // the design is written here before the run; empty: nowhere
  bool KnBatch = false;
};

DrawItem OutlineItem(const OutlineRow &, Ink, std::uint32_t colour = 0);

// A refusal's words with its place, for a console.
std::string RefusalWords(const BurnRefusal &);

// The run of the design on the screen: messages, outlines, report, charts. A refusal leaves design mode on
// and marks its place in the drawing. Design::AppDir takes the work files.
void RunSim2(Design &, Screen &, const SimulationPlace &, SimulationView &);

// Back to design mode: the drawing shows the design again. Nothing when result mode is off.
void LeaveResults(Design &, Screen &, SimulationView &);

// The step under the pointer at `part` (0 to 1) of a chart's width: its outline in the drawing, its values on
// both charts.
void ReplayAt(Screen &, SimulationView &, double part);

// The drawing of result mode anew, as after a zoom.
void RedrawResults(Design &, Screen &, SimulationView &);
