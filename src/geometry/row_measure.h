#pragma once
#include "geometry/primitives.h"

// What a row measures, whatever its kind. mm.

constexpr double LeastLength = 0.0001; // below it a row counts as nothing

bool IsWholeTurn(const Entity &); // a circle, or an arc that closes on itself
double RowLength(const Entity &); // along the row

struct Extent {
  double Left = 0, Right = 0, Low = 0, High = 0;
};
Extent ExtentOf(const Entity &);
