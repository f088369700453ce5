#pragma once
#include "shell/workbench.h"

#include <string>

// The recording of a lesson by its author, on any screen.

std::string TutorPath(const Workbench &);        // "Tutor Macros.tut" of this user
bool MacroRecord(Workbench &, TutorRecording &); // asks for the head; false: called off
void AskMessages(Workbench &, TutorRecording &); // after an event: a message to each new input
void MacroPause(Workbench &, TutorRecording &);  // keeps the drawing as it is in TutorEntBuffer.tmp
// Adds the lesson to the file; the user's own design is back. False: it could not be written, and goes on.
bool MacroStop(Workbench &, TutorRecording &);
void DropLesson(Workbench &, TutorRecording &); // ends without keeping it; the design is back
