#pragma once
#include "geometry/primitives.h"

// An affine map of the plane: X' = A X + C Y + E, Y' = B X + D Y + F.
struct PlaneMap {
  double A = 1, B = 0, C = 0, D = 1, E = 0, F = 0;
};
Point Mapped(const PlaneMap &, Point);
Point MappedVector(const PlaneMap &, Point);
PlaneMap After(const PlaneMap &second, const PlaneMap &first); // first, then second
PlaneMap ScaleMap(double x, double y);
PlaneMap ShiftMap(double x, double y);
PlaneMap TurnMap(double degrees); // exact at whole quarters

// Centre + U cos t + V sin t for t from From to To (radians, From <= To): a circle, an ellipse or a part.
struct Conic {
  Point Centre, U, V;
  double From = 0, To = 0;
  bool Whole = false;
  double GivenTo = -1; // To as it was given, in 0..2*pi; an arc that is not turned keeps it
};
Conic MappedConic(const PlaneMap &, const Conic &);
bool IsRound(const Conic &);        // U and V square to each other and of one length, to 1e-9 of it
bool IsFlat(const Conic &);         // no breadth
Entity RowFrom(const Conic &round); // a circle or an arc, counter-clockwise; angles 0..2*pi
