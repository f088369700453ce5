#include "shell/live_view.h"

#include "base/number_text.h"
#include "burnback/run_sim.h"
#include "shell/workbench.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr int RoomyWidth = 1280; // pixels
constexpr std::uint32_t Rgb(std::uint32_t r, std::uint32_t g, std::uint32_t b) {
  return r | g << 8 | b << 16;
}
constexpr std::uint32_t AreaFill = Rgb(255, 200, 180), KnFill = Rgb(200, 255, 180),
                        BeforeFill = Rgb(200, 204, 209);
constexpr Ctl Figures[] = {Ctl::Live_MaxKn,      Ctl::Live_FirstKn, Ctl::Live_MaxArea, Ctl::Live_Distance,
                           Ctl::Live_Neutrality, Ctl::Live_Sliver,  Ctl::Live_Loading, Ctl::Live_ApAt};

// The curve in view is not that of the drawing at hand.
bool Former(const LiveView &live) { return live.UnderWay || !live.Newest.Burnt; }

std::vector<float> CurveOf(const BurnRun &run) {
  std::vector<float> curve;
  curve.reserve(run.Result.size());
  for (const ResultRow &row : run.Result)
    curve.push_back(run.HasThroat ? row.Kn : row.CoreArea + row.EndsArea);
  return curve;
}

void AddSeries(Chart &chart, const char *name, std::uint32_t fill, std::vector<float> curve) {
  curve.resize(chart.X.size());
  chart.Series.push_back({name, fill, std::move(curve)});
}

void FillChart(const LiveView &live, Chart &chart) {
  const BurnRun &run = live.Run;
  std::vector<float> curve = CurveOf(run);
  chart.X.clear();
  chart.Series.clear();
  chart.XTitle = "Burn distance, mm";
  chart.YTitle = chart.Title = run.HasThroat ? "Kn" : "Area, mm²";
  if (curve.empty()) return;
  const bool before = !live.Before.empty() && live.Before != curve;
  const std::size_t steps = before ? std::max(curve.size(), live.Before.size()) : curve.size();
  for (std::size_t i = 1; i <= steps; ++i)
    chart.X.push_back(static_cast<float>(run.BurnIncrement * static_cast<double>(i)));
  if (Former(live)) return AddSeries(chart, "Before", BeforeFill, std::move(curve));
  if (before) AddSeries(chart, "Before", BeforeFill, live.Before);
  AddSeries(chart, run.HasThroat ? "Kn" : "Area", run.HasThroat ? KnFill : AreaFill, std::move(curve));
}

void FillFigures(const LiveView &live, Screen &out) {
  const BurnRun &run = live.Run;
  const bool any = run.StepCount > 0, throat = any && run.HasThroat;
  const auto set = [&](Ctl figure, const char *caption, bool known, double value, const char *mask) {
    out[figure].Text = std::string(caption) + ": " + (known ? FormatMask(value, mask) : any ? "N/A" : "");
    out[figure].Enabled = !Former(live);
    out[figure].Visible = any && out[Ctl::Live_Frame].Visible;
  };
  set(Ctl::Live_MaxKn, "Max Kn", throat, run.MaxKn, "0.0");
  set(Ctl::Live_FirstKn, "First Kn", throat && !run.Figures.empty(),
      run.Figures.empty() ? 0 : run.Figures.front().Kn, "0.0");
  set(Ctl::Live_MaxArea, "Max area, mm²", any, run.MaxBurnArea, "##,##0");
  set(Ctl::Live_Distance, "Burns out at, mm", any, run.LastLiveDist, "0.00");
  set(Ctl::Live_Neutrality, "Neutrality", any, run.Neutrality, "0.0%");
  set(Ctl::Live_Sliver, "Sliver", any && run.HasSliver, run.SliverFraction, "0.0%");
  set(Ctl::Live_Loading, "Volume loading", any, run.VolumeLoading, "0.0%");
  set(Ctl::Live_ApAt, "Ap/At", throat, run.ApAt, "0.00");
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
  FillChart(bench.Live, bench.Out.MyLiveChart);
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
  if (live.Tool != 0) live.Before = CurveOf(live.Run);
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
    for (const Ctl c : Figures) out[c].Visible = false;
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

void LiveChartEvent(Workbench &bench, const Event &event) {
  const BurnRun &run = bench.Live.Run;
  Chart &chart = bench.Out.MyLiveChart;
  if (event.What != Event::Kind::MouseMove && event.What != Event::Kind::Leave) return;
  const int reached = std::min<int>(run.StepCount, run.RowsReached);
  const bool over = event.What == Event::Kind::MouseMove && !Former(bench.Live) && reached > 0;
  const int step =
      over ? std::clamp(static_cast<int>(std::lround(static_cast<double>(chart.X.size()) * event.X)), 1,
                        reached)
           : 0;
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
