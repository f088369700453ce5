#include "shell/script_lessons.h"

#include <algorithm>
#include <charconv>

namespace {
bool WholeNumber(std::string_view &rest, int &value) {
  const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), value);
  if (error != std::errc() || end == rest.data() + rest.size() || *end != ' ') return false;
  rest.remove_prefix(static_cast<std::size_t>(end - rest.data()) + 1);
  return true;
}

std::string Begin(ScriptedLessons &s, Workbench &bench, std::string_view rest) {
  Lesson head;
  if (!WholeNumber(rest, head.Index) || !WholeNumber(rest, head.Level) || head.Level < 1 || head.Level > 3 ||
      rest.empty())
    return "expected lesson INDEX LEVEL NAME, the level from 1 to 3";
  if (std::any_of(s.Made.begin(), s.Made.end(), [&](const Lesson &l) { return l.Index == head.Index; }))
    return "there is a lesson " + std::to_string(head.Index);
  head.Name = rest;
  BeginLessonRecording(s.Record, bench.Draft, head);
  return {};
}
} // namespace

bool ScriptLessonLine(ScriptedLessons &s, Workbench &bench, std::string_view verb, std::string_view rest,
                      std::string &trouble) {
  if (verb == "lesson") {
    trouble = Begin(s, bench, rest);
    return true;
  }
  if (verb != "say" && verb != "then" && verb != "pause" && verb != "endlesson") return false;
  if (!LessonRecords(s.Record)) {
    trouble = "no lesson is recorded";
  } else if (verb == "say") {
    SayNext(s.Record, bench.Draft, std::string(rest));
  } else if (verb == "then") {
    SayBehind(s.Record, bench.Draft, std::string(rest));
  } else if (verb == "pause") {
    if (std::vector<Entity> rows = DrawnNow(bench.Draft); !rows.empty())
      s.Record.What.Shown.push_back(std::move(rows));
  } else {
    s.Made.push_back(RecordedLesson(s.Record, bench.Draft));
    EndLessonRecording(s.Record, bench.Draft);
  }
  return true;
}

bool IsTaughtButton(Ctl control) {
  constexpr Ctl taught[] = {Ctl::RunSim2,        Ctl::Design_Mode,  Ctl::Performance_Sim,
                            Ctl::Chart_Pressure, Ctl::Chart_Thrust, Ctl::mnumaketemplate,
                            Ctl::Stop_Macro};
  return std::find(std::begin(taught), std::end(taught), control) != std::end(taught);
}
