#include "shell/tutor_author.h"

#include "base/number_text.h"
#include "drafting/ask_question.h"
#include "macros/lesson_list.h"
#include "shell/refresh_screen.h"
#include "shell/tutor.h"
#include "shell/tutor_record.h"

namespace {
constexpr int EnterKey = 13;

void End(Workbench &bench) {
  BringBack(bench, bench.Tutor.Rec.Aside);
  bench.Out.Focus = Ctl::DrawPanel;
}

void AskSpecial(Workbench &bench) {
  const std::string text = AskText(bench.Out, "Enter special Message for last action:", "User Message", "");
  if (!text.empty()) SayBehind(bench.Tutor.Rec.Lesson, bench.Draft, text);
}
} // namespace

std::string ShippedLessons(const Workbench &bench) { return bench.Folders.Install + "data/Tutor Macros.tut"; }

void RecordLesson(Workbench &bench) {
  TutorState &t = bench.Tutor;
  if (LessonPlays(bench)) return;
  t.Choosing = false;
  // The shipped ones first: their indexes are taken. Without them the author's own begin the file.
  SetUpLessons(TutorPath(bench), ShippedLessons(bench), t.List);
  if (!MacroRecord(bench, t.Rec)) return;
  PutAside(bench, t.Rec.Aside);
  bench.Grain.CurrentFile.clear();
  bench.Grain.SavedFlag = true;
  bench.Out[Ctl::Tutor_Tolerance].Text = "0";
  bench.Out.Focus = Ctl::DrawPanel;
}

void FinishLesson(Workbench &bench) {
  const std::string name = bench.Tutor.Rec.Lesson.What.Name;
  if (!MacroStop(bench, bench.Tutor.Rec)) return;
  End(bench);
  bench.Out.Ask({name + " is in the list of lessons", "Tutor", Buttons::Ok, Icon::None, true});
}

bool CancelLesson(Workbench &bench) {
  if (bench.Out.Ask({"Are you sure you want to cancel the lesson?", "Tutor", Buttons::YesNo,
                     Icon::Question}) != Answer::Yes)
    return false;
  DropLesson(bench, bench.Tutor.Rec);
  End(bench);
  return true;
}

void AskForMessages(Workbench &bench) {
  RefreshScreen(bench); // the questions stand over a screen that is true
  AskMessages(bench, bench.Tutor.Rec);
}

bool RecorderTakes(Workbench &bench, const Event &event) {
  if (event.What == Event::Kind::Key && event.KeyCode == 'M' && event.Target == Ctl::DrawPanel)
    return AskSpecial(bench), true;
  if (event.Target != Ctl::Tutor_Tolerance) return false;
  if (event.What == Event::Kind::Text) {
    bench.Out[Ctl::Tutor_Tolerance].Text = event.Text;
    SetTolerance(bench.Tutor.Rec.Lesson, bench.Draft, Val(event.Text));
  } else if (event.What == Event::Kind::Key && event.KeyCode == EnterKey) {
    bench.Out.Focus = Ctl::DrawPanel;
  }
  return true;
}
