#pragma once
#include "drafting/drafting.h"

#include <span>

// One change of the drawing, whole: a failed solution is reported and changes nothing. Else the undo
// snapshot, the rows, SavedFlag, the marks of picked rows cleared, the redraw and the recovery file. A
// failure raises GeomAbort.
bool Apply(Drafting &, const Solution &);

// New entities with their rotation-draw copies. "ERROR: Entity's too small" for a line or radius below
// 0.0001.
bool AddEntities(Drafting &, std::span<const Entity>);

void RedrawPanel(Drafting &);        // grid, grain circle, entities, crosses
void MarkRow(Drafting &, int index); // Selected, drawn in inverse; Flash
void ClearMarks(Drafting &);         // every Selected off; no redraw
