#include "shell/results_form.h"

#include "base/number_text.h"
#include "base/whole_file.h"
#include "burnback/results_export.h"
#include "burnback/run_driver.h"
#include "drafting/command_machine.h"
#include "shell/form_answer.h"

#include <array>
#include <filesystem>

namespace {
constexpr const char *ResultsFilter = "All Files (*.*)|*.*|Comma Sep Value Files (*.csv)|*.csv";
constexpr std::uint32_t OnColour = 255 | 224 << 8 | 192 << 16;
constexpr std::array<Ctl, 6> Columns{Ctl::Burn_Dist_Col, Ctl::Core_Area_Col,  Ctl::Conduit_Area_Col,
                                     Ctl::Ends_Area_Col, Ctl::Total_Area_Col, Ctl::KnRatio_Col};

void Tell(Workbench &bench, const std::string &text) {
  bench.Out.Ask({text, "Save Results", Buttons::Ok, Icon::Exclamation});
}

void SetColumn(Control &toggle, bool on) {
  toggle.Checked = on;
  toggle.Colour = on ? OnColour : 0;
}

// The formulas name rows 4 and 7.
void ShowNote(Screen &out) {
  const bool right = out[Ctl::IncludeDimensions].Checked && out[Ctl::Results_Header].Text.empty() &&
                     out[Ctl::Burn_Dist_Col].Checked;
  out[Ctl::Results_Note].Text = right ? "Pressure, burn rate and time are formulas over the dimensions' row."
                                      : "The formulas are right only with the dimensions and the Burn Dist "
                                        "label, and without a header.";
}

void FillForm(Workbench &bench) {
  Screen &out = bench.Out;
  out[Ctl::Burn_Inc].Text = PlainText(OfferedResultStep(bench.Grain.Doc));
  out[Ctl::Results_Header].Text.clear();
  out[Ctl::IncludeDimensions].Checked = true;
  const bool made = !bench.Template.UsedName.empty();
  out[Ctl::Include_Template_Data].Enabled = made;
  out[Ctl::Include_Template_Data].Checked = false;
  out[Ctl::Include_Template_Data].Hint = made ? "" : "The design is no template's";
  for (const Ctl column : Columns) SetColumn(out[column], true);
  ShowNote(out);
}

ResultsForm FormOf(const Workbench &bench) {
  const Screen &out = bench.Out;
  ResultsForm form;
  form.Header = out[Ctl::Results_Header].Text;
  form.IncludeDimensions = out[Ctl::IncludeDimensions].Checked;
  for (std::size_t i = 0; i < Columns.size(); ++i) form.Column[i] = out[Columns[i]].Checked;
  if (!out[Ctl::Include_Template_Data].Checked) return form;
  form.TemplateName = bench.Template.UsedName;
  for (const VariableRow &row : bench.Template.UsedValues.Row)
    if (row.Name.size() > 1 && &row >= &bench.Template.UsedValues.Row[FirstUserVariable])
      form.TemplateValue.emplace_back(row.Name.substr(1), row.Value);
  return form;
}

// Empty: called off.
std::string AskResultsFile(Workbench &bench) {
  const std::filesystem::path design(bench.Grain.CurrentFile);
  const std::string initial =
      design.empty() ? "results.csv" : (design.parent_path() / design.stem()).string() + ".csv";
  const auto chosen = bench.Out.AskFile(FileUse::SaveAs, ResultsFilter, initial);
  if (!chosen || chosen->empty()) return {};
  if (!std::filesystem::path(*chosen).extension().empty()) return *chosen;
  const std::string path = *chosen + ".csv";
  const std::string question =
      std::filesystem::path(path).filename().string() + " already exists. Replace it?";
  const bool replaces = FileExists(path); // the file dialog saw another name
  if (replaces && bench.Out.Ask({question, "Save As", Buttons::YesNo, Icon::Exclamation}) != Answer::Yes)
    return {};
  return path;
}

void Accept(Workbench &bench) {
  constexpr NumberRange above{0, 1e6, false, true};
  const auto step = FormNumber(bench, Ctl::Burn_Inc, bench.Out[Ctl::Burn_Inc].Text, above);
  if (!step) return;
  if (const std::string trouble = CheckStep(bench.Grain.Doc.GrainRadius, *step); !trouble.empty()) {
    Tell(bench, trouble);
    bench.Out.Focus = Ctl::Burn_Inc;
    return;
  }
  bench.Results.ResultBurnInc = *step;
  bench.Results.File = AskResultsFile(bench);
  bench.Out[Ctl::Save_Results_Form].Visible = false;
}

void Press(Screen &out, Ctl target) {
  Control &pressed = out[target];
  if (!pressed.Enabled) return;
  if (target == Ctl::IncludeDimensions || target == Ctl::Include_Template_Data)
    pressed.Checked = !pressed.Checked;
  for (const Ctl column : Columns)
    if (column == target) SetColumn(pressed, !pressed.Checked);
}

void RunAndWrite(Workbench &bench) {
  BurnOptions options;
  options.WorkFolder = bench.Grain.AppDir;
  options.DebugMode = bench.Grain.DebugMode;
  options.Progress = [&](double part) { return bench.Out.Progress(part); };
  std::string text;
  BurnRefusal refusal;
  bench.Running = bench.Out[Ctl::SimMsg].Visible = true;
  const bool burnt =
      ExportResults(bench.Grain, options, bench.Results.ResultBurnInc, FormOf(bench), text, refusal);
  bench.Running = bench.Out[Ctl::SimMsg].Visible = false;
  if (burnt) refusal.Text = WriteWhole(bench.Results.File, text);
  if (!refusal.Text.empty() && !refusal.Stopped) Tell(bench, RefusalWords(refusal));
}
} // namespace

void SaveResults(Workbench &bench) {
  Screen &out = bench.Out;
  LeaveCommand(bench.Draft);
  if (bench.Grain.Table.EntCount < 0) {
    out.Ask({"Can't Simulate End Burning Geometries", "Save Results", Buttons::Ok, Icon::Stop});
    return;
  }
  FillForm(bench);
  bench.Results = {};
  out[Ctl::Save_Results_Form].Visible = true;
  out.Focus = Ctl::Burn_Inc;
  out.RunModal(Form::SaveResults);
  out[Ctl::Save_Results_Form].Visible = false;
  if (!bench.Results.File.empty()) RunAndWrite(bench);
  LeaveResults(bench.Grain, out, bench.Sim);
}

void SaveResultsEvent(Workbench &bench, const Event &event) {
  Screen &out = bench.Out;
  if (!out[Ctl::Save_Results_Form].Visible) return;
  switch (ActOf(event, Ctl::Save_File, Ctl::Results_Cancel)) {
  case FormAct::Accept: return Accept(bench);
  case FormAct::Cancel: out[Ctl::Save_Results_Form].Visible = false; return;
  case FormAct::None: break;
  }
  if (event.What == Event::Kind::Press) Press(out, event.Target);
  if (event.What == Event::Kind::Text &&
      (event.Target == Ctl::Burn_Inc || event.Target == Ctl::Results_Header))
    out[event.Target].Text = event.Text;
  ShowNote(out);
}
