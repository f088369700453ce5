#include "macros/play.h"

#include "drafting/command_machine.h"
#include "drafting/commit.h"
#include "drafting/point_fields.h"
#include "drafting/view.h"
#include "macros/evaluator.h"
#include "macros/lesson_template.h"
#include "macros/play_parts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>
#include <utility>

struct PlaySaved {
  DraftingStart Own;
  EntityTable Table;
  VariableTable Variables;
  int MacroMode = 0;
  bool SavedFlag = true, Log = false;
};

namespace {
constexpr int Silent = 2, SegmentsCommand = 54;

bool IsPick(int kind) { return kind == LogFoundEnt || kind == LogSelectEnt || kind == LogTrimmingEnt; }

// Puts back all but the table.
void EndPlay(TemplatePlay &play, Drafting &d) {
  PlaySaved &saved = *play.Before;
  LeaveCommand(d);
  play.Running = false;
  d.Play = {};
  d.Variables = saved.Variables;
  d.Grain.MacroMode = saved.MacroMode;
  d.Log.On = saved.Log;
  PutStart(d, saved.Own);
  RefreshFields(d);
}

void PutDesignBack(TemplatePlay &play, Drafting &d) {
  EndPlay(play, d);
  d.Grain.Table = play.Before->Table;
  d.Grain.SavedFlag = play.Before->SavedFlag;
  play.Before.reset();
  ++d.Changes;
  RefreshDrafting(d);
  RedrawPanel(d);
}

void KeepResult(TemplatePlay &play, Drafting &d) {
  EndPlay(play, d);
  TakeSnapshot(d.Ring, play.Before->Table, d.Grain.MacroMode, "Template");
  play.Before.reset();
  ++d.Changes;
  d.Grain.SavedFlag = false;
  RefreshDrafting(d);
  RedrawPanel(d);
  if (d.KeepWork) d.KeepWork();
}

void TakeAnswers(const Instruction &step, std::vector<double> &to) {
  for (const double v : {step.Value1, step.Value2, step.Value3}) to.push_back(v);
}
} // namespace

std::string InstructionFault(std::size_t number, const Instruction &step, const std::string &trouble) {
  const std::string name = KindName(step.PointArea);
  return "Instruction " + std::to_string(number) + (name.empty() ? "" : " (" + name + ")") + ": " + trouble;
}

DraftingStart StartOf(const Drafting &d) {
  return {d.Tool, d.Select, d.Rotation, d.Typed, d.Grain.Defaults, d.Cmd.RefType, d.Track};
}

void PutStart(Drafting &d, const DraftingStart &own) {
  d.Tool = own.Tool;
  d.Select = own.Select;
  d.Rotation = own.Rotation;
  d.Typed = own.Typed;
  d.Grain.Defaults = own.Defaults;
  d.Cmd.RefType = own.RefType;
  d.Track = own.Track;
  for (const Ctl field : {Ctl::X_Input, Ctl::Y_Input}) d.Out[field].Text.clear();
  d.Out[Ctl::X_Label].Text = "X:";
}

void PutRecordingStart(Drafting &d) {
  DraftingStart plain;
  plain.Track.AutoPoint = d.Track.AutoPoint;
  PutStart(d, plain);
}

std::vector<Entity> ScaledRows(const std::vector<Entity> &rows, double scale) {
  std::vector<Entity> to = rows;
  if (scale == 1) return to;
  for (Entity &e : to) {
    for (double *v : {&e.X1, &e.Y1, &e.X2, &e.Y2, &e.CenterX, &e.CenterY, &e.Radius, &e.Intercept})
      *v *= scale;
  }
  return to;
}

double ScaleOf(const MacFile &mac, double diameter) {
  const double recorded = RecordedDiameter(mac);
  return recorded > 0 && diameter > 0 ? diameter / recorded : 1;
}

void PutPlayStart(Drafting &d, const MacFile &mac, const VariableTable &values, double scale) {
  d.Grain.Table.EntCount = -1;
  for (const Entity &e : ScaledRows(mac.Start, scale)) AppendRow(d.Grain.Table, e);
  FoldArcAngles(d.Grain.Table);
  ClearMarks(d);
  d.Variables = values;
  SetGrainVariables(d.Variables, d.Grain.Doc.GrainDiam, static_cast<double>(d.Grain.Doc.GrainLength));
  PutRecordingStart(d);
  d.Play = {};
  d.Log.Place = {};
}

std::string WorkOut(Instruction &step, const VariableTable &table, double scale) {
  double *const value[] = {&step.Value1, &step.Value2, &step.Value3};
  std::array<bool, 3> worked{};
  if (!step.Value4.empty() && step.Value4 != "ENTERKEY") {
    std::string_view rest = step.Value4;
    for (std::size_t i = 0; i < 3 && !rest.empty(); ++i) {
      const std::size_t end = rest.find(';');
      const std::string_view piece = rest.substr(0, end);
      rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
      if (piece.find_first_not_of(" \t") == piece.npos) continue;
      const Formula formula = EvaluateFormula(piece, table);
      if (!formula.Good() || !std::isfinite(formula.Value))
        return "\"" + std::string(piece) + "\": " + (formula.Good() ? "no number" : formula.Message);
      *value[i] = formula.Value;
      worked[i] = true;
    }
  }
  const bool pick = IsPick(step.PointArea);
  if (scale == 1 || (!pick && step.PointArea != LogClick)) return {};
  for (std::size_t i = pick ? 1 : 0; i < (pick ? 3u : 2u); ++i)
    if (!worked[i]) *value[i] *= scale;
  return {};
}

std::string StepInstruction(Drafting &d, const std::vector<Instruction> &log, std::size_t &next,
                            double scale) {
  Instruction step = log[next++];
  std::string trouble = WorkOut(step, d.Variables, scale);
  std::vector<double> answers;
  const auto gather = [&] {
    Instruction answer = log[next++];
    if (trouble.empty()) trouble = WorkOut(answer, d.Variables, scale);
    TakeAnswers(answer, answers);
  };
  // The sections of command 54 are asked for at the pick itself.
  const bool sections = d.Cmd.CmdNo == SegmentsCommand && step.PointArea == LogFoundEnt &&
                        next < log.size() && log[next].PointArea == SegmentsCommand &&
                        !log[next].Value4.empty();
  if (sections) gather();
  while (next < log.size() && log[next].PointArea == LogAnswers) gather();
  return trouble.empty() ? Deliver(d, step, answers) : trouble;
}

std::string DrawLog(Drafting &d, const std::vector<Entity> &start, const VariableTable &variables,
                    const std::vector<Instruction> &log, std::size_t end,
                    const std::function<void(std::size_t)> &done) {
  UndoRing ring = std::exchange(d.Ring, UndoRing{});
  const auto keepWork = std::exchange(d.KeepWork, {});
  const auto markFaults = std::exchange(d.MarkFaults, {});
  const bool fills = std::exchange(d.Log.On, false);
  DrawSurface &panel = d.Out.Panel;
  const std::array view{panel.Left, panel.Top, panel.Width, panel.Height}; // zooms are inputs too
  const std::int16_t lastTool = d.LastTool;
  LeaveCommand(d);
  MacFile mac;
  mac.Start = start;
  PutPlayStart(d, mac, VariableTable(variables), 1);
  std::string trouble;
  for (std::size_t next = 0; next < end && trouble.empty();) {
    const std::size_t number = next;
    if (log[next].PointArea >= LessonGrain) // nothing of the drawing
      DrawTemplateStep(d, log[next++]);
    else if (trouble = StepInstruction(d, log, next, 1); !trouble.empty())
      trouble = InstructionFault(number, log[number], trouble);
    if (done) done(next);
  }
  d.LastTool = lastTool;
  std::tie(panel.Left, panel.Top, panel.Width, panel.Height) = std::tuple_cat(view);
  d.Log.On = fills;
  d.MarkFaults = markFaults;
  d.KeepWork = keepWork;
  d.Ring = std::move(ring);
  d.Answers.clear();
  return trouble;
}

void BeginPlay(TemplatePlay &play, Drafting &d, const MacFile &mac, const VariableTable &values, int mode) {
  if (play.Running) StopPlay(play, d);
  LeaveCommand(d);
  play = {};
  play.Before = std::make_shared<PlaySaved>();
  PlaySaved &saved = *play.Before;
  saved.Own = StartOf(d);
  saved.Table = d.Grain.Table;
  saved.Variables = d.Variables;
  saved.MacroMode = d.Grain.MacroMode;
  saved.SavedFlag = d.Grain.SavedFlag;
  saved.Log = d.Log.On;
  play.Log = mac.Log;
  play.Scale = ScaleOf(mac, d.Grain.Doc.GrainDiam);
  play.Running = true;
  d.Log.On = false;
  d.Grain.MacroMode = mode;
  PutPlayStart(d, mac, values, play.Scale);
  ++d.Changes;
  if (mode != Silent) RedrawPanel(d);
}

bool NextInstruction(TemplatePlay &play, Drafting &d) {
  if (!play.Running) return false;
  if (play.Next >= play.Log.size()) {
    KeepResult(play, d);
    return false;
  }
  const std::size_t number = play.Next;
  const std::string trouble = StepInstruction(d, play.Log, play.Next, play.Scale);
  if (trouble.empty()) return true;
  play.FaultInstruction = static_cast<int>(number);
  play.Fault = InstructionFault(number, play.Log[number], trouble);
  PutDesignBack(play, d);
  return false;
}

void StopPlay(TemplatePlay &play, Drafting &d) {
  if (play.Running) PutDesignBack(play, d);
}
