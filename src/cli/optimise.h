#pragma once
#include "cli/motor_options.h"

#include <cstdint>
#include <string>
#include <vector>

struct OptimiseArguments {
  std::string Template, Folder, Grain, TopEnd = "yes", Maximise, Minimise, Table, Save;
  std::vector<std::string> Var, Set, Keep; // NAME=LO:HI or NAME; NAME=VALUE; FIGURE<VALUE
  FuelOptions Fuel;
  double Seconds = 20;
  std::size_t Trials = 20000;
  std::uint64_t Seed = 1;
  bool Json = false;
};

void AddOptimise(CLI::App &, OptimiseArguments &);

// Searches a template's variables for the best figure. Exit code; 130 when interrupted, the best so far being
// written.
int OptimiseCommand(const OptimiseArguments &);
