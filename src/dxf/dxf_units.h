#pragma once
#include <optional>
#include <string_view>

struct LengthUnit {
  int Code; // of $INSUNITS
  const char *Name, *Short;
  double Millimetres;
};
std::optional<LengthUnit> UnitOf(int code);
std::optional<LengthUnit> UnitOf(std::string_view shortName); // "mm", "in", ...
