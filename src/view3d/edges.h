#pragma once
#include "view3d/mesh.h"

#include <vector>

// The lines along a solid's sharp edges and where two of its surfaces meet: two ends of three coordinates
// each, mm. Surfaces that go on smoothly into each other, and the flat parts of one, have none.
std::vector<float> SharpEdges(const Mesh &);
