#pragma once
#include "shell/workbench.h"

// PEP_SimA: a propellant's performance from its ingredients, beside the drawing.

void ShowPep(
    Workbench &); // reads the data files; where they cannot be read a box says why, and it stays shut
void PepEvent(Workbench &, const Event &);
void RefreshPep(Workbench &); // what can be pressed now, and why not
// What was sent while the motor window was shut goes into its boxes; to be called once that is open.
void DeliverSent(Workbench &);
