#pragma once
#include "macros/lesson.h"

#include <optional>

// What helps a user through a lesson, and where it goes on when it was left.

struct LessonTarget {
  Ctl Button = Ctl::Count;    // the one to press, or the list to choose from
  std::optional<Point> Place; // in the drawing, mm
};
LessonTarget TargetOf(const LessonPlay &);        // of the input asked for
double NearOf(const LessonPlay &, double radius); // how far from Place still fits, mm

// A tool's button pressed in place of what is asked for: what is wrong, as CheckLesson has it. Empty: it is
// no tool's, or the one that is asked for.
std::string ToolObjection(const LessonPlay &, Ctl button);

struct LessonProgress {
  int Step = 0, Of = 0; // inputs with their answers; Step counts those done
};
LessonProgress ProgressOf(const Lesson &, std::size_t next);
std::vector<std::string> LessonPrompts(const Lesson &);

// Where a lesson that was left before `next` is taken up: there, or at the button that led into the burn's
// view when it was left in that.
std::size_t ResumeFrom(const Lesson &, std::size_t next);
