#pragma once
#include "desktop/theme.h"
#include "platform/draw_surface.h"

#include <QPainter>

// Drawing units to pixels: the same scale in both directions, the drawing's window whole and centred.
struct SurfaceView {
  double Scale = 1, OriginX = 0, OriginY = 0;
  QPointF ToPixels(double x, double y) const { return {OriginX + x * Scale, OriginY - y * Scale}; }
  QPointF ToUnits(QPointF p) const { return {(p.x() - OriginX) / Scale, (OriginY - p.y()) / Scale}; }
};
SurfaceView FitView(const DrawSurface &, QSizeF pixels);

void PaintGround(QPainter &, const DrawSurface &, const SurfaceView &, QSizeF pixels, const Theme &);
// Items first .. last-1 of the surface.
void PaintItems(QPainter &, const DrawSurface &, std::size_t first, std::size_t last, const SurfaceView &,
                const Theme &);
void PaintContourScale(QPainter &, const DrawSurface &, QSizeF pixels,
                       const Theme &); // nothing without contours
