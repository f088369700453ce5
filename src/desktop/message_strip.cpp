#include "desktop/message_strip.h"

#include "desktop/icons.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>

MessageStrip::MessageStrip(QWidget &drawing) : Picture(new QLabel), Words(new QLabel) {
  setObjectName("MessageStrip");
  setCursor(Qt::ArrowCursor);
  setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
  auto *row = new QHBoxLayout(this);
  row->setContentsMargins(14, 9, 18, 9);
  row->setSpacing(10);
  row->addWidget(Picture);
  row->addWidget(Words);
  Words->setObjectName("MessageStrip_Text");
  Words->setTextFormat(Qt::PlainText);
  Time.setSingleShot(true);
  connect(&Time, &QTimer::timeout, this, &QWidget::hide);
  drawing.installEventFilter(this);
  hide();
}

void MessageStrip::Tell(const QString &text, const char *icon) {
  constexpr int Shown = 3000; // ms
  Words->setText(text);
  Picture->setVisible(icon != nullptr);
  if (icon) Picture->setPixmap(SvgIcon(icon).pixmap(QSize(22, 22), devicePixelRatioF()));
  adjustSize();
  show();
  raise();
  Time.start(Shown);
}

// The press or key goes on to the drawing.
bool MessageStrip::eventFilter(QObject *, QEvent *event) {
  if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress) hide();
  return false;
}
