#pragma once
#include "macros/lesson_record.h"
#include "shell/workbench.h"

#include <functional>
#include <string>

// The recording of a lesson by its author, on any screen.

struct TutorRecording {
  LessonRecording Lesson;
  std::size_t Told = 0;           // log rows whose message was asked for
  std::function<void()> KeepWork; // recovery files are those of the design that is put aside
  Design Own;                     // the user's, while the lesson is recorded
};

std::string TutorPath(const Workbench &);        // "Tutor Macros.tut" of this user
bool MacroRecord(Workbench &, TutorRecording &); // asks for the head; false: called off
void AskMessages(Workbench &, TutorRecording &); // after an event: a message to each new input
void MacroPause(Workbench &, TutorRecording &);  // keeps the drawing as it is in TutorEntBuffer.tmp
// Adds the lesson to the file; the user's own design is back. False: it could not be written, and goes on.
bool MacroStop(Workbench &, TutorRecording &);
