#pragma once
#include "geometry/solution.h"

#include <array>

// Regular shapes and circles through points. mm, radians.

// 53. `sides` lines about the centre; at rotate 0 a flat side lies at the bottom. flat: the radius is
// measured to the sides, else to the corners. "ERROR: Entity's too small" below 3 sides or a radius not above
// 0.
Solution CreatePolygon(Point centre, int sides, double radius, double rotate, bool flat);

// 54. A chain of lines over a circle or arc from one angle counter-clockwise to another (a whole turn when
// they are equal); the entity stays. "ERROR: Must be at least 2 segments" below 3.
Solution CreateSegments(const PickedRow &round, int segments, double startAngle, double endAngle);

// Centre and radius; Radius 0 when the points are not all different or lie on a line.
struct CircleThrough {
  Point Centre;
  double Radius = 0;
};
CircleThrough ThroughThree(const std::array<Point, 3> &);
