#pragma once
#include "cli/pep_request.h"
#include "thermochem/pep_figures.h"

#include <optional>
#include <string>
#include <vector>

// One line of the answer: a case, of one step of a sweep.
struct PepRow {
  double SweepWeight = 0;
  PepFigures Figures;
  std::optional<ExpansionRow> At; // the flow at the expansion asked for; empty: not asked for or not reached
};

std::string PepJson(const PepRequest &, const PepArguments &, const std::vector<PepRow> &);
std::string PepCsv(const PepRequest &, const PepArguments &, const std::vector<PepRow> &);
// For the eye. `last` is the run that the ingredients' part is taken from.
std::string PepText(const PepRequest &, const PepArguments &, const DataFiles &, const PepOutcome &last,
                    const std::vector<PepRow> &);
