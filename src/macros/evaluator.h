#pragma once
#include "macros/variable_table.h"

#include <string>
#include <string_view>

struct Formula {
  double Value = 0;
  std::string Message; // empty: the value stands; else why it does not, with the place
  int Place = 0;       // of the fault, the first character being 1
  bool Good() const { return Message.empty(); }
};

// Arithmetic text with brackets, variables, pi and the functions sin, cos, tan, sqrt, asin, acos, atan
// (arcsin, arccos, arctan), in radians. Signs and functions bind to their operand first, so -2^2 is 4; then
// "^", "/", "*" each in a pass of its own from the left, then "+" and "-" together: 8*2/4 is 8*(2/4). An
// empty text or bracket is 0, and a bracket left open ends with the text. Inverse functions beyond 1.0001
// give 999. Refused: two operands without an operator, a missing operand, unknown characters, a stray ")", a
// root of a negative, a division by zero, a value out of range, more than 50 levels, 50 brackets on a level
// or 20 operands in a bracket.
Formula EvaluateFormula(std::string_view text, const VariableTable & = {});

double ArcCos(double x); // 0..pi; 999 when abs(x) is above 1.0001
double ArcSin(double x); // -pi/2..pi/2; 999 likewise
