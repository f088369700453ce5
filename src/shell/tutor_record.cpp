#include "shell/tutor_record.h"

#include "base/whole_file.h"
#include "burnback/run_sim.h"
#include "drafting/ask_question.h"
#include "drafting/command_machine.h"
#include "macros/lesson_words.h"
#include "shell/design_view.h"
#include "shell/grain_file.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <limits>
#include <system_error>
#include <utility>

namespace {
constexpr const char *Title = "Tutor";

void Tell(Workbench &bench, const std::string &text) {
  bench.Out.Ask({text, Title, Buttons::Ok, Icon::Exclamation});
}

std::string WorkFile(const Workbench &bench) { return bench.Folders.AppDir + "CurrentWorkFile"; }
std::string BufferFile(const Workbench &bench) { return bench.Folders.AppDir + "TutorEntBuffer.tmp"; }

void RemoveBuffer(const Workbench &bench) {
  std::error_code none;
  std::filesystem::remove(BufferFile(bench), none);
}

// False: called off.
bool AskWhole(Workbench &bench, const char *label, const char *title, int least, int most, int &value) {
  for (std::string text = std::to_string(value);;) {
    text = AskText(bench.Out, label, title, text);
    if (text.find_first_not_of(" \t") == text.npos) return false;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc() && end == text.data() + text.size() && value >= least && value <= most)
      return true;
    Tell(bench, "ERROR: A whole number from " + std::to_string(least) + " to " + std::to_string(most) +
                    " must be entered");
  }
}

bool AskIndex(Workbench &bench, const std::vector<Lesson> &lessons, int &index) {
  index = 1;
  for (const Lesson &l : lessons)
    if (l.Index < std::numeric_limits<std::int16_t>::max()) index = std::max(index, l.Index + 1);
  for (;;) {
    if (!AskWhole(bench, "Enter Macro Index", "Macro Index", 1, std::numeric_limits<std::int16_t>::max(),
                  index))
      return false;
    const Lesson *other = nullptr;
    if (!FindLesson(lessons, index, other).empty()) return true;
    Tell(bench, "The index " + std::to_string(index) + " is that of \"" + other->Name + "\"");
  }
}

bool AskHead(Workbench &bench, Lesson &head) {
  std::vector<Lesson> lessons;
  const std::string path = TutorPath(bench);
  if (FileExists(path))
    if (const std::string trouble = ReadTutorFile(path, lessons); !trouble.empty()) {
      Tell(bench, trouble);
      return false;
    }
  head.Name = AskText(bench.Out, "Enter Macro Name", "Macro Name", "");
  return head.Name.find_first_not_of(" \t") != head.Name.npos && AskIndex(bench, lessons, head.Index) &&
         AskWhole(bench, "Enter Macro Level of Difficulty (1-Starting, 2-Medium, 3-Advanced):", "Macro Level",
                  1, 3, head.Level);
}
} // namespace

std::string TutorPath(const Workbench &bench) { return bench.Folders.AppDir + "Tutor Macros.tut"; }

bool MacroRecord(Workbench &bench, TutorRecording &rec) {
  Lesson head;
  if (LessonRecords(rec.Lesson) || bench.Grain.MacroMode != 0) return false;
  LeaveResults(bench.Grain, bench.Out, bench.Sim);
  LeaveCommand(bench.Draft);
  if (!AskHead(bench, head)) return false;
  if (const std::string trouble = WriteWorkFile(WorkFile(bench), bench.Grain); !trouble.empty()) {
    Tell(bench, trouble); // the design would be lost
    return false;
  }
  RemoveBuffer(bench);
  rec = {};
  rec.Own = bench.Grain;
  const Answer keep =
      bench.Out.Ask({"Save Current Entities for Macro Startup?", Title, Buttons::YesNo, Icon::Question});
  if (keep != Answer::Yes) bench.Grain.Table.EntCount = -1;
  rec.KeepWork = std::exchange(bench.Draft.KeepWork, {});
  BeginLessonRecording(rec.Lesson, bench.Draft, head);
  rec.Told = bench.Draft.Log.Given;
  ShowWholeGrain(bench);
  return true;
}

void AskMessages(Workbench &bench, TutorRecording &rec) {
  if (!LessonRecords(rec.Lesson)) return;
  const std::vector<LessonStep> step = RecordedLesson(rec.Lesson, bench.Draft).Step;
  const std::vector<unsigned> number = bench.Draft.Log.Number;
  const unsigned told = std::exchange(rec.Told, bench.Draft.Log.Given);
  int tool = 0;
  for (std::size_t first = 0; first < step.size();) {
    const std::size_t end = GroupEnd(step, first);
    if (number[first] >= told) {
      const std::string offered = LessonMessage(std::span(step).subspan(first, end - first), tool);
      const std::string text = AskText(bench.Out, "Enter Message for action:", "User Message", offered);
      if (!text.empty()) rec.Lesson.Message.emplace_back(number[first], text);
    }
    if (IsLessonTool(step[first].Expected.PointArea)) tool = step[first].Expected.PointArea;
    first = end;
  }
}

void MacroPause(Workbench &bench, TutorRecording &rec) {
  if (!LessonRecords(rec.Lesson)) return;
  const std::string trouble = AppendTutorBuffer(BufferFile(bench), DrawnNow(bench.Draft));
  if (!trouble.empty()) Tell(bench, trouble);
}

void DropLesson(Workbench &bench, TutorRecording &rec) {
  if (!LessonRecords(rec.Lesson)) return;
  EndLessonRecording(rec.Lesson, bench.Draft);
  bench.Grain = rec.Own;
  bench.Draft.KeepWork = std::exchange(rec.KeepWork, {});
  ++bench.Draft.Changes;
  RefreshDrafting(bench.Draft);
  ShowWholeGrain(bench);
  RemoveBuffer(bench);
}

bool MacroStop(Workbench &bench, TutorRecording &rec) {
  if (!LessonRecords(rec.Lesson)) return false;
  LeaveCommand(bench.Draft);
  Lesson lesson = RecordedLesson(rec.Lesson, bench.Draft);
  std::vector<std::vector<Entity>> pauses;
  std::string trouble = ReadTutorBuffer(BufferFile(bench), pauses);
  lesson.Shown.insert(lesson.Shown.begin(), pauses.begin(), pauses.end());
  if (trouble.empty()) trouble = AddLesson(TutorPath(bench), lesson);
  if (!trouble.empty()) {
    Tell(bench, trouble);
    return false;
  }
  DropLesson(bench, rec);
  return true;
}
