#pragma once
#include "dxf/dxf_shapes.h"
#include "dxf/spline_curve.h"

// How single shapes become rows. Lengths of the arguments are in the file's units.
struct ShapeSink {
  DxfShapes &Out;
  double Tolerance; // mm
  int Line = 0;     // of the entity at hand
  std::string Type; // its name, for what is left out
};
void Skip(ShapeSink &, const char *why); // why: empty, or in brackets behind the type
void AddLine(ShapeSink &, const PlaneMap &, Point, Point);
void AddConic(ShapeSink &, const PlaneMap &, const Conic &);
void AddSpline(ShapeSink &, const PlaneMap &, SplineCurve);

struct BulgePoint {
  Point At;
  double Bulge = 0; // tangent of a quarter of the sweep to the next point, positive counter-clockwise
};
void AddPath(ShapeSink &, const PlaneMap &, const std::vector<BulgePoint> &, bool closed);
