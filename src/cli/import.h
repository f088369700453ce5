#pragma once
#include <string>

namespace CLI {
class App;
}

struct ImportArguments {
  std::string File, Out, Units, Ends = "AB";
  double Diameter = 0, Length = 0, Throat = 0, Tolerance = 0, Join = 0.01;
  bool Centre = false, HasDiameter = false, HasLength = false, HasThroat = false, HasTolerance = false;
};

void AddImport(CLI::App &, ImportArguments &);

// Reads a DXF drawing into a grain file and tells what became of it. Exit code.
int ImportCommand(const ImportArguments &);
