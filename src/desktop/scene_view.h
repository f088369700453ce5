#pragma once
#include "desktop/draw_panel.h"
#include "desktop/scene_painter.h"
#include "platform/scene.h"

#include <QElapsedTimer>
#include <QTimer>

// Picture1: shows a PictureScene and, over it, what helps the hand: the cut's frame and grip, the axes, the
// materials. Its OpenGL lives from Open to Release.
class SceneView final : public QWidget {
public:
  explicit SceneView(Sender);
  QString Open(); // the trouble, or empty
  void Release();
  void Copy(const PictureScene &, const Theme &);
  QImage Shot(); // as it is, without the helps, at least 1920 pixels wide
  QSize sizeHint() const override { return {800, 600}; }
  int TimesPainted() const { return Paints; }

protected:
  void paintEvent(QPaintEvent *) override;
  void resizeEvent(QResizeEvent *) override;
  void mousePressEvent(QMouseEvent *) override;
  void mouseDoubleClickEvent(QMouseEvent *) override;
  void mouseMoveEvent(QMouseEvent *) override;
  void mouseReleaseEvent(QMouseEvent *) override;
  void wheelEvent(QWheelEvent *) override;
  void keyPressEvent(QKeyEvent *) override;
  void leaveEvent(QEvent *) override;

private:
  void SendMouse(Event::Kind, const QMouseEvent &, int button);
  void PaintPicture();
  ScenePainter::Ground GroundOf() const;
  void PaintFrame(QPainter &) const;
  void PaintAxes(QPainter &) const;
  void PaintKey(QPainter &) const;

  Sender Send;
  PictureScene Shown;
  const Theme *Colours = &LightTheme();
  std::unique_ptr<ScenePainter> Painter;
  QImage Picture; // of Shown, empty: to be painted
  int Paints = 0;
  double SmoothTime = 0; // ms that a smooth picture took
  QElapsedTimer LastPaint;
  QTimer Refine; // a picture made in a hurry is made again
  QTimer Beat;
  QElapsedTimer Since; // the last Tick
};
