#pragma once
#include "base/whole_file.h"
#include "burnback/burn_run.h"
#include "burnback/regression.h"

// The step loop: regresses the design until nothing is left to burn, fills the steps of `run` (distance, perimeter,
// section, outlines, TouchDist, LastLiveDist) and, with a work folder, writes GraphicFile. False: refused.
bool WriteBurnFile(const Design &, const BurnOptions &, double step, StreamedFile *graphicFile, BurnRun &run, BurnRefusal &);

// From the steps' perimeters to areas, Kn and the report's figures.
void FillFigures(const GrainDoc &, BurnRun &);
