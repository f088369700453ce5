#pragma once
#include "desktop/surface_painter.h"

#include <QPixmap>
#include <QWidget>

// A drawing to be looked at only.
class PictureView final : public QWidget {
public:
  explicit PictureView(int side); // pixels, at least
  void Copy(const DrawSurface &, const Theme &);

protected:
  void paintEvent(QPaintEvent *) override;

private:
  DrawSurface Shown;
  const Theme *Colours = nullptr;
};

void PaintPicture(QPainter &, const DrawSurface &, QSizeF pixels, const Theme &);
