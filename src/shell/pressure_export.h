#pragma once
#include "shell/workbench.h"

// What leaves Pressure_Results: each asks for a file; a box tells what went wrong, and the old file stays.

void SaveChart(Workbench &); // the chart as PNG, SVG or PDF, by the name's ending
void ExportThrustFile(Workbench &);
void ExportChannels(Workbench &); // every channel as CSV
void ExportMotorReport(Workbench &);
