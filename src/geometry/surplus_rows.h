#pragma once
#include "geometry/primitives.h"

#include <vector>

// Rows that add nothing to an outline: NoLength shorter than LeastLength (mm), Duplicates those that lie on
// another row over their whole length, to 1e-6 mm, whichever way they run; of two equal ones the later.
struct Surplus {
  std::vector<int> NoLength, Duplicates;
};
Surplus SurplusRows(const EntityTable &);

// One flag a row of the table.
std::vector<bool> Flags(const EntityTable &, const Surplus &);
