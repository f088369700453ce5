#pragma once
#include <string>
#include <vector>

namespace CLI {
class App;
}

struct PepArguments {
  std::vector<std::string> Ingredient; // "NAME=WEIGHT"
  std::string Pressure = "2:10", Temperature = "25", Expansion, Table, Sweep, Data;
  bool Frozen = false, Species = false, Json = false;
};

void AddPep(CLI::App &, PepArguments &);

// Works out a propellant's performance, or one for each step of a sweep, and prints it. Exit code.
int PepCommand(const PepArguments &);
