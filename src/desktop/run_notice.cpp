#include "desktop/run_notice.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

RunNotice::RunNotice() : Words(new QLabel), Bar(new QProgressBar), Stop(new QPushButton("Stop")) {
  setObjectName("SimMsg_Card");
  Words->setObjectName("SimMsg");
  Words->setAlignment(Qt::AlignCenter);
  Bar->setTextVisible(false);
  Bar->setRange(0, 1000);
  Bar->setMinimumWidth(220);
  Stop->setObjectName("SimStop");
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(28, 18, 28, 18);
  column->setSpacing(12);
  column->addWidget(Words);
  column->addWidget(Bar);
  column->addWidget(Stop, 0, Qt::AlignCenter);
  connect(Stop, &QPushButton::clicked, this, [this] { Stopped = true; });
  hide();
}

bool RunNotice::Show(double part) {
  constexpr int Patience = 500, Beat = 50; // ms
  if (Last.isValid() && Last.elapsed() < Beat) return !Stopped;
  if (Since.elapsed() > Patience) {
    Bar->show();
    if (Stop->isHidden()) {
      Stop->show();
      Stop->setFocus();
    }
    Bar->setValue(static_cast<int>(part * 1000));
  }
  Last.start();
  qApp->installEventFilter(this);
  QApplication::processEvents();
  qApp->removeEventFilter(this);
  return !Stopped;
}

void RunNotice::showEvent(QShowEvent *) {
  Since.start();
  Last.invalidate();
  Stopped = false;
  Bar->hide();
  Stop->hide();
}

void RunNotice::hideEvent(QHideEvent *) {
  if (Stop->hasFocus()) parentWidget()->setFocus();
}

bool RunNotice::eventFilter(QObject *object, QEvent *event) {
  switch (event->type()) {
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonRelease:
  case QEvent::MouseButtonDblClick:
  case QEvent::MouseMove:
  case QEvent::Wheel:
  case QEvent::KeyPress:
  case QEvent::KeyRelease:
  case QEvent::Shortcut:
  case QEvent::ShortcutOverride:
  case QEvent::DragEnter:
  case QEvent::Drop: return object != Stop && !object->inherits("QWindow");
  case QEvent::Close: event->ignore(); return true;
  default: return false;
  }
}
