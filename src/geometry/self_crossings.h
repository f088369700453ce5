#pragma once
#include "geometry/primitives.h"

#include <array>
#include <span>
#include <vector>

// The crossings of the whole lines and circles; none where they only touch. mm.
struct CrossingPair {
  int Count = 0;
  std::array<Point, 2> At{};
};
CrossingPair CarrierCrossings(const Entity &, const Entity &);

// Where two of the rows cross at more than `clear` (mm) from every end of either. Rows that only touch, and
// rows on one carrier, do not cross. Whole turns have no ends. The search ends at the first `most`.
std::vector<Point> SelfCrossings(std::span<const Entity> rows, double clear, std::size_t most);
