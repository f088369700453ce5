#include "shell/template_rows.h"

#include "base/number_text.h"
#include "shell/template_search.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int SliderSteps = 1000; // of a slider that does not go by whole numbers

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

} // namespace

int RowAmong(Ctl control, Ctl first) {
  const int row = static_cast<int>(control) - static_cast<int>(first);
  return row >= 0 && row < TemplateRows ? row : -1;
}

std::optional<TemplateVariable> VariableOf(const TemplateAsking &ask, int row) {
  if (row == 0) return DimensionRow(0, RecordedDiameter(ask.Mac));
  if (row == 1) return DimensionRow(1, ask.Mac.Variables.Row[1].Value);
  for (const TemplateVariable &v : ask.Variable)
    if (v.Row == row) return v;
  return std::nullopt;
}

std::string SliderText(const TemplateVariable &v, double value) {
  const double step = (v.Most - v.Least) / SliderSteps;
  const double digits = v.Whole || !(step > 0) ? 0 : std::clamp(std::ceil(-std::log10(step)), 0.0, 6.0);
  const double power = std::pow(10, digits);
  return PlainText(std::round(value * power) / power);
}

std::string WordsOf(const TemplateVariable &v) { return v.Prompt.empty() ? v.Name : v.Prompt; }

double ValueAtSlider(const TemplateVariable &v, double place) {
  return v.Whole ? place : v.Least + (v.Most - v.Least) * place / SliderSteps;
}

double SpinStep(const TemplateVariable &v) { // about a hundredth of the range
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

void ShowRows(Workbench &bench) {
  Screen &out = bench.Out;
  TemplateAsking &ask = bench.Template.Ask;
  for (int row = 0; row < TemplateRows; ++row) {
    const auto v = VariableOf(ask, row);
    for (const Ctl first : {Ctl::Prompt0, Ctl::VariableName0, Ctl::Variable_Slider0, Ctl::Variable_Unit0})
      out[TemplateControl(first, row)].Visible = v.has_value();
    if (!v) continue;
    const bool own = row >= FirstUserVariable;
    out[TemplateControl(Ctl::VariableName0, row)].Text = ask.Given.Answer[At(row)];
    out[TemplateControl(Ctl::Variable_Unit0, row)].Text =
        (ask.Prompts && own ? v->Name + ": " : "") + (ask.Seek.Open ? v->Unit : UnitText(*v));
    out[TemplateControl(Ctl::Prompt0, row)].Enabled = ask.Prompts && own;
    const bool open = own || !ask.Prompts;
    out[TemplateControl(Ctl::VariableName0, row)].Enabled = open; // to be read while a search changes it
    out[TemplateControl(Ctl::Variable_Slider0, row)].Enabled = open && !ask.Seek.Running;
    if (!ask.Prompts || !own) out[TemplateControl(Ctl::Prompt0, row)].Text = WordsOf(*v);
    if (const auto value = ValueOf(ask, row)) ShowSlider(out, *v, *value);
  }
  ShowSearch(bench);
}

void FollowDiameter(TemplateAsking &ask) {
  ask.Variable = TemplateVariables(ask.Mac, ask.Doc.GrainDiam);
  for (const TemplateVariable &v : ask.Variable)
    if (!ask.Given.Touched[At(v.Row)]) ask.Given.Answer[At(v.Row)] = PlainText(v.Value);
}

void PutAnswers(Workbench &bench, const TemplateAnswers &given) {
  TemplateAsking &ask = bench.Template.Ask;
  ask.Given = given;
  ask.Changed = -1;
  EvaluateAnswers(bench);
  FollowDiameter(ask);
  TryAnswers(bench);
  ShowRows(bench);
}
