#pragma once
#include "drafting/drafting.h"

void PushBack(Drafting &);    // the full state at BackPos, which then goes down; at 0 it wraps to BackDepth
bool RestoreBack(Drafting &); // BackPos up and the state there returns; false at depth
