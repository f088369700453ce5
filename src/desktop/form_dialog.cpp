#include "desktop/form_dialog.h"

#include "desktop/event_codes.h"
#include "platform/events.h"

#include <QCloseEvent>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

FormDialog::FormDialog(Ctl self, Sender send, QWidget *parent) : QDialog(parent), Self(self) {
  Controls.Send = std::move(send);
  Bind(Controls, self, this);
  setModal(true);
}

void FormDialog::Copy(const Screen &screen) {
  Mirror(Controls, screen);
  if (Follow) Follow(screen);
}

void FormDialog::closeEvent(QCloseEvent *close) {
  close->ignore();
  Controls.Send(CloseOf(Self));
}

void FormDialog::keyPressEvent(QKeyEvent *key) {
  if (KeyCode(*key) != 27) return QDialog::keyPressEvent(key);
  Controls.Send(KeyIn(Self, 27));
}

// Over the middle of the window it belongs to, but never beyond the screen.
void FormDialog::showEvent(QShowEvent *show) {
  QDialog::showEvent(show);
  const QRect room = screen()->availableGeometry();
  QRect frame = frameGeometry();
  frame.setSize(frame.size().expandedTo(sizeHint()));
  if (parentWidget()) frame.moveCenter(parentWidget()->frameGeometry().center());
  frame.moveRight(std::min(frame.right(), room.right()));
  frame.moveBottom(std::min(frame.bottom(), room.bottom()));
  frame.moveLeft(std::max(frame.left(), room.left()));
  frame.moveTop(std::max(frame.top(), room.top()));
  move(frame.topLeft());
}

QVBoxLayout *Column(FormDialog &dialog) {
  auto *column = new QVBoxLayout(&dialog);
  column->setContentsMargins(28, 26, 28, 22);
  column->setSpacing(20);
  column->setSizeConstraint(QLayout::SetFixedSize);
  return column;
}

QPushButton *DialogButton(Bindings &bindings, Ctl control, bool chief) {
  auto *button = new QPushButton;
  button->setDefault(chief);
  button->setAutoDefault(chief);
  button->setMinimumWidth(96);
  BindButton(bindings, control, button);
  return button;
}

void AddDialogButtons(FormDialog &dialog, QVBoxLayout &column, Ctl chief, Ctl cancel, Ctl left) {
  auto *row = new QHBoxLayout;
  row->setSpacing(8);
  if (left != Ctl::Count) row->addWidget(DialogButton(dialog.Controls, left, false));
  row->addSpacing(24);
  row->addStretch();
  if (cancel != Ctl::Count) row->addWidget(DialogButton(dialog.Controls, cancel, false));
  row->addWidget(DialogButton(dialog.Controls, chief, true));
  column.addLayout(row);
}
