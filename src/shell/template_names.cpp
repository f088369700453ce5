#include "base/number_text.h"
#include "macros/evaluator.h"
#include "macros/template_values.h"
#include "shell/template_record.h"

#include <cmath>

// VariableNameForm, and MacroParams.

namespace {
constexpr int EnterKey = 13, EscapeKey = 27;
constexpr const char *ZeroWords = "ERROR: All dimensional parameters must contain a value higher than zero!";

Ctl NameBox(int row) { return static_cast<Ctl>(static_cast<int>(Ctl::Text1_0) + row); }
Ctl ValueBox(int row) { return static_cast<Ctl>(static_cast<int>(Ctl::Variable_Value0) + row); }
int RowOfBox(Ctl box, Ctl first) { return static_cast<int>(box) - static_cast<int>(first); }

std::string Trimmed(const std::string &text) {
  const auto first = text.find_first_not_of(" \t");
  return first == text.npos ? "" : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

struct Reading {
  VariableTable Table;
  std::string Trouble;
  Ctl Box = Ctl::Count; // that the trouble is about
};

// Row by row: a value may be a formula of the rows before it.
Reading ReadNames(const Workbench &bench, bool finished) {
  Reading r{bench.Template.Named, "", Ctl::Count};
  for (int row = FirstUserVariable; row <= LastUserVariable; ++row) {
    VariableRow &to = r.Table.Row[static_cast<std::size_t>(row)];
    to = {};
    const std::string name = Trimmed(bench.Out[NameBox(row)].Text);
    const std::string text = Trimmed(bench.Out[ValueBox(row)].Text);
    if (name.empty()) continue;
    const auto refuse = [&](const std::string &why, Ctl box) {
      if (r.Trouble.empty()) r.Trouble = why, r.Box = box;
    };
    if (const std::string why = NameObjection(r.Table, name, row); !why.empty()) refuse(why, NameBox(row));
    const Formula value = EvaluateFormula(text, r.Table);
    if (text.empty() && !finished)
      ; // it is still to be typed
    else if (!value.Good())
      refuse(name + ": " + value.Message, ValueBox(row));
    else if (!(value.Value > 0) || !std::isfinite(value.Value))
      refuse(ZeroWords, ValueBox(row));
    to.Name = "#" + name;
    to.Value = value.Value;
  }
  return r;
}

void ShowNote(Workbench &bench) {
  Screen &out = bench.Out;
  const Reading r = ReadNames(bench, false);
  out[Ctl::Variable_Note].Text = r.Trouble;
  for (int row = FirstUserVariable; row <= LastUserVariable; ++row)
    for (const Ctl box : {NameBox(row), ValueBox(row)}) out[box].Hint = box == r.Box ? r.Trouble : "";
}

void Next(Workbench &bench) {
  const Reading r = ReadNames(bench, true);
  if (!r.Trouble.empty()) {
    bench.Out.Ask({r.Trouble, "Input Error", Buttons::Ok, Icon::Stop});
    bench.Out.Focus = r.Box;
    return;
  }
  bench.Template.Named = r.Table;
  bench.Template.NamesAccepted = true;
  bench.Out[Ctl::VariableNameForm].Visible = false;
}

// From a name to its value, from there to the next name; past the last one the form is done.
void EnterIn(Workbench &bench, Ctl box) {
  const int name = RowOfBox(box, Ctl::Text1_0), value = RowOfBox(box, Ctl::Variable_Value0);
  if (name >= 0 && name < TemplateRows) {
    if (Trimmed(bench.Out[box].Text).empty()) return Next(bench);
    bench.Out.Focus = ValueBox(name);
  } else if (value >= 0 && value < LastUserVariable) {
    bench.Out.Focus = NameBox(value + 1);
  } else {
    Next(bench);
  }
}
} // namespace

bool AskVariableNames(Workbench &bench) {
  Screen &out = bench.Out;
  for (int row = 0; row < TemplateRows; ++row) {
    const VariableRow &from = bench.Template.Named.Row[static_cast<std::size_t>(row)];
    const bool own = row >= FirstUserVariable;
    out[NameBox(row)].Text = VariableName(from);
    out[ValueBox(row)].Text = own ? "" : PlainText(from.Value);
    out[NameBox(row)].Enabled = out[ValueBox(row)].Enabled = own;
  }
  ShowNote(bench);
  bench.Template.NamesAccepted = false;
  out[Ctl::VariableNameForm].Visible = true;
  out.Focus = NameBox(FirstUserVariable);
  out.RunModal(Form::VariableNames);
  out[Ctl::VariableNameForm].Visible = false;
  return bench.Template.NamesAccepted;
}

void VariableNameEvent(Workbench &bench, const Event &event) {
  Screen &out = bench.Out;
  const auto close = [&] { out[Ctl::VariableNameForm].Visible = false; };
  switch (event.What) {
  case Event::Kind::Close: return close();
  case Event::Kind::Press:
    if (event.Target == Ctl::Variable_Next) Next(bench);
    if (event.Target == Ctl::Variable_Cancel) close();
    return;
  case Event::Kind::Key:
    if (event.KeyCode == EscapeKey || (event.KeyCode == EnterKey && event.Target == Ctl::Variable_Cancel))
      return close();
    if (event.KeyCode == EnterKey) EnterIn(bench, event.Target);
    return;
  case Event::Kind::Text:
    if (!out[event.Target].Enabled) return;
    out[event.Target].Text = event.Text;
    return ShowNote(bench);
  default: return;
  }
}

void MacroParamsEvent(Workbench &bench, const Event &event) {
  TemplateState &state = bench.Template;
  const bool enter = event.What == Event::Kind::Key && event.KeyCode == EnterKey;
  if (event.What == Event::Kind::Press && event.Target == Ctl::MacroParams_Value) state.ByMouse = false;
  if (event.What == Event::Kind::Press && event.Target == Ctl::MacroParams_Mouse) state.ByMouse = true;
  const bool accept = event.Target == Ctl::MacroParams_Accept && event.What == Event::Kind::Press;
  const bool cancel = (event.What == Event::Kind::Press && event.Target == Ctl::MacroParams_Cancel) ||
                      event.What == Event::Kind::Close ||
                      (event.What == Event::Kind::Key && event.KeyCode == EscapeKey);
  state.WayAccepted = accept || enter;
  if (accept || enter || cancel) bench.Out[Ctl::MacroParams].Visible = false;
}
