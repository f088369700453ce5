#include "shell/template_form.h"

#include "base/number_text.h"
#include "macros/template_values.h"
#include "shell/template_trial.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

namespace {
constexpr int EnterKey = 13, EscapeKey = 27, UpKey = 38, DownKey = 40;
constexpr int SliderSteps = 1000; // of a slider that does not go by whole numbers
constexpr const char *PromptDefault = "Edit Prompts here:";

int RowAmong(Ctl control, Ctl first) { // -1: none of them
  const int row = static_cast<int>(control) - static_cast<int>(first);
  return row >= 0 && row < TemplateRows ? row : -1;
}

std::size_t At(int row) { return static_cast<std::size_t>(row); }

// The grain's two dimensions as variables: half to twice what they are.
TemplateVariable DimensionRow(int row, double value) {
  TemplateVariable v;
  v.Row = row;
  v.Name = row == 0 ? "GRAINDIAMETER" : "GRAINLENGTH";
  v.Prompt = row == 0 ? "Grain diameter" : "Grain length";
  v.Unit = "mm";
  v.Value = value;
  v.Least = value / 2;
  v.Most = value * 2;
  return v;
}

std::optional<TemplateVariable> VariableOf(const TemplateAsking &ask, int row) {
  if (row == 0) return DimensionRow(0, RecordedDiameter(ask.Mac));
  if (row == 1) return DimensionRow(1, ask.Mac.Variables.Row[1].Value);
  for (const TemplateVariable &v : ask.Variable)
    if (v.Row == row) return v;
  return std::nullopt;
}

// As many decimals as the range's thousandth needs.
std::string SliderText(const TemplateVariable &v, double value) {
  const double step = (v.Most - v.Least) / SliderSteps;
  const double digits = v.Whole || !(step > 0) ? 0 : std::clamp(std::ceil(-std::log10(step)), 0.0, 6.0);
  const double power = std::pow(10, digits);
  return PlainText(std::round(value * power) / power);
}

double SpinStep(const TemplateVariable &v) { // 1, 2 or 5 times a power of ten, about a hundredth of the range
  if (v.Whole) return 1;
  const double rough = (v.Most - v.Least) / 100;
  if (!(rough > 0) || !std::isfinite(rough)) return 1;
  const double power = std::pow(10, std::floor(std::log10(rough)));
  return (rough / power < 1.5 ? 1 : rough / power < 3.5 ? 2 : rough / power < 7.5 ? 5 : 10) * power;
}

std::optional<double> ValueOf(const TemplateAsking &ask, int row) {
  if (row == 0) return ask.Doc.GrainDiam;
  if (row == 1) return static_cast<double>(ask.Doc.GrainLength);
  const double value = ask.Values.Row[At(row)].Value;
  return value > 0 ? std::optional(value) : std::nullopt;
}

void ShowSlider(Screen &out, const TemplateVariable &v, double value) {
  Control &slider = out[TemplateControl(Ctl::Variable_Slider0, v.Row)];
  constexpr double mostWhole = 1e6;
  slider.Least = v.Whole ? std::clamp(v.Least, 0.0, mostWhole) : 0;
  slider.Most = v.Whole ? std::clamp(v.Most, 0.0, mostWhole) : SliderSteps;
  const double place = v.Whole ? value : (value - v.Least) / (v.Most - v.Least) * SliderSteps;
  slider.Text =
      std::to_string(std::isfinite(place) ? std::lround(std::clamp(place, slider.Least, slider.Most)) : 0);
}

std::string UnitText(const TemplateVariable &v) {
  const std::string range = SliderText(v, v.Least) + " to " + SliderText(v, v.Most);
  return v.Unit.empty() ? range : v.Unit + ", " + range;
}

void ShowRows(Workbench &bench) {
  Screen &out = bench.Out;
  TemplateAsking &ask = bench.Template.Ask;
  for (int row = 0; row < TemplateRows; ++row) {
    const auto v = VariableOf(ask, row);
    for (const Ctl first : {Ctl::Prompt0, Ctl::VariableName0, Ctl::Variable_Slider0, Ctl::Variable_Unit0})
      out[TemplateControl(first, row)].Visible = v.has_value();
    if (!v) continue;
    const bool own = row >= FirstUserVariable;
    out[TemplateControl(Ctl::VariableName0, row)].Text = ask.Answer[At(row)];
    out[TemplateControl(Ctl::Variable_Unit0, row)].Text =
        (ask.Prompts && own ? v->Name + ": " : "") + UnitText(*v);
    out[TemplateControl(Ctl::Prompt0, row)].Enabled = ask.Prompts && own;
    for (const Ctl first : {Ctl::VariableName0, Ctl::Variable_Slider0})
      out[TemplateControl(first, row)].Enabled = own || !ask.Prompts;
    if (!ask.Prompts || !own)
      out[TemplateControl(Ctl::Prompt0, row)].Text = v->Prompt.empty() ? v->Name : v->Prompt;
    if (const auto value = ValueOf(ask, row)) ShowSlider(out, *v, *value);
  }
}

// With another diameter lengths that nobody has touched follow it, and so do the ranges.
void FollowDiameter(TemplateAsking &ask) {
  ask.Variable = TemplateVariables(ask.Mac, ask.Doc.GrainDiam);
  for (const TemplateVariable &v : ask.Variable)
    if (!ask.Touched[At(v.Row)]) ask.Answer[At(v.Row)] = PlainText(v.Value);
}

void Change(Workbench &bench, int row, const std::string &text) {
  TemplateAsking &ask = bench.Template.Ask;
  ask.Answer[At(row)] = text;
  ask.Touched[At(row)] = true;
  ask.Changed = row;
  if (row == 0 && EvaluateAnswers(bench)) FollowDiameter(ask);
  TryAnswers(bench);
  ShowRows(bench);
}

void Slide(Workbench &bench, int row, double place) {
  const auto v = VariableOf(bench.Template.Ask, row);
  if (!v) return;
  const double value = v->Whole ? place : v->Least + (v->Most - v->Least) * place / SliderSteps;
  Change(bench, row, SliderText(*v, value));
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
  ask.Answer[0] = PlainText(ask.Doc.GrainDiam);
  ask.Answer[1] = PlainText(ask.Doc.GrainLength);
  FollowDiameter(ask);
  const char *caption = bench.Grain.DebugMode ? "Preview(DebugMode)" : "Preview";
  out[Ctl::Template_Preview].Text = out[Ctl::PreviewForm].Text = caption;
  out[Ctl::Template_Steps].Visible = !ask.Prompts;
  out[Ctl::Template_Steps].Checked = false;
  out.Template_Picture = {};
  out.Template_Chart = {};
  TryAnswers(bench);
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

void Key(Workbench &bench, const Event &event) {
  const int row = RowAmong(event.Target, Ctl::VariableName0);
  if (event.KeyCode == EscapeKey || (event.KeyCode == EnterKey && event.Target == Ctl::Template_Cancel)) {
    bench.Out[Ctl::TemplateForm].Visible = false;
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
  case Ctl::Template_Cancel: out[Ctl::TemplateForm].Visible = false; return;
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
  switch (event.What) {
  case Event::Kind::Close: bench.Out[Ctl::TemplateForm].Visible = false; return;
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
