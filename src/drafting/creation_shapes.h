#pragma once
#include "drafting/drafting.h"

#include <span>

// What a creating command (1..3, 7..9, 20..24, 30..34, 51..53) makes of its points, before any copies: the
// same for the preview and for the commit. A failure, with its message, where they make nothing; no rows for
// too few points.
Solution ShapeOf(const Drafting &, std::span<const Point>);
