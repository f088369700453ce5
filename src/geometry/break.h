#pragma once
#include "geometry/cut_core.h"
#include "geometry/solution.h"

// Splitting an entity where others cross it, without shortening. Lengths in mm. Rows come back with Selected
// cleared, but a line's added row keeps the Selected it had. Messages, each with nothing changed:
// "ERROR: Breakpoint must be *ON* line", "ERROR: Breakpoint must be *ON* arc" (also within 0.1 of an end),
// and those of the trim.

// 65. A line: the added row runs backward from the old second end to the break. An arc: the added row's first
// end has its Y mirrored about the centre, where its angle is right.
Solution BreakEnds(const PickedRow &cut, const PickedRow &cutter);
Solution BreakBothEnds(const PickedRow &, const PickedRow &); // 66: each at the other; all or none

// 68. As BreakEnds, at the crossing nearer to the pick on the entity.
Solution BreakMultiOp(const PickedRow &cut, const PickedRow &cutter);

// 67. In three, in the order of the entity. A circle is an arc from 0 to 2*pi; where a crossing lies within
// 0.1 of angle 0 it becomes two arcs. "Both Trimming Points must be inside Arc" for an arc.
Solution BreakDoubleOp(const PickedRow &cut, const PickedRow &first, const PickedRow &second);
