#include "macros/lesson.h"

#include "base/fault.h"
#include "drafting/command_machine.h"
#include "drafting/commit.h"
#include "drafting/view.h"
#include "macros/lesson_template.h"
#include "macros/lesson_words.h"
#include "macros/play.h"
#include "macros/play_parts.h"

#include <algorithm>
#include <utility>

struct LessonSaved {
  DraftingStart Own;
  Design Grain;
  UndoRing Ring{.Slot = nullptr};
  VariableTable Variables;
  std::function<void()> KeepWork;
};

namespace {
constexpr int Playing = 4;

std::span<const LessonStep> Group(const LessonPlay &play, std::size_t first) {
  const std::span<const LessonStep> all(play.What.Step);
  return all.subspan(first, GroupEnd(all, first) - first);
}

std::string PutGrain(const LessonPlay &play, GrainDoc &doc) {
  if (play.Log.empty() || play.Log[0].PointArea != LessonGrain) return {};
  const Instruction &grain = play.Log[0];
  if (!(grain.Value1 > 0) || !(grain.Value2 > 0)) return "the lesson's grain must be above 0";
  try {
    SetDimensions(doc, grain.Value1, grain.Value2, grain.Value3, grain.SelectionType);
  } catch (const Fault &) {
    return "the lesson's grain is out of range";
  }
  return {};
}

// The drawing as the steps before Next make it.
std::string DrawToNext(LessonPlay &play, Drafting &d) {
  d.Grain.MacroMode = Playing;
  std::string trouble = DrawLog(d, play.What.Start, {}, play.Log, play.Next);
  d.Ring = UndoRing{};
  d.Log = {};
  d.Log.On = true;
  d.Answers.clear();
  ++d.Changes;
  RefreshDrafting(d);
  RedrawPanel(d);
  return trouble;
}

void PassGrain(LessonPlay &play) {
  while (play.Next < play.Log.size() && play.Log[play.Next].PointArea == LessonGrain) ++play.Next;
}

bool Exactly(const Instruction &a, const Instruction &b) {
  return a.PointArea == b.PointArea && a.Value1 == b.Value1 && a.Value2 == b.Value2 && a.Value3 == b.Value3;
}
} // namespace

std::string BeginLesson(LessonPlay &play, Drafting &d, const Lesson &lesson, std::size_t from) {
  if (play.Running) EndLesson(play, d);
  LeaveCommand(d);
  play = {};
  play.What = lesson;
  for (const LessonStep &step : lesson.Step) play.Log.push_back(step.Expected);
  play.Before = std::make_shared<LessonSaved>();
  LessonSaved &saved = *play.Before;
  saved.Own = StartOf(d);
  saved.Grain = d.Grain;
  saved.Ring = std::exchange(d.Ring, UndoRing{});
  saved.Variables = d.Variables;
  saved.KeepWork = std::exchange(d.KeepWork, {});
  play.Running = true;
  const std::span<const LessonStep> all(play.What.Step);
  for (PassGrain(play); play.Next < std::min(from, all.size());) play.Next = GroupEnd(all, play.Next);
  std::string trouble = PutGrain(play, d.Grain.Doc);
  if (trouble.empty()) trouble = DrawToNext(play, d);
  if (!trouble.empty()) EndLesson(play, d);
  return trouble;
}

void EndLesson(LessonPlay &play, Drafting &d) {
  if (!play.Running) return;
  LeaveCommand(d);
  LessonSaved &saved = *play.Before;
  play.Running = false;
  d.Grain = saved.Grain;
  d.Ring = std::move(saved.Ring);
  d.Variables = saved.Variables;
  d.KeepWork = std::move(saved.KeepWork);
  d.Play = {};
  d.Log = {};
  d.Answers.clear();
  PutStart(d, saved.Own);
  play.Before.reset();
  ++d.Changes;
  RefreshDrafting(d);
  RedrawPanel(d);
}

bool LessonDone(const LessonPlay &play) { return play.Next >= play.Log.size(); }

std::string LessonPrompt(const LessonPlay &play) {
  return LessonDone(play) ? "" : LessonMessage(Group(play, play.Next), ToolBefore(play.What.Step, play.Next));
}

LessonAnswer CheckLesson(LessonPlay &play, Drafting &d) {
  using Kind = LessonAnswer::Kind;
  if (!play.Running || d.Log.Row.empty()) return {};
  const std::vector<Instruction> got = TakeLog(d.Log);
  if (d.Ring.UndoTop > 0) d.Ring = UndoRing{}; // the lesson alone takes back
  if (LessonDone(play)) return {};
  const std::size_t before = play.Next;
  bool exact = true;
  std::string objection;
  for (std::size_t i = 0; i < got.size() && objection.empty(); ++play.Next, ++i) {
    if (LessonDone(play)) {
      exact = false; // what came behind the last step is taken back
      break;
    }
    objection = LessonObjection(play.What.Step[play.Next], got[i], ToolBefore(play.What.Step, play.Next),
                                static_cast<double>(d.Grain.Doc.GrainRadius), d.Variables);
    exact = exact && Exactly(play.Log[play.Next], got[i]);
  }
  // A group comes whole or not at all.
  std::size_t first = before;
  while (first < play.Next) {
    const std::size_t end = first + Group(play, first).size();
    if (objection.empty() && end > play.Next)
      objection = MissingInput(play.What.Step[play.Next], ToolBefore(play.What.Step, play.Next));
    first = end;
  }
  if (!objection.empty()) {
    play.Next = before;
    DrawToNext(play, d);
    return {Kind::Wrong, objection};
  }
  if (!exact)
    if (const std::string trouble = DrawToNext(play, d); !trouble.empty()) {
      play.Next = before;
      DrawToNext(play, d);
      return {Kind::Wrong, trouble};
    }
  LessonAnswer good{Kind::Good, {}};
  for (std::size_t i = before; i < play.Next; ++i)
    if (!play.What.Step[i].Special.empty()) good.Words = play.What.Step[i].Special;
  return good;
}

LessonAnswer CheckPress(LessonPlay &play, const Drafting &d, const std::string &control) {
  using Kind = LessonAnswer::Kind;
  if (!play.Running || LessonDone(play)) return {};
  Instruction press;
  press.PointArea = LessonPress;
  press.Value4 = control;
  const LessonStep &step = play.What.Step[play.Next];
  const std::string objection = LessonObjection(step, press, ToolBefore(play.What.Step, play.Next),
                                                static_cast<double>(d.Grain.Doc.GrainRadius));
  if (!objection.empty()) return {Kind::Wrong, objection};
  if (LogsItself(control)) return {}; // comes with what its forms hold
  ++play.Next;
  return {Kind::Good, step.Special};
}

bool ExpectsPress(const LessonPlay &play) {
  return play.Running && !LessonDone(play) && play.Log[play.Next].PointArea == LessonPress;
}

bool ExpectsEscape(const LessonPlay &play) {
  return play.Running && !LessonDone(play) && play.Log[play.Next].PointArea == LogEscape;
}
