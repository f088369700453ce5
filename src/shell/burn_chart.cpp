#include "shell/burn_chart.h"

#include "base/number_text.h"

#include <algorithm>
#include <cstdint>

namespace {
constexpr std::uint32_t Rgb(std::uint32_t r, std::uint32_t g, std::uint32_t b) {
  return r | g << 8 | b << 16;
}
constexpr std::uint32_t AreaFill = Rgb(255, 200, 180), KnFill = Rgb(200, 255, 180),
                        BeforeFill = Rgb(200, 204, 209);

void AddSeries(Chart &chart, const char *name, std::uint32_t fill, std::vector<float> curve) {
  curve.resize(chart.X.size());
  chart.Series.push_back({name, fill, std::move(curve)});
}
} // namespace

std::vector<float> BurnCurve(const BurnRun &run) {
  std::vector<float> curve;
  curve.reserve(run.Result.size());
  for (const ResultRow &row : run.Result)
    curve.push_back(run.HasThroat ? row.Kn : row.CoreArea + row.EndsArea);
  return curve;
}

void FillBurnChart(const BurnRun &run, const std::vector<float> &before, bool former, Chart &chart) {
  std::vector<float> curve = BurnCurve(run);
  chart.X.clear();
  chart.Series.clear();
  chart.XTitle = "Burn distance, mm";
  chart.YTitle = chart.Title = run.HasThroat ? "Kn" : "Area, mm²";
  if (curve.empty()) return;
  const bool both = !before.empty() && before != curve;
  const std::size_t steps = both ? std::max(curve.size(), before.size()) : curve.size();
  for (std::size_t i = 1; i <= steps; ++i)
    chart.X.push_back(static_cast<float>(run.BurnIncrement * static_cast<double>(i)));
  if (former) return AddSeries(chart, "Before", BeforeFill, std::move(curve));
  if (both) AddSeries(chart, "Before", BeforeFill, before);
  AddSeries(chart, run.HasThroat ? "Kn" : "Area", run.HasThroat ? KnFill : AreaFill, std::move(curve));
}

std::string BurnFigureText(const BurnRun &run, BurnFigure figure) {
  const bool any = run.StepCount > 0, throat = any && run.HasThroat;
  const auto text = [&](const char *caption, bool known, double value, const char *mask) {
    return std::string(caption) + ": " + (known ? FormatMask(value, mask) : any ? "N/A" : "");
  };
  switch (figure) {
  case BurnFigure::MaxKn: return text("Max Kn", throat, run.MaxKn, "0.0");
  case BurnFigure::FirstKn:
    return text("First Kn", throat && !run.Figures.empty(), run.Figures.empty() ? 0 : run.Figures.front().Kn,
                "0.0");
  case BurnFigure::MaxArea: return text("Max area, mm²", any, run.MaxBurnArea, "##,##0");
  case BurnFigure::Distance: return text("Burns out at, mm", any, run.LastLiveDist, "0.00");
  case BurnFigure::Neutrality: return text("Neutrality", any, run.Neutrality, "0.0%");
  case BurnFigure::Sliver: return text("Sliver", any && run.HasSliver, run.SliverFraction, "0.0%");
  case BurnFigure::Loading: return text("Volume loading", any, run.VolumeLoading, "0.0%");
  case BurnFigure::ApAt: return text("Ap/At", throat, run.ApAt, "0.00");
  }
  return {};
}
