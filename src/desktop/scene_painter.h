#pragma once
#include "platform/scene.h"

#include <QColor>
#include <QImage>
#include <memory>

// Paints a PictureScene with OpenGL 3.3 into a picture. The context is its own and lives as long as it does,
// so that a window needs none.
class ScenePainter final {
public:
  ScenePainter(); // Trouble tells whether it can paint
  ~ScenePainter();
  ScenePainter(const ScenePainter &) = delete;
  ScenePainter &operator=(const ScenePainter &) = delete;

  QString Trouble; // empty: it can
  struct Ground {
    QColor High, Low, Ink;
    double Shadow = 0.3;
  };
  // Smooth: with four samples to a pixel, which takes a driver without hardware twice as long.
  QImage Paint(const PictureScene &, QSize pixels, const Ground &, bool smooth = true);
  QString Renderer() const; // the driver's name for itself

private:
  struct Parts;
  std::unique_ptr<Parts> Own;
};
