#include "shell/tutor.h"

#include "base/whole_file.h"
#include "burnback/run_sim.h"
#include "drafting/command_machine.h"
#include "drafting/commit.h"
#include "macros/lesson_guide.h"
#include "macros/lesson_list.h"
#include "shell/design_view.h"
#include "shell/grain_file.h"
#include "shell/script_lessons.h"
#include "shell/template_play.h"
#include "shell/template_record.h"
#include "shell/tutor_author.h"
#include "shell/tutor_record.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {
constexpr const char *Title = "Tutor", *Section = "Tutor";
constexpr int EscapeKey = 27;

void Tell(Workbench &bench, const std::string &text) {
  bench.Out.Ask({text, Title, Buttons::Ok, Icon::Exclamation});
}

std::string KeyOf(const char *what, int index) { return what + std::string(" ") + std::to_string(index); }

void Keep(Workbench &bench, const char *what, int index, std::size_t value) {
  SaveSetting(bench.Settings, Section, KeyOf(what, index), std::to_string(value));
  WriteSettings(bench.Settings); // a place that cannot be kept is no reason to stop the user
}

// Of the list: the first that is not done.
int FirstToDo(const Workbench &bench, std::size_t from = 0) {
  const auto &list = bench.Tutor.List;
  for (std::size_t i = from; i < list.size(); ++i)
    if (!LessonKept(bench, list[i]).Done) return static_cast<int>(i);
  return -1;
}

// As its file holds it now.
std::string FindInFile(const Workbench &bench, int index, Lesson &lesson) {
  std::vector<Lesson> lessons = bench.Tutor.List;
  const std::string path = TutorPath(bench);
  if (FileExists(path)) // a folder that cannot be written has none
    if (std::string trouble = ReadTutorFile(path, lessons); !trouble.empty()) return trouble;
  const Lesson *found = nullptr;
  std::string trouble = FindLesson(lessons, index, found);
  if (trouble.empty()) lesson = *found;
  return trouble;
}

void Start(Workbench &bench, bool over) {
  TutorState &t = bench.Tutor;
  if (t.Chosen < 0 || LessonRecords(t.Rec.Lesson)) return;
  if (LessonPlays(bench)) LeaveLesson(bench);
  const Lesson chosen = t.List[static_cast<std::size_t>(t.Chosen)];
  Lesson lesson;
  if (const std::string trouble = FindInFile(bench, chosen.Index, lesson); !trouble.empty())
    return Tell(bench, trouble);
  PutAside(bench, t.Aside);
  const std::string unkept = WriteWorkFile(bench.Folders.AppDir + "CurrentWorkFile", bench.Grain);
  if (!unkept.empty()) Tell(bench, unkept); // it is kept in memory as well
  const std::size_t from = over ? 0 : ResumeFrom(lesson, LessonKept(bench, lesson).Next);
  const std::string trouble = BeginLesson(t.Play, bench.Draft, lesson, from);
  if (!trouble.empty()) {
    BringBack(bench, t.Aside);
    return Tell(bench, lesson.Name + ": " + trouble);
  }
  FollowLessonTemplate(bench, t.Play);
  t.Choosing = false;
  t.Said = {};
  t.Due.clear();
  bench.Grain.CurrentFile.clear(); // Save must not put the lesson's drawing into the user's file
  bench.Grain.SavedFlag = true;
  ShowWholeGrain(bench);
  bench.Out.Focus = Ctl::DrawPanel;
}

void Heed(Workbench &bench, const LessonAnswer &said) {
  TutorState &t = bench.Tutor;
  if (said.What == LessonAnswer::Kind::Nothing) return;
  t.Said = said;
  t.Stale = true;
  if (said.What != LessonAnswer::Kind::Good) return;
  if (!said.Words.empty()) t.Due.push_back(said.Words);
  t.Said.Words.clear();
  const bool done = LessonDone(t.Play);
  if (done) Keep(bench, "Done", t.Play.What.Index, 1);
  Keep(bench, "Step", t.Play.What.Index, done ? 0 : t.Play.Next);
}

bool IsEscape(const Event &event) {
  const std::string_view window = RowOf(event.Target).Window;
  if (event.What == Event::Kind::Key) return event.KeyCode == EscapeKey && window == "frmMain";
  return event.What == Event::Kind::Press && event.Target == Ctl::tbEscape;
}

// What is about the user's own design.
bool LeavesLesson(const Workbench &bench, const Event &event) {
  constexpr Ctl own[] = {Ctl::mnuFileNew, Ctl::tbNew,   Ctl::mnuFileOpen, Ctl::tbOpen,  Ctl::mnuImport,
                         Ctl::mnuMRU0,    Ctl::mnuMRU1, Ctl::mnuMRU2,     Ctl::mnuMRU3, Ctl::mnuRecovered};
  if (event.What == Event::Kind::Drop) return true;
  return event.What == Event::Kind::Press && bench.Out[event.Target].Enabled &&
         std::find(std::begin(own), std::end(own), event.Target) != std::end(own);
}

bool Closes(const Event &event) {
  return (event.What == Event::Kind::Close && event.Target == Ctl::frmMain) ||
         (event.What == Event::Kind::Press && event.Target == Ctl::mnuFileExit);
}

void Choose(TutorState &t, const std::vector<std::string> &items, const std::string &item) {
  const auto found = std::find(items.begin(), items.end(), item);
  if (found != items.end()) t.Chosen = static_cast<int>(found - items.begin());
}

void ShowOrHide(Workbench &bench) {
  if (LessonPlays(bench) ? AskLeave(bench) : !bench.Tutor.Choosing)
    OpenTutor(bench);
  else
    bench.Tutor.Choosing = false;
}
} // namespace

bool LessonPlays(const Workbench &bench) { return bench.Tutor.Play.Running; }

LessonPlace LessonKept(const Workbench &bench, const Lesson &lesson) {
  const auto kept = [&](const char *what) {
    const std::string text = GetSetting(bench.Settings, Section, KeyOf(what, lesson.Index), "0");
    return std::strtoul(text.c_str(), nullptr, 10);
  };
  return {std::min<std::size_t>(kept("Step"), lesson.Step.size()), kept("Done") != 0};
}

int NextLesson(const Workbench &bench) {
  const auto &list = bench.Tutor.List;
  const auto here = std::find_if(list.begin(), list.end(),
                                 [&](const Lesson &l) { return l.Index == bench.Tutor.Play.What.Index; });
  const int behind =
      here == list.end() ? -1 : FirstToDo(bench, static_cast<std::size_t>(here - list.begin()) + 1);
  return behind >= 0 ? behind : FirstToDo(bench);
}

void PutAside(Workbench &bench, OwnWork &own) {
  CloseView3d(bench);
  LeaveResults(bench.Grain, bench.Out, bench.Sim);
  LeaveCommand(bench.Draft);
  own.Caption = std::exchange(bench.Caption, "");
  own.UsedTemplate = std::exchange(bench.Template.UsedName, "");
  own.Sim = std::exchange(bench.Sim, {});
  own.Area = bench.Out.MyChart1;
  own.Kn = bench.Out.MyChart2;
  ClearResults(bench);
}

void BringBack(Workbench &bench, OwnWork &own) {
  ClearResults(bench);
  bench.Caption = own.Caption;
  bench.Template.UsedName = own.UsedTemplate;
  bench.Sim = std::move(own.Sim);
  bench.Out.MyChart1 = own.Area;
  bench.Out.MyChart2 = own.Kn;
  ShowWholeGrain(bench);
}

void OpenTutor(Workbench &bench) {
  TutorState &t = bench.Tutor;
  if (LessonPlays(bench) || LessonRecords(t.Rec.Lesson)) return;
  t.List.clear();
  const std::string trouble = SetUpLessons(TutorPath(bench), ShippedLessons(bench), t.List);
  if (!trouble.empty()) Tell(bench, trouble);
  if (t.List.empty()) return;
  t.Chosen = std::max(FirstToDo(bench), 0);
  t.Choosing = true;
  bench.Out.Focus = Ctl::Tutor_Start;
}

void LeaveLesson(Workbench &bench) {
  TutorState &t = bench.Tutor;
  if (!LessonPlays(bench)) return;
  EndRecording(bench.Template.Record, bench.Draft); // one that the lesson asked for
  Stop_Macro(bench);
  LeaveResults(bench.Grain, bench.Out, bench.Sim);
  EndLesson(t.Play, bench.Draft);
  BringBack(bench, t.Aside);
  t.Said = {};
  t.Due.clear();
}

bool AskLeave(Workbench &bench) {
  if (!LessonPlays(bench)) return true;
  if (!LessonDone(bench.Tutor.Play) && bench.Out.Ask({"Exit tutor and return to Mainmenu", Title,
                                                      Buttons::YesNo, Icon::Question}) != Answer::Yes)
    return false;
  LeaveLesson(bench);
  return true;
}

bool TutorTakes(Workbench &bench, const Event &event) {
  TutorState &t = bench.Tutor;
  if (LessonRecords(t.Rec.Lesson)) return RecorderTakes(bench, event);
  if (!LessonPlays(bench)) {
    if (IsEscape(event)) t.Choosing = false;
    return false;
  }
  if (IsEscape(event)) {
    if (ExpectsEscape(t.Play)) return false;
    AskLeave(bench);
    return true;
  }
  if (Closes(event)) LeaveLesson(bench); // where it stands is kept
  return LeavesLesson(bench, event) && !AskLeave(bench);
}

bool LessonAllows(Workbench &bench, Ctl button) {
  TutorState &t = bench.Tutor;
  const bool taught = IsTaughtButton(button);
  if (LessonRecords(t.Rec.Lesson)) {
    if (taught) KeepPress(t.Rec.Lesson, bench.Draft, std::string(RowOf(button).Name));
    return true;
  }
  if (!LessonPlays(bench)) return true;
  LessonAnswer said;
  if (taught)
    said = CheckPress(t.Play, bench.Draft, std::string(RowOf(button).Name));
  else if (std::string words = ToolObjection(t.Play, button); !words.empty())
    said = {LessonAnswer::Kind::Wrong, std::move(words)};
  Heed(bench, said);
  return said.What != LessonAnswer::Kind::Wrong;
}

bool PressTutor(Workbench &bench, Ctl button, const std::string &item) {
  TutorState &t = bench.Tutor;
  switch (button) {
  case Ctl::mnuTutor:
  case Ctl::tbTutor: return ShowOrHide(bench), true;
  case Ctl::TutorCombo: return Choose(t, bench.Out[Ctl::TutorCombo].Item, item), true;
  case Ctl::Tutor_Again:
    if (const auto here = std::find_if(t.List.begin(), t.List.end(),
                                       [&](const Lesson &l) { return l.Index == t.Play.What.Index; });
        LessonPlays(bench) && here != t.List.end())
      t.Chosen = static_cast<int>(here - t.List.begin());
    return Start(bench, true), true;
  case Ctl::Tutor_Start:
    if (LessonPlays(bench)) t.Chosen = NextLesson(bench);
    return Start(bench, false), true;
  case Ctl::TutorCancel:
    if (LessonRecords(t.Rec.Lesson)) return CancelLesson(bench), true;
    LeaveLesson(bench);
    t.Choosing = false;
    return true;
  case Ctl::MacroRecord: return RecordLesson(bench), true;
  case Ctl::MacroPause: return MacroPause(bench, t.Rec), true;
  case Ctl::MacroStop: return FinishLesson(bench), true;
  default: return false;
  }
}

void FollowLesson(Workbench &bench) {
  TutorState &t = bench.Tutor;
  if (LessonRecords(t.Rec.Lesson)) return AskForMessages(bench);
  if (!LessonPlays(bench)) return;
  if (!bench.Template.Play.Running) Heed(bench, CheckLesson(t.Play, bench.Draft));
  FollowLessonTemplate(bench, t.Play);
  if (!t.Stale || bench.Sim.ResultMode) return;
  t.Stale = false;
  RedrawPanel(bench.Draft);
}

void TellLesson(Workbench &bench) {
  Screen &out = bench.Out;
  while (!bench.Tutor.Due.empty()) {
    const std::string words = bench.Tutor.Due.front();
    bench.Tutor.Due.erase(bench.Tutor.Due.begin());
    out[Ctl::TutorMsgForm].Text = bench.Tutor.Play.What.Name;
    out[Ctl::Tutor_Message].Text = words;
    out[Ctl::TutorMsgForm].Visible = true;
    out.RunModal(Form::TutorMessage);
    out[Ctl::TutorMsgForm].Visible = false;
  }
}

void TutorMessageEvent(Workbench &bench, const Event &event) {
  const bool key = event.What == Event::Kind::Key && event.KeyCode == EscapeKey;
  const bool press = event.What == Event::Kind::Press && event.Target == Ctl::Command1;
  if (key || press || event.What == Event::Kind::Close) bench.Out[Ctl::TutorMsgForm].Visible = false;
}
