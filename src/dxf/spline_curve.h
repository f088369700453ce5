#pragma once
#include "dxf/tangent_arcs.h"

#include <string>
#include <vector>

// A rational B-spline in the plane; the domain is Knot[Degree]..Knot[Pole.size()].
struct SplineCurve {
  int Degree = 3;
  std::vector<double> Knot;
  std::vector<Point> Pole;
  std::vector<double> Weight; // one a pole, above 0
};
constexpr int MostDegree = 15;

// Why it is no spline that can be drawn, or nullptr.
const char *Unsound(const SplineCurve &);

// Place and direction at t on the spline's piece between Knot[span] and Knot[span + 1].
CurvePoint PointOf(const SplineCurve &, double t, int span);

// The cubic through the points, natural at ends without a tangent, its parameter the length of the chords. At
// least two points, no two in a row alike; a tangent of no length is none.
SplineCurve ThroughPoints(const std::vector<Point> &, Point startTangent, Point endTangent);

// The spline as lines and tangent arcs, parted at its corners. Stops after `most` rows.
void AppendSpline(const SplineCurve &, double tolerance, std::size_t most, std::vector<Entity> &rows);
