#include "shell/live_view.h"

#include "base/number_text.h"
#include "burnback/run_sim.h"
#include "shell/burn_chart.h"
#include "shell/workbench.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr int RoomyWidth = 1280; // pixels
constexpr struct FigureSlot {
  Ctl Control;
  BurnFigure Figure;
} Figures[] = {{Ctl::Live_MaxKn, BurnFigure::MaxKn},           {Ctl::Live_FirstKn, BurnFigure::FirstKn},
               {Ctl::Live_MaxArea, BurnFigure::MaxArea},       {Ctl::Live_Distance, BurnFigure::Distance},
               {Ctl::Live_Neutrality, BurnFigure::Neutrality}, {Ctl::Live_Sliver, BurnFigure::Sliver},
               {Ctl::Live_Loading, BurnFigure::Loading},       {Ctl::Live_ApAt, BurnFigure::ApAt}};

// The curve in view is not that of the drawing at hand.
bool Former(const LiveView &live) { return live.UnderWay || !live.Newest.Burnt; }

void FillFigures(const LiveView &live, Screen &out) {
  const BurnRun &run = live.Run;
  const bool any = run.StepCount > 0;
  for (const FigureSlot &slot : Figures) {
    out[slot.Control].Text = BurnFigureText(run, slot.Figure);
    out[slot.Control].Enabled = !Former(live);
    out[slot.Control].Visible = any && out[Ctl::Live_Frame].Visible;
  }
}

std::string NoteOf(const LiveView &live) {
  const bool curve = live.Run.StepCount > 0;
  if (!live.Asked) return "The curve appears with the first closed outline";
  if (live.UnderWay) return curve ? "Former curve" : "";
  if (live.Newest.Burnt) return live.Run.Notice;
  std::string why = live.Newest.Open ? "The outline is not closed" : live.Newest.Trouble;
  if (why.starts_with("Error: ")) why.erase(0, 7); // a note, no message
  return curve ? why + "; this is the former curve" : why;
}

void Fill(Workbench &bench) {
  FillBurnChart(bench.Live.Run, bench.Live.Before, Former(bench.Live), bench.Out.MyLiveChart);
  FillFigures(bench.Live, bench.Out);
  bench.Out[Ctl::Live_Note].Text = NoteOf(bench.Live);
  bench.Out[Ctl::MyLiveChart].Visible = bench.Out[Ctl::Live_Frame].Visible && bench.Live.Run.StepCount > 0;
  bench.Live.Due = false;
}

void Take(Workbench &bench, LiveResult &result) {
  LiveView &live = bench.Live;
  if (result.Number != live.Number) return;
  live.UnderWay = false;
  if (result.Burnt) live.Run = std::exchange(result.Run, {});
  live.Newest = std::move(result);
  LeaveLiveChart(bench);
  Fill(bench);
}

void AskForCurve(Workbench &bench) {
  LiveView &live = bench.Live;
  const auto request = std::make_shared<LiveRequest>();
  const auto result = std::make_shared<LiveResult>();
  request->Number = ++live.Number;
  request->Grain = bench.Grain;
  live.Asked = request;
  live.UnderWay = live.Due = true;
  bench.Out.StartWork([request, result] { *result = BurnLive(*request); },
                      [&bench, result] { Take(bench, *result); });
}

// A tool's edit begins where the tool does, and ends with it.
void FollowTool(Workbench &bench) {
  LiveView &live = bench.Live;
  if (live.Tool == bench.Draft.Cmd.CmdNo) return;
  live.Tool = bench.Draft.Cmd.CmdNo;
  live.Before.clear();
  if (live.Tool != 0) live.Before = BurnCurve(live.Run);
  live.Due = true;
}

void ShowFront(Workbench &bench, int step) {
  LiveView &live = bench.Live;
  const SimStepTable &steps = live.Run.Steps;
  for (std::size_t i = steps.Start[static_cast<std::size_t>(step - 1)];
       i < steps.Start[static_cast<std::size_t>(step)]; ++i)
    live.Front.push_back(OutlineItem(steps.Row[i], Ink::Picked));
  auto &overlay = bench.Out.Panel.Overlay;
  overlay.insert(overlay.end(), live.Front.begin(), live.Front.end());
}
} // namespace

bool LiveWanted(const Workbench &bench) {
  const std::string said = GetSetting(bench.Settings, "Settings", "LiveBurn");
  if (!said.empty()) return said == "1";
  const int width = bench.Out.MainPlace.Width;
  return (width > 0 ? width : bench.Out.PixelWidth) >= RoomyWidth;
}

void ToggleLive(Workbench &bench) {
  SaveSetting(bench.Settings, "Settings", "LiveBurn", LiveWanted(bench) ? "0" : "1");
  WriteSettings(bench.Settings);
}

void ForgetLive(LiveView &live) {
  const unsigned number = live.Number + 1;
  live = {};
  live.Number = number;
}

void RefreshLive(Workbench &bench) {
  Screen &out = bench.Out;
  LiveView &live = bench.Live;
  const bool wanted = LiveWanted(bench), shown = wanted && !bench.Sim.ResultMode;
  out[Ctl::mnuLiveBurn].Checked = wanted;
  live.Due = live.Due || shown != out[Ctl::Live_Frame].Visible;
  for (const Ctl c : {Ctl::Live_Frame, Ctl::Live_Note}) out[c].Visible = shown;
  if (!shown) {
    out[Ctl::MyLiveChart].Visible = false;
    for (const FigureSlot &slot : Figures) out[slot.Control].Visible = false;
  }
  if (!shown || bench.Grain.MacroMode == 2) return;
  if (bench.Grain.Table.EntCount < 0) {
    if (live.Asked) ForgetLive(live);
  } else if (!live.Asked || !SameBurn(live.Asked->Grain, bench.Grain)) {
    FollowTool(bench);
    // Until the next event the curve keeps its colour: a run that is over sooner need not blink.
    return AskForCurve(bench);
  }
  FollowTool(bench);
  if (live.Due) Fill(bench);
}

void LeaveLiveChart(Workbench &bench) {
  LiveView &live = bench.Live;
  if (live.Front.empty() && bench.Out.MyLiveChart.CursorStep == 0) return;
  auto &overlay = bench.Out.Panel.Overlay;
  const auto at = std::search(overlay.begin(), overlay.end(), live.Front.begin(), live.Front.end());
  if (at != overlay.end()) overlay.erase(at, at + static_cast<std::ptrdiff_t>(live.Front.size()));
  live.Front.clear();
  bench.Out.MyLiveChart.CursorStep = 0;
  bench.Out.MyLiveChart.CursorText.clear();
}

static void MarkStep(Workbench &bench, int step) {
  const BurnRun &run = bench.Live.Run;
  Chart &chart = bench.Out.MyLiveChart;
  if (step == chart.CursorStep) return;
  LeaveLiveChart(bench);
  if (step == 0) return;
  ShowFront(bench, step);
  const ResultRow &row = run.Result[static_cast<std::size_t>(step - 1)];
  chart.CursorStep = step;
  chart.CursorText = FormatMask(row.BurnDist, "0.00") + " mm   " +
                     (run.HasThroat ? "Kn " + FormatMask(row.Kn, "0.0")
                                    : FormatMask(row.CoreArea + row.EndsArea, "##,##0") + " mm²");
}

void MarkLive(Workbench &bench, double burnDist) {
  const BurnRun &run = bench.Live.Run;
  const int reached = std::min<int>(run.StepCount, run.RowsReached);
  const bool shown = bench.Out[Ctl::MyLiveChart].Visible && !Former(bench.Live) && reached > 0;
  MarkStep(bench,
           shown
               ? std::clamp(static_cast<int>(std::lround(std::clamp(burnDist / run.BurnIncrement, 1.0, 1e6))),
                            1, reached)
               : 0);
}

void LiveChartEvent(Workbench &bench, const Event &event) {
  const BurnRun &run = bench.Live.Run;
  const Chart &chart = bench.Out.MyLiveChart;
  if (event.What != Event::Kind::MouseMove && event.What != Event::Kind::Leave) return;
  const int reached = std::min<int>(run.StepCount, run.RowsReached);
  const bool over = event.What == Event::Kind::MouseMove && !Former(bench.Live) && reached > 0;
  const int step =
      over ? std::clamp(static_cast<int>(std::lround(static_cast<double>(chart.X.size()) * event.X)), 1,
                        reached)
           : 0;
  MarkStep(bench, step);
}
