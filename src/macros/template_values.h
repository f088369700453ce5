#pragma once
#include "macros/mac_file.h"

#include <span>
#include <string>
#include <vector>

// A variable of a template as it is asked for. A prompt holds its unit and range in a readable form:
// "Tip radius, mm [2 .. 12]". Numbers of a range hold for the recorded diameter and grow with the diameter
// when the unit is mm; a unit of "whole" or none, or "deg", does not.
struct TemplateVariable {
  int Row = 0;                // of VariableTable
  std::string Name;           // without its mark
  std::string Prompt;         // without unit and range
  std::string Unit;           // "mm", "deg", "" ...
  double Value = 0;           // recorded
  double Least = 0, Most = 0; // of a slider; without a range in the prompt 0.2 to 5 times the value
  bool Whole = false;         // no unit and a range of whole numbers: [3 .. 12]
};
std::string PromptText(const TemplateVariable &);                                  // the form above
std::vector<TemplateVariable> TemplateVariables(const MacFile &, double diameter); // mm; the user's rows

// Why a name may not be a variable's: empty, no letter first, other signs than letters, digits and "_", a
// function's word or pi, a prefix of another name or begun by one. Empty: it may.
std::string NameObjection(const VariableTable &, const std::string &name, int row);

// Answers into the table: texts by name (case does not matter), each a number or a formula of the rows before
// it; the others keep the recorded values, lengths of unit mm scaled by diameter now / recorded. Rows 0 and 1
// become diameter and length. Returns the trouble: an unknown name (the known ones are listed), a formula
// that is none, or
// "ERROR: All dimensional parameters must contain a value higher than zero!" and the name.
struct TemplateAnswer {
  std::string Name, Text;
};
std::string AnswerTemplate(const MacFile &, std::span<const TemplateAnswer>, double diameter, double length,
                           VariableTable &to, std::string *atFault = nullptr); // the variable's name
