#pragma once
#include <string>

namespace CLI {
class App;
}

struct RenderArguments {
  std::string File, Png, Cut = "half", Size;
  double At = 0, Azimuth = 38, Elevation = 24, Roll = 0;
  bool HasRoll = false, Parallel = false, NoLiner = false, Plain = false;
};

void AddRender(CLI::App &, RenderArguments &);

// Draws the grain as a solid, without a display. Exit code.
int RenderCommand(const RenderArguments &);
