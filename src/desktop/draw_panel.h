#pragma once
#include "desktop/surface_painter.h"
#include "platform/event.h"

#include <QPixmap>
#include <QVariantAnimation>
#include <QWidget>
#include <functional>

using Sender = std::function<void(const Event &)>;

// Shows a DrawSurface. What stays between two copies is kept as a picture, so that a pointer move paints the
// rest only; the overlay repaints no more than the places where it was and is.
class DrawPanel final : public QWidget {
public:
  explicit DrawPanel(Sender);
  void Copy(const DrawSurface &, const Theme &);
  QSize sizeHint() const override { return {800, 600}; }
  QPoint PointerPlace() const { return Pointer; }  // in pixels, where it was last
  int TimesPainted() const { return StillPaints; } // what lies below the overlay, or a part of it
  std::function<bool(int key, int shift)> Claims;  // the core takes this key before the menu does

protected:
  bool event(QEvent *) override;
  void paintEvent(QPaintEvent *) override;
  void resizeEvent(QResizeEvent *) override;
  void mousePressEvent(QMouseEvent *) override;
  void mouseDoubleClickEvent(QMouseEvent *) override;
  void mouseMoveEvent(QMouseEvent *) override;
  void mouseReleaseEvent(QMouseEvent *) override;
  void wheelEvent(QWheelEvent *) override;
  void keyPressEvent(QKeyEvent *) override;
  // Tab is a key of the drawing; Shift+Tab leaves it.
  bool focusNextPrevChild(bool next) override { return !next && QWidget::focusNextPrevChild(next); }

private:
  Event At(Event::Kind, QPointF, Qt::KeyboardModifiers) const;
  void SendMouse(Event::Kind, const QMouseEvent &, int button);
  bool CopyStill(const DrawSurface &, const Theme &);
  void CopyOverlay(const DrawSurface &);
  void CopyFlash(const DrawSurface &);
  void RestSnapName();
  void PaintStill(std::size_t from, std::size_t end); // items from .. end-1; from 0 the ground too

  Sender Send;
  DrawSurface Shown;
  const Theme *Colours = &LightTheme();
  QPixmap Still;
  std::size_t StillCount = 0; // of Shown.Item, in Still
  int StillPaints = 0;
  QPoint Pointer;
  DrawItem SnapName;          // the one shown, or none
  QVariantAnimation NameSeen; // comes in a while after its snap, so that a passing pointer is left alone
};
