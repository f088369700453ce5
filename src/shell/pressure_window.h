#pragma once
#include "shell/workbench.h"

// Performance_Sim: Pressure_Results on the run at hand, its boxes at their opening values, on the Kn chart.
void ShowPressureResults(Workbench &);
void PressureEvent(Workbench &, const Event &);
// After each event: hidden outside of result mode; what can be pressed now.
void RefreshPressure(Workbench &);
