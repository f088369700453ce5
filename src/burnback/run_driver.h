#pragma once
#include "base/whole_file.h"
#include "burnback/burn_run.h"
#include "burnback/regression.h"

// The step loop: regresses the design until nothing is left to burn, fills the steps of `run` (distance,
// perimeter, section, outlines, TouchDist, LastLiveDist) and, with a work folder, writes GraphicFile. False:
// refused. The first step may be shorter than the others: half of them in a run, so that fronts stand at
// mid-step.
bool WriteBurnFile(const Design &, const BurnOptions &, double firstStep, double step,
                   StreamedFile *graphicFile, BurnRun &run, BurnRefusal &);

// Whether a step (mm) can be run: above 0, at most the radius, at most 32767 steps. The trouble, or empty.
std::string CheckStep(double grainRadius, double step);
bool CheckOutline(const Design &, BurnRun &run, BurnRefusal &); // the area scan; leaves the centroid

// From the steps' perimeters to areas, Kn and the report's figures; may be filled anew for other dimensions.
void FillFigures(const GrainDoc &, BurnRun &);
