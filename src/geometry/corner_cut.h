#pragma once
#include "geometry/primitives.h"
#include "shell/grain_document.h"

// Cutting an entity back from a corner: the part on the pick's side of the corner stays. mm.

// Moves the end that is not kept to `to`. False, the line as it was, when it would turn over, that is when
// `to` lies beyond the kept end or on the other side of the corner. A line may shrink to nothing.
bool CutLineFromCorner(Entity &line, Point pick, Point corner, Point to);

// +1 when the pick is reached from the corner counter-clockwise, else -1: along the arc when the corner lies
// on it, else (and for a circle) the shorter way.
int PickSideOfCorner(const Entity &arc, Point pick, Point corner);

// The same for an arc and the angle of the tangent point; false when the end would pass the kept end.
bool CutArcFromCorner(Entity &arc, Point pick, Point corner, double to);
