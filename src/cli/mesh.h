#pragma once
#include <string>

namespace CLI {
class App;
}

struct MeshArguments {
  std::string File, Part, Stl, ThreeMf;
  double At = 0, Chord = 0, Draft = 0;
  bool HasChord = false, HasDraft = false;
};

void AddMesh(CLI::App &, MeshArguments &);

// Writes the solid of one part of a grain. Exit code.
int MeshCommand(const MeshArguments &);
