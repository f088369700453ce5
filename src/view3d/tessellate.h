#pragma once
#include "view3d/rim.h"

#include <array>
#include <string>
#include <vector>

using FlatTriangle = std::array<int, 3>;

// Fills closed contours of points (all different) in the plane, holes and nesting by the winding rule: inside
// is where the contours wind counter-clockwise. True when the triangles' free edges are exactly the
// contours' edges; false when contours touch, cross, or overlap, and points would have to be added.
bool FillContours(const std::vector<PlanePoint> &, const std::vector<std::vector<int>> &contours,
                  std::vector<FlatTriangle> &);

// The contours of the same inside that neither cross nor overlap; points are added where they crossed.
bool CleanContours(std::vector<PlanePoint> &, const std::vector<std::vector<int>> &contours,
                   std::vector<std::vector<int>> &clean);

// A flat region ready to be raised to a solid.
struct FilledRegion {
  std::vector<RimLoop> Loop; // as given, or cleaned
  std::vector<RimPoint> Point;
  std::vector<FlatTriangle> Triangle;
};
// Fills loops that may overlap by a hair: what arcs in chords do where a sliver is thinner than the chord's
// tolerance. Places where the region touches itself are parted by a few grid units. False: no use.
bool FillRegion(const std::vector<RimLoop> &, FilledRegion &);
