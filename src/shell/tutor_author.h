#pragma once
#include "shell/workbench.h"

// The recording of a lesson in the window, by its author.

void RecordLesson(Workbench &);   // MacroRecord: asks for the head, and begins
void FinishLesson(Workbench &);   // MacroStop: the lesson is kept, the author's own design is back
bool CancelLesson(Workbench &);   // asks; false: it goes on
void AskForMessages(Workbench &); // after an event: of each new input

// The M key, and the tolerance of positions to come. True: the event is done with.
bool RecorderTakes(Workbench &, const Event &);

std::string ShippedLessons(const Workbench &); // the file of lessons that came with the program
