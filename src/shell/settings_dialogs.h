#pragma once
#include "shell/workbench.h"

// The dialogs of the settings: each is shown modally and takes the events of its window. Escape and Cancel
// change nothing. A document value that changes leaves the design unsaved.

void ShowOptions(Workbench &); // the tools' defaults, kept in DefaultFile
void OptionsEvent(Workbench &, const Event &);

void ShowGrid(Workbench &); // grid, snap and colours of the document
void GridEvent(Workbench &, const Event &);

void ShowIncrements(Workbench &); // SimIncrementDisplay
void IncrementsEvent(Workbench &, const Event &);
void SetSimIncrement(Workbench &, double steps);
