#pragma once
#include "drafting/drafting.h"

// The buttons and fields of a frame stand with it, and the tools while the drawing can be changed.
void RefreshFrames(Drafting &, bool designing);
