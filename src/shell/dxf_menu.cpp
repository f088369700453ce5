#include "shell/dxf_menu.h"

#include "drafting/command_machine.h"
#include "dxf/dxf_import.h"
#include "dxf/dxf_writer.h"
#include "shell/design_view.h"
#include "shell/file_menu.h"
#include "shell/form_answer.h"
#include "shell/recovery.h"

#include <filesystem>

namespace {
constexpr const char *DxfFilter = "All Files (*.*)|*.*|DXF Files(*.dxf)|*.dxf";

std::string DxfName(const std::string &grainFile) { // what the save dialog offers
  return grainFile.empty() ? "" : std::filesystem::path(grainFile).replace_extension(".dxf").string();
}

void Tell(Workbench &bench, const char *title, const std::string &words, Icon mark, bool passing = false) {
  Box box{words, title, Buttons::Ok, mark};
  box.Passing = passing;
  bench.Out.Ask(box);
}

std::string WordsOf(const DxfImportReport &report) {
  std::string words;
  for (const std::string &line : report.Words) words += (words.empty() ? "" : "\n") + line;
  return words;
}
} // namespace

void ExportDXF(Workbench &bench) {
  Screen &out = bench.Out;
  out[Ctl::Plain_R12].Checked = GetSetting(bench.Settings, "Settings", "PlainR12", "0") != "0";
  bench.ExportFlag = false;
  out[Ctl::Export_DXF].Visible = true;
  out.Focus = Ctl::Export_Now;
  out.RunModal(Form::ExportDxf);
  out[Ctl::Export_DXF].Visible = false;
  if (!bench.ExportFlag) return;
  const bool plain = out[Ctl::Plain_R12].Checked;
  SaveSetting(bench.Settings, "Settings", "PlainR12", plain ? "1" : "0");
  WriteSettings(bench.Settings);
  const auto path = out.AskFile(FileUse::SaveAs, DxfFilter, DxfName(bench.Grain.CurrentFile));
  if (!path || path->empty()) return;
  const DxfChoice choice{plain ? DxfForm::PlainR12 : DxfForm::Own, out[Ctl::Include_Grain].Checked};
  const std::string trouble = WriteDxfFile(*path, bench.Grain, choice);
  if (!trouble.empty()) Tell(bench, "Export DXF", trouble, Icon::Exclamation);
}

void ExportDxfEvent(Workbench &bench, const Event &event) {
  Screen &out = bench.Out;
  if (!out[Ctl::Export_DXF].Visible) return;
  if (event.What == Event::Kind::Press)
    for (const Ctl box : {Ctl::Include_Grain, Ctl::Plain_R12})
      if (event.Target == box) out[box].Checked = !out[box].Checked;
  const FormAct act = ActOf(event, Ctl::Export_Now, Ctl::Cancel_Now);
  if (act == FormAct::None) return;
  bench.ExportFlag = act == FormAct::Accept;
  out[Ctl::Export_DXF].Visible = false;
}

void ImportDxfDrawing(Workbench &bench) {
  if (!SaveFirst(bench)) return;
  const auto path = bench.Out.AskFile(FileUse::Open, DxfFilter, "");
  if (!path || path->empty()) return;
  Design fresh = bench.Grain;
  DxfImportReport report;
  bool tooMany = false;
  const std::string trouble = ImportDxfFile(*path, {}, fresh, report, tooMany);
  if (!trouble.empty()) return Tell(bench, "Import DXF", trouble, Icon::Exclamation);
  LeaveResults(bench.Grain, bench.Out, bench.Sim);
  fresh.CurrentFile.clear();
  fresh.SavedFlag = false;
  bench.Grain = fresh;
  bench.Template.UsedName.clear();
  ResetDrafting(bench.Draft);
  bench.Caption = std::filesystem::path(*path).filename().string();
  bench.Recovered.Open = false;
  ClearResults(bench);
  KeepWorkFile(bench);
  ShowWholeGrain(bench);
  Tell(bench, "Import DXF", WordsOf(report), report.Asks ? Icon::Exclamation : Icon::None,
       report.Words.size() == 1);
}
