#pragma once
#include "shell/workbench.h"

// The sliders of PEP_SimA and what they pick out of the run.

void OpenPick(Workbench &); // all texts from the values held
// A slider was moved (in hundredths; the expansion ratio in tenths) or a text typed. False: none of them.
bool ChangePick(Workbench &, Ctl, const std::string &text);
void PickPressure(Workbench &, double megapascals); // within the run's range
void PickBestRatio(Workbench &); // the expansion down to the ambient pressure, as far as the limit goes
void UpdateReports(
    Workbench &); // Update_Reports: figures, sketch, row of the grid, and the report that is shown
