#pragma once
#include "burnback/burn_run.h"

// The run of the results export, at a step of the user's own (mm): fronts at whole steps give the core,
// fronts at mid-step the areas. Fills Result with ConduitArea, Figures, the steps and StepCount of `run`;
// outlines and report figures are not kept. With a work folder it writes GraphicFile (whole steps) and
// GraphicFile2 (first step half). False: refused, as BurnDesign does.
bool RunSim3(const Design &, const BurnOptions &, double step, BurnRun &run, BurnRefusal &);
