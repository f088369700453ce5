#include "shell/pressure_window.h"

#include "shell/compare.h"
#include "shell/pressure_chart.h"
#include "shell/pressure_export.h"
#include "shell/pressure_inputs.h"
#include "shell/propellant_form.h"

#include <utility>

namespace {

constexpr int EscapeKey = 27;
constexpr std::pair<Ctl, ChartKind> ChartButtons[] = {{Ctl::KN_Chart, ChartKind::KN_Chart},
                                                      {Ctl::Chart_Pressure, ChartKind::Chart_Pressure},
                                                      {Ctl::Chart_Thrust, ChartKind::Chart_Thrust},
                                                      {Ctl::Chart_Mass_Flow, ChartKind::Chart_Mass_Flow},
                                                      {Ctl::Mass_Flow_Rate, ChartKind::Mass_Flow_Rate},
                                                      {Ctl::Chart_Mass_Flux, ChartKind::Chart_Mass_Flux},
                                                      {Ctl::Core_Gas_Velocity, ChartKind::Core_Gas_Velocity},
                                                      {Ctl::Area_Chart, ChartKind::Area_Chart}};

void Hide(Workbench &bench) { bench.Out[Ctl::Pressure_Results].Visible = false; }

void Choose(Control &list, const std::string &item) {
  list.Index = -1;
  for (std::size_t i = 0; i < list.Item.size(); ++i)
    if (list.Item[i] == item) list.Index = static_cast<int>(i);
}

void Press(Workbench &bench, const Event &event) {
  Screen &out = bench.Out;
  if (!out[event.Target].Enabled) return;
  for (const auto &[button, kind] : ChartButtons)
    if (button == event.Target) return PressChart(bench, kind);
  switch (event.Target) {
  case Ctl::Pressure_Close: return Hide(bench);
  case Ctl::Propellant_Choice: return ChoosePropellant(bench, event.Text);
  case Ctl::Edit_Propellants: return EditPropellants(bench);
  case Ctl::Convert_Imperial_a: return ConvertImperial(bench);
  case Ctl::Keep_Result: return KeepResult(bench);
  case Ctl::Load_Measured: return LoadMeasured(bench);
  case Ctl::Compare_Table: return Choose(out[Ctl::Compare_Table], event.Text);
  case Ctl::Compare_Remove: return RemoveCompared(bench);
  case Ctl::Save_Chart: return SaveChart(bench);
  case Ctl::Export_Eng: return ExportThrustFile(bench);
  case Ctl::Export_Channels: return ExportChannels(bench);
  case Ctl::Export_Report: return ExportMotorReport(bench);
  default: return;
  }
}

void Allow(Control &button, const char *hint, const std::string &whyNot) {
  button.Enabled = whyNot.empty();
  button.Hint = whyNot.empty() ? hint : whyNot;
}

} // namespace

void ShowPressureResults(Workbench &bench) {
  Screen &out = bench.Out;
  if (!bench.Sim.ResultMode) return;
  out.Focus = Ctl::burn_rate_a;
  if (out[Ctl::Pressure_Results].Visible) return;
  Pressure &state = bench.Motor;
  state.Table = TableOfRun(bench.Sim.Run);
  state.ChartNumber = 0;
  state.Chart = {};
  state.Run = {};
  state.Chosen.clear();
  state.Loading = true;
  LoadPropellantLibrary(bench);
  FillPressureInputs(bench);
  state.Loading = false;
  ShowPlot(bench);
  out[Ctl::Pressure_Results].Visible = true;
  if (!state.LibraryTrouble.empty())
    out.Ask({state.LibraryTrouble, out[Ctl::Pressure_Results].Text, Buttons::Ok, Icon::Exclamation});
  PressChart(bench, ChartKind::KN_Chart);
}

void PressureEvent(Workbench &bench, const Event &event) {
  if (!bench.Out[Ctl::Pressure_Results].Visible) return;
  switch (event.What) {
  case Event::Kind::Close: return Hide(bench);
  case Event::Kind::Key:
    if (event.KeyCode == EscapeKey) Hide(bench);
    return;
  case Event::Kind::Press: return Press(bench, event);
  case Event::Kind::Text: return ChangePressureInput(bench, event.Target, event.Text);
  case Event::Kind::MouseMove:
    if (event.Target == Ctl::My_Chart3) PointAtChart(bench, event.X);
    return;
  case Event::Kind::Leave: return LeaveChart(bench);
  default: return;
  }
}

void RefreshPressure(Workbench &bench) {
  Screen &out = bench.Out;
  const Pressure &state = bench.Motor;
  if (!bench.Sim.ResultMode) Hide(bench);
  if (!out[Ctl::Pressure_Results].Visible) {
    out.My_Chart3.Cursor = -1;
    return;
  }
  for (const auto &[button, kind] : ChartButtons)
    out[button].Checked = state.ChartNumber > 0 && state.Kind == kind;
  const std::string noChart = state.Chart.Value.empty() ? "There is no chart yet" : "";
  const std::string noRun =
      state.Run.Sample.empty() ? "There are no figures yet: the inputs cannot be used" : "";
  const bool full = state.Kept.size() >= MostKept;
  Allow(out[Ctl::Keep_Result], "Keeps these figures, to be drawn over what comes next",
        full ? "Six results are kept: remove one first" : noRun);
  Allow(out[Ctl::Load_Measured], "A measured curve (time, value in this chart's unit) over the chart",
        state.Measured.size() >= MostMeasured ? "Four curves are loaded: remove one first" : noChart);
  const Control &table = out[Ctl::Compare_Table];
  const bool chosen = table.Index >= 0 && CanRemove(bench);
  Allow(out[Ctl::Compare_Remove], "Takes the row chosen from the comparison",
        chosen ? "" : "Choose a kept result or a measured curve first");
  Allow(out[Ctl::Save_Chart], "The chart as PNG, SVG or PDF", noChart);
  Allow(out[Ctl::Export_Eng], "Thrust over time for flight simulators", noRun);
  Allow(out[Ctl::Export_Channels], "Time, distance, Kn, pressure, thrust, mass flow and flux", noRun);
  Allow(out[Ctl::Export_Report], "One page: drawing, figures, charts, inputs", noRun);
  Allow(out[Ctl::Edit_Propellants], "Add, change and delete propellants", state.LibraryTrouble);
  out[Ctl::Convert_Imperial_a].Hint = "Converts a burn rate coefficient of in/s at psi";
}
