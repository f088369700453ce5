#pragma once
#include "shell/workbench.h"

// The boxes of Pressure_Results.

void FillPressureInputs(Workbench &); // with their opening values
void ReadPressureInputs(Workbench &); // into Pressure::Inputs; marks the boxes that cannot be used
// A box's text changed, by hand or by another window: read, marked, and the chart that is showing and the
// figures worked out anew as the box's rule has it. No box opens.
void ChangePressureInput(Workbench &, Ctl box, const std::string &text);
void ConvertImperial(Workbench &); // asks for the value; the result goes into burn_rate_a

void LoadPropellantLibrary(Workbench &);
void ChoosePropellant(Workbench &, const std::string &name); // into the boxes
void ShowPropellantChoice(Workbench &); // the list and the propellant that the boxes hold
