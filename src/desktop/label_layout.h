#pragma once
#include "desktop/surface_painter.h"

#include <vector>

// The plates of the labels among the items, in pixels and in their order: each at its place or, where it
// would cover what is new or another plate, above, below or on the pointer's other side; always inside the
// panel.
std::vector<QRectF> LabelPlates(std::span<const DrawItem>, const SurfaceView &, QSizeF pixels);
