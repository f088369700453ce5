#pragma once
#include "shell/workbench.h"

// The drawing of the mode in force.
void ShowWholeGrain(Workbench &); // the view reset, then redrawn
void RedrawDrawing(Workbench &);
void ClearResults(Workbench &); // the last run's figures and charts belong to a design that is gone

// Pointer and wheel on the drawing, and its size in pixels.
void PanelEvent(Workbench &, const Event &);
