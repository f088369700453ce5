#pragma once
#include "cli/pep.h"
#include "thermochem/sweep.h"

#include <string>
#include <vector>

// What a command line asks for, understood.
struct PepRequest {
  PepInputs Inputs;
  bool Sweeping = false;
  PepSweep Sweep;
  std::vector<SweepStep> Step; // one when there is no sweep
  double Expansion = 0;        // 0: not asked for
};

// How often each case stands in the answer: all 15 of equal limits are one case, worked out once.
inline std::size_t Repeats(const PepRequest &request) {
  return request.Inputs.CaseCount == 1 ? std::size_t{MaxCases} : 1;
}

// The trouble in one sentence that names the argument, or empty.
std::string ReadPepRequest(const PepArguments &, const DataFiles &, PepRequest &);
