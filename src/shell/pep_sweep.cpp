#include "shell/pep_sweep.h"

#include "base/number_text.h"
#include "shell/pep_chart.h"
#include "shell/pep_inputs.h"
#include "thermochem/ingredient_names.h"
#include "thermochem/sweep.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace {

constexpr std::size_t MostSteps = 200; // a step is a run of its own
constexpr double FirstSpan = 10;       // g to both sides of what the mix holds

struct Box {
  Ctl Control;
  const char *Name;
};
constexpr Box Boxes[] = {
    {Ctl::Sweep_From, "The first weight"}, {Ctl::Sweep_To, "The last weight"}, {Ctl::Sweep_Step, "The step"}};

double WeightOf(const PepInputs &inputs, int position) {
  double weight = 0;
  for (const PepIngredient &i : inputs.Ingredient)
    if (i.ListPosition == position) weight += i.Weight;
  return weight;
}

// A span about the mix at hand where the boxes hold none yet.
void OfferSpan(Workbench &bench) {
  Screen &out = bench.Out;
  if (!out[Ctl::Sweep_From].Text.empty() || !out[Ctl::Sweep_To].Text.empty()) return;
  const Thermo &state = bench.Pep;
  const int raised = FindIngredient(state.Files, out[Ctl::Sweep_Raised].Text),
            lowered = FindIngredient(state.Files, out[Ctl::Sweep_Lowered].Text);
  if (raised == 0 || lowered == 0) return;
  const double held = WeightOf(state.Inputs, raised), spare = WeightOf(state.Inputs, lowered);
  out[Ctl::Sweep_From].Text = PlainText(RoundPlaces(std::max(0.0, held - FirstSpan), 3));
  out[Ctl::Sweep_To].Text = PlainText(RoundPlaces(held + std::min(FirstSpan, spare), 3));
}

std::string Plan(Workbench &bench, std::vector<SweepStep> &steps) {
  Screen &out = bench.Out;
  const Thermo &state = bench.Pep;
  if (!state.Objection.empty()) return state.Objection;
  double value[3] = {};
  for (std::size_t i = 0; i < 3; ++i) {
    const auto number = NumberIn(out[Boxes[i].Control].Text);
    if (!number) return std::string(Boxes[i].Name) + " must be a number";
    value[i] = *number;
  }
  const PepSweep sweep{FindIngredient(state.Files, out[Ctl::Sweep_Raised].Text),
                       FindIngredient(state.Files, out[Ctl::Sweep_Lowered].Text), value[0], value[1],
                       value[2]};
  if (sweep.Raised == 0 || sweep.Lowered == 0) return "Choose the two ingredients first";
  std::string trouble;
  if (!PlanSweep(state.Inputs, sweep, steps, trouble)) return "This cannot be swept: " + trouble;
  if (steps.size() > MostSteps) return fmt::format("At most {} steps: take a larger one", MostSteps);
  return {};
}

std::string RunSteps(Workbench &bench, const std::vector<SweepStep> &steps,
                     std::vector<PepSweepPoint> &points) {
  for (const SweepStep &step : steps) {
    PepInputs inputs = step.Inputs;
    inputs.CaseCount = 1;
    inputs.LowerPressure = inputs.UpperPressure = bench.Pep.Pressure;
    const PepOutcome run = RunPep(inputs, bench.Pep.Files);
    if (!run.Done) return fmt::format("At {:.6g} g: {}", step.Weight, run.Trouble);
    points.push_back({step.Weight, FiguresOf(run, run.Case.front())});
    bench.Out[Ctl::ProgressBar1].Text = std::to_string(MaxCases * points.size() / steps.size());
    bench.Out.Wait(0);
  }
  return {};
}

std::string WarningOf(const std::vector<PepSweepPoint> &points) {
  std::size_t condensed = 0, open = 0;
  for (const PepSweepPoint &p : points) {
    condensed += p.Figures.CondensedPart.value_or(0) > MuchCondensed;
    open += !p.Figures.Converged;
  }
  std::string text;
  if (condensed > 0)
    text = fmt::format("More than 30 % of the products are condensed at {} of {} weights. ", condensed,
                       points.size());
  if (open > 0)
    text +=
        fmt::format("The result did not converge at {} of {} weights: do not trust it.", open, points.size());
  return text;
}

} // namespace

void ShowSweepChoices(Workbench &bench) {
  Screen &out = bench.Out;
  std::vector<std::string> names;
  for (const PepIngredient &i : bench.Pep.Inputs.Ingredient) {
    const std::string &name = bench.Pep.Files.Ingredient[static_cast<std::size_t>(i.ListPosition - 1)].Name;
    if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
  }
  std::size_t first = 0;
  for (const Ctl list : {Ctl::Sweep_Raised, Ctl::Sweep_Lowered}) {
    Control &shown = out[list];
    shown.Item = names;
    auto held = std::find(names.begin(), names.end(), shown.Text);
    if (held == names.end() && first < names.size())
      held = names.begin() + static_cast<std::ptrdiff_t>(first);
    shown.Index = held == names.end() ? -1 : static_cast<int>(held - names.begin());
    shown.Text = held == names.end() ? "" : *held;
    ++first;
  }
}

bool ChooseSwept(Workbench &bench, Ctl list, const std::string &name) {
  if (list != Ctl::Sweep_Raised && list != Ctl::Sweep_Lowered) return false;
  bench.Out[list].Text = name;
  if (list == Ctl::Sweep_Raised) bench.Out[Ctl::Sweep_From].Text = bench.Out[Ctl::Sweep_To].Text = "";
  ShowSweepChoices(bench);
  OfferSpan(bench);
  return true;
}

void ToggleSweep(Workbench &bench) {
  Thermo &state = bench.Pep;
  state.Sweeping = !state.Sweeping;
  state.Kind = PepReport::None;
  if (state.Sweeping) {
    if (state.Sweep.empty()) state.SweepPressure = state.Pressure;
    ShowSweepChoices(bench);
    OfferSpan(bench);
  }
  ShowPepChart(bench);
}

void RunSweep(Workbench &bench) {
  Thermo &state = bench.Pep;
  std::vector<SweepStep> steps;
  std::vector<PepSweepPoint> points;
  state.SweepTrouble = Plan(bench, steps);
  if (!state.SweepTrouble.empty()) return;
  bench.Running = true;
  state.SweepTrouble = RunSteps(bench, steps, points);
  bench.Running = false;
  bench.Out[Ctl::ProgressBar1].Text = "0";
  if (!state.SweepTrouble.empty()) return;
  state.SweepTrouble = WarningOf(points);
  state.Sweep = std::move(points);
  state.SweepTitle = "Weight of " + bench.Out[Ctl::Sweep_Raised].Text + ", g, taken from " +
                     bench.Out[Ctl::Sweep_Lowered].Text;
  state.SweepPressure = state.Pressure;
  ShowPepChart(bench);
}

Report SweepReport(const Thermo &state) {
  Report report;
  report.Title = fmt::format("Sweep at {:.2f} MPa", state.SweepPressure);
  report.Line.push_back(state.SweepTitle);
  ReportTable table;
  table.Column = {"Weight g", "T K",       "c* m/s",      "Isp s",  "Frozen s",
                  "Gamma",    "Gas g/mol", "Condensed %", "Settled"};
  const auto cell = [](const PepFigures::Figure &figure, const char *mask) {
    return figure && std::isfinite(*figure) ? FormatMask(*figure, mask) : std::string("-");
  };
  for (const PepSweepPoint &p : state.Sweep) {
    const PepFigures &f = p.Figures;
    PepFigures::Figure condensed = f.CondensedPart;
    if (condensed) *condensed *= 100;
    table.Row.push_back({PlainText(RoundPlaces(p.Weight, 6)), cell(f.ChamberTemperature, "0.0"),
                         cell(f.CStar[Shifting], "0.0"), cell(f.Isp[Shifting], "0.0"),
                         cell(f.Isp[Frozen], "0.0"), cell(f.Gamma, "0.0000"), cell(f.MeanGasWeight, "0.000"),
                         cell(condensed, "0.0"), f.Converged ? "yes" : "no"});
  }
  report.Table.push_back(std::move(table));
  return report;
}
