#include "macros/record.h"

#include "drafting/command_machine.h"
#include "drafting/commit.h"
#include "drafting/view.h"
#include "macros/play_parts.h"
#include "macros/take_back.h"
#include "shell/grain_file.h"

#include <utility>

struct RecordingSaved {
  DraftingStart Own;
  VariableTable Variables;
  int MacroMode = 0;
};

namespace {
// As a file gives it back.
Entity ThroughText(const Entity &e) {
  if (!NotFiniteField(e).empty()) return e;
  RecordWriter w;
  PutEntity(w, e);
  RecordReader r{w.Bytes};
  Entity back;
  return TakeEntity(r, "", back).empty() ? back : e;
}

std::vector<Entity> RowsOf(const EntityTable &table) {
  std::vector<Entity> rows(table.Row.begin(), table.Row.begin() + table.EntCount + 1);
  for (Entity &e : rows) e.Selected = false;
  return rows;
}
} // namespace

void BeginRecording(TemplateRecording &rec, Drafting &d, const VariableTable &variables, int mode) {
  if (rec.Running) EndRecording(rec, d);
  LeaveCommand(d);
  rec = {};
  rec.Running = true;
  rec.Before = std::make_shared<RecordingSaved>(RecordingSaved{StartOf(d), d.Variables, d.Grain.MacroMode});
  FoldArcAngles(d.Grain.Table);
  for (int i = 0; i <= d.Grain.Table.EntCount; ++i)
    RowAt(d.Grain.Table, i) = ThroughText(RowAt(d.Grain.Table, i));
  rec.Start = RowsOf(d.Grain.Table);
  d.Ring = UndoRing{};
  d.Variables = variables;
  SetGrainVariables(d.Variables, d.Grain.Doc.GrainDiam, static_cast<double>(d.Grain.Doc.GrainLength));
  PutRecordingStart(d);
  d.Grain.MacroMode = mode;
  d.Log = {};
  d.Log.On = true;
  d.Answers.clear();
  d.TakeBack = [history = std::make_shared<LogHistory>(LogHistory{rec.Start, {}, 0})](Drafting &x,
                                                                                      bool again) {
    again ? BringBackInput(*history, x) : TakeBackInput(*history, x);
  };
  RefreshDrafting(d);
}

MacFile RecordedTemplate(const TemplateRecording &rec, const Drafting &d) {
  MacFile mac;
  mac.Start = rec.Start;
  mac.Variables = d.Variables;
  SetGrainVariables(mac.Variables, d.Grain.Doc.GrainDiam, static_cast<double>(d.Grain.Doc.GrainLength));
  for (int i = FirstUserVariable; i <= LastUserVariable; ++i)
    if (!VariableName(mac.Variables.Row[static_cast<std::size_t>(i)]).empty()) mac.VariableNameCntr = i;
  mac.Log = d.Log.Row;
  mac.Finished = RowsOf(d.Grain.Table);
  return mac;
}

void EndRecording(TemplateRecording &rec, Drafting &d) {
  if (std::exchange(rec.InLesson, false)) rec.Running = false;
  if (!rec.Running) return;
  LeaveCommand(d);
  d.Log = {};
  d.TakeBack = {};
  d.Grain.MacroMode = rec.Before->MacroMode;
  d.Variables = rec.Before->Variables;
  PutStart(d, rec.Before->Own);
  rec = {};
  RefreshDrafting(d);
  RedrawPanel(d);
}
