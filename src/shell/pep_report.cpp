#include "shell/pep_report.h"

#include "base/whole_file.h"
#include "performance/least_squares.h"
#include "shell/pep_nozzle.h"
#include "shell/pep_sweep.h"
#include "shell/save_target.h"

#include <cmath>
#include <filesystem>
#include <fmt/format.h>

namespace {

constexpr int FitDegree = 3;

// A figure as a polynomial of the logarithm of the chamber pressure, with the farthest that a case lies from
// it.
std::string FitLine(const Thermo &state, const char *name, const char *unit, const auto &of) {
  std::vector<double> x, y;
  for (const PepFigures &f : state.Figures) {
    const PepFigures::Figure value = of(f);
    if (!value) continue;
    x.push_back(std::log(f.ChamberPressure));
    y.push_back(*value);
  }
  const auto fit = LeastSquaresPoly(x, y, FitDegree);
  if (!fit) return fmt::format("{}: {}", name, LeastSquaresMessage);
  double farthest = 0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    double there = 0;
    for (int k = FitDegree; k >= 0; --k) there = there * x[i] + (*fit)[static_cast<std::size_t>(k)];
    farthest = std::max(farthest, std::abs(there - y[i]));
  }
  std::string text = fmt::format("{} = {:.6g}", name, (*fit)[0]);
  for (std::size_t k = 1; k < fit->size(); ++k)
    text += fmt::format(" {} {:.5g} L{}", (*fit)[k] < 0 ? "-" : "+", std::abs((*fit)[k]),
                        k > 1 ? fmt::format("^{}", k) : "");
  return text + fmt::format(" {}, L = ln of the MPa, within {:.2g}", unit, farthest);
}

Report MakeReport(const Thermo &state) {
  if (state.Kind == PepReport::Sweep) return SweepReport(state);
  const PepCase &one = state.Run.Case[NearestCase(state)];
  const PepMode mode = ModeOf(state);
  switch (state.Kind) {
  case PepReport::Products: return ChemicalReport(state.Run, one, mode);
  case PepReport::Ingredients: return IngredientReport(state.Run, state.Files);
  case PepReport::State: return StateReport(state.Run, one);
  case PepReport::Expansion: return ExpansionReport(state.Run, one, mode);
  case PepReport::Performance: {
    Report report = PerformanceReport(state.Run, state.Files, mode);
    report.Line.push_back(FitLine(state, "c*", "m/s", [&](const PepFigures &f) { return f.CStar[mode]; }));
    report.Line.push_back(
        FitLine(state, "Isp at 14.7 psi", "s", [&](const PepFigures &f) { return f.Isp[mode]; }));
    return report;
  }
  case PepReport::Sweep:
  case PepReport::None: return {};
  }
  return {};
}

} // namespace

void ShowReport(Workbench &bench, PepReport kind) {
  bench.Pep.Kind = kind;
  RefreshReport(bench);
}

void RefreshReport(Workbench &bench) {
  Thermo &state = bench.Pep;
  if (state.Kind == PepReport::None) return;
  if (state.Kind == PepReport::Sweep ? state.Sweep.empty() : !state.Run.Done) {
    state.Kind = PepReport::None;
    return;
  }
  state.Shown = MakeReport(state);
  bench.Out[Ctl::Report_Text].Text = ReportAsText(state.Shown);
}

void SaveReport(Workbench &bench) {
  const Thermo &state = bench.Pep;
  if (state.Kind == PepReport::None) return;
  const std::string path =
      AskTarget(bench, "All Files (*.*)|*.*|Comma Sep Value Files (*.csv)|*.csv|Text (*.txt)|*.txt",
                "_propellant", ".txt", "report");
  if (path.empty()) return;
  const bool table = std::filesystem::path(path).extension() == ".csv";
  const std::string trouble = WriteWhole(path, table ? ReportCsv(state.Shown) : ReportAsText(state.Shown));
  if (!trouble.empty()) bench.Out.Ask({trouble, "Save Report", Buttons::Ok, Icon::Exclamation});
}
