#pragma once
#include "geometry/solution.h"

// Lines that touch circles and arcs, or stand square to two entities. Lengths in mm. Arcs count as their
// whole circles. Solved on centres and radii directly, so that every direction is as exact as any other.

// 11. The line from the first to the second circle or arc. Picks on the same side of the centre line give an
// outer tangent, on different sides an inner one; a pick as far from both candidates takes the second.
// "ERROR: No Solution Found" (title "Equation Error") when there is no outer tangent to choose by (one lies
// inside the other) or the chosen inner one does not exist; "ERROR: Entity's too small" for a line of no
// length.
Solution CreateTanTan(const PickedRow &, const PickedRow &);

// 12. From the first entity to the second (a circle or arc) along the line through the second's centre that
// is square to both; each end is the crossing nearer to its own pick. The row keeps the slope it was solved
// by: -1/Slope of a line, held to 1000000. "ERROR: No Solution" for concentric rounds and a second line.
Solution CreatePerpPerp(const PickedRow &, const PickedRow &);

// 10. The line from the point to its touching point nearer to the pick. "ERROR: Point must be Outside Circle
// or Arc" (title "No Solution") for a point within it or on it.
Solution TangentFromPoint(const PickedRow &round, Point from);
