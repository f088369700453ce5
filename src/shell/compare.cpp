#include "shell/compare.h"

#include "base/number_text.h"
#include "base/whole_file.h"
#include "outputs/burn_figures.h"
#include "shell/pressure_chart.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

namespace {

constexpr const char *MeasuredFilter = "All Files (*.*)|*.*|Comma Sep Value Files (*.csv)|*.csv";
constexpr const char *NowName = "Inputs at hand";

constexpr std::uint32_t Rgb(std::uint32_t r, std::uint32_t g, std::uint32_t b) {
  return r | g << 8 | b << 16;
}
// Colours that stay apart for every eye.
constexpr std::array<std::uint32_t, MostKept> Colours{Rgb(0, 114, 178), Rgb(213, 94, 0),
                                                      Rgb(0, 158, 115), Rgb(204, 121, 167),
                                                      Rgb(230, 159, 0), Rgb(86, 180, 233)};

// What the chart that is showing tells of a sample, in the units of its labels.
double ChannelOf(const MotorSample &s, const PerformanceChart &chart) {
  switch (chart.Kind) {
  case ChartKind::KN_Chart:
  case ChartKind::Area_Chart: return s.Kn;
  case ChartKind::Chart_Pressure: return s.Pressure / 1e6;
  case ChartKind::Chart_Thrust: return s.Thrust;
  case ChartKind::Chart_Mass_Flow:
    return s.MassFlow * 1000 * static_cast<double>(chart.TimeStep) / chart.UnitDivisor;
  case ChartKind::Mass_Flow_Rate: return s.MassFlow / chart.UnitDivisor;
  case ChartKind::Chart_Mass_Flux:
  case ChartKind::Core_Gas_Velocity: return s.MassFlux;
  }
  return 0;
}

PlotCurve CurveOf(const MotorRun &run, const PerformanceChart &chart) {
  PlotCurve curve;
  for (const MotorSample &s : run.Sample) {
    curve.X.push_back(chart.OverDistance ? s.BurnDist : s.Time);
    curve.Y.push_back(ChannelOf(s, chart));
  }
  return curve;
}

struct CurveFigures {
  double Peak = 0, Mean = 0, End = 0, Sum = 0;
};

CurveFigures FiguresOf(const PlotCurve &curve) {
  CurveFigures f;
  for (std::size_t i = 0; i < curve.X.size(); ++i) {
    f.Peak = std::max(f.Peak, curve.Y[i]);
    if (i > 0) f.Sum += (curve.Y[i] + curve.Y[i - 1]) / 2 * (curve.X[i] - curve.X[i - 1]);
  }
  if (curve.X.empty()) return f;
  f.End = curve.X.back();
  const double span = f.End - curve.X.front();
  if (span > 0) f.Mean = f.Sum / span;
  return f;
}

struct Quantity {
  const char *Name, *Unit;
};
Quantity QuantityOf(const PerformanceChart &chart) {
  const bool large = chart.UnitDivisor == 1000;
  switch (chart.Kind) {
  case ChartKind::Chart_Pressure: return {"pressure", "MPa"};
  case ChartKind::Chart_Thrust: return {"thrust", "N"};
  case ChartKind::Chart_Mass_Flow: return {"mass flow", large ? "g per step" : "mg per step"};
  case ChartKind::Mass_Flow_Rate: return {"mass flow", large ? "kg/s" : "g/s"};
  case ChartKind::Chart_Mass_Flux:
  case ChartKind::Core_Gas_Velocity: return {"mass flux", "kg/s/m²"};
  default: return {"Kn", ""};
  }
}

// The decimals of a column: four figures of its first value.
const char *MaskOf(double first) {
  return first >= 1000 ? "##,##0" : first >= 100 ? "0.0" : first >= 10 ? "0.00" : "0.000";
}

// The value, and before it how far it is from the first row's.
std::string Against(double value, double first, bool isFirst) {
  const std::string figure = FormatMask(value, MaskOf(first > 0 ? first : value));
  if (isFirst || !(first > 0)) return figure;
  const double percent = 100 * (value / first - 1);
  const std::string text = FormatMask(std::abs(percent), "0.0");
  return (text == "0.0" ? "" : percent > 0 ? "+" : "\u2212") + text + " %   " + figure;
}

std::string FreshName(const Pressure &state, const std::string &name) {
  const auto taken = [&](const std::string &n) {
    return std::any_of(state.Kept.begin(), state.Kept.end(), [&](const auto &k) { return k.Name == n; }) ||
           std::any_of(state.Measured.begin(), state.Measured.end(),
                       [&](const auto &m) { return m.Name == n; });
  };
  std::string fresh = name;
  for (int i = 2; taken(fresh); ++i) fresh = name + " (" + std::to_string(i) + ")";
  return fresh;
}

int FreePlace(const Pressure &state) {
  int place = 0;
  while (std::any_of(state.Kept.begin(), state.Kept.end(), [&](const auto &k) { return k.Place == place; }))
    ++place;
  return place;
}

PlotCurve KeyOf(const std::string &name, std::uint32_t colour, int dash, bool points) {
  PlotCurve key;
  key.Name = name;
  key.Colour = colour;
  key.Dash = dash;
  key.Points = points;
  return key;
}

PlotCurve KeyOf(const KeptResult &kept) {
  return KeyOf(kept.Name, Colours[static_cast<std::size_t>(kept.Place)], kept.Place, false);
}

PlotCurve CurveOf(const KeptMeasurement &measured) {
  PlotCurve curve = KeyOf(measured.Name, 0, 0, true);
  curve.X = measured.Curve.X;
  curve.Y = measured.Curve.Value;
  return curve;
}

} // namespace

void KeepResult(Workbench &bench) {
  Pressure &state = bench.Motor;
  if (state.Kept.size() >= MostKept || state.Run.Sample.empty()) return;
  const MotorInputs &in = state.RunInputs;
  const std::string fuel = in.Fuel.Name.empty() ? "own figures" : in.Fuel.Name;
  const std::string name =
      DesignName(bench.Grain) + ", " + fuel + ", Dt " + FormatMask(in.ThroatDiam, "0.0##");
  state.Kept.push_back({FreshName(state, name), state.Run, FreePlace(state)});
  ShowPlot(bench);
  ShowCompare(bench);
}

void LoadMeasured(Workbench &bench) {
  Pressure &state = bench.Motor;
  if (state.Chart.Value.empty() || state.Measured.size() >= MostMeasured) return;
  const auto path = bench.Out.AskFile(FileUse::Open, MeasuredFilter, "");
  if (!path || path->empty()) return;
  KeptMeasurement measured;
  std::string bytes, trouble = ReadWhole(*path, bytes);
  if (trouble.empty()) trouble = ReadMeasured(bytes, *path, measured.Curve);
  if (!trouble.empty()) {
    bench.Out.Ask({trouble, "Load Measured", Buttons::Ok, Icon::Exclamation});
    return;
  }
  measured.Name = FreshName(state, std::filesystem::path(*path).filename().string());
  measured.Number = TextOf(state.Chart.Kind).Number;
  state.Measured.push_back(std::move(measured));
  ShowPlot(bench);
  ShowCompare(bench);
}

void RemoveCompared(Workbench &bench) {
  Pressure &state = bench.Motor;
  Control &table = bench.Out[Ctl::Compare_Table];
  if (!CanRemove(bench)) return;
  const std::string name = table.Item[static_cast<std::size_t>(table.Index)];
  std::erase_if(state.Kept, [&](const auto &kept) { return kept.Name == name; });
  std::erase_if(state.Measured, [&](const auto &measured) { return measured.Name == name; });
  table.Index = -1;
  ShowPlot(bench);
  ShowCompare(bench);
}

bool CanRemove(const Workbench &bench) {
  const Control &table = bench.Out[Ctl::Compare_Table];
  return table.Index >= 0 && table.Index < static_cast<int>(table.Item.size()) &&
         table.Item[static_cast<std::size_t>(table.Index)] != NowName;
}

std::vector<PlotCurve> ComparedCurves(const Workbench &bench) {
  const Pressure &state = bench.Motor;
  std::vector<PlotCurve> curves;
  for (const KeptResult &kept : state.Kept) {
    PlotCurve curve = CurveOf(kept.Run, state.Chart);
    const PlotCurve key = KeyOf(kept);
    curve.Name = key.Name;
    curve.Colour = key.Colour;
    curve.Dash = key.Dash;
    curves.push_back(std::move(curve));
  }
  for (const KeptMeasurement &measured : state.Measured)
    if (measured.Number == TextOf(state.Chart.Kind).Number) curves.push_back(CurveOf(measured));
  return curves;
}

void ShowCompare(Workbench &bench) {
  const Pressure &state = bench.Motor;
  const PerformanceChart &chart = state.Chart;
  Control &list = bench.Out[Ctl::Compare_Table];
  TextTable &table = bench.Out.Compare;
  const std::string chosen = list.Index >= 0 && list.Index < static_cast<int>(list.Item.size())
                                 ? list.Item[static_cast<std::size_t>(list.Index)]
                                 : "";
  table = {};
  list.Item.clear();
  list.Index = -1;
  if (state.Kept.empty() && state.Measured.empty()) return;
  const Quantity q = QuantityOf(chart);
  const std::string behind = *q.Unit ? std::string(", ") + q.Unit : "";
  const bool thrust = chart.Kind == ChartKind::Chart_Thrust;
  table.Head = {"", std::string("Peak ") + q.Name + behind, std::string("Mean ") + q.Name + behind,
                chart.OverDistance ? "Burnt, mm" : "Burn time, s", "Impulse, N s"};
  CurveFigures first;
  double firstImpulse = 0;
  const auto add = [&](const PlotCurve &key, const PlotCurve &curve, double impulse) {
    const bool isFirst = table.Row.empty();
    const CurveFigures f = FiguresOf(curve);
    if (isFirst) {
      first = f;
      firstImpulse = impulse;
    }
    table.Row.push_back(
        {{key.Name, Against(f.Peak, first.Peak, isFirst), Against(f.Mean, first.Mean, isFirst),
          Against(f.End, first.End, isFirst), impulse > 0 ? Against(impulse, firstImpulse, isFirst) : ""},
         key});
    if (key.Name == chosen) list.Index = static_cast<int>(list.Item.size());
    list.Item.push_back(key.Name);
  };
  for (const KeptResult &kept : state.Kept)
    add(KeyOf(kept), CurveOf(kept.Run, chart), kept.Run.Figures.TotalImpulse);
  if (!state.Run.Sample.empty())
    add(KeyOf(NowName, chart.Fill, -1, false), CurveOf(state.Run, chart), state.Run.Figures.TotalImpulse);
  for (const KeptMeasurement &measured : state.Measured) {
    if (measured.Number != TextOf(chart.Kind).Number) continue;
    const PlotCurve curve = CurveOf(measured);
    add(KeyOf(measured.Name, 0, 0, true), curve, thrust ? FiguresOf(curve).Sum : 0);
  }
}
