#pragma once
#include "burnback/burn_run.h"

#include <string>
#include <string_view>
#include <vector>

// A row of CheckFile: the core's area, the section of propellant left (once, whichever ends burn), mm2, and
// the burn distance, mm.
struct MotorRow {
  double Core = 0, Ends = 0, Dist = 0;
};
struct MotorTable {
  std::vector<MotorRow> Row;
};
// The trouble names file, line and field, or is empty; the table is replaced on success only.
std::string ReadMotorTable(std::string_view checkFile, const std::string &path, MotorTable &);
MotorTable TableOfRun(const BurnRun &); // what CheckFile holds of the run, with the places it is written to

// A row of KnProfile.
struct KnRow {
  float Dist = 0, Kn = 0; // mm
};
std::string ReadKnProfile(std::string_view knProfile, const std::string &path, std::vector<KnRow> &);
// The same rows from the run's results, for this throat (mm, above 0).
std::vector<KnRow> KnRowsOfRun(const BurnRun &, double throatDiam);
