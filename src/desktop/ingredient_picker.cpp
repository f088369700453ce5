#include "desktop/ingredient_picker.h"
#include "platform/events.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QStringListModel>

IngredientPicker::IngredientPicker(Bindings &bindings, Ctl self)
    : Owner(bindings), Self(self), Offer(new QStringListModel(this)) {
  BindField(bindings, self, this);
  auto *list = new QCompleter(Offer, this);
  list->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
  list->setMaxVisibleItems(12);
  // Else its closing may give the keys back to this field after they went on to the next.
  list->popup()->setWindowFlag(Qt::WindowDoesNotAcceptFocus);
  setCompleter(list);
  connect(list, qOverload<const QString &>(&QCompleter::activated), this,
          [this](const QString &name) { Choose(name); });
  connect(this, &QLineEdit::returnPressed, this, [this] { // comes only while the list is open
    if (!completer()->popup()->currentIndex().isValid()) Done();
  });
}

void IngredientPicker::Choose(const QString &name) {
  Touch(Owner, Self);
  Owner.Send(PressOf(Self, name.toStdString()));
  Done();
}

void IngredientPicker::Done() {
  completer()->popup()->hide();
  Owner.Send(KeyIn(Self, 13));
}

void IngredientPicker::Copy(const Control &from) {
  QStringList names;
  for (const std::string &item : from.Item) names += QString::fromStdString(item);
  if (names != Offer->stringList()) Offer->setStringList(names);
}

void IngredientPicker::keyPressEvent(QKeyEvent *key) {
  if (key->key() == Qt::Key_Down && !completer()->popup()->isVisible()) return completer()->complete();
  QLineEdit::keyPressEvent(key);
}

void IngredientPicker::mousePressEvent(QMouseEvent *mouse) {
  QLineEdit::mousePressEvent(mouse);
  if (text().isEmpty()) completer()->complete();
}
