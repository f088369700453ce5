#include "macros/variable_table.h"

void SetGrainVariables(VariableTable &table, double diameter, double length) {
  table.Row[0].Name = "#GRAINDIAMETER";
  table.Row[0].Value = diameter;
  table.Row[1].Name = "#GRAINLENGTH";
  table.Row[1].Value = length;
}

const VariableRow *VariableAt(const VariableTable &table, std::string_view text) {
  for (const VariableRow &row : table.Row)
    if (row.Name.size() > 1 && text.starts_with(std::string_view(row.Name).substr(1))) return &row;
  return nullptr;
}
