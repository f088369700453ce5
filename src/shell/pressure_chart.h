#pragma once
#include "shell/workbench.h"

// The chart of Pressure_Results and the figures below it.

// A chart's button: asks about the single burning end where the chart needs it, and tells in a box when the
// chart cannot be made.
void PressChart(Workbench &, ChartKind);
// The chart chosen, after a change in `box`; what fails is marked there and leaves the last chart.
void RecomputeChart(Workbench &, Ctl box);
void UpdateStrip(Workbench &); // the figures of the inputs at hand, or why they are the former ones
void ShowPlot(Workbench &);    // chart, kept results and measured curves, table of differences
void PointAtChart(Workbench &, double part); // of the plot's whole width: time, value, outline
void LeaveChart(Workbench &);
