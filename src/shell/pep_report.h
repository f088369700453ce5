#pragma once
#include "shell/workbench.h"

// The reports of PEP_SimA: of the case nearest to the chosen pressure and of the nearer of both modes.

void ShowReport(Workbench &, PepReport);
void RefreshReport(Workbench &); // the one that is shown, after a change
void SaveReport(Workbench &);    // as text or CSV, by the ending
