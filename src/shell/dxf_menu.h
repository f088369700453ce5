#pragma once
#include "shell/workbench.h"

// The entries of the File menu for drawings of other programs.

void ExportDXF(Workbench &); // the dialog Export_DXF, then the file; a box tells what went wrong
void ExportDxfEvent(Workbench &, const Event &);

// Asks for a file and opens its drawing as a new, unnamed design; length, throat and ends of the open one
// stay. A box tells what was left out or assumed. A refused file leaves the open design as it was.
void ImportDxfDrawing(Workbench &);
