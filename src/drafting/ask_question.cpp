#include "drafting/ask_question.h"

#include "base/number_text.h"
#include "drafting/report.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr const char *ErrorTitle = "Input Error";

void Refuse(Drafting &d, const std::string &text) {
  if (d.Grain.MacroMode != 2) d.Out.Ask({text, ErrorTitle, Buttons::Ok, Icon::Stop}); // it is asked again
}

void ShowQuestion(Screen &out, std::string_view label, std::string_view caption, const std::string &text) {
  out[Ctl::Question_Form].Text = caption;
  out[Ctl::Question_Label].Text = label;
  out[Ctl::Question_Value].Text = text;
  out[Ctl::Question_Form].Visible = true;
  out.Focus = Ctl::Question_Value;
  out.RunModal(Form::Question);
  out[Ctl::Question_Form].Visible = false;
}

void OfferVariables(Screen &out, std::vector<std::string> names) {
  Control &list = out[Ctl::VariableList1];
  list.Item = std::move(names);
  list.Index = -1;
  list.Visible = !list.Item.empty();
}

std::string Objection(const Question &q, double value) {
  if (value == 0 && !q.AllowZero) return "ERROR: Zero Value not Allowed";
  if (q.Whole && value != std::floor(value)) return "ERROR: A whole number must be entered";
  if (value < q.Least || value > q.Most)
    return "ERROR: A number from " + PlainText(q.Least) + " to " + PlainText(q.Most) + " must be entered";
  return {};
}

// None left: as if cancelled.
std::optional<double> Recorded(Drafting &d, const Question &q) {
  Replay &play = d.Play;
  if (play.Taken == play.Answer.size()) {
    play.Unanswered = true;
    return std::nullopt;
  }
  const double value = play.Answer[play.Taken++];
  if (const std::string objection = Objection(q, value); !objection.empty()) {
    Report(d, objection + " (" + std::string(q.Label) + " " + PlainText(value) + ")");
    return std::nullopt;
  }
  d.Answers.push_back({value, {}});
  return value;
}
} // namespace

bool IsPlainNumber(const std::string &text) {
  return text.find_first_not_of("0123456789+-. ") == std::string::npos &&
         text.find_first_of("+-", 1) == std::string::npos;
}

Formula FieldFormula(const Drafting &d, std::string_view text) {
  VariableTable table = d.Variables;
  SetGrainVariables(table, d.Grain.Doc.GrainDiam, static_cast<double>(d.Grain.Doc.GrainLength));
  return EvaluateFormula(text, table);
}

std::optional<double> FieldValue(Drafting &d, std::string_view text) {
  const Formula formula = FieldFormula(d, text);
  if (formula.Good()) return formula.Value;
  const bool abort = d.Grain.GeomAbort; // a field that is refused fails no click
  Report(d, "ERROR: " + formula.Message, ErrorTitle, Icon::Stop);
  d.Grain.GeomAbort = abort;
  return std::nullopt;
}

std::optional<double> AskQuestion(Drafting &d, const Question &q) {
  if (d.Play.On) return Recorded(d, q);
  Screen &out = d.Out;
  std::string text = PlainText(q.Value);
  OfferVariables(out, d.Log.On ? VariableNames(d.Variables) : std::vector<std::string>{});
  for (;;) {
    ShowQuestion(out, q.Label, q.Caption, text);
    text = out[Ctl::Question_Value].Text;
    if (text.find_first_not_of(" \t") == std::string::npos) return std::nullopt;
    const Formula formula = FieldFormula(d, text);
    const std::string objection = formula.Good() ? Objection(q, formula.Value) : "ERROR: " + formula.Message;
    if (!objection.empty()) {
      Refuse(d, objection);
      continue;
    }
    d.Answers.push_back({formula.Value, IsPlainNumber(text) ? std::string() : text});
    return formula.Value;
  }
}

std::optional<double> AskAngle(Drafting &d, std::string_view label, std::string_view caption,
                               double radians) {
  const auto degrees =
      AskQuestion(d, {.Label = label, .Caption = caption, .Value = radians * 180 / Pi, .AllowZero = true});
  if (!degrees) return std::nullopt;
  return *degrees * Pi / 180;
}

bool AskDelta(Drafting &d, double &dx, double &dy) {
  const auto x = AskQuestion(d, {.Label = "XV=", .Caption = "Indicate delta X position", .AllowZero = true});
  if (!x) return false;
  const auto y = AskQuestion(d, {.Label = "YV=", .Caption = "Indicate delta Y position", .AllowZero = true});
  if (!y) return false;
  dx = *x;
  dy = *y;
  return true;
}

std::string AskText(Screen &out, std::string_view label, std::string_view caption, const std::string &text) {
  OfferVariables(out, {});
  ShowQuestion(out, label, caption, text);
  return out[Ctl::Question_Value].Text;
}

std::vector<std::string> VariableNames(const VariableTable &table) {
  std::vector<std::string> names;
  for (const VariableRow &row : table.Row)
    if (row.Name.size() > 1) names.push_back(row.Name.substr(1));
  return names;
}

std::string WithInserted(const std::string &text, int caret, const std::string &name) {
  const std::size_t at = caret < 0 ? text.size() : std::min(text.size(), static_cast<std::size_t>(caret));
  return text.substr(0, at) + name + text.substr(at);
}

void QuestionEvent(Screen &out, const Event &event) {
  const bool key = event.What == Event::Kind::Key;
  const bool press = event.What == Event::Kind::Press;
  const bool accept = (press && event.Target == Ctl::Question_OK) ||
                      (key && event.KeyCode == 13 && event.Target != Ctl::Question_Cancel);
  const bool cancel = event.What == Event::Kind::Close || (press && event.Target == Ctl::Question_Cancel) ||
                      (key && (event.KeyCode == 27 || (event.KeyCode == 13 && !accept)));
  if (event.What == Event::Kind::Text && event.Target == Ctl::Question_Value)
    out[Ctl::Question_Value].Text = event.Text;
  if (press && event.Target == Ctl::VariableList1) {
    std::string &text = out[Ctl::Question_Value].Text;
    text = WithInserted(text, event.Caret, event.Text);
    out.Focus = Ctl::Question_Value;
    out.CursorAtEnd = true;
  }
  if (cancel) out[Ctl::Question_Value].Text.clear();
  if (accept || cancel) out[Ctl::Question_Form].Visible = false;
}
