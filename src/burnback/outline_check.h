#pragma once
#include "burnback/source.h"

#include <vector>

// Whether a closed, clockwise walked outline crosses itself: two pieces cut each other away from a shared
// joint, or the propellant's side of some piece lies inside the port. x, y: the place. Lengths in mm.
bool CrossesItself(const std::vector<Source> &outline, double grainRadius, double &x, double &y);
