#pragma once
#include "macros/instruction_log.h"
#include "macros/variable_table.h"
#include "shell/grain_document.h"

#include <string>
#include <string_view>
#include <vector>

// A template: a recorded drawing session, the variables it asks for, and what it drew. Lengths in mm.
struct MacFile {
  std::string Heading = "Morvandel template";
  std::vector<Entity> Start; // drawn before the first instruction
  VariableTable Variables;   // rows 0 and 1: the diameter and length it was recorded at
  int VariableNameCntr = 1;  // index of the last row in use; a recording makes 1..9
  double Rotation = 0;
  std::vector<Instruction> Log;
  std::vector<Entity> Finished; // what the play draws with the recorded values, for pictures
};

constexpr int FirstUserVariable = 2, LastUserVariable = 9; // the rows that a recording names

std::string VariableName(const VariableRow &); // without its mark
bool HasVariables(const MacFile &);            // any of the user's
double RecordedDiameter(const MacFile &);

// The bytes of the file. Texts lose their quotes and line ends; Fault 6 at a value that is not finite.
std::string MacText(const MacFile &);

// Each returns the trouble, or an empty text; `mac` is untouched then. The trouble begins with the words for
// its kind ("Error: File Empty", "Unfortunately an Error was encounted reading the Template file", or that
// the file cannot be found), and after a line end names file, line, field and what was expected.
std::string ParseMac(std::string_view bytes, const std::string &name, MacFile &mac);
std::string ReadMacFile(const std::string &path, MacFile &mac);
std::string WriteMacFile(const std::string &path, const MacFile &mac); // whole and atomic

// The words alone: the first line.
std::string MacWords(const std::string &trouble);
