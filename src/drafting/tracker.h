#pragma once
#include "drafting/drafting.h"

// The automatic point: ends, centres and edges near the pointer, and guides along the X and Y of the last
// point and of the last end or centre passed over. All within a hundredth of the panel's height in mm. At
// work with AutoPoint, RefType 1, outside of recordings and windows, and without Alt; an end or centre rules
// over guides, and these over edges.

// On each move: TrackX, TrackY, the snap and guide marks into Overlay; the position held, as HeldPosition has
// it.
Point TrackPointer(Drafting &, Point);

Point NarrowPoint(Point); // to 32 bits, as a log keeps positions

// What a press at the position takes: grid, tracker, and fields that were typed. While a recording runs it is
// narrowed to 32 bits.
Point HeldPosition(Drafting &, Point clicked);
