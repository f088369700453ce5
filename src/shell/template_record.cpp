#include "shell/template_record.h"

#include "burnback/run_sim.h"
#include "drafting/ask_question.h"
#include "drafting/command_machine.h"
#include "drafting/point_fields.h"
#include "macros/lesson_template.h"
#include "macros/template_values.h"
#include "platform/events.h"
#include "shell/dispatch.h"
#include "shell/grain_file.h"
#include "shell/template_form.h"
#include "shell/template_gallery.h"
#include "shell/template_picture.h"

#include <algorithm>
#include <filesystem>
#include <span>
#include <system_error>
#include <utility>

namespace {
constexpr const char *Title = "Make Template";

bool Tell(Workbench &bench, const std::string &text, bool passing = false) {
  bench.Out.Ask({text, Title, Buttons::Ok, passing ? Icon::None : Icon::Exclamation, passing});
  return false;
}

bool Sure(Workbench &bench, const std::string &question) {
  return bench.Out.Ask({question, Title, Buttons::YesNo, Icon::Question}) == Answer::Yes;
}

bool End(Workbench &bench) {
  EndRecording(bench.Template.Record, bench.Draft);
  bench.Template.Field = Ctl::Count;
  bench.Out.Focus = Ctl::DrawPanel;
  return true;
}

// Empty: called off.
std::string AskName(Workbench &bench) {
  std::string name;
  for (;;) {
    name = AskText(bench.Out, "Enter Name for Grain Geometry:", "Macro Name", name);
    const auto first = name.find_first_not_of(" \t");
    if (first == name.npos) return {};
    name = name.substr(first, name.find_last_not_of(" \t") - first + 1);
    if (const std::string why = FileNameObjection(name); !why.empty()) {
      Tell(bench, why);
      continue;
    }
    const bool kept = !bench.Template.Record.InLesson;
    const std::string there = kept ? FindTemplate(bench.Template.Folders, name) : "";
    if (there.empty() ||
        Sure(bench, std::filesystem::path(there).filename().string() + " already exists. Replace it?"))
      return name;
  }
}

// What the file's play draws must be what was drawn.
bool PlaysBack(Workbench &bench, const MacFile &mac) {
  Design again = bench.Grain;
  const GrainDoc &doc = bench.Grain.Doc;
  const TemplateResult result = DesignFromTemplate(*MakeTemplatePlayer(), mac, mac.Variables,
                                                   {doc.GrainDiam, static_cast<double>(doc.GrainLength),
                                                    static_cast<double>(doc.ThroatDiam), doc.EndsExposed},
                                                   again);
  const std::string why = !result.Trouble.empty()        ? result.Trouble
                          : SameBurn(again, bench.Grain) ? ""
                                                         : "its play draws something else";
  return why.empty() ||
         Sure(bench, "The template does not repeat what was drawn: " + why + "\nSave it all the same?");
}

// The steps are those of the lesson; nothing is written.
void EndInLesson(Workbench &bench, const std::string &name, MacFile &mac) {
  const LessonPlay &play = bench.Tutor.Play;
  const std::span<const Instruction> rows =
      play.Running ? std::span(play.Log).first(play.Next) : std::span(std::as_const(bench.Draft.Log.Row));
  mac.Log = TemplateOfLesson(rows, mac.Variables.Row[0].Value, mac.Variables.Row[1].Value).Log;
  if (HasVariables(mac) && !AskPrompts(bench, name, mac)) return;
  LogTemplateEnd(bench.Draft, name, mac.Variables);
  End(bench);
}

bool WriteTemplate(Workbench &bench, const std::string &name, const MacFile &mac) {
  TemplateState &state = bench.Template;
  std::string path = FindTemplate(state.Folders, name);
  if (path.empty()) path = state.Folders.Template + WithMacEnding(name);
  std::string trouble = WriteMacFile(path, mac);
  if (trouble.empty()) trouble = ListTemplate(state, KeyOf(path), mac);
  return trouble.empty() || Tell(bench, trouble);
}
} // namespace

void Macro(Workbench &bench) {
  TemplateState &state = bench.Template;
  if (state.Record.Running) return;
  LeaveResults(bench.Grain, bench.Out, bench.Sim);
  if (!bench.Draft.Log.On) LeaveCommand(bench.Draft); // a lesson's log would know nothing of it
  state.Named = {};
  SetGrainVariables(state.Named, bench.Grain.Doc.GrainDiam, static_cast<double>(bench.Grain.Doc.GrainLength));
  if (AskVariableNames(bench)) M2(bench);
}

void M2(Workbench &bench) {
  if (bench.Draft.Log.On) { // of the lesson that is played or recorded
    LogTemplateBegin(bench.Draft, bench.Template.Named);
    bench.Template.Record.Running = bench.Template.Record.InLesson = true;
    bench.Template.Field = Ctl::Count;
    bench.Out.Focus = Ctl::DrawPanel;
    return;
  }
  const std::string trouble = WriteWorkFile(bench.Folders.AppDir + "CurrentWorkFile", bench.Grain);
  if (!trouble.empty()) Tell(bench, trouble);
  BeginRecording(bench.Template.Record, bench.Draft, bench.Template.Named);
  bench.Template.Field = Ctl::Count;
  bench.Out.Focus = Ctl::DrawPanel;
}

void FinishRecording(Workbench &bench) {
  const TemplateFolders &folders = bench.Template.Folders;
  std::error_code failed;
  std::filesystem::create_directories(folders.Template, failed);
  // The shipped ones first: a name of theirs is taken.
  if (const std::string trouble = TakeShippedTemplates(bench); !trouble.empty()) Tell(bench, trouble);
  const std::string name = AskName(bench);
  if (name.empty()) {
    CancelRecording(bench);
    return;
  }
  for (int tool = 0; tool < 2 && !bench.Template.Record.InLesson; ++tool)
    Escape(bench.Draft); // a zoom, and what it stands over; logged, since the prompts may be called off
  MacFile mac = RecordedTemplate(bench.Template.Record, bench.Draft);
  if (bench.Template.Record.InLesson) return EndInLesson(bench, name, mac);
  if (!PlaysBack(bench, mac) || (HasVariables(mac) && !AskPrompts(bench, name, mac))) return;
  if (!WriteTemplate(bench, name, mac)) return;
  End(bench);
  Tell(bench, name + " is in the list of templates", true);
}

bool CancelRecording(Workbench &bench) {
  return !bench.Template.Record.InLesson &&
         Sure(bench, "Are you sure you want to cancel creating template?") && End(bench);
}

void FollowLessonTemplate(Workbench &bench, const LessonPlay &play) {
  TemplateRecording &record = bench.Template.Record;
  if (play.Running && (!record.Running || record.InLesson))
    record.Running = record.InLesson = InTemplate(std::span(play.Log).first(play.Next));
}

Ctl ToolWanted(Workbench &bench, Ctl tool) {
  static constexpr struct {
    Ctl Tool, Twin;
    const char *Asked;
  } twins[] = {{Ctl::Circle_Radius, Ctl::Circle_CtrEdge, "Circle Radius"},
               {Ctl::Circle_Diameter, Ctl::Circle_CtrEdge, "Circle Diameter"},
               {Ctl::Arc_Radius, Ctl::Arc_CtrEdge, "Arc Radius"},
               {Ctl::Arc_Diameter, Ctl::Arc_CtrEdge, "Arc Diameter"},
               {Ctl::LineParaDist, Ctl::LineParaPoint, "Distance of Parallel Line"}};
  if (!bench.Template.Record.Running) return tool;
  for (const auto &row : twins) {
    if (row.Tool != tool) continue;
    bench.Template.WayAccepted = false;
    bench.Out[Ctl::MacroParams_Label].Text = row.Asked;
    bench.Out[Ctl::MacroParams].Visible = true;
    bench.Out.Focus = bench.Template.ByMouse ? Ctl::MacroParams_Mouse : Ctl::MacroParams_Value;
    bench.Out.RunModal(Form::MacroParams);
    bench.Out[Ctl::MacroParams].Visible = false;
    if (!bench.Template.WayAccepted) return Ctl::Count;
    return bench.Template.ByMouse ? row.Twin : tool;
  }
  return tool;
}

void OfferVariables(Workbench &bench, Ctl field) {
  if (!bench.Template.Record.Running) return;
  bench.Template.Field = field;
  Control &list = bench.Out[Ctl::VariableList2];
  list.Index = std::max(list.Index, 0);
  bench.Out.Focus = Ctl::VariableList2;
}

void InsertVariable(Workbench &bench, const Event &event) {
  if (!bench.Template.Record.Running) return;
  Screen &out = bench.Out;
  Ctl field = bench.Template.Field;
  if (field == Ctl::Count || !out[field].Visible || !out[field].Enabled) field = Ctl::X_Input;
  if (!out[field].Visible || !out[field].Enabled) return;
  // "GRAINLENGTH = 100": the name stands first
  const std::string name = event.Text.substr(0, event.Text.find(' '));
  Dispatch(bench, TextIn(field, WithInserted(out[field].Text, event.Caret, name)));
  out.Focus = field;
  out.CursorAtEnd = true;
}
