#pragma once
#include "drafting/command_table.h"

#include <string_view>

// How a click becomes an entity or a point.

// The pick at the position by type mask (1 lines, 2 circles, 4 arcs), logged as `kind` (0: not). With the
// tracker's candidate held only that row. Nothing found: the box `none` (title "ERROR", stop icon; none
// empty: no box) and GeomAbort.
PickedRow PickEntity(Drafting &, Point, int typeMask, std::string_view none, int kind = LogFoundEnt,
                     bool allowSelected = false, bool grainCircle = false);

// The point input by RefType, with the offset when DeltaPending: true when a point was appended to PointX,
// PointY. False: a pick more is wanted, or nothing was found (GeomAbort), or the command was left. Logs its
// input.
bool PointInput(Drafting &, Point);

// A position taken as it stands (a side, a corner): appended and logged.
void TakePosition(Drafting &, Point);

void TrackPointer(Drafting &, Point); // on each move: TrackX, TrackY, the snap and guide marks into Overlay
Point HeldPosition(Drafting &, Point clicked); // what a press takes: grid snap, tracker, guides
void MarkPoint(Drafting &, Point);

std::span<const ButtonRow> PointButtons(); // Cursor .. Key_In, Delta, AutoPoint
void RefreshPoints(Drafting &);            // colours of the modes, labels and height of End_Frame

// The fields. Empty X_Input or Y_Input follow the pointer.
void FieldText(Drafting &, const Event &);
void FieldKey(Drafting &, const Event &);

// Rubber band of the generic point commands: from the points held to the pointer.
void PreviewPoints(Drafting &, Point);
