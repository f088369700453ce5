#pragma once
#include "shell/workbench.h"

// One ingredient's weight stepped, taken from another: the oxidiser/fuel curve of PEP_SimA.

void ToggleSweep(Workbench &); // the chart over weight instead of over pressure, with its boxes
void ShowSweepChoices(Workbench &);
bool ChooseSwept(Workbench &, Ctl list, const std::string &name); // false: neither of the two lists
void RunSweep(Workbench &);
Report SweepReport(const Thermo &); // its points as a table; nothing swept: no rows
