#pragma once
#include "desktop/theme.h"

#include <QLabel>

// A number to be read at a glance: a small grey caption, the figure below it, its unit behind it. Without a
// caption of its own it takes what stands before the colon of its text.
class FigureLabel final : public QLabel {
public:
  FigureLabel(QString caption, QString unit, Type figure = Type::Figure);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

protected:
  void paintEvent(QPaintEvent *) override;
  void keyPressEvent(QKeyEvent *) override; // Ctrl+C copies the figure

private:
  QString Caption, Unit;
  Type Size;
};
