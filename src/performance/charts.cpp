#include "performance/charts.h"

#include "base/number_text.h"
#include "base/rounding.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr std::uint32_t Rgb(std::uint32_t r, std::uint32_t g, std::uint32_t b) {
  return r | g << 8 | b << 16;
}

constexpr const char *FluxTitle = "Max Mass Flux (Kg/s/m^2) / Time (sec) Chart   Dt=";
// In the order of ChartKind.
constexpr ChartText Texts[] = {
    {"KN_Chart", "Chart KN", "Kn Ratio / Burn Distance Chart   Dt=", "", "Error generating KN Chart",
     Rgb(200, 255, 180), 1},
    {"Chart_Pressure", "Chart Pc", "Chamber Pressure MPa / Time (sec) Chart   Dt=", "",
     "Error generating Pressure Chart", Rgb(255, 200, 180), 2},
    {"Chart_Thrust", "Chart Thrust", "Thrust (N) / Time (sec) Chart   Dt=", "",
     "Error generating Thrust Chart", Rgb(225, 225, 160), 3},
    {"Chart_Mass_Flow", "Chart Mass Flow", "Mass Flow (grams) / Time (sec) Chart   Dt=",
     "Mass Flow (Kg) / Time (sec) Chart   Dt=", "Error generating Mass Flow Chart", Rgb(255, 180, 255), 4},
    {"Mass_Flow_Rate", "Mass Flow Rate", "Mass Flow (g/s) / Time (sec) Chart   Dt=",
     "Mass Flow (Kg/s) / Time (sec) Chart   Dt=", "Error Mass Flow Rate Chart", Rgb(180, 235, 235), 5},
    {"Chart_Mass_Flux", "Chart Max Mass Flux", FluxTitle, "", "Error generating Mass Flux Chart",
     Rgb(180, 180, 180), 6},
    {"Core_Gas_Velocity", "Max Core Gas Velocity", FluxTitle, "", "Error generating Max Core Velocity Chart",
     Rgb(180, 180, 180), 6},
    {"Area_Chart", "Chart Area", "Burn Area / Dist (mm) Chart   Dt=", "", "Error generating Area Chart",
     Rgb(255, 180, 255), 7}};

bool IsMassFlow(ChartKind kind) {
  return kind == ChartKind::Chart_Mass_Flow || kind == ChartKind::Mass_Flow_Rate;
}

bool FillFromTable(const MotorTable &table, const MotorInputs &in, PerformanceChart &chart) {
  const KnCurve curve = CurveOfTable(table, in, false);
  for (std::size_t i = 0; i < curve.Kn.size(); ++i) {
    const auto kn = static_cast<float>(curve.Kn[i]);
    if (!std::isfinite(kn)) return false;
    chart.X.push_back(static_cast<float>(curve.Dist[i]));
    chart.Value.push_back(kn);
    chart.Largest = std::max(chart.Largest, kn);
  }
  chart.Dist = chart.X;
  chart.Cursor = chart.Value;
  chart.OverDistance = true;
  return chart.Value.size() >= 2 && chart.X.front() < chart.X.back();
}

bool FillFromLoop(const KnCurve &curve, const MotorInputs &in, PerformanceChart &chart) {
  BurnTrace trace;
  if (!IntegrateBurn(curve, in, chart.Kind, trace)) return false;
  chart.X = std::move(trace.Time);
  chart.Value = std::move(trace.Value);
  chart.Dist = std::move(trace.Dist);
  chart.Largest = trace.Largest;
  chart.TimeStep = trace.TimeStep;
  switch (chart.Kind) {
  case ChartKind::Chart_Pressure:
    chart.CursorUnit = "MPa";
    for (const float pascal : chart.Value) chart.Cursor.push_back(pascal / 1000000);
    break;
  case ChartKind::Chart_Mass_Flow:
  case ChartKind::Mass_Flow_Rate:
    chart.CursorUnit = "g/s"; // also where the chart shows the milligrams of a step
    chart.Cursor = std::move(trace.MassFlowRate);
    break;
  default:
    chart.CursorUnit = chart.Kind == ChartKind::Chart_Thrust ? "N" : "kg/s/m2";
    chart.Cursor = chart.Value;
  }
  return true;
}

struct TimeForm {
  int Places;
  const char *Mask, *Origin;
};

TimeForm FormOfTime(double last, bool overDistance) {
  if (!overDistance && last < 0.1) return {4, "0.####", "0.0000"};
  if (!overDistance && last < 1) return {3, "0.###", "0.000"};
  if (!overDistance && last < 10) return {2, "0.##", "0.00"};
  return {1, "0.0", "0.0"};
}

void FillLabels(PerformanceChart &chart) {
  const char *const mask = chart.OverDistance ? "###" : "0.###";
  for (int k = 1; k <= YLabels; ++k)
    chart.Y_Axis[k - 1] =
        FormatMask(static_cast<double>(chart.Largest) * k / YLabels / chart.UnitDivisor, mask);
  const double last = chart.X.back();
  const TimeForm form = FormOfTime(last, chart.OverDistance);
  for (int k = 1; k <= TimeLabels; ++k)
    chart.Time_Axis[k - 1] = FormatMask(RoundPlaces(last * k / TimeLabels, form.Places), form.Mask);
  chart.Time_Axis[TimeLabels] = form.Origin;
}

} // namespace

const ChartText &TextOf(ChartKind kind) { return Texts[static_cast<std::size_t>(kind)]; }

ChartOutcome BuildChart(ChartKind kind, const MotorTable &table, const std::vector<KnRow> &knRows,
                        const MotorInputs &in, PerformanceChart &chart) {
  if (!(in.ThroatDiam > 0)) return ChartOutcome::Nothing;
  PerformanceChart fresh;
  fresh.Kind = kind;
  const bool flux = kind == ChartKind::Chart_Mass_Flux || kind == ChartKind::Core_Gas_Velocity;
  const bool made = kind == ChartKind::KN_Chart || kind == ChartKind::Area_Chart
                        ? FillFromTable(table, in, fresh)
                        : FillFromLoop(kind == ChartKind::Chart_Mass_Flow ? CurveOfProfile(knRows)
                                                                          : CurveOfTable(table, in, flux),
                                       in, fresh);
  if (!made || !(fresh.Largest > 0)) return ChartOutcome::Failed;
  const ChartText &text = TextOf(kind);
  const bool large = IsMassFlow(kind) && fresh.Largest > 1000;
  fresh.UnitDivisor = kind == ChartKind::Chart_Pressure ? 1000000 : large ? 1000 : 1;
  fresh.Title = (large ? text.LargeTitle : text.Title) + FormatMask(in.ThroatDiam, "0.0##");
  fresh.Fill = text.Fill;
  fresh.FullHeight = static_cast<double>(fresh.Largest) * 16 / 15;
  FillLabels(fresh);
  chart = std::move(fresh);
  return ChartOutcome::Drawn;
}

std::vector<double> ChartColumns(const PerformanceChart &chart, int width) {
  const std::size_t n = chart.Value.size();
  std::vector<double> column;
  for (int x = 1; x <= width && n > 0; ++x) {
    const double u = static_cast<double>(x) * static_cast<double>(n - 1) / width + 1;
    const auto whole = static_cast<std::size_t>(u);
    const double value = chart.Value[std::min(whole, n) - 1], next = whole < n ? chart.Value[whole] : 0;
    column.push_back(value + (u - static_cast<double>(whole)) * (next - value));
  }
  return column;
}

double YLabelTop(int k, double surfaceTop, double surfaceHeight, double labelHeight) {
  return surfaceTop + surfaceHeight - k * (15.0 / 16 * surfaceHeight / YLabels) - labelHeight / 2.5;
}

double TimeLabelLeft(int k, double surfaceLeft, double surfaceWidth, double labelWidth) {
  return surfaceLeft + surfaceWidth * k / TimeLabels - labelWidth / 2;
}

bool Recomputes(MotorField field, double value, int chartNumber, bool loading) {
  if (loading || chartNumber < 1 || chartNumber > 6) return false;
  return field == MotorField::Isp || field == MotorField::Throat_Diameter || value > 0;
}

std::string Convert_Imperial_a(double v, double n) {
  if (!(v > 0)) return {};
  const double a = std::pow(1 / 0.000145038, 1 - n) * v / ((1 / 0.0361273) * 9.80665);
  if (!std::isfinite(a) || !(a > 0)) return {};
  const std::string masked = FormatMask(a, "0.000");
  if (std::abs(Val(masked) - a) <= 0.001 * a) return masked;
  const auto narrow = static_cast<float>(a);
  return narrow > 0 && std::isfinite(narrow) ? PlainText(narrow) : PlainText(a);
}
