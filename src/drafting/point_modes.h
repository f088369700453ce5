#pragma once
#include "drafting/command_table.h"
#include "drafting/point_fields.h"
#include "drafting/point_preview.h"
#include "drafting/tracker.h"

#include <string_view>

// How a click becomes an entity or a point.

// The pick at the position by type mask (1 lines, 2 circles, 4 arcs), logged as `kind` (0: not). With the
// tracker's candidate held only that row, if it may be picked at all. Nothing found: the box `none` (title
// "ERROR", stop icon; none empty: no box) and GeomAbort.
PickedRow PickEntity(Drafting &, Point, int typeMask, std::string_view none, int kind = LogFoundEnt,
                     bool allowSelected = false, bool grainCircle = false);

// The point input by RefType, with the offset when DeltaPending: true when a point was appended to PointX,
// PointY. False: a pick more is wanted, or nothing was found (GeomAbort), or the command was left. Logs its
// input. Selected rows can be picked: they have ends and centres too.
bool PointInput(Drafting &, Point);

// A position taken as it stands (a side, a corner): appended and logged.
void TakePosition(Drafting &, Point);
void LogPosition(Drafting &, Point); // of a click, or typed, with its formulas

void MarkPoint(Drafting &, Point);

std::span<const ButtonRow> PointButtons(); // Cursor .. Key_In, Delta, AutoPoint
void RefreshPoints(Drafting &);            // colours of the modes, the fields
