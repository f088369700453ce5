#pragma once
#include <string>

namespace CLI {
class App;
}

struct ExportArguments {
  std::string File, Dxf, Results, Header;
  double Step = 0;
  bool Grain = false, Plain = false, NoDimensions = false, HasStep = false;
};

void AddExport(CLI::App &, ExportArguments &);

// Writes the drawing as DXF, the results of a burn as a spreadsheet's table, or both. Exit code.
int ExportCommand(const ExportArguments &);
