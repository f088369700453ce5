#include "macros/lesson_guide.h"

#include "drafting/command_table.h"
#include "macros/lesson_words.h"
#include "macros/play_parts.h"

#include <algorithm>

namespace {
constexpr int TypedPointKind = 147, BackButton = 2, RotationDrawTool = 97;

Ctl AcceptOf(int kind) { return kind == 51 ? Ctl::AcceptBoxWH : kind == 53 ? Ctl::PolyAccept : Ctl::Count; }

Ctl ButtonAsked(const Instruction &step) {
  if (step.PointArea == LessonPress) return FindControl(step.Value4).value_or(Ctl::Count);
  if (step.PointArea == LogDelta) return Ctl::Delta;
  if (step.PointArea == LogPolyOption) return step.Value1 == 0 ? Ctl::PolyFlat : Ctl::PolyCorner;
  if (step.PointArea == TypedPointKind) return Ctl::Key_In;
  const CommandRow *tool = FindCommand(step.PointArea);
  const bool accepts = !step.Value4.empty() || step.Value1 != 0 || step.Value2 != 0;
  if (tool && accepts) return AcceptOf(step.PointArea);
  return tool ? tool->Button : ButtonOfKind(step.PointArea);
}

std::optional<Point> PlaceAsked(const Instruction &step) {
  switch (step.PointArea) {
  case TypedPointKind: return Point{step.Value1, step.Value2};
  case LogClick:
    if (step.Value3 != BackButton) return Point{step.Value1, step.Value2};
    return std::nullopt;
  case LogFoundEnt:
  case LogSelectEnt:
  case LogTrimmingEnt: return Point{step.Value2, step.Value3};
  default: return std::nullopt;
  }
}

} // namespace

LessonTarget TargetOf(const LessonPlay &play) {
  if (!play.Running || LessonDone(play)) return {};
  return {ButtonAsked(play.Log[play.Next]), PlaceAsked(play.Log[play.Next])};
}

std::string ToolObjection(const LessonPlay &play, Ctl button) {
  if (!play.Running || LessonDone(play)) return {};
  const CommandRow *tool = CommandOf(button);
  const bool rotates = button == Ctl::RotateDraw || button == Ctl::tbRotationDraw;
  if (!tool && !rotates) return {};
  Instruction press;
  press.PointArea = tool ? tool->CmdNo : RotationDrawTool;
  return LessonObjection(play.What.Step[play.Next], press, ToolBefore(play.What.Step, play.Next), 0);
}

double NearOf(const LessonPlay &play, double radius) {
  const double own = LessonDone(play) ? 0 : play.What.Step[play.Next].Tolerance;
  return own > 0 ? own : radius / 50;
}

LessonProgress ProgressOf(const Lesson &lesson, std::size_t next) {
  LessonProgress progress;
  for (std::size_t i = 0; i < lesson.Step.size(); i = GroupEnd(lesson.Step, i)) {
    if (lesson.Step[i].Expected.PointArea == LessonGrain) continue;
    ++progress.Of;
    progress.Step += i < next ? 1 : 0;
  }
  return progress;
}

std::vector<std::string> LessonPrompts(const Lesson &lesson) {
  std::vector<std::string> prompts;
  int tool = 0;
  for (std::size_t i = 0; i < lesson.Step.size();) {
    const std::size_t end = GroupEnd(lesson.Step, i);
    const int kind = lesson.Step[i].Expected.PointArea;
    if (kind != LessonGrain)
      prompts.push_back(LessonMessage(std::span(lesson.Step).subspan(i, end - i), tool));
    if (IsLessonTool(kind)) tool = kind;
    i = end;
  }
  return prompts;
}

std::size_t ResumeFrom(const Lesson &lesson, std::size_t next) {
  next = std::min(next, lesson.Step.size());
  std::optional<std::size_t> burnt;
  for (std::size_t i = 0; i < next; ++i) {
    const Instruction &step = lesson.Step[i].Expected;
    if (step.PointArea != LessonPress) continue;
    if (step.Value4 == RowOf(Ctl::RunSim2).Name) burnt = burnt.value_or(i);
    if (step.Value4 == RowOf(Ctl::Design_Mode).Name) burnt.reset();
  }
  return burnt.value_or(next);
}
