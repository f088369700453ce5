#pragma once
#include "thermochem/pep_run.h"

#include <string>
#include <vector>

// A readable account: lines, then tables, then notes.
struct ReportTable {
  std::string Title;
  std::vector<std::string> Column;
  std::vector<std::vector<std::string>> Row; // an empty row is a blank line
};
struct Report {
  std::string Title;
  std::vector<std::string> Line;
  std::vector<ReportTable> Table;
  std::vector<std::string> Note;
};

std::string ReportAsText(const Report &); // columns aligned: texts to the left, numbers to the right
std::string ReportCsv(const Report &);    // each table under its title; lines and notes as one field each

// Each of a run that is done; one of the run's cases where a report is of one pressure.
Report IngredientReport(const PepOutcome &, const DataFiles &);           // Ing_Input
Report ChemicalReport(const PepOutcome &, const PepCase &, PepMode);      // Chem_Report
Report StateReport(const PepOutcome &, const PepCase &);                  // Report1
Report ExpansionReport(const PepOutcome &, const PepCase &, PepMode);     // Report2
Report PerformanceReport(const PepOutcome &, const DataFiles &, PepMode); // ThermoChem_Report
