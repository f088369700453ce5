#pragma once
#include "burnback/burn_run.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

// What the results file says beside its rows.
struct ResultsForm {
  std::string Header;            // a line above all others; empty: none
  bool IncludeDimensions = true; // the parameter row the formulas refer to
  std::array<bool, 6> Column{true, true, true,
                             true, true, true}; // labels Burn Dist to Kn Ratio; rows keep all
  std::string TemplateName;                     // empty: no template data
  std::vector<std::pair<std::string, double>> TemplateValue;
};

// The step the dialog offers, mm.
double OfferedResultStep(const GrainDoc &);

// The rows of RunSim3 as comma-separated text that a spreadsheet evaluates: pressure, burn rate and time are
// formulas over a row of parameters. One row per step reached, CR LF ends. The formulas name rows 4 and 7 and
// are right only with the parameters and without a header.
std::string ResultsText(const GrainDoc &, const BurnRun &, const ResultsForm &);

// RunSim3 at the step (mm; 0: the offered one), then its text. False: refused, `text` is as it was.
bool ExportResults(const Design &, const BurnOptions &, double step, const ResultsForm &, std::string &text,
                   BurnRefusal &);
