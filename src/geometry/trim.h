#pragma once
#include "geometry/cut_core.h"
#include "geometry/solution.h"

// Shortening, lengthening and dividing an entity at its crossings with others. The cutter acts as its full
// line or circle. Lengths in mm. Rows come back with Selected cleared; a line's Slope and Intercept stay.
// Messages, each with nothing changed: "Can't Solve for Parallel Lines", "Error: Can't find Intersection",
// "ERROR: Entity already Selected!", and those named below.

// 60. The pick tells the part to keep; of two crossings the one nearer to the cutter's pick is meant. Circles
// are refused. Two arcs that do not meet: solved, with nothing to do.
Solution TrimEnds(const PickedRow &cut, const PickedRow &cutter);

// 61. Both to their crossing nearer to the second pick, each keeping its picked part. All or none.
Solution TrimBothEnds(const PickedRow &, const PickedRow &);

// 64. As TrimEnds, the crossing being the one nearer to the pick on the cut entity. A circle is refused with
// "Entity not found or Invalid Entity Selected: Can't Single Trim Circles".
Solution TrimMultiOp(const PickedRow &cut, const PickedRow &cutter);

// 62. The part between the crossings with two cutters stays; on a circle or arc the part of the pick. Circles
// become arcs. The same cutter may serve twice; two equal crossings are "Error: Can't find Intersection".
Solution TrimDoubleOp(const PickedRow &cut, const PickedRow &first, const PickedRow &second);

// 63. Leaves out the stretch between two crossings, which must lie on the entity ("Trimming Points must be
// inside line End Points", "Trimming Points must be inside Arc"). The added row is the part at the second
// end. A circle counts as an arc from 0 to 2*pi while allowCircle (rotation draw) is on, else "Use Double
// Trim to divide circles".
Solution TrimDivideOp(const PickedRow &cut, const PickedRow &first, const PickedRow &second,
                      bool allowCircle = false);
