#pragma once
#include <string>

namespace CLI {
class App;
}

struct LessonsArguments {
  std::string File, Make;
};
void AddLessons(CLI::App &, LessonsArguments &);
// Lists the lessons of a file, or makes them of the scripts in a folder. Exit code.
int LessonsCommand(const LessonsArguments &);
