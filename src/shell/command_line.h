#pragma once
#include "shell/grain_document.h"

#include <string>
#include <vector>

// What the command line asked for.
struct CommandLine {
  std::vector<std::string> Token; // ten at most
  bool KnBatch = false;
  int CmdParamCount = 0; // parameters that took effect, repetitions included
  // Each dimension given: its key took effect. The values hold only then; lengths in mm, ends 0 or 1.
  bool HasDiameter = false, HasLength = false, HasEndA = false, HasEndB = false, HasThroat = false;
  double Diameter = 0, Length = 0, Throat = 0;
  bool EndA = false, EndB = false;
  std::string GrainFile;   // the first token that names an existing file; empty: none
  std::string MissingFile; // a token that ends in .mvd and names none
};

// An argument that names an existing file is one token, blanks included; the others are split at blanks and
// tabs.
CommandLine ReadCommandLine(const std::vector<std::string> &arguments);

// A batch run: /Kn with all five dimensions. It needs no screen.
bool IsBatch(const CommandLine &);

// The dimensions given by keys take the place of the document's. Tolerances stay as they are.
void ApplyKeys(const CommandLine &, GrainDoc &);
