#pragma once
#include "geometry/primitives.h"

#include <vector>

// Ends of the rows of a table, and which of them belong together. mm.

struct RowEnd {
  int Index = -1; // of the row
  int Side = 0;   // 0 the first, 1 the second end
  Point At;
};
// By rising X. Whole turns have none, nor have the rows left out (a flag each).
std::vector<RowEnd> RowEnds(const EntityTable &, const std::vector<bool> &leftOut);

struct EndPair {
  std::size_t One = 0, Other = 0; // places in the list of ends
  double Apart = 0;
};
// All pairs of different rows within the distance, nearest first.
std::vector<EndPair> PairsWithin(const std::vector<RowEnd> &byX, double distance);

// The ends in pairs, always the two nearest first, each end once. Ends of one row pair only with each other
// when no others are left.
std::vector<EndPair> NearestPairs(const std::vector<RowEnd> &byX);
