#include "desktop/elided_label.h"

#include <QPainter>

ElidedLabel::ElidedLabel(const QString &least) : Least(least) { setTextFormat(Qt::PlainText); }

QSize ElidedLabel::minimumSizeHint() const {
  return {fontMetrics().horizontalAdvance(Least), fontMetrics().height()};
}

void ElidedLabel::paintEvent(QPaintEvent *) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
  painter.drawText(rect(), static_cast<int>(alignment()), shown);
  const QString tip = shown == text() ? QString() : text();
  if (toolTip() != tip) setToolTip(tip);
}
