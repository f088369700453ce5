#pragma once
#include <string>
#include <vector>

namespace CLI {
class App;
}

struct SweepArguments {
  std::vector<std::string> File, Propellant;
  std::string Template, Folder, Grain;                   // in the place of files
  std::vector<std::string> Var, Set;                     // NAME=RANGE, NAME=VALUE
  std::string Length, Throat, A, N, Density, CStar, Isp; // ranges, empty: not given
  std::string Ends, TopEnd = "yes", Table;
};

void AddSweep(CLI::App &, SweepArguments &);

// Works out motors over the product of all ranges and writes a row each. Exit code; 130 when interrupted, the
// rows done being written.
int SweepCommand(SweepArguments);
