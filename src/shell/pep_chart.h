#pragma once
#include "shell/workbench.h"

// The result grid and the chart of PEP_SimA.

void ShowResultGrid(Workbench &); // Result_Grid: a row for each case, eight columns
void MarkGridRow(Workbench &);    // that of the chosen pressure
void ChooseGridRow(Workbench &, const std::string &pressure);

void ChooseCurve(Workbench &, PepCurve);
void ShowPepChart(Workbench &);                 // over pressure, or over the weight of a sweep
void PointAtPepChart(Workbench &, double part); // of its width
void LeavePepChart(Workbench &);
void SavePepChart(Workbench &); // as a picture
