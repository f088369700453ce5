#include "shell/script_templates.h"

#include "drafting/ask_question.h"
#include "drafting/command_machine.h"
#include "macros/template_values.h"
#include "macros/templates.h"

#include <charconv>

namespace {
std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

std::string NameVariable(ScriptedTemplates &t, std::string_view rest) {
  const std::size_t first = rest.find(' ');
  const std::size_t second = first == rest.npos ? first : rest.find(' ', first + 1);
  if (second == rest.npos) return "expected variable NAME VALUE PROMPT";
  const std::string name(rest.substr(0, first));
  const std::string_view number = rest.substr(first + 1, second - first - 1);
  double value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  if (error != std::errc() || end != number.data() + number.size() || !(value > 0))
    return "expected a number above 0 for " + name;
  SetGrainVariables(t.Variables, 1, 1);
  for (int i = FirstUserVariable; i <= LastUserVariable; ++i) {
    VariableRow &row = t.Variables.Row[static_cast<std::size_t>(i)];
    if (!row.Name.empty()) continue;
    if (std::string why = NameObjection(t.Variables, name, i); !why.empty()) return why;
    row = {value, "#" + name, std::string(Trimmed(rest.substr(second + 1))), ""};
    return {};
  }
  return "a template has eight variables at most";
}

std::string Keep(ScriptedTemplates &t, Workbench &bench, std::string_view rest) {
  if (!t.Record.Running) return "nothing is recorded";
  const std::size_t colon = rest.find(": ");
  const std::string key(rest.substr(0, colon));
  if (std::string why = FileNameObjection(key); !why.empty()) return why;
  LeaveCommand(bench.Draft);
  MadeTemplate made{key, RecordedTemplate(t.Record, bench.Draft)};
  made.Mac.Heading = colon == rest.npos ? key : std::string(rest.substr(colon + 2));
  EndRecording(t.Record, bench.Draft);
  t.Variables = {};
  t.Made.push_back(std::move(made));
  return {};
}
} // namespace

bool ScriptTemplateLine(ScriptedTemplates &t, Workbench &bench, std::string_view verb, std::string_view rest,
                        std::string &trouble) {
  if (verb == "variable") {
    trouble = NameVariable(t, rest);
  } else if (verb == "record") {
    bench.Grain.Table.EntCount = -1;
    BeginRecording(t.Record, bench.Draft, t.Variables);
  } else if (verb == "template") {
    trouble = Keep(t, bench, rest);
  } else {
    return false;
  }
  return true;
}

std::string ReadPlace(const Workbench &bench, std::string_view rest, ScriptedPlace &place) {
  const std::size_t part = rest.find(';');
  if (part == rest.npos) return "expected a place as X; Y";
  place.X = Trimmed(rest.substr(0, part));
  place.Y = Trimmed(rest.substr(part + 1));
  const Formula x = FieldFormula(bench.Draft, place.X), y = FieldFormula(bench.Draft, place.Y);
  if (!x.Good()) return place.X + ": " + x.Message;
  if (!y.Good()) return place.Y + ": " + y.Message;
  place.AtX = x.Value;
  place.AtY = y.Value;
  return {};
}
