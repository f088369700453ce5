#include "desktop/typing_card.h"

#include "desktop/draw_panel.h"
#include "desktop/point_strip.h"

#include <QHBoxLayout>

TypingCard::TypingCard(DrawPanel &panel, PointStrip &strip) : QFrame(&panel), Panel(panel), Strip(strip) {
  setObjectName("Typing_Card");
  setCursor(Qt::ArrowCursor);
  auto *row = new QHBoxLayout(this);
  row->setContentsMargins(10, 7, 10, 7);
  hide();
}

void TypingCard::Follow(bool wanted) {
  constexpr int Away = 18; // pixels from the pointer
  if (wanted == isVisibleTo(&Panel)) return;
  if (!wanted) {
    Strip.PutFields();
    return hide();
  }
  QWidget *fields = Strip.TakeFields();
  layout()->addWidget(fields);
  fields->show();
  adjustSize();
  const QPoint at = Panel.PointerPlace();
  const QSize room = Panel.size() - size();
  // Beyond the middle it opens towards the middle, so that it hides nothing under the pointer.
  const int right = at.x() + Away <= room.width() ? at.x() + Away : at.x() - Away - width();
  const int below = at.y() + Away <= room.height() ? at.y() + Away : at.y() - Away - height();
  move(std::clamp(right, 0, std::max(0, room.width())), std::clamp(below, 0, std::max(0, room.height())));
  show();
  raise();
}
