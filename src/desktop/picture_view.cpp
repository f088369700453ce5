#include "desktop/picture_view.h"

PictureView::PictureView(int side) {
  setMinimumSize(side, side);
  setFocusPolicy(Qt::NoFocus);
}

void PictureView::Copy(const DrawSurface &surface, const Theme &theme) {
  if (Colours == &theme && Shown.Item == surface.Item && Shown.Core == surface.Core &&
      Shown.GrainRadius == surface.GrainRadius && Shown.Width == surface.Width)
    return;
  Shown = surface;
  Colours = &theme;
  update();
}

void PictureView::paintEvent(QPaintEvent *) {
  if (!Colours) return;
  QPainter painter(this);
  PaintPicture(painter, Shown, size(), *Colours);
}

void PaintPicture(QPainter &painter, const DrawSurface &surface, QSizeF pixels, const Theme &theme) {
  const SurfaceView view = FitView(surface, pixels);
  PaintGround(painter, surface, view, pixels, theme);
  PaintItems(painter, surface.Item, surface, view, pixels, theme);
}
