#pragma once
#include <iterator>
#include <span>

// What stands in every drawing before its entities: code and value, the values formatted as they are written.

struct FixedGroup {
  int Code = -1; // -1: none
  const char *Value = "";
};
struct HeaderVariable {
  const char *Name;
  FixedGroup Group[3];
};
// Stand where the drawing's extents go; compared by address.
inline constexpr char LeastExtent[] = "least", MostExtent[] = "most";

std::span<const HeaderVariable> HeaderVariables();
std::span<const FixedGroup> TableGroups(); // all records of the TABLES section, between SECTION and ENDSEC
