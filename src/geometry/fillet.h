#pragma once
#include "geometry/solution.h"

// Blends of a corner: the circle of a given radius that touches two entities, and the chamfer. Lengths in mm,
// angles in radians. Rows come back with Selected cleared.

enum class FilletUse {
  Circle,   // 26: a new circle
  Arc,      // 36: a new arc with the given angles
  Blend,    // 55: a new arc facing the corner, both picks cut to it; a circle stays whole
  BlendOnly // 56: the arc alone
};

// The centre lies at the radius from both, in the sector of RefPoint, the mean of the two picks. A line and
// an arc: the picks are first drawn along their entities toward the corner, since the mean of far picks often
// falls into another sector. The tangent points are exact; the angles go through the 32-bit ArcCosine.
// Failures: "Error: Can't solve for parallel lines"; "Error - 2 Arcs don't Intersect"; "Error: No Solution"
// and "Error: Can't find Intersection" for a line that misses the arc; "Chosen Radius Too Large for chosen
// Arc(s)" when the circle would not touch both from the sector's side, or a cut entity would turn over;
// "ERROR: Entity's too small" for a radius that is not above 0.
Solution FilletSolve(const PickedRow &, const PickedRow &, FilletUse, double radius, double startAngle = 0,
                     double endAngle = 0);

// Command 57: the new end on the first line is its crossing with the second line offset by w2, and the other
// way round, so the widths are square distances from the other line. The new row's slope is the bare quotient
// (0 when flat), 1000000 when it is vertical. Failures: parallel lines as above; "Error: Can't Find Solution"
// when a pick is no line or a line would turn over; "ERROR: Entity's too small" when both widths are 0.
Solution ChamferSolve(const PickedRow &, const PickedRow &, double w1, double w2);
