#pragma once
#include "shell/workbench.h"

constexpr std::size_t MostMeasured = 4;

// Results that are kept, and measured curves, over the chart of Pressure_Results.

void KeepResult(Workbench &);      // the figures at hand
void LoadMeasured(Workbench &);    // asks for a file, over the chart that is showing
void RemoveCompared(Workbench &);  // the row chosen in Compare_Table
bool CanRemove(const Workbench &); // that row is a kept result or a measured curve
void ShowCompare(Workbench &);     // Compare_Table: what is kept, then the inputs at hand, against the first

std::vector<PlotCurve> ComparedCurves(const Workbench &); // in the units of the chart that is showing
