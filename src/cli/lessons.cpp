#include "cli/lessons.h"

#include "cli/exit_codes.h"
#include "cli/script_source.h"
#include "macros/lesson_words.h"

#include <CLI/App.hpp>
#include <algorithm>
#include <cstdio>
#include <fmt/format.h>

namespace {
int Fail(int code, std::string words) {
  std::replace(words.begin(), words.end(), '\n', ' ');
  fmt::print(stderr, "{}\n", words);
  return code;
}

int Make(const LessonsArguments &a) {
  const std::vector<std::string> sources = ScriptSources(a.Make);
  if (sources.empty()) return Fail(BadUse, a.Make + ": there are no scripts in it");
  ScriptedLessons lessons;
  for (const std::string &source : sources) {
    const std::size_t before = lessons.Made.size();
    if (std::string trouble = PlaySource(source, {.Templates = nullptr, .Lessons = &lessons});
        !trouble.empty())
      return Fail(Refused, trouble);
    if (lessons.Made.size() == before) return Fail(Refused, source + ": no line \"endlesson\" in it");
  }
  const std::string trouble = WriteTutorFile(a.File, lessons.Made);
  return trouble.empty() ? static_cast<int>(Done) : Fail(BadUse, trouble);
}

int List(const LessonsArguments &a) {
  std::vector<Lesson> lessons;
  if (std::string trouble = ReadTutorFile(a.File, lessons); !trouble.empty()) return Fail(BadUse, trouble);
  for (const Lesson &lesson : lessons) {
    constexpr const char *levels[] = {"starting", "medium", "advanced"};
    fmt::print("{} {} ({})\n", lesson.Index, lesson.Name, levels[lesson.Level - 1]);
    int tool = 0;
    for (std::size_t i = 0; i < lesson.Step.size();) {
      const std::size_t end = GroupEnd(lesson.Step, i);
      const int kind = lesson.Step[i].Expected.PointArea;
      if (kind != LessonGrain)
        fmt::print("  {}\n", LessonMessage(std::span(lesson.Step).subspan(i, end - i), tool));
      if (IsLessonTool(kind)) tool = kind;
      i = end;
    }
  }
  return Done;
}
} // namespace

void AddLessons(CLI::App &app, LessonsArguments &a) {
  CLI::App *const command = app.add_subcommand("lessons", "list the lessons of a file and what they ask for");
  command->add_option("FILE.tut", a.File, "the file of lessons")->required();
  command->add_option("--make", a.Make, "make the file of the scripts in this folder");
}

int LessonsCommand(const LessonsArguments &a) { return a.Make.empty() ? List(a) : Make(a); }
