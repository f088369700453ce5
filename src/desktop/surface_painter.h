#pragma once
#include "desktop/theme.h"
#include "platform/draw_surface.h"

#include <QPainter>
#include <span>

// Drawing units to pixels: the same scale in both directions, the drawing's window whole and centred.
struct SurfaceView {
  double Scale = 1, OriginX = 0, OriginY = 0;
  QPointF ToPixels(double x, double y) const { return {OriginX + x * Scale, OriginY - y * Scale}; }
  QPointF ToUnits(QPointF p) const { return {(p.x() - OriginX) / Scale, (OriginY - p.y()) / Scale}; }
};
SurfaceView FitView(const DrawSurface &, QSizeF pixels);

void PaintGround(QPainter &, const DrawSurface &, const SurfaceView &, QSizeF pixels, const Theme &);
bool IsSnapName(const DrawItem &);
// Some of the surface's items, in their order; labels last, on plates that stay inside the panel. Names of
// snaps are seen as far as told, 0 to 1.
void PaintItems(QPainter &, std::span<const DrawItem>, const DrawSurface &, const SurfaceView &,
                QSizeF pixels, const Theme &, double snapNames = 1);
QRectF PixelBounds(std::span<const DrawItem>, const SurfaceView &, QSizeF pixels); // of strokes and plates
void PaintContourScale(QPainter &, const DrawSurface &, QSizeF pixels,
                       const Theme &); // nothing without contours
