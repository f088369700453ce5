#pragma once
#include "drafting/drafting.h"

#include <string>

// What the mouse buttons and keys do in this step, in one line.
std::string HintText(const Drafting &);

// sbHints, and what Undo and Redo would put back: in the menu's texts and in their tooltips.
void RefreshHints(Drafting &);
