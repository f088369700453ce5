#include "shell/pressure_chart.h"

#include "base/number_text.h"
#include "outputs/burn_figures.h"
#include "shell/compare.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fmt/format.h>

namespace {

constexpr double Pascals = 1e6; // of a MPa

bool IsFlux(ChartKind kind) {
  return kind == ChartKind::Chart_Mass_Flux || kind == ChartKind::Core_Gas_Velocity;
}

bool OneEnd(const MotorInputs &in) { return in.EndsExposed == 1 || in.EndsExposed == 2; }

void AskForEnd(Workbench &bench) {
  bench.Motor.Inputs.TopEnd =
      bench.Out.Ask({"Only one grain end marked as exposed. Is this the top end?",
                     "Which Grain End is Exposed", Buttons::YesNo, Icon::Question}) == Answer::Yes;
}

ChartOutcome Build(Workbench &bench, ChartKind kind) {
  Pressure &state = bench.Motor;
  const ChartOutcome outcome = BuildChart(
      kind, state.Table, KnRowsOfRun(bench.Sim.Run, state.Inputs.ThroatDiam), state.Inputs, state.Chart);
  state.Kind = kind;
  state.ChartNumber = TextOf(kind).Number;
  if (outcome != ChartOutcome::Drawn) return outcome;
  if (state.Chart.TimeStep > 0)
    bench.Out[Ctl::Time_Intervals].Text = fmt::format("{:.6g}", state.Chart.TimeStep);
  ShowPlot(bench);
  return outcome;
}

std::string YTitleOf(const PerformanceChart &chart) {
  std::string title = chart.Title.substr(0, chart.Title.find(" / "));
  return title;
}

// With the decimals that say something, and thousands parted.
std::string Reading(double value) {
  return std::abs(value) < 1000 ? ShortFigure(value) : FormatMask(value, "##,##0");
}

// What the chart itself adds up to over its time.
std::string OwnSum(const PerformanceChart &chart, const MotorFigures &f) {
  std::string words = "The charts' own loop: " + ShortFigure(f.ChartBurnTime) + " s";
  if (chart.OverDistance || chart.Value.empty() || !chart.Dist.size()) return words;
  double sum = 0;
  for (const float value : chart.Cursor)
    sum += static_cast<double>(value) * static_cast<double>(chart.TimeStep);
  switch (chart.Kind) {
  case ChartKind::Chart_Thrust: return words + ", " + Reading(sum) + " N s";
  case ChartKind::Chart_Pressure: return words + ", " + Reading(sum) + " MPa s";
  case ChartKind::Chart_Mass_Flow:
  case ChartKind::Mass_Flow_Rate: return words + ", " + Reading(sum) + " g";
  default: return words;
  }
}

// Where the pressure leaves the range in which a and n hold.
std::string RangeWarning(const Propellant &p, const MotorFigures &f) {
  const double peak = f.PeakPressure / Pascals, mean = f.MeanPressure / Pascals;
  if (p.HighestPressure > 0 && peak > p.HighestPressure)
    return "The peak pressure is above " + PlainText(p.HighestPressure) + " MPa, up to where a and n of " +
           p.Name + " hold.";
  if (p.LowestPressure > 0 && mean < p.LowestPressure)
    return "The mean pressure is below " + PlainText(p.LowestPressure) + " MPa, from where a and n of " +
           p.Name + " hold.";
  return {};
}

constexpr std::array<Ctl, 10> StripFigures{
    Ctl::Motor_Burn_Time,   Ctl::Motor_Peak_Pressure, Ctl::Motor_Mean_Pressure, Ctl::Motor_Peak_Thrust,
    Ctl::Motor_Mean_Thrust, Ctl::Motor_Impulse,       Ctl::Motor_Class,         Ctl::Motor_Mass,
    Ctl::Motor_Isp,         Ctl::Motor_Balance};

void ShowStrip(Workbench &bench) {
  Screen &out = bench.Out;
  const Pressure &state = bench.Motor;
  const MotorFigures &f = state.Run.Figures;
  const bool any = !state.Run.Sample.empty();
  const std::array<std::string, StripFigures.size()> text{ShortFigure(f.BurnTime),
                                                          ShortFigure(f.PeakPressure / Pascals),
                                                          ShortFigure(f.MeanPressure / Pascals),
                                                          Reading(f.PeakThrust),
                                                          Reading(f.MeanThrust),
                                                          Reading(f.TotalImpulse),
                                                          f.MotorClass,
                                                          Reading(f.PropellantMass),
                                                          ShortFigure(f.DeliveredIsp),
                                                          FormatMask(100 * f.MassBalance, "0.000")};
  for (std::size_t i = 0; i < text.size(); ++i) out[StripFigures[i]].Text = any ? text[i] : "N/A";
  std::string &note = out[Ctl::Strip_Note].Text;
  note.clear();
  if (any && f.ChartBurnTime > 0)
    note = OwnSum(state.Chart, f) + "; lower, since it begins after the first step and ends at the last row.";
}

// A round number of the chart's own kind that is no less.
double RoundedUp(double value) {
  if (!(value > 0)) return 1;
  const double unit = std::pow(10, std::floor(std::log10(value)));
  for (const double times : {1.0, 1.2, 1.5, 2.0, 2.5, 3.0, 4.0, 5.0, 6.0, 8.0})
    if (value <= times * unit) return times * unit;
  return 10 * unit;
}

} // namespace

void PressChart(Workbench &bench, ChartKind kind) {
  Pressure &state = bench.Motor;
  if (IsFlux(kind) && OneEnd(state.Inputs) && state.Inputs.ThroatDiam > 0) AskForEnd(bench);
  const ChartOutcome outcome = Build(bench, kind);
  UpdateStrip(bench);
  if (outcome == ChartOutcome::Failed)
    bench.Out.Ask({TextOf(kind).Message, ChartErrorTitle, Buttons::Ok, Icon::Exclamation});
}

void RecomputeChart(Workbench &bench, Ctl box) {
  Pressure &state = bench.Motor;
  if (Build(bench, state.Kind) != ChartOutcome::Failed || !state.Objection.empty()) return;
  state.Objection = std::string(TextOf(state.Kind).Message) + ": its steps of time find no burn";
  bench.Out[box].Hint = state.Objection;
}

void UpdateStrip(Workbench &bench) {
  Pressure &state = bench.Motor;
  MotorRun run;
  std::string trouble;
  const bool good = RunMotor(bench.Sim.Run, state.Inputs, run, trouble);
  if (good) {
    state.Run = std::move(run);
    state.RunInputs = state.Inputs;
  }
  if (state.Objection.empty() && !good) state.Objection = trouble;
  ShowStrip(bench);
  ShowCompare(bench);
  const bool shown = !state.Chart.Value.empty();
  bench.Out[Ctl::Input_Note].Text =
      state.Objection.empty() ? RangeWarning(state.Inputs.Fuel, state.Run.Figures)
      : shown ? state.Objection + ". Chart and figures are those of the last inputs that could be used."
              : state.Objection + ".";
  bench.Out[Ctl::Input_Note].Checked = !state.Objection.empty();
}

void ShowPlot(Workbench &bench) {
  Screen &out = bench.Out;
  const Pressure &state = bench.Motor;
  const PerformanceChart &chart = state.Chart;
  const unsigned number = out.My_Chart3.Number;
  Plot plot;
  plot.Number = number + 1;
  out[Ctl::MyChart_3_Frame].Text = chart.Title;
  out[Ctl::Y_Axis].Item.assign(chart.Y_Axis.begin(), chart.Y_Axis.end());
  out[Ctl::Time_Axis].Item.assign(chart.Time_Axis.begin(), chart.Time_Axis.end());
  if (chart.Value.size() < 2) {
    out.My_Chart3 = plot;
    return;
  }
  plot.XTitle = chart.OverDistance ? "Burn distance, mm" : "Time, s";
  plot.YTitle = YTitleOf(chart);
  plot.Fill = chart.Fill;
  plot.LabelEnd = static_cast<double>(chart.X.back());
  plot.LabelLast = static_cast<double>(chart.Largest) / chart.UnitDivisor;
  plot.XEnd = plot.LabelEnd;
  plot.YTop = chart.FullHeight / chart.UnitDivisor;
  const std::size_t count = chart.Value.size();
  plot.X.reserve(count);
  plot.Y.reserve(count);
  for (std::size_t i = 0; i < count; ++i) { // the points stand evenly, whatever the first row's distance
    plot.X.push_back(plot.LabelEnd * static_cast<double>(i) / static_cast<double>(count - 1));
    plot.Y.push_back(static_cast<double>(chart.Value[i]) / chart.UnitDivisor);
  }
  plot.Curve = ComparedCurves(bench);
  double right = plot.XEnd, top = plot.LabelLast;
  for (const PlotCurve &curve : plot.Curve) {
    right = std::max(right, curve.X.back());
    top = std::max(top, *std::max_element(curve.Y.begin(), curve.Y.end()));
  }
  // A kept result ends a little behind the chart of the same inputs: that much room is no other scale.
  if (right > plot.XEnd * 1.02) plot.XEnd = RoundedUp(right);
  if (top > plot.YTop) plot.YTop = RoundedUp(top * 16 / 15);
  out.My_Chart3 = std::move(plot);
}

void PointAtChart(Workbench &bench, double part) {
  Plot &plot = bench.Out.My_Chart3;
  const PerformanceChart &chart = bench.Motor.Chart;
  const auto count = static_cast<int>(chart.Value.size());
  if (count < 2 || plot.X.empty()) return;
  const double share = part * plot.XEnd / plot.LabelEnd;
  if (share < 0 || share > 1.02) return LeaveChart(bench);
  plot.Cursor = std::clamp(static_cast<int>(std::lround(share * (count - 1))), 0, count - 1);
  const auto i = static_cast<std::size_t>(plot.Cursor);
  const double at = static_cast<double>(chart.X[i]), dist = static_cast<double>(chart.Dist[i]);
  const std::string burnt = FormatMask(dist, "0.00") + " mm burnt";
  const std::string unit = chart.CursorUnit.empty() ? "" : " " + chart.CursorUnit;
  const std::string value = ShortFigure(static_cast<double>(chart.Cursor[i])) + unit;
  plot.CursorText = chart.OverDistance ? "Kn " + value + "   " + burnt
                                       : FormatMask(at, "0.000") + " s   " + value + "   " + burnt;
  const BurnRun &run = bench.Sim.Run;
  const int reached = std::min<int>(run.StepCount, run.RowsReached);
  if (reached > 0)
    ReplayAt(bench.Out, bench.Sim, dist / static_cast<double>(run.Result[reached - 1].BurnDist));
}

void LeaveChart(Workbench &bench) {
  bench.Out.My_Chart3.Cursor = -1;
  bench.Out.My_Chart3.CursorText.clear();
}
