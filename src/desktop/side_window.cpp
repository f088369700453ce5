#include "desktop/side_window.h"

#include "platform/events.h"

#include <QCloseEvent>

SideWindow::SideWindow(Ctl self, Sender send, QWidget *parent) : QWidget(parent, Qt::Window), Self(self) {
  Controls.Send = std::move(send);
  Bind(Controls, self, this);
  setAutoFillBackground(true);
}

void SideWindow::closeEvent(QCloseEvent *close) {
  close->ignore();
  Controls.Send(CloseOf(Self));
}

void SideWindow::keyPressEvent(QKeyEvent *key) {
  if (key->key() == Qt::Key_Escape) return Controls.Send(CloseOf(Self));
  if (key->matches(QKeySequence::Copy)) return CopyOut();
  QWidget::keyPressEvent(key);
}
