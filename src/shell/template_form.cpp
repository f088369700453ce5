#include "shell/template_form.h"

#include "base/number_text.h"
#include "macros/template_values.h"
#include "shell/template_rows.h"
#include "shell/template_search.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

namespace {
constexpr int EnterKey = 13, EscapeKey = 27, UpKey = 38, DownKey = 40;
constexpr const char *PromptDefault = "Edit Prompts here:";

void Change(Workbench &bench, int row, const std::string &text) {
  TemplateAsking &ask = bench.Template.Ask;
  if (ask.Seek.Running) return;
  ask.Given.Answer[At(row)] = text;
  ask.Given.Touched[At(row)] = true;
  ask.Changed = row;
  if (row == 0 && EvaluateAnswers(bench)) FollowDiameter(ask);
  TryAnswers(bench);
  ShowRows(bench);
}

void Slide(Workbench &bench, int row, double place) {
  const auto v = VariableOf(bench.Template.Ask, row);
  if (!v) return;
  Change(bench, row, SliderText(*v, ValueAtSlider(*v, place)));
}

void Spin(Workbench &bench, int row, int by) {
  TemplateAsking &ask = bench.Template.Ask;
  const auto v = VariableOf(ask, row);
  const auto value = ValueOf(ask, row);
  if (!v || !value) return;
  const double step = SpinStep(*v), next = std::round(*value / step + by) * step;
  if (next > 0) Change(bench, row, SliderText(*v, next));
}

// The typed prompts into the template; its variables' units and ranges follow them.
void TakePrompts(Workbench &bench) {
  TemplateAsking &ask = bench.Template.Ask;
  for (int row = FirstUserVariable; row < TemplateRows; ++row)
    ask.Mac.Variables.Row[At(row)].Prompt = bench.Out[TemplateControl(Ctl::Prompt0, row)].Text;
  ask.Variable = TemplateVariables(ask.Mac, ask.Doc.GrainDiam);
}

void Refuse(Workbench &bench, std::string words) {
  const auto end = words.find("zero!"); // the note tells whose value it is
  if (words.starts_with("ERROR: All") && end != words.npos) words.resize(end + 5);
  const int row = bench.Template.Ask.AtFault;
  bench.Out.Ask({words, "Input Error", Buttons::Ok, Icon::Stop});
  if (row >= 0) bench.Out.Focus = TemplateControl(Ctl::VariableName0, row);
}

void Accept(Workbench &bench) {
  TemplateAsking &ask = bench.Template.Ask;
  StopSearch(bench);
  if (!EvaluateAnswers(bench)) {
    ShowTrial(bench);
    return Refuse(bench, ask.Trouble);
  }
  Design drawn; // of a player of its own: a trial may be under way
  drawn.Doc = ask.Doc;
  const TemplateResult result =
      DesignFromTemplate(*MakeTemplatePlayer(), ask.Mac, ask.Values,
                         {ask.Doc.GrainDiam, static_cast<double>(ask.Doc.GrainLength),
                          static_cast<double>(ask.Doc.ThroatDiam), ask.Doc.EndsExposed},
                         drawn);
  if (!result.Trouble.empty()) {
    ask.AtFault = ask.Changed;
    return Refuse(bench, result.Trouble);
  }
  ask.Accepted = true;
  bench.Out[Ctl::TemplateForm].Visible = false;
}

void ShowPreview(Workbench &bench) {
  Screen &out = bench.Out;
  out[Ctl::PreviewForm].Visible = true;
  out.RunModal(Form::Preview);
  out[Ctl::PreviewForm].Visible = false;
}

bool RunForm(Workbench &bench) {
  Screen &out = bench.Out;
  TemplateAsking &ask = bench.Template.Ask;
  ask.Given.Answer[0] = PlainText(ask.Doc.GrainDiam);
  ask.Given.Answer[1] = PlainText(ask.Doc.GrainLength);
  FollowDiameter(ask);
  const char *caption = bench.Grain.DebugMode ? "Preview(DebugMode)" : "Preview";
  out[Ctl::Template_Preview].Text = out[Ctl::PreviewForm].Text = caption;
  out[Ctl::Template_Steps].Visible = !ask.Prompts;
  out[Ctl::Template_Steps].Checked = false;
  out.Template_Picture = {};
  out.Template_Chart = {};
  TryAnswers(bench);
  OfferSearch(bench);
  ShowRows(bench);
  out[Ctl::TemplateForm].Visible = true;
  out.Focus = TemplateControl(ask.Prompts ? Ctl::Prompt0 : Ctl::VariableName0,
                              ask.Variable.empty() ? 0 : ask.Variable.front().Row);
  out.RunModal(Form::TemplateValues);
  out[Ctl::TemplateForm].Visible = false;
  ++ask.Number; // what is under way comes too late
  return ask.Accepted;
}

// On to the next value asked for, past the last one the form is done.
void EnterIn(Workbench &bench, Ctl box) {
  const TemplateAsking &ask = bench.Template.Ask;
  const Ctl first = RowAmong(box, Ctl::Prompt0) >= 0 ? Ctl::Prompt0 : Ctl::VariableName0;
  const int row = RowAmong(box, first);
  if (row < 0) return Accept(bench);
  for (int next = row + 1; next < TemplateRows; ++next)
    if (VariableOf(ask, next)) {
      bench.Out.Focus = TemplateControl(first, next);
      return;
    }
  Accept(bench);
}

void Leave(Workbench &bench) {
  StopSearch(bench);
  bench.Out[Ctl::TemplateForm].Visible = false;
}

void Key(Workbench &bench, const Event &event) {
  const int row = RowAmong(event.Target, Ctl::VariableName0);
  if (event.KeyCode == EscapeKey || (event.KeyCode == EnterKey && event.Target == Ctl::Template_Cancel)) {
    Leave(bench);
  } else if (event.KeyCode == EnterKey) {
    EnterIn(bench, event.Target);
  } else if (row >= 0 && (event.KeyCode == UpKey || event.KeyCode == DownKey)) {
    Spin(bench, row, event.KeyCode == UpKey ? 1 : -1);
  }
}

void Press(Workbench &bench, Ctl target) {
  Screen &out = bench.Out;
  switch (target) {
  case Ctl::Template_Accept: return Accept(bench);
  case Ctl::Template_Cancel: return Leave(bench);
  case Ctl::Template_Preview: return ShowPreview(bench);
  case Ctl::Template_Steps: out[target].Checked = !out[target].Checked; return;
  default: return;
  }
}

void Typed(Workbench &bench, const Event &event) {
  if (!bench.Out[event.Target].Enabled || !bench.Out[event.Target].Visible) return;
  if (const int row = RowAmong(event.Target, Ctl::VariableName0); row >= 0)
    return Change(bench, row, event.Text);
  if (const int row = RowAmong(event.Target, Ctl::Variable_Slider0); row >= 0)
    return Slide(bench, row, Val(event.Text));
  if (RowAmong(event.Target, Ctl::Prompt0) < FirstUserVariable) return;
  bench.Out[event.Target].Text = event.Text;
  TakePrompts(bench);
  ShowRows(bench);
}
} // namespace

bool SameDimensions(const GrainDoc &a, const GrainDoc &b) {
  return a.GrainRadius == b.GrainRadius && a.GrainLength == b.GrainLength && a.ThroatDiam == b.ThroatDiam &&
         a.EndsExposed == b.EndsExposed;
}

std::string TemplateName(const std::string &keyOrPath) {
  const std::string name = std::filesystem::path(keyOrPath).filename().string();
  return WithMacEnding(name) == name ? KeyOf(name) : name;
}

bool AskTemplateValues(Workbench &bench, const std::string &name, const MacFile &mac) {
  TemplateAsking &ask = bench.Template.Ask = {};
  ask.Name = name;
  ask.Mac = mac;
  ask.Doc = bench.Grain.Doc;
  bench.Out[Ctl::TemplateForm].Text = "Grain Dimensions and Configuration - " + name;
  bench.Out[Ctl::Template_Head].Text = "";
  return RunForm(bench);
}

bool AskPrompts(Workbench &bench, const std::string &name, MacFile &mac) {
  TemplateAsking &ask = bench.Template.Ask = {};
  ask.Prompts = true;
  ask.Name = name;
  ask.Mac = mac;
  ask.Doc = bench.Grain.Doc;
  bench.Out[Ctl::TemplateForm].Text = "Grain and Core Dimensions";
  bench.Out[Ctl::Template_Head].Text = PromptDefault;
  for (int row = FirstUserVariable; row < TemplateRows; ++row) {
    Control &box = bench.Out[TemplateControl(Ctl::Prompt0, row)];
    box.Text = mac.Variables.Row[At(row)].Prompt;
    box.Hint = VariableName(mac.Variables.Row[At(row)]) + ", mm [2 .. 12]";
  }
  if (!RunForm(bench)) return false;
  TakePrompts(bench);
  mac.Variables = ask.Mac.Variables;
  return true;
}

void TemplateFormEvent(Workbench &bench, const Event &event) {
  if (SearchEvent(bench, event)) return;
  switch (event.What) {
  case Event::Kind::Close: return Leave(bench);
  case Event::Kind::Key: return Key(bench, event);
  case Event::Kind::Press: return Press(bench, event.Target);
  case Event::Kind::Text: return Typed(bench, event);
  default: return;
  }
}

void PreviewEvent(Workbench &bench, const Event &event) {
  const bool escape =
      event.What == Event::Kind::Key && (event.KeyCode == EscapeKey || event.KeyCode == EnterKey);
  const bool press = event.What == Event::Kind::Press && event.Target == Ctl::Preview_Close;
  if (escape || press || event.What == Event::Kind::Close) bench.Out[Ctl::PreviewForm].Visible = false;
}
