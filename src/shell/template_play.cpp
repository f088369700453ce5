#include "shell/template_play.h"

#include "base/number_text.h"
#include "burnback/run_sim.h"
#include "drafting/ask_question.h"
#include "drafting/command_machine.h"
#include "drafting/commit.h"
#include "shell/design_view.h"
#include "shell/grain_file.h"
#include "shell/template_form.h"
#include "shell/template_record.h"

#include <utility>

namespace {
constexpr int WithQuestions = 2, MiddleButton = 4;
constexpr double StepPause = 0.15; // seconds from one instruction to the next, to be followed by eye

void Tell(Workbench &bench, const std::string &text) {
  bench.Out.Ask({text, "Template", Buttons::Ok, Icon::Exclamation});
}

// The dimensions are no part of what the play itself puts back.
void PutDimensionsBack(Workbench &bench) {
  if (SameDimensions(bench.Grain.Doc, bench.Template.Before)) return;
  bench.Grain.Doc = bench.Template.Before;
  ShowWholeGrain(bench);
}

void Ended(Workbench &bench) {
  TemplateState &state = bench.Template;
  state.Paused = false;
  if (!state.Play.Fault.empty()) {
    PutDimensionsBack(bench);
    return Tell(bench, state.PlayName + ": " + state.Play.Fault);
  }
  state.UsedName = state.PlayName;
  state.UsedValues = state.PlayValues;
  ShowWholeGrain(bench);
}

// The panel shows the drawing as it has become; the play itself draws nothing.
void ShowStep(Workbench &bench) {
  const int mode = std::exchange(bench.Grain.MacroMode, 0);
  RedrawPanel(bench.Draft);
  bench.Grain.MacroMode = mode;
}

void RunToEnd(Workbench &bench, bool watched) {
  TemplateState &state = bench.Template;
  while (state.Play.Running && !state.Paused) {
    if (!NextInstruction(state.Play, bench.Draft)) return Ended(bench);
    if (!watched) continue;
    ShowStep(bench);
    bench.Out.Wait(StepPause);
  }
}

MacFile ReadTemplate(Workbench &bench, const std::string &keyOrPath, std::string &trouble) {
  MacFile mac;
  const std::string path = FindTemplate(bench.Template.Folders, keyOrPath);
  trouble = path.empty() ? MissingTemplate() : ReadMacFile(path, mac);
  return mac;
}
} // namespace

std::string MissingTemplate() {
  return "Can't find Macro Template file. Note: All Macro files must be in the Applicaion Directory";
}

void MacroPlay2_Click(Workbench &bench, const std::string &keyOrPath, int mode) {
  TemplateState &state = bench.Template;
  if (state.Record.Running || state.Play.Running) return;
  LeaveResults(bench.Grain, bench.Out, bench.Sim);
  LeaveCommand(bench.Draft);
  std::string trouble = WriteWorkFile(bench.Folders.AppDir + "CurrentWorkFile", bench.Grain);
  if (!trouble.empty()) Tell(bench, trouble); // it is kept in memory as well
  const MacFile mac = ReadTemplate(bench, keyOrPath, trouble);
  if (!trouble.empty()) return Tell(bench, trouble);
  state.Before = bench.Grain.Doc;
  state.PlayName = TemplateName(keyOrPath);
  bool stepped = false;
  GrainDoc doc = bench.Grain.Doc;
  if (mode == WithQuestions && HasVariables(mac)) {
    if (!AskTemplateValues(bench, state.PlayName, mac)) return;
    state.PlayValues = state.Ask.Values;
    doc = state.Ask.Doc;
    stepped = bench.Out[Ctl::Template_Steps].Checked;
  } else {
    trouble = AnswerTemplate(mac, {}, doc.GrainDiam, static_cast<double>(doc.GrainLength), state.PlayValues);
    if (!trouble.empty()) return Tell(bench, state.PlayName + ": " + trouble);
  }
  bench.Grain.Doc = doc;
  ShowWholeGrain(bench);
  BeginPlay(state.Play, bench.Draft, mac, state.PlayValues);
  state.Paused = stepped;
  if (stepped) return ShowStep(bench);
  RunToEnd(bench, false);
}

void MacroPause(Workbench &bench) {
  TemplateState &state = bench.Template;
  if (!state.Play.Running) return;
  state.Paused = !state.Paused;
  if (!state.Paused) RunToEnd(bench, true);
}

void MacroStep(Workbench &bench) {
  TemplateState &state = bench.Template;
  if (!state.Play.Running || !state.Paused) return;
  if (NextInstruction(state.Play, bench.Draft))
    ShowStep(bench);
  else
    Ended(bench);
}

void Stop_Macro(Workbench &bench) {
  TemplateState &state = bench.Template;
  if (state.Record.Running) return FinishRecording(bench);
  if (!state.Play.Running) return;
  StopPlay(state.Play, bench.Draft);
  state.Paused = false;
  PutDimensionsBack(bench);
}

void CancelMacro(Workbench &bench) {
  if (bench.Template.Record.Running)
    CancelRecording(bench);
  else
    Stop_Macro(bench);
}

bool PlayHolds(const Workbench &bench, const Event &event) {
  if (!bench.Template.Play.Running) return false;
  switch (event.Target) {
  case Ctl::frmMain: return event.What != Event::Kind::Close;
  case Ctl::mnuFileExit:
  case Ctl::Paused_Button:
  case Ctl::Macro_Step:
  case Ctl::Stop_Macro:
  case Ctl::Cancel_Macro:
  case Ctl::Zoom_Reset:
  case Ctl::Zoom_x2:
  case Ctl::Zoom_1h: return false;
  case Ctl::DrawPanel:
    return event.What != Event::Kind::Wheel && event.What != Event::Kind::Resize &&
           event.Button != MiddleButton && !(event.What == Event::Kind::MouseMove && bench.Panning);
  default: return true;
  }
}
