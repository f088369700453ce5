#pragma once
#include <string>

namespace CLI {
class App;
}

struct DataArguments {
  std::string Folder;
};

void AddData(CLI::App &, DataArguments &);

// Reads both data files back and lists their faults. Exit code: bad use when there are any.
int DataCommand(const DataArguments &);
