#include "shell/pep_chart.h"

#include "base/number_text.h"
#include "outputs/plot_picture.h"
#include "shell/pep_nozzle.h"
#include "shell/pep_pick.h"
#include "shell/picture_target.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

namespace {

constexpr std::uint32_t Rgb(std::uint32_t r, std::uint32_t g, std::uint32_t b) {
  return r | g << 8 | b << 16;
}
// Colours that stay apart for every eye.
constexpr std::array<std::uint32_t, 8> Colours{Rgb(0, 114, 178),   Rgb(213, 94, 0),  Rgb(0, 158, 115),
                                               Rgb(204, 121, 167), Rgb(230, 159, 0), Rgb(86, 180, 233),
                                               Rgb(125, 125, 125), Rgb(140, 86, 75)};
constexpr std::size_t MostSpecies = 8;

using Figure = PepFigures::Figure;

std::string Cell(const Figure &figure, const char *mask, double times = 1) {
  const double value = times * figure.value_or(NAN);
  return std::isfinite(value) ? FormatMask(value, mask) : "-";
}

struct CurveWords {
  const char *Title, *YTitle, *Mask, *Unit;
};
CurveWords WordsOf(PepCurve curve) {
  switch (curve) {
  case PepCurve::Temperature: return {"Flame temperature", "Chamber temperature, K", "0.0", " K"};
  case PepCurve::CStar: return {"Characteristic velocity", "c*, m/s", "0.0", " m/s"};
  case PepCurve::Isp: return {"Specific impulse, expanded to 14.7 psi", "Isp, s", "0.0", " s"};
  case PepCurve::Gamma: return {"Ratio of specific heats", "Gamma, chamber, composition held", "0.0000", ""};
  case PepCurve::Gas: return {"Molecular weight of the gas", "Gas, chamber, g/mol", "0.00", " g/mol"};
  case PepCurve::Species: return {"Main products in the chamber", "Moles per 100 g", "0.0000", ""};
  }
  return {};
}

// The points of the chart that is showing: cases over pressure, or steps of a sweep.
struct Row {
  double X;
  const PepFigures *Figures;
};

std::vector<Row> RowsOf(const Thermo &state) {
  std::vector<Row> rows;
  if (state.Sweeping)
    for (const PepSweepPoint &p : state.Sweep) rows.push_back({p.Weight, &p.Figures});
  else
    for (const PepFigures &f : state.Figures) rows.push_back({f.ChamberPressure, &f});
  std::stable_sort(rows.begin(), rows.end(), [](const Row &a, const Row &b) { return a.X < b.X; });
  return rows;
}

PlotCurve CurveOf(const std::vector<Row> &rows, std::string name, std::size_t place, const auto &of) {
  PlotCurve curve;
  curve.Name = std::move(name);
  curve.Colour = Colours[place % Colours.size()];
  curve.Dash = static_cast<int>(place);
  for (const Row &row : rows) {
    const Figure value = of(*row.Figures);
    if (!value || !std::isfinite(*value)) continue;
    curve.X.push_back(row.X);
    curve.Y.push_back(*value);
  }
  return curve;
}

double MolesOf(const PepFigures &figures, const std::string &species) {
  for (const SpeciesAmount &amount : figures.Species)
    if (amount.Name == species) return amount.Moles;
  return 0;
}

std::vector<PlotCurve> SpeciesCurves(const std::vector<Row> &rows) {
  std::map<std::string, double> most;
  for (const Row &row : rows)
    for (const SpeciesAmount &amount : row.Figures->Species)
      most[amount.Name] = std::max(most[amount.Name], amount.Moles);
  std::vector<std::pair<double, std::string>> order;
  for (const auto &[name, moles] : most) order.emplace_back(-moles, name);
  std::sort(order.begin(), order.end());
  if (order.size() > MostSpecies) order.resize(MostSpecies);
  std::vector<PlotCurve> curves;
  for (const auto &[moles, name] : order)
    curves.push_back(
        CurveOf(rows, name, curves.size(), [&](const PepFigures &f) { return Figure(MolesOf(f, name)); }));
  return curves;
}

std::vector<PlotCurve> CurvesOf(PepCurve curve, const std::vector<Row> &rows) {
  const auto one = [&](const char *name, Figure PepFigures::*field) {
    return std::vector{CurveOf(rows, name, 0, [&](const PepFigures &f) { return f.*field; })};
  };
  const auto both = [&](const auto &of) {
    return std::vector{CurveOf(rows, "shifting", 0, [&](const PepFigures &f) { return of(f, Shifting); }),
                       CurveOf(rows, "frozen", 1, [&](const PepFigures &f) { return of(f, Frozen); })};
  };
  switch (curve) {
  case PepCurve::Temperature: return one("chamber", &PepFigures::ChamberTemperature);
  case PepCurve::CStar: return both([](const PepFigures &f, PepMode mode) { return f.CStar[mode]; });
  case PepCurve::Isp: return both([](const PepFigures &f, PepMode mode) { return f.Isp[mode]; });
  case PepCurve::Gamma: return one("chamber", &PepFigures::Gamma);
  case PepCurve::Gas: return one("chamber", &PepFigures::MeanGasWeight);
  case PepCurve::Species: return SpeciesCurves(rows);
  }
  return {};
}

// Room above and below; a curve that stays where it is gets some too.
void SetHeights(Plot &plot, bool fromZero) {
  double low = INFINITY, high = -INFINITY;
  for (const PlotCurve &curve : plot.Curve)
    for (const double y : curve.Y) {
      low = std::min(low, y);
      high = std::max(high, y);
    }
  const double room = std::max({0.08 * (high - low), 1e-3 * std::abs(high), 1e-9});
  plot.YBegin = fromZero ? 0 : low - room;
  plot.YTop = high + room;
}

} // namespace

void ShowResultGrid(Workbench &bench) {
  TextTable grid;
  grid.Head = {"Pc MPa", "T K", "c* m/s", "Isp s", "Frozen s", "Gamma", "M gas", "Cond. %"};
  for (const PepFigures &f : bench.Pep.Figures) {
    const std::string mark = f.Converged ? "" : "* ";
    grid.Row.push_back(
        {{mark + FormatMask(f.ChamberPressure, "0.000"), Cell(f.ChamberTemperature, "0.0"),
          Cell(f.CStar[Shifting], "0.0"), Cell(f.Isp[Shifting], "0.0"), Cell(f.Isp[Frozen], "0.0"),
          Cell(f.Gamma, "0.0000"), Cell(f.MeanGasWeight, "0.000"), Cell(f.CondensedPart, "0.0", 100)},
         {}});
  }
  bench.Out.Pep_Grid = std::move(grid);
}

void MarkGridRow(Workbench &bench) {
  const Thermo &state = bench.Pep;
  bench.Out[Ctl::Result_Grid].Index = state.Run.Done ? static_cast<int>(NearestCase(state)) : -1;
}

void ChooseGridRow(Workbench &bench, const std::string &pressure) {
  const auto &rows = bench.Out.Pep_Grid.Row;
  for (std::size_t i = 0; i < rows.size() && i < bench.Pep.Figures.size(); ++i)
    if (rows[i].Cell.front() == pressure) return PickPressure(bench, bench.Pep.Figures[i].ChamberPressure);
}

void ChooseCurve(Workbench &bench, PepCurve curve) {
  bench.Pep.Curve = curve;
  bench.Pep.Kind = PepReport::None;
  ShowPepChart(bench);
}

void ShowPepChart(Workbench &bench) {
  const Thermo &state = bench.Pep;
  const CurveWords words = WordsOf(state.Curve);
  Plot plot;
  plot.Number = bench.Out.Pep_Chart.Number + 1;
  plot.Filled = false;
  const std::vector<Row> rows = RowsOf(state);
  bench.Out[Ctl::Pep_Chart_Title].Text =
      std::string(words.Title) + (state.Sweeping
                                      ? " over weight, at " + FormatMask(state.SweepPressure, "0.00") + " MPa"
                                      : " over chamber pressure");
  if (rows.size() > 1 && rows.back().X > rows.front().X) {
    plot.XTitle = state.Sweeping ? state.SweepTitle : "Chamber pressure, MPa";
    plot.YTitle = words.YTitle;
    plot.XBegin = rows.front().X;
    plot.XEnd = rows.back().X;
    plot.Curve = CurvesOf(state.Curve, rows);
    std::erase_if(plot.Curve, [](const PlotCurve &c) { return c.X.size() < 2; });
  }
  if (!plot.Curve.empty()) {
    plot.X = plot.Curve.front().X;
    plot.Y = plot.Curve.front().Y;
    SetHeights(plot, state.Curve == PepCurve::Species);
  }
  bench.Out.Pep_Chart = std::move(plot);
}

void PointAtPepChart(Workbench &bench, double part) {
  Plot &plot = bench.Out.Pep_Chart;
  if (plot.X.size() < 2) return;
  const CurveWords words = WordsOf(bench.Pep.Curve);
  const double at = plot.XBegin + part * (plot.XEnd - plot.XBegin);
  std::size_t nearest = 0;
  for (std::size_t i = 1; i < plot.X.size(); ++i)
    if (std::abs(plot.X[i] - at) < std::abs(plot.X[nearest] - at)) nearest = i;
  plot.Cursor = static_cast<int>(nearest);
  const double x = plot.X[nearest];
  plot.CursorText =
      bench.Pep.Sweeping ? PlainText(RoundPlaces(x, 6)) + " g" : FormatMask(x, "0.000") + " MPa";
  for (const PlotCurve &curve : plot.Curve) {
    const auto place = std::find(curve.X.begin(), curve.X.end(), x);
    if (place == curve.X.end()) continue;
    const double value = curve.Y[static_cast<std::size_t>(place - curve.X.begin())];
    const bool alone = plot.Curve.size() == 1;
    plot.CursorText +=
        (alone ? "   " : "\n" + curve.Name + "  ") + FormatMask(value, words.Mask) + words.Unit;
  }
}

void LeavePepChart(Workbench &bench) {
  bench.Out.Pep_Chart.Cursor = -1;
  bench.Out.Pep_Chart.CursorText.clear();
}

void SavePepChart(Workbench &bench) {
  const Plot &plot = bench.Out.Pep_Chart;
  if (plot.Curve.empty()) return;
  std::string path;
  PictureForm form{};
  if (!AskPicture(bench, "_propellant", path, form)) return;
  const std::string trouble = WritePlotPicture(plot, bench.Out[Ctl::Pep_Chart_Title].Text, "", form, path);
  if (!trouble.empty()) bench.Out.Ask({trouble, "Save Picture", Buttons::Ok, Icon::Exclamation});
}
