#include "base/number_text.h"
#include "drafting/ask_question.h"
#include "shell/template_play.h"

#include <string>

// TemplateNoteFrame: what is being recorded or played, above the drawing.

namespace {
std::string StripText(const Workbench &bench) {
  const TemplateState &state = bench.Template;
  if (state.Record.InLesson) return "Recording a template, as a lesson: it is not kept.";
  if (state.Record.Running) {
    const std::size_t steps = bench.Draft.Log.Row.size();
    return "Recording a template: " + std::to_string(steps) + (steps == 1 ? " step" : " steps") +
           ". Wherever a number is typed, a formula of the variables may stand; F2 in a field goes to them.";
  }
  const std::string at =
      std::to_string(state.Play.Next) + " of " + std::to_string(state.Play.Log.size()) + " steps";
  return "Drawing " + state.PlayName + ": " + at;
}

void ListVariables(Workbench &bench) {
  Control &list = bench.Out[Ctl::VariableList2];
  list.Visible = bench.Template.Record.Running;
  list.Item.clear();
  for (const VariableRow &row : bench.Draft.Variables.Row)
    if (row.Name.size() > 1)
      list.Item.push_back(row.Name.substr(1) + " = " + PlainText(static_cast<float>(row.Value)));
  if (!list.Visible) list.Index = -1;
}
} // namespace

void RefreshTemplates(Workbench &bench) {
  Screen &out = bench.Out;
  const TemplateState &state = bench.Template;
  const bool recording = state.Record.Running, playing = state.Play.Running;
  out[Ctl::TemplateNoteFrame].Visible = recording || playing;
  if (recording || playing) out[Ctl::TemplateNoteFrame].Text = StripText(bench);
  ListVariables(bench);
  for (const Ctl c : {Ctl::Paused_Button, Ctl::Macro_Step}) out[c].Visible = playing;
  out[Ctl::Paused_Button].Text = state.Paused ? "Continue" : "Pause";
  out[Ctl::Paused_Button].Hint = state.Paused ? "Draws the rest" : "Stands still after this step";
  out[Ctl::Macro_Step].Enabled = state.Paused;
  out[Ctl::Macro_Step].Hint = "Draws the next step";
  out[Ctl::Stop_Macro].Visible = recording || playing;
  out[Ctl::Stop_Macro].Hint =
      recording ? "Names the template and keeps it" : "Puts the design back as it was";
  out[Ctl::Cancel_Macro].Visible = recording && !state.Record.InLesson;
  out[Ctl::Cancel_Macro].Hint = "Gives the template up; the drawing stays";
  out[Ctl::MacroParams_Value].Checked = !state.ByMouse;
  out[Ctl::MacroParams_Mouse].Checked = state.ByMouse;
  if (recording || playing) out[Ctl::MyChart1_Frame].Visible = out[Ctl::MyChart2_Frame].Visible = false;
}
