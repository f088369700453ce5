#include "macros/template_values.h"

#include "base/number_text.h"
#include "macros/evaluator.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>

namespace {
constexpr std::string_view ZeroWords =
    "ERROR: All dimensional parameters must contain a value higher than zero!";
constexpr double DefaultLeast = 0.2, DefaultMost = 5; // of the value
constexpr std::size_t LongestUnit = 8;
constexpr std::string_view FunctionWords[] = {"arcsin", "arccos", "arctan", "asin", "acos", "atan",
                                              "sin",    "cos",    "tan",    "sqrt", "pi"};

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char &c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return lower;
}

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

bool ReadNumber(std::string_view text, double &value) {
  text = Trimmed(text);
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size() && std::isfinite(value);
}

// "[2 .. 12]" at the end is taken off the text. False: there is none.
bool TakeRange(std::string_view &text, double &least, double &most) {
  const std::size_t open = text.rfind('['), dots = text.rfind("..");
  if (!text.ends_with(']') || open == text.npos || dots == text.npos || dots < open) return false;
  const std::string_view inside = text.substr(open + 1, text.size() - open - 2);
  const std::size_t at = dots - open - 1;
  if (!ReadNumber(inside.substr(0, at), least) || !ReadNumber(inside.substr(at + 2), most) || !(least < most))
    return false;
  text = Trimmed(text.substr(0, open));
  return true;
}

void ReadPrompt(std::string_view prompt, TemplateVariable &v) {
  std::string_view text = Trimmed(prompt);
  const bool ranged = TakeRange(text, v.Least, v.Most);
  const std::size_t comma = text.rfind(", ");
  if (comma != text.npos) {
    const std::string_view unit = Trimmed(text.substr(comma + 2));
    if (!unit.empty() && unit.size() <= LongestUnit && unit.find(' ') == unit.npos) {
      v.Unit = unit;
      text = Trimmed(text.substr(0, comma));
    }
  }
  v.Prompt = text;
  if (!ranged) {
    v.Least = std::min(DefaultLeast * v.Value, DefaultMost * v.Value);
    v.Most = std::max(DefaultLeast * v.Value, DefaultMost * v.Value);
  }
  v.Whole = ranged && v.Unit.empty() && v.Least == std::floor(v.Least) && v.Most == std::floor(v.Most);
}

const TemplateAnswer *AnswerFor(std::span<const TemplateAnswer> answers, const std::string &name) {
  for (const TemplateAnswer &a : answers)
    if (Lower(a.Name) == Lower(name)) return &a;
  return nullptr;
}

std::string UnknownName(std::span<const TemplateVariable> variables,
                        std::span<const TemplateAnswer> answers) {
  for (const TemplateAnswer &a : answers) {
    const auto known = [&](const TemplateVariable &v) { return Lower(v.Name) == Lower(a.Name); };
    if (std::any_of(variables.begin(), variables.end(), known)) continue;
    std::string names;
    for (const TemplateVariable &v : variables) names += (names.empty() ? "" : ", ") + v.Name;
    return "there is no variable " + a.Name +
           (names.empty() ? ": the template has none" : "; there are " + names);
  }
  return {};
}
} // namespace

std::string PromptText(const TemplateVariable &v) {
  std::string text = v.Prompt;
  if (!v.Unit.empty()) text += ", " + v.Unit;
  if (v.Least < v.Most) text += " [" + PlainText(v.Least) + " .. " + PlainText(v.Most) + "]";
  return text;
}

std::vector<TemplateVariable> TemplateVariables(const MacFile &mac, double diameter) {
  std::vector<TemplateVariable> all;
  const double recorded = RecordedDiameter(mac);
  const double scale = recorded > 0 && diameter > 0 ? diameter / recorded : 1;
  for (int i = FirstUserVariable; i <= mac.VariableNameCntr; ++i) {
    const VariableRow &row = mac.Variables.Row[static_cast<std::size_t>(i)];
    if (VariableName(row).empty()) continue;
    TemplateVariable v;
    v.Row = i;
    v.Name = VariableName(row);
    v.Value = row.Value;
    ReadPrompt(row.Prompt, v);
    if (v.Unit == "mm" && scale != 1)
      for (double *length : {&v.Value, &v.Least, &v.Most}) *length *= scale;
    all.push_back(std::move(v));
  }
  return all;
}

std::string NameObjection(const VariableTable &table, const std::string &name, int row) {
  if (name.empty() || !std::isalpha(static_cast<unsigned char>(name[0])))
    return "A name must begin with a letter";
  for (const char c : name)
    if (!std::isalnum(static_cast<unsigned char>(c)) && c != '_')
      return "A name must be made of letters, digits and \"_\"";
  const std::string lower = Lower(name);
  for (const std::string_view word : FunctionWords)
    if (word.find(lower) != word.npos)
      return name + " stands in the word \"" + std::string(word) + "\" of the formulas";
  if (lower[0] == 'e' && lower.find_first_not_of("0123456789", 1) == lower.npos)
    return name + " reads as the exponent of a number";
  for (std::size_t i = 0; i < table.Row.size(); ++i) {
    const std::string other = Lower(VariableName(table.Row[i]));
    if (static_cast<int>(i) == row || other.empty()) continue;
    if (other == lower) return name + " is there already";
    if (other.starts_with(lower) || lower.starts_with(other))
      return name + " and " + VariableName(table.Row[i]) + " begin alike";
  }
  return {};
}

std::string AnswerTemplate(const MacFile &mac, std::span<const TemplateAnswer> answers, double diameter,
                           double length, VariableTable &to, std::string *atFault) {
  const std::vector<TemplateVariable> variables = TemplateVariables(mac, diameter);
  if (std::string trouble = UnknownName(variables, answers); !trouble.empty()) return trouble;
  VariableTable table; // grows row by row: a formula knows those before it
  SetGrainVariables(table, diameter, length);
  for (const TemplateVariable &v : variables) {
    double value = v.Value;
    const auto refuse = [&](const std::string &why) {
      if (atFault) *atFault = v.Name;
      return why;
    };
    if (const TemplateAnswer *answer = AnswerFor(answers, v.Name)) {
      const Formula formula = EvaluateFormula(answer->Text, table);
      if (!formula.Good()) return refuse(v.Name + ": " + formula.Message);
      value = formula.Value;
    }
    if (!(value > 0) || !std::isfinite(value)) return refuse(std::string(ZeroWords) + " (" + v.Name + ")");
    if (v.Whole && value != std::floor(value))
      return refuse("ERROR: A whole number must be entered (" + v.Name + ")");
    table.Row[static_cast<std::size_t>(v.Row)] = mac.Variables.Row[static_cast<std::size_t>(v.Row)];
    table.Row[static_cast<std::size_t>(v.Row)].Value = value;
  }
  to = table;
  return {};
}
