#include "macros/take_back.h"

#include "drafting/command_machine.h"
#include "drafting/commit.h"
#include "drafting/prompt.h"
#include "drafting/report.h"
#include "macros/play_parts.h"
#include "macros/tutor_file.h"

#include <algorithm>
#include <utility>

namespace {
constexpr int ZoomCommand = 80, RotationDrawSlot = 97;

bool IsSetting(int kind) {
  return (kind > LogRefType && kind < LogDelta) || kind == RotationDrawSlot || kind == LogDeactivateRDraw ||
         kind == LogPolyOption || kind >= LessonGrain;
}

bool IsButton(const Instruction &step, int tool) { return step.PointArea == tool && step.Value4.empty(); }

// The tool that goes on after an undo; 0: none, as those that work on a selection, whose rows shift.
int ToolGoingOn(const Drafting &d) {
  const int tool = d.Cmd.CmdNo == ZoomCommand && d.Under ? d.Under->CmdNo : d.Cmd.CmdNo;
  const CommandRow *row = FindCommand(tool);
  return row && !row->Enter ? tool : 0;
}

void Append(LogRows &to, const LogRows &from, std::size_t at) {
  to.Row.push_back(from.Row[at]);
  to.Number.push_back(from.Number[at]);
}

// Appends what the rows from `first` on have set, and the last button of the tool, with its answers.
void AppendSettings(LogRows &to, const LogRows &from, std::size_t first, int tool) {
  std::size_t button = from.Row.size();
  for (std::size_t i = first; i < from.Row.size(); ++i)
    if (tool != 0 && IsButton(from.Row[i], tool)) button = i;
  bool kept = false;
  for (std::size_t i = first; i < from.Row.size(); ++i) {
    kept = from.Row[i].PointArea == LogAnswers ? kept : i == button || IsSetting(from.Row[i].PointArea);
    if (kept) Append(to, from, i);
  }
}

LogRows FirstRows(const LogRows &all, std::size_t end) {
  LogRows rows;
  for (std::size_t i = 0; i < end; ++i) Append(rows, all, i);
  return rows;
}

struct ChangingInput {
  std::size_t End; // the row behind it
  int Changes;
};

std::string FindChanges(const LogHistory &h, Drafting &d, std::vector<ChangingInput> &found) {
  unsigned before = d.Changes;
  return DrawLog(d, h.Start, d.Variables, d.Log.Row, d.Log.Row.size(), [&](std::size_t next) {
    if (d.Changes != before) found.push_back({next, static_cast<int>(d.Changes - before)});
    before = d.Changes;
  });
}

// One more input, as the user's own would be.
std::string Deliver(Drafting &d, const std::vector<Instruction> &steps) {
  for (const Instruction &step : steps) LogStep(d.Log, step);
  const bool on = std::exchange(d.Log.On, false);
  std::string trouble;
  for (std::size_t next = 0; next < steps.size() && trouble.empty();)
    trouble = StepInstruction(d, steps, next, 1);
  d.Log.On = on;
  return trouble;
}

// The tool stands at its beginning.
std::string PutTool(Drafting &d, const LogRows &before, int tool) {
  if (d.Cmd.CmdNo == tool && d.Cmd.PointCount < 0) return {};
  Instruction escape;
  escape.PointArea = LogEscape;
  if (tool == 0) return Deliver(d, {escape});
  std::size_t at = before.Row.size();
  for (std::size_t i = 0; i < before.Row.size(); ++i)
    if (IsButton(before.Row[i], tool)) at = i;
  std::vector<Instruction> steps;
  for (; at < before.Row.size() && (steps.empty() || before.Row[at].PointArea == LogAnswers); ++at)
    steps.push_back(before.Row[at]);
  return Deliver(d, steps);
}

std::string PutRows(LogHistory &h, Drafting &d, const LogRows &rows, int tool) {
  const LogRows before{d.Log.Row, d.Log.Number};
  d.Log.Row = rows.Row;
  d.Log.Number = rows.Number;
  std::string trouble = DrawLog(d, h.Start, d.Variables, d.Log.Row, d.Log.Row.size());
  if (trouble.empty()) trouble = PutTool(d, before, tool);
  h.Base = d.Log.Row.size();
  return trouble;
}

// What stands when the log is `rows` and what was set behind row `first`.
std::string Put(LogHistory &h, Drafting &d, LogRows rows, const LogRows &now, std::size_t first, int tool) {
  const LogRows plain = rows;
  AppendSettings(rows, now, first, tool);
  if (PutRows(h, d, rows, tool).empty()) return {};
  return PutRows(h, d, plain, 0); // a setting that was for what is gone
}

void Finish(Drafting &d) {
  ++d.Changes;
  SetPrompt(d);
  RedrawPanel(d);
  if (d.KeepWork) d.KeepWork();
}

// A log that does not play cannot be shortened: all is as it was, but for the command.
void Refuse(Drafting &d, const EntityTable &table, const LogRows &rows, const std::string &trouble) {
  LeaveCommand(d);
  d.Grain.Table = table;
  ClearMarks(d);
  d.Log.Row = rows.Row;
  d.Log.Number = rows.Number;
  LogInput(d, LogEscape);
  Report(d, "The recording cannot take this back. " + trouble);
  Finish(d);
}
} // namespace

void TakeBackInput(LogHistory &h, Drafting &d) {
  const int tool = ToolGoingOn(d);
  const LogRows now{d.Log.Row, d.Log.Number};
  const EntityTable table = d.Grain.Table;
  std::vector<ChangingInput> change;
  if (const std::string trouble = FindChanges(h, d, change); !trouble.empty())
    return Refuse(d, table, now, trouble);
  const std::size_t end = change.empty() ? 0 : change.back().End;
  const bool undoes = !change.empty() && NextUndo(d.Ring).There;
  const std::size_t left = !undoes ? end : change.size() > 1 ? change[change.size() - 2].End : 0;
  if (const std::string trouble = Put(h, d, FirstRows(now, left), now, left, tool); !trouble.empty())
    return Refuse(d, table, now, trouble);
  if (undoes) {
    LogHistory::Undone again{FirstRows(now, end), change.back().Changes};
    AppendSettings(again.Rows, now, end, tool);
    h.Again.push_back(std::move(again));
    EntityTable former = table;
    for (int i = 0; i < change.back().Changes; ++i) Undo(d.Ring, former);
  }
  Finish(d);
}

void BringBackInput(LogHistory &h, Drafting &d) {
  if (!NextRedo(d.Ring).There) h.Again.clear();
  if (h.Again.empty()) return;
  const int tool = ToolGoingOn(d);
  const LogRows now{d.Log.Row, d.Log.Number};
  EntityTable table = d.Grain.Table;
  const LogHistory::Undone again = h.Again.back();
  const std::size_t base = std::min(h.Base, now.Row.size());
  if (const std::string trouble = Put(h, d, again.Rows, now, base, tool); !trouble.empty())
    return Refuse(d, table, now, trouble);
  h.Again.pop_back();
  for (int i = 0; i < again.Changes; ++i) Redo(d.Ring, table);
  Finish(d);
}
