#pragma once
#include "thermochem/pep_run.h"

#include <string>
#include <vector>

// The weight of one ingredient stepped from one value to another, taken from a second one, so that the total
// stays.
struct PepSweep {
  int Raised = 0, Lowered = 0;       // list positions
  double From = 0, To = 0, Step = 0; // g; either way round, the step above 0
};

struct SweepStep {
  double Weight = 0; // of the raised ingredient
  PepInputs Inputs;
};

// The runs to make, From first, To last (a last step may be shorter). The raised ingredient may be absent
// from the inputs and is then added. False: `trouble` says why (nothing left of the second ingredient, the
// same ingredient twice, more than 1000 steps, ...).
bool PlanSweep(const PepInputs &, const PepSweep &, std::vector<SweepStep> &steps, std::string &trouble);
