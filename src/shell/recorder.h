#pragma once
#include "shell/workbench.h"

// A user's events as a script (shell/play_script.h) that does the same again, for reports and tests. Moves
// stand in it where they matter: before a key, and where the tracker took up another end.

void ToggleRecording(Workbench &); // Help / Record
// Asks for a file and writes the script there, whole. False: it goes on, since the file could not be written
// or the user thought better of it.
bool StopRecording(Workbench &);

void NoteEvent(Workbench &, const Event &);  // before it is dispatched
void NoteResult(Workbench &, const Event &); // after it
// A press that came from a key or a list of tools: the script holds what was pressed, since keys are bound
// otherwise elsewhere.
void NotePress(Workbench &, Ctl);
