#pragma once
#include "shell/workbench.h"

// The recovery file: TempFile, or this program's own when another one runs beside it.
void KeepWorkFile(Workbench &);  // writes the open design there; the first trouble is told in a box
void EmptyWorkFile(Workbench &); // nothing to recover
// At start: takes up a crashed session's design, with a "Recovered ..." copy of it in AppDir. Trouble joins
// the notices.
void RecoverDesign(Workbench &, std::vector<std::string> &notices);
