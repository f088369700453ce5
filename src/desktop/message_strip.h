#pragma once
#include <QFrame>
#include <QTimer>

class QLabel;

// A message that stops nobody: it stands over the drawing's lower edge for three seconds, or until a click on
// it or the next press or key in the drawing.
class MessageStrip final : public QFrame {
public:
  explicit MessageStrip(QWidget &drawing);
  void Tell(const QString &text, const char *icon); // null: no icon

protected:
  void mousePressEvent(QMouseEvent *) override { hide(); }
  bool eventFilter(QObject *, QEvent *) override;

private:
  QLabel *Picture, *Words;
  QTimer Time;
};
