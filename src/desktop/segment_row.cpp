#include "desktop/segment_row.h"

#include <QAbstractButton>
#include <QEvent>
#include <QStyle>
#include <algorithm>

SegmentRow::SegmentRow() { setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed); }

void SegmentRow::Add(QAbstractButton *part) {
  part->setParent(this);
  part->setProperty("segment", true);
  part->setCheckable(true);
  Parts.push_back(part);
}

void SegmentRow::resizeEvent(QResizeEvent *) { Arrange(); }

bool SegmentRow::event(QEvent *event) {
  const bool handled = QWidget::event(event);
  if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::StyleChange ||
      event->type() == QEvent::Polish)
    Arrange();
  return handled;
}

// Each as wide as its words and an equal share of what is left.
void SegmentRow::Arrange() {
  if (Parts.isEmpty()) return;
  int need = 0, tall = 0;
  for (const QAbstractButton *part : Parts) {
    need += part->sizeHint().width();
    tall = std::max(tall, part->sizeHint().height());
  }
  const qsizetype rows = need <= width() ? 1 : 2, each = (Parts.size() + rows - 1) / rows;
  for (qsizetype row = 0; row < rows; ++row) {
    const qsizetype from = row * each, to = std::min(Parts.size(), from + each);
    int words = 0;
    for (qsizetype i = from; i < to; ++i) words += Parts[i]->sizeHint().width();
    double x = 0;
    const double spare = static_cast<double>(width() - words) / static_cast<double>(to - from);
    for (qsizetype i = from; i < to; ++i) {
      const double right = i + 1 == to ? width() : x + Parts[i]->sizeHint().width() + spare;
      const int left = static_cast<int>(x) - (i > from ? 1 : 0); // over its neighbour's border
      Parts[i]->setGeometry(left, static_cast<int>(row) * (tall - 1), static_cast<int>(right) - left, tall);
      x = right;
    }
  }
  const int height = static_cast<int>(rows) * (tall - 1) + 1;
  if (height != minimumHeight() || height != maximumHeight()) setFixedHeight(height);
  setMinimumWidth(need / 2 + 40);
}
