#include "desktop/name_list.h"

#include "platform/events.h"

#include <QKeyEvent>

NameList::NameList(Bindings &bindings, Ctl control, bool oneClick, std::function<QLineEdit *()> field)
    : Owner(bindings), Control(control), Field(std::move(field)) {
  setAccessibleName("Variables");
  setFocusPolicy(Qt::TabFocus); // the field keeps the keys while one clicks
  Bind(bindings, control, this);
  connect(this, oneClick ? &QListWidget::itemClicked : &QListWidget::itemDoubleClicked, this,
          [this](const QListWidgetItem *item) { Choose(item); });
}

void NameList::Choose(const QListWidgetItem *item) {
  if (!item) return;
  Event e = PressOf(Control, item->text().toStdString());
  if (QLineEdit *field = Field()) {
    if (field->hasSelectedText()) field->del(); // what is selected gives way, as to typing
    e.Caret = field->cursorPosition();
  }
  Touch(Owner, Control);
  Owner.Send(e);
}

void NameList::keyPressEvent(QKeyEvent *key) {
  if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) return Choose(currentItem());
  if (key->key() == Qt::Key_Escape)
    if (QLineEdit *field = Field()) return field->setFocus();
  QListWidget::keyPressEvent(key);
}
