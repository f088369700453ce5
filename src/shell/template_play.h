#pragma once
#include "shell/workbench.h"

// The play of a template into the open design.

// By its name in the list, or by a path. mode 5: no questions are asked, the recorded values hold. What goes
// wrong is told, and the design is as it was.
void MacroPlay2_Click(Workbench &, const std::string &keyOrPath, int mode = 2);

void MacroPause(Workbench &);  // Paused_Button: the play stands still, or goes on
void MacroStep(Workbench &);   // one instruction of a play that stands still
void Stop_Macro(Workbench &);  // of a recording: finishes it; of a play: the design as it was
void CancelMacro(Workbench &); // of a recording: gives it up; of a play: as Stop_Macro
bool PlayHolds(const Workbench &, const Event &); // a play stands between two instructions: not now
std::string MissingTemplate();                    // the words when there is no such file

void RefreshTemplates(Workbench &); // strip, list of variables, what cannot be used meanwhile
