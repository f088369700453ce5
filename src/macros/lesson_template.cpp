#include "macros/lesson_template.h"

#include "drafting/command_machine.h"
#include "macros/play.h"
#include "macros/play_parts.h"
#include "macros/template_values.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

namespace {
bool IsPress(const Instruction &step, const char *control) {
  return step.PointArea == LessonPress && step.Value4 == control;
}

VariableRow *RowNamed(VariableTable &table, const Instruction &step) {
  const bool row = step.Value1 >= FirstUserVariable && step.Value1 <= LastUserVariable;
  return row ? &table.Row[static_cast<std::size_t>(step.Value1)] : nullptr;
}

void Name(VariableTable &table, const Instruction &step) {
  if (VariableRow *row = RowNamed(table, step)) *row = {step.Value2, "#" + step.Value4, "", ""};
}

void Log(Drafting &d, int kind, double row, double value, const std::string &text) {
  Instruction step;
  step.PointArea = kind;
  step.Value1 = row;
  step.Value2 = value;
  step.Value4 = text;
  LogStep(d.Log, step);
}

void LogPress(Drafting &d, const char *control) { Log(d, LessonPress, 0, 0, control); }

template <class Action>
void EachVariable(const VariableTable &table, Action action) {
  for (int i = FirstUserVariable; i <= LastUserVariable; ++i)
    if (const VariableRow &row = table.Row[static_cast<std::size_t>(i)]; !VariableName(row).empty())
      action(i, row);
}
} // namespace

bool LogsItself(const std::string &control) { return control == MakePress || control == StopPress; }

void LogTemplateBegin(Drafting &d, const VariableTable &named) {
  LeaveCommand(d);
  const std::size_t first = d.Log.Row.size();
  LogPress(d, MakePress);
  EachVariable(
      named, [&](int i, const VariableRow &row) { Log(d, LessonVariable, i, row.Value, VariableName(row)); });
  const std::vector<Instruction> rows(d.Log.Row.begin() + static_cast<std::ptrdiff_t>(first),
                                      d.Log.Row.end());
  for (const Instruction &row : rows) DrawTemplateStep(d, row);
  RefreshDrafting(d);
}

void LogTemplateEnd(Drafting &d, const std::string &name, const VariableTable &prompts) {
  LeaveCommand(d);
  LogPress(d, StopPress);
  Log(d, LessonName, 0, 0, name);
  EachVariable(prompts, [&](int i, const VariableRow &row) {
    if (!row.Prompt.empty()) Log(d, LessonPromptText, i, 0, row.Prompt);
  });
}

void DrawTemplateStep(Drafting &d, const Instruction &step) {
  if (step.PointArea == LessonVariable) return Name(d.Variables, step);
  if (IsPress(step, StopPress)) return LeaveCommand(d);
  if (!IsPress(step, MakePress)) return;
  LeaveCommand(d);
  PutRecordingStart(d);
  d.Variables = {};
  SetGrainVariables(d.Variables, d.Grain.Doc.GrainDiam, static_cast<double>(d.Grain.Doc.GrainLength));
}

std::string FormulaOf(const Instruction &step, std::size_t which) {
  if (step.PointArea >= LessonGrain || step.Value4 == "ENTERKEY") return {};
  std::string_view rest = step.Value4;
  for (; which > 0; --which) {
    const std::size_t part = rest.find(';');
    if (part == rest.npos) return {};
    rest.remove_prefix(part + 1);
  }
  return std::string(rest.substr(0, rest.find(';')));
}

bool SameFormulas(const Instruction &a, const Instruction &b, const VariableTable &variables) {
  bool named = false;
  EachVariable(variables, [&](int, const VariableRow &) { named = true; });
  for (const double change : {1.07, 0.83, 1.31}) {
    VariableTable changed = variables;
    double by = change; // another for each, else sums and products of two could agree
    for (VariableRow &row : changed.Row) row.Value *= std::exchange(by, by * change);
    Instruction x = a, y = b;
    if (!named || !WorkOut(x, changed, 1).empty()) return true;
    if (!WorkOut(y, changed, 1).empty()) return false;
    for (const auto &[p, q] : {std::pair{x.Value1, y.Value1}, {x.Value2, y.Value2}, {x.Value3, y.Value3}})
      if (std::abs(p - q) > 1e-6 * std::max({std::abs(p), std::abs(q), 1.0})) return false;
  }
  return true;
}

bool SamePrompt(const std::string &a, const std::string &b) {
  const auto read = [](const std::string &prompt) {
    MacFile mac;
    mac.Variables.Row[FirstUserVariable] = {1, "#A", prompt, ""};
    mac.VariableNameCntr = FirstUserVariable;
    SetGrainVariables(mac.Variables, 1, 1);
    return TemplateVariables(mac, 1).at(0);
  };
  const TemplateVariable x = read(a), y = read(b);
  return x.Unit == y.Unit && x.Least == y.Least && x.Most == y.Most && !y.Prompt.empty();
}

bool InTemplate(std::span<const Instruction> rows) {
  for (auto row = rows.rbegin(); row != rows.rend(); ++row)
    if (row->PointArea == LessonPress && LogsItself(row->Value4)) return row->Value4 == MakePress;
  return false;
}

MacFile TemplateOfLesson(std::span<const Instruction> rows, double diameter, double length,
                         std::string *name) {
  MacFile mac;
  bool inside = false;
  for (const Instruction &step : rows) {
    if (IsPress(step, MakePress)) {
      mac = {};
      inside = true;
      if (name) name->clear();
    } else if (IsPress(step, StopPress)) {
      inside = false;
    } else if (step.PointArea == LessonVariable) {
      Name(mac.Variables, step);
      mac.VariableNameCntr = std::max(mac.VariableNameCntr, static_cast<int>(step.Value1));
    } else if (step.PointArea == LessonPromptText) {
      if (VariableRow *row = RowNamed(mac.Variables, step)) row->Prompt = step.Value4;
    } else if (step.PointArea == LessonName) {
      if (name) *name = step.Value4;
    } else if (inside && step.PointArea < LessonGrain) {
      mac.Log.push_back(step);
    }
  }
  SetGrainVariables(mac.Variables, diameter, length);
  return mac;
}
