#pragma once
#include "macros/lesson_record.h"
#include "shell/workbench.h"

#include <string>
#include <string_view>
#include <vector>

// Lessons made by a script's own lines:
//   lesson INDEX LEVEL NAME   from here on everything is recorded; the drawing as it stands is its start
//   say TEXT                  the message of the next input; without it one is made of the input
//   then TEXT                 told when the last input was done
//   pause                     keeps the drawing as it is
//   endlesson                 ends the recording and keeps the lesson

struct ScriptedLessons {
  LessonRecording Record;
  std::vector<Lesson> Made;
};

// Takes a line of these verbs. False: it is none of them. `trouble` says what is amiss with it.
bool ScriptLessonLine(ScriptedLessons &, Workbench &, std::string_view verb, std::string_view rest,
                      std::string &trouble);

bool IsTaughtButton(Ctl); // no tool of the drawing, but an input of a lesson
