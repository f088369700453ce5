#pragma once
#include <array>
#include <string>
#include <string_view>

struct VariableRow {
  double Value = 0;
  std::string Name; // with a one-character type mark before it; empty: the row is free
  std::string Prompt;
  std::string Format; // mask the value is rounded by when it stands in a formula; empty: as it is
};

// Rows 0 and 1 are the grain's diameter and length, mm; at most 9 of the user's follow.
struct VariableTable {
  std::array<VariableRow, 14> Row;
};

void SetGrainVariables(VariableTable &, double diameter, double length);

// The first row whose name, less its mark, the text begins with; null when there is none.
const VariableRow *VariableAt(const VariableTable &, std::string_view text);
