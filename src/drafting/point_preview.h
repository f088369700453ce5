#pragma once
#include "drafting/drafting.h"

DrawItem RowItem(const Entity &, Ink);
void FlashRow(Drafting &, const Entity &); // shown for a moment, as picked

// Rubber band of the generic point commands: from the points held to the pointer, with the copies of rotation
// draw.
void PreviewPoints(Drafting &, Point);
