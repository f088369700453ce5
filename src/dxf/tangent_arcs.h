#pragma once
#include "geometry/primitives.h"

#include <cstddef>
#include <functional>
#include <vector>

struct CurvePoint {
  Point At, Along; // place and direction (of any length, not null)
};
using Curve = std::function<CurvePoint(double t)>;

// Lines and arcs along a smooth curve from t = from to t = to, end to end, each tangent to the next, none
// farther from the curve than tolerance (mm): pairs of arcs, each pair as long as the tolerance lets it be.
// Where the curve runs straight a pair is one line. Stops after `most` rows.
void AppendTangentArcs(const Curve &, double from, double to, double tolerance, std::size_t most,
                       std::vector<Entity> &rows);

// The arc that leaves `from` along `direction` (unit length) and ends in `to`; a line where it is as good as
// straight.
Entity ArcAlong(Point from, Point direction, Point to);
