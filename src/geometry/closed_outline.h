#pragma once
#include "platform/draw_surface.h"
#include "shell/grain_document.h"

#include <vector>

// The rows as one closed walk: a single circle, or a chain whose ends meet within joinTolerance (mm; the
// nearest end is the next). Empty when the rows are not one closed chain that takes them all; zero-length
// lines are passed over.
std::vector<OutlinePiece> ClosedOutline(const EntityTable &, double joinTolerance);
