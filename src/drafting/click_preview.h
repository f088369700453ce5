#pragma once
#include "drafting/drafting.h"

// What the next click of the running command would do, found by doing it: the same click on a copy of the
// drawing and of the state, before a screen that shows nothing and asks nothing.

// Into Panel.Overlay: parts that go (WillGo), parts that stay (Geometry), what is new (WillBe), a mark where
// a row will be broken, and the reading of the first new row. A click that changes no row shows the row it
// would pick.
void PreviewClick(Drafting &, Point at);

// The table as a click at the held position leaves it; d.Pointer is the pointer's own place. The copy is kept
// and the answer stands until the next call.
const EntityTable &TableAfterClick(Drafting &, Point at);
