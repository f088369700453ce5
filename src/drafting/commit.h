#pragma once
#include "drafting/drafting.h"

#include <span>
#include <string_view>

// One change of the drawing, whole: a failed solution is reported and changes nothing. Else the undo
// snapshot, the rows, SavedFlag, the marks of picked rows cleared, the redraw and the recovery file. A
// failure raises GeomAbort.
// Undo calls it by the name given, else by the running command's.
bool Apply(Drafting &, const Solution &, std::string_view name = "");

// New entities with their rotation-draw copies. "ERROR: Entity's too small" for a line or radius below
// 0.0001.
bool AddEntities(Drafting &, std::span<const Entity>);

void RedrawPanel(Drafting &);        // grid, grain circle, entities, crosses
void MarkRow(Drafting &, int index); // Selected, drawn in inverse; Flash
void ClearMarks(Drafting &);         // every Selected off; no redraw
