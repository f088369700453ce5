#include "shell/pep_window.h"

#include "base/number_text.h"
#include "shell/pep_chart.h"
#include "shell/pep_inputs.h"
#include "shell/pep_keep.h"
#include "shell/pep_memory.h"
#include "shell/pep_pick.h"
#include "shell/pep_report.h"
#include "shell/pep_sweep.h"
#include "shell/pressure_inputs.h"
#include "thermochem/data_files.h"

#include <filesystem>
#include <utility>

namespace {

constexpr int EnterKey = 13, EscapeKey = 27;
constexpr const char *OpenTrouble = "Error loading PEP simulation form";

constexpr std::pair<Ctl, PepCurve> CurveButtons[] = {
    {Ctl::Curve_T, PepCurve::Temperature}, {Ctl::Curve_CStar, PepCurve::CStar},
    {Ctl::Curve_Isp, PepCurve::Isp},       {Ctl::Curve_Gamma, PepCurve::Gamma},
    {Ctl::Curve_Gas, PepCurve::Gas},       {Ctl::Curve_Species, PepCurve::Species}};
constexpr std::pair<Ctl, PepReport> ReportButtons[] = {{Ctl::Chem_Report, PepReport::Products},
                                                       {Ctl::Ing_Input, PepReport::Ingredients},
                                                       {Ctl::Report1, PepReport::State},
                                                       {Ctl::Report2, PepReport::Expansion},
                                                       {Ctl::ThermoChem_Report, PepReport::Performance},
                                                       {Ctl::Sweep_Report, PepReport::Sweep}};
constexpr Ctl SweepRow[] = {Ctl::Sweep_Raised,  Ctl::Sweep_From, Ctl::Sweep_To,    Ctl::Sweep_Step,
                            Ctl::Sweep_Lowered, Ctl::Run_Sweep,  Ctl::Sweep_Report};

void Hide(Workbench &bench) {
  bench.Out[Ctl::PEP_SimA].Visible = false;
  RememberPep(bench);
}

std::string ReadFiles(Workbench &bench) {
  const std::string beside = std::filesystem::path(ExecutablePath()).parent_path().string() + "/";
  DataFiles files;
  std::string trouble =
      ReadDataFiles(FindDataFiles({bench.Folders.AppDir, bench.Folders.Install, beside}), files);
  if (trouble.empty()) bench.Pep.Files = std::move(files);
  return trouble;
}

void ShowRun(Workbench &bench) {
  Thermo &state = bench.Pep;
  bench.Out[Ctl::Pc_Min_Label].Text = bench.Out[Ctl::Pc_Lower_Range].Text;
  bench.Out[Ctl::Pc_Max_Label].Text = bench.Out[Ctl::Pc_Higher_Range].Text;
  state.Figures.clear();
  for (const PepCase &one : state.Run.Case) state.Figures.push_back(FiguresOf(state.Run, one));
  OpenPick(bench);
  ShowResultGrid(bench);
  ShowPepChart(bench);
  UpdateReports(bench);
}

void RunSim(Workbench &bench) {
  Screen &out = bench.Out;
  Thermo &state = bench.Pep;
  ReadPepInputs(bench);
  if (!state.Objection.empty()) {
    out.Focus = state.ObjectedBox;
    return;
  }
  bench.Running = true;
  out[Ctl::Run_Sim].Text = "Processing";
  out.Wait(0);
  PepOutcome run = RunPep(state.Inputs, state.Files, [&](int finished) {
    out[Ctl::ProgressBar1].Text = std::to_string(finished);
    out.Wait(0);
    return true;
  });
  out[Ctl::Run_Sim].Text = RowOf(Ctl::Run_Sim).Text;
  out[Ctl::ProgressBar1].Text = "0";
  bench.Running = false;
  if (!run.Done) {
    state.Objection = run.Trouble;
    return;
  }
  state.Run = std::move(run);
  state.RunInputs = state.Inputs;
  state.Sweeping = false;
  state.Sweep.clear();
  state.SweepTitle.clear();
  ShowRun(bench);
  RememberPep(bench);
}

void Send(Workbench &bench) {
  Thermo &state = bench.Pep;
  state.SentCStar = FormatMask(*state.Pick.CStar, "0.0");
  state.SentIsp = FormatMask(*state.Pick.Isp, "0.00");
  Hide(bench);
  DeliverSent(bench);
}

void Press(Workbench &bench, const Event &event) {
  if (!bench.Out[event.Target].Enabled) return;
  for (const auto &[button, curve] : CurveButtons)
    if (button == event.Target) return ChooseCurve(bench, curve);
  for (const auto &[button, report] : ReportButtons)
    if (button == event.Target) return ShowReport(bench, report);
  if (const auto row = RowOfIngredient(event.Target)) return ChooseIngredient(bench, *row, event.Text);
  if (ChooseSwept(bench, event.Target, event.Text)) return;
  switch (event.Target) {
  case Ctl::Run_Sim: return RunSim(bench);
  case Ctl::Make_100: return MakeHundred(bench);
  case Ctl::Clear_Mix: return ClearMix(bench);
  case Ctl::Best_Ratio: return PickBestRatio(bench);
  case Ctl::Curve_Sweep: return ToggleSweep(bench);
  case Ctl::Run_Sweep: return RunSweep(bench);
  case Ctl::Result_Grid: return ChooseGridRow(bench, event.Text);
  case Ctl::Save_Report: return SaveReport(bench);
  case Ctl::Save_Pep_Chart: return SavePepChart(bench);
  case Ctl::Keep_Propellant: return KeepPropellant(bench);
  case Ctl::Close_and_Send: return Send(bench);
  case Ctl::PEP_Close: return Hide(bench);
  default: return;
  }
}

void Type(Workbench &bench, Ctl box, const std::string &text) {
  if (const auto row = RowOfIngredient(box)) return TypeIngredient(bench, *row, text);
  if (ChangePick(bench, box, text)) return;
  const auto weight = RowOfWeight(box);
  const bool input = box == Ctl::Propellant_Temp || box == Ctl::Pc_Lower_Range || box == Ctl::Pc_Higher_Range;
  const bool plain =
      box == Ctl::Sweep_From || box == Ctl::Sweep_To || box == Ctl::Sweep_Step || box == Ctl::Pep_Name;
  if (!weight && !input && !plain) return;
  bench.Out[box].Text = text;
  if (weight) TotalWeights(bench);
  if (weight || input) ReadPepInputs(bench);
}

void Key(Workbench &bench, const Event &event) {
  if (event.KeyCode == EscapeKey) return Hide(bench);
  if (event.KeyCode != EnterKey) return;
  if (const auto row = RowOfIngredient(event.Target)) {
    ChooseLikeliest(bench, *row);
    bench.Out.Focus = WeightInput(*row);
    return;
  }
  if (event.Target == Ctl::Pep_Name) return KeepPropellant(bench);
  for (const Ctl c : SweepRow)
    if (c == event.Target) return RunSweep(bench);
  RunSim(bench);
}

void Allow(Control &button, const char *hint, const std::string &whyNot) {
  button.Enabled = whyNot.empty();
  button.Hint = whyNot.empty() ? hint : whyNot;
}

std::string RowsWithout(Workbench &bench) {
  for (std::size_t row = 0; row < PepRows; ++row)
    if (bench.Pep.Position[row] == 0 && bench.Out[IngredientInput(row)].Text.empty() &&
        Val(bench.Out[WeightInput(row)].Text) != 0)
      return "Row " + std::to_string(row + 1) + " has a weight but no ingredient: it is left out";
  return "";
}

std::string Notice(Workbench &bench) {
  const Thermo &state = bench.Pep;
  const bool shown = state.Run.Done;
  if (!state.Objection.empty())
    return state.Objection + (shown ? ". The figures are those of the last run." : ".");
  for (const std::string &words :
       {bench.Out[Ctl::Total_Weight].Hint, state.PickObjection, RowsWithout(bench)})
    if (!words.empty()) return words + ".";
  if (RunIsStale(bench))
    return "The inputs have changed since the run: the figures are still the former ones.";
  return shown ? "" : "Choose ingredients and weights, then run.";
}

std::string Warnings(const Thermo &state) {
  std::string text;
  if (state.Run.Done)
    for (const std::string &warning : PepWarnings(state.Run, state.Files))
      text += (text.empty() ? "" : "\n") + warning;
  if (state.Sweeping && !state.SweepTrouble.empty()) text += (text.empty() ? "" : "\n") + state.SweepTrouble;
  return text;
}

} // namespace

void ShowPep(Workbench &bench) {
  Screen &out = bench.Out;
  out.Focus = Ctl::Ingredient_Input0;
  if (out[Ctl::PEP_SimA].Visible) return;
  if (const std::string trouble = ReadFiles(bench); !trouble.empty()) {
    out.Focus = Ctl::Count;
    out.Ask({std::string(OpenTrouble) + "\n\n" + trouble, out[Ctl::frmMain].Text, Buttons::Ok,
             Icon::Exclamation});
    return;
  }
  RecallPep(bench);
  for (std::size_t row = 0; row < PepRows; ++row)
    TypeIngredient(bench, row, std::string(out[IngredientInput(row)].Text));
  OpenPick(bench);
  ShowResultGrid(bench); // its headings, before there are rows
  UpdateReports(bench);
  out[Ctl::PEP_SimA].Visible = true;
}

void DeliverSent(Workbench &bench) {
  Thermo &state = bench.Pep;
  if (!state.SentCStar || !bench.Out[Ctl::Pressure_Results].Visible) return;
  ChangePressureInput(bench, Ctl::c_star, *std::exchange(state.SentCStar, std::nullopt));
  ChangePressureInput(bench, Ctl::Isp, *std::exchange(state.SentIsp, std::nullopt));
  bench.Out.Focus = Ctl::c_star;
}

void PepEvent(Workbench &bench, const Event &event) {
  if (!bench.Out[Ctl::PEP_SimA].Visible) return;
  switch (event.What) {
  case Event::Kind::Close: return Hide(bench);
  case Event::Kind::Key: return Key(bench, event);
  case Event::Kind::Press: return Press(bench, event);
  case Event::Kind::Text: return Type(bench, event.Target, event.Text);
  case Event::Kind::MouseMove:
    if (event.Target == Ctl::Pep_Chart) PointAtPepChart(bench, event.X);
    return;
  case Event::Kind::Leave: return LeavePepChart(bench);
  default: return;
  }
}

void RefreshPep(Workbench &bench) {
  Screen &out = bench.Out;
  const Thermo &state = bench.Pep;
  if (!out[Ctl::PEP_SimA].Visible) return LeavePepChart(bench);
  const bool report = state.Kind != PepReport::None;
  for (const auto &[button, curve] : CurveButtons) out[button].Checked = !report && state.Curve == curve;
  out[Ctl::Curve_Sweep].Checked = !report && state.Sweeping;
  out[Ctl::Pep_Chart].Visible = out[Ctl::Pep_Chart_Title].Visible = !report;
  out[Ctl::Result_Grid].Visible = !report && !state.Sweeping;
  out[Ctl::Save_Pep_Chart].Visible = !report;
  Allow(out[Ctl::Save_Pep_Chart], "This chart as a picture: PNG, SVG or PDF",
        out.Pep_Chart.Curve.empty() ? "There is no chart yet" : "");
  out[Ctl::Report_Text].Visible = out[Ctl::Save_Report].Visible = report;
  for (const Ctl c : SweepRow) out[c].Visible = !report && state.Sweeping;
  if (state.Sweeping) ShowSweepChoices(bench);

  const std::string noRun = state.Run.Done ? "" : "Run it first";
  const char *const reports[] = {"Products at chamber, throat and exits, in moles and in mass",
                                 "The mix, its elements, density and enthalpy",
                                 "The state of the flow at every point",
                                 "The expansion by area ratio from 1 to 100",
                                 "All pressures, with curves of c* and Isp over pressure",
                                 "The sweep's points as a table, to be copied or saved as text or CSV"};
  std::size_t place = 0;
  for (const auto &[button, kind] : ReportButtons) {
    Allow(out[button], reports[place++],
          kind != PepReport::Sweep ? noRun
          : state.Sweep.empty()    ? "Run a sweep first"
                                   : "");
    out[button].Checked = state.Kind == kind;
  }
  std::string notSent = noRun;
  if (notSent.empty() && RunIsStale(bench)) notSent = "The inputs have changed: run again first";
  if (notSent.empty() && !(state.Pick.CStar && state.Pick.Isp && *state.Pick.Isp > 0))
    notSent = "There is no c* or no impulse at this pressure and nozzle";
  Allow(out[Ctl::Close_and_Send], "c* and Isp, as picked here, go to the motor window; this one closes",
        notSent);
  Allow(out[Ctl::Keep_Propellant], "Puts density, c* and Isp under this name into the motor's library",
        notSent);
  Allow(out[Ctl::Best_Ratio], "The expansion that ends at the ambient pressure", noRun);
  Allow(out[Ctl::Make_100], "All weights in proportion, so that they add up to 100",
        Val(out[Ctl::Total_Weight].Text) > 0 ? "" : "There are no weights yet");
  const bool two = out[Ctl::Sweep_Raised].Item.size() > 1;
  Allow(out[Ctl::Run_Sweep], "Works out every step at the chosen chamber pressure",
        two ? "" : "A sweep needs two ingredients");
  out[Ctl::Pep_Note].Text = Notice(bench);
  out[Ctl::Pep_Note].Checked = !state.Objection.empty() || !state.PickObjection.empty();
  out[Ctl::Pep_Warning].Text = Warnings(state);
  out[Ctl::Pep_Warning].Visible = !out[Ctl::Pep_Warning].Text.empty();
}
