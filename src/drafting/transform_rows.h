#pragma once
#include "drafting/drafting.h"

// One row moved, turned, scaled, mirrored or stretched: pure. Lengths in mm, angles in radians. Lines take
// their slope anew by the guarded rule, arc angles come back in 0 <= angle < 2*pi (those of an arc that is a
// whole turn stay), arc and circle ends are rebuilt.

Entity MovedRow(Entity, double dx, double dy); // a line's Slope stays
Entity RotatedRow(Entity, Point about, double angle);
Entity ScaledRow(Entity, Point about, double factor); // factor above 0
// Across the line through p and q, which is horizontal when their Y differ by less than 0.0001, else vertical
// when their X do.
Entity MirroredRow(Entity, Point p, Point q);

// Each end of a line or arc moved by itself; an arc keeps its sweep, a circle moves with its centre.
struct EndShift {
  Point First, Second, Centre; // by how far
};
Entity ShiftedEnds(Entity, const EndShift &);

bool InRectangle(const SelectionValues &window, Point); // borders count as inside
// Ends inside the rectangle move, those outside stay; a circle with its centre; an arc with one end inside
// keeps its sweep.
Entity StretchedRow(const Entity &, const SelectionValues &window, double dx, double dy);
