#include "desktop/bindings.h"

#include "desktop/event_codes.h"

#include <QAbstractButton>
#include <QDialog>
#include <QMainWindow>
#include <algorithm>

namespace {
// Enter and Escape of a field are the core's to answer; the dialog must not take them for its default button.
class FieldKeys final : public QObject {
public:
  FieldKeys(Ctl control, Sender send, QObject *parent)
      : QObject(parent), Control(control), Send(std::move(send)) {}

protected:
  bool eventFilter(QObject *, QEvent *event) override {
    if (event->type() != QEvent::KeyPress) return false;
    const auto &key = static_cast<const QKeyEvent &>(*event);
    const int code = KeyCode(key);
    if (code != 13 && code != 27) return false;
    Event e;
    e.What = Event::Kind::Key;
    e.Target = Control;
    e.KeyCode = code;
    e.Shift = ShiftCode(key.modifiers());
    Send(e);
    return true;
  }

private:
  Ctl Control;
  Sender Send;
};

void Press(Bindings &bindings, Ctl control) {
  Touch(bindings, control);
  Event e;
  e.Target = control;
  bindings.Send(e);
}

QString WithMnemonic(QString text, QChar letter) {
  const auto place = text.indexOf(letter, 0, Qt::CaseInsensitive);
  return letter.isNull() || place < 0 ? text : text.insert(place, '&');
}

QString TextOf(const Control &control) { return QString::fromStdString(control.Text); }

void CopyTo(QAction &action, const Control &from) {
  const QChar letter = action.property("mnemonic").toChar();
  action.setText(WithMnemonic(TextOf(from), letter));
  action.setEnabled(from.Enabled);
  action.setVisible(from.Visible);
  if (action.isCheckable()) action.setChecked(from.Checked);
  action.setToolTip(QString::fromStdString(from.Hint));
}

// A tool without words says its name too when its hint is only why it waits.
QString ToolTip(const Control &from) {
  const QString hint = QString::fromStdString(from.Hint);
  return from.Enabled && !hint.isEmpty() ? hint : QString(TextOf(from) + "\n" + hint).trimmed();
}

void CopyTo(QWidget &widget, const Control &from) {
  const QString text = TextOf(from);
  if (auto *button = qobject_cast<QAbstractButton *>(&widget)) {
    button->setText(text);
    if (button->isCheckable()) button->setChecked(from.Checked);
    button->setToolTip(button->property("tool").toBool() ? ToolTip(from) : QString::fromStdString(from.Hint));
  } else if (auto *label = qobject_cast<QLabel *>(&widget)) {
    label->setText(text);
  } else if (auto *field = qobject_cast<QLineEdit *>(&widget)) {
    if (field->text() != text) field->setText(text);
  }
  if (widget.isWindow()) {
    widget.setWindowTitle(text);
    return; // shown and hidden by the screen
  }
  widget.setEnabled(from.Enabled);
  widget.setVisible(from.Visible);
}
} // namespace

QWidget *Find(const Bindings &bindings, Ctl control) {
  for (const Binding &b : bindings.List)
    if (b.Control == control)
      if (auto *widget = qobject_cast<QWidget *>(b.Shown)) return widget;
  return nullptr;
}

QAction *BindAction(Bindings &bindings, Ctl control, QAction *action, char mnemonic) {
  action->setProperty("mnemonic", QChar::fromLatin1(mnemonic));
  QObject::connect(action, &QAction::triggered, action, [&bindings, control] { Press(bindings, control); });
  return Bind(bindings, control, action);
}

QAbstractButton *BindButton(Bindings &bindings, Ctl control, QAbstractButton *button) {
  QObject::connect(button, &QAbstractButton::clicked, button,
                   [&bindings, control] { Press(bindings, control); });
  return Bind(bindings, control, button);
}

QLineEdit *BindField(Bindings &bindings, Ctl control, QLineEdit *field) {
  QObject::connect(field, &QLineEdit::textEdited, field, [&bindings, control](const QString &text) {
    Touch(bindings, control);
    Event e;
    e.What = Event::Kind::Text;
    e.Target = control;
    e.Text = text.toStdString();
    bindings.Send(e);
  });
  field->installEventFilter(new FieldKeys(control, bindings.Send, field));
  return Bind(bindings, control, field);
}

void Mirror(Bindings &bindings, const Screen &screen) {
  // By index: showing a widget can send an event and so come back here.
  for (std::size_t i = 0; i < bindings.List.size(); ++i) {
    Binding &b = bindings.List[i];
    const Control &now = screen[b.Control];
    if (!b.Stale && now == b.Last) continue;
    b.Last = now;
    b.Stale = false;
    if (auto *action = qobject_cast<QAction *>(b.Shown)) CopyTo(*action, now);
    if (auto *widget = qobject_cast<QWidget *>(b.Shown)) CopyTo(*widget, now);
  }
}

void Touch(Bindings &bindings, Ctl control) {
  for (Binding &b : bindings.List) b.Stale = b.Stale || b.Control == control;
}
