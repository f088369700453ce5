#include "desktop/bindings.h"

#include "desktop/event_codes.h"

#include "desktop/choice_buttons.h"
#include "desktop/pop_up_list.h"
#include "desktop/theme.h"
#include "platform/events.h"

#include <QAbstractButton>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPainter>
#include <QSlider>
#include <QStyle>
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
    if (code != 13 && code != 27 && !TakesKey(code)) return false;
    Send(KeyIn(Control, code, ShiftCode(key.modifiers())));
    return true;
  }

private:
  // Tab among the fields of drafting; the way through a list below the field.
  bool TakesKey(int code) const {
    constexpr int Tab = 9, Up = 38, Down = 40, F2 = 113;
    if (Control == Ctl::Find_Text) return code == Up || code == Down;
    if (RowOf(Control).Name.starts_with("VariableName(")) return code == Up || code == Down;
    if (code == F2) return RowOf(Control).Window == "frmMain";
    const bool drafting = Control == Ctl::X_Input || Control == Ctl::Y_Input;
    return code == Tab && (drafting || RowOf(Control).Name.starts_with("Prop_"));
  }

  Ctl Control;
  Sender Send;
};

// A right click on a tool asks about the tool instead of starting it.
class RightPress final : public QObject {
public:
  RightPress(Bindings &bindings, Ctl control, QWidget *tool)
      : QObject(tool), Owner(bindings), Control(control), Tool(tool) {}

protected:
  bool eventFilter(QObject *, QEvent *event) override {
    if (event->type() != QEvent::MouseButtonPress) return false;
    if (static_cast<const QMouseEvent &>(*event).button() != Qt::RightButton) return false;
    Owner.Asked = Tool;
    Touch(Owner, Ctl::HotKeyList);
    Owner.Send(PressOf(Control, {}, 2));
    return true;
  }

private:
  Bindings &Owner;
  Ctl Control;
  QWidget *Tool;
};

void Press(Bindings &bindings, Ctl control, const QString &item = {}) {
  Touch(bindings, control);
  bindings.Send(PressOf(control, item.toStdString()));
}

void SendText(Bindings &bindings, Ctl control, const QString &text) {
  Touch(bindings, control);
  bindings.Send(TextIn(control, text.toStdString()));
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

// How strongly the core colours a button: 0 not, 1 the running tool or the mode chosen, 2 a mode that the
// automatic one takes in, 3 the one a lesson asks for.
int LitOf(const Control &from) {
  constexpr std::uint32_t Face = 0xC0C0C0, Automatic = 0xC8C880, Asked = 0x0870E8;
  if (from.Colour == 0 || from.Colour == Face) return 0;
  if (from.Colour == Asked) return 3;
  return from.Colour == Automatic ? 2 : 1;
}

QIcon Sample(std::uint32_t colour, const QWidget &widget) {
  const int side = SampleSize.height();
  QPixmap sample(SampleSize * widget.devicePixelRatioF());
  sample.setDevicePixelRatio(widget.devicePixelRatioF());
  sample.fill(Qt::transparent);
  QPainter painter(&sample);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(widget.palette().color(QPalette::Dark), 1));
  painter.setBrush(FromRed(colour));
  painter.drawRoundedRect(QRectF(0.5, 0.5, side - 1, side - 1), 3, 3);
  return sample;
}

void CopyTo(QAbstractButton &button, const Control &from) {
  const QString text = TextOf(from);
  if (button.property("wordless").toBool()) {
    button.setAccessibleName(text);
    button.setToolTip(from.Hint.empty() ? text : QString::fromStdString(from.Hint));
  } else {
    button.setText(text);
    button.setToolTip(button.property("tool").toBool() ? ToolTip(from) : QString::fromStdString(from.Hint));
  }
  if (button.isCheckable()) button.setChecked(from.Checked);
  if (button.property("sample").toBool()) button.setIcon(Sample(from.Colour, button));
  const int lit = LitOf(from);
  if ((button.property("tool").toBool() || lit == 3 || button.property("lit").toInt() == 3) &&
      button.property("lit").toInt() != lit) {
    button.setProperty("lit", lit);
    button.style()->unpolish(&button);
    button.style()->polish(&button);
  }
}

// What an empty field stands for; a hint of the window's own stays while the core has none.
void CopyHint(QLineEdit &field, const Control &from) {
  if (from.Hint.empty() && !field.property("hinted").toBool()) return;
  field.setProperty("hinted", true);
  field.setPlaceholderText(QString::fromStdString(from.Hint));
}

void CopyTo(QListWidget &list, const Control &from) {
  const QSignalBlocker quiet(list);
  bool same = list.count() == static_cast<int>(from.Item.size());
  for (int i = 0; same && i < list.count(); ++i)
    same = list.item(i)->text().toStdString() == from.Item[static_cast<std::size_t>(i)];
  if (!same) {
    list.clear();
    for (const std::string &item : from.Item) list.addItem(QString::fromStdString(item));
  }
  list.setCurrentRow(from.Index);
}

void CopyTo(QSlider &slider, const Control &from) {
  const QSignalBlocker quiet(slider);
  slider.setRange(static_cast<int>(from.Least), static_cast<int>(from.Most));
  slider.setValue(TextOf(from).toInt());
}

void CopyTo(QWidget &widget, const Control &from) {
  const QString text = TextOf(from);
  if (auto *list = dynamic_cast<PopUpList *>(&widget)) return list->Copy(from);
  if (auto *button = qobject_cast<QAbstractButton *>(&widget)) {
    CopyTo(*button, from);
  } else if (auto *label = qobject_cast<QLabel *>(&widget)) {
    label->setText(text);
  } else if (auto *field = qobject_cast<QLineEdit *>(&widget)) {
    if (field->text() != text) field->setText(text);
    CopyHint(*field, from);
  } else if (auto *list = qobject_cast<QListWidget *>(&widget)) {
    CopyTo(*list, from);
  } else if (auto *slider = qobject_cast<QSlider *>(&widget)) {
    CopyTo(*slider, from);
  } else if (auto *choices = dynamic_cast<ChoiceButtons *>(&widget)) {
    choices->Copy(from);
  }
  if (widget.isWindow()) {
    widget.setWindowTitle(text);
    return; // shown and hidden by the screen
  }
  // A drawing that takes no clicks is still zoomed, panned and stepped back from: the core refuses the rest.
  if (!dynamic_cast<DrawPanel *>(&widget)) widget.setEnabled(from.Enabled);
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

QAbstractButton *BindTool(Bindings &bindings, Ctl control, QAbstractButton *button) {
  button->setProperty("tool", true);
  button->installEventFilter(new RightPress(bindings, control, button));
  return BindButton(bindings, control, button);
}

QLineEdit *BindField(Bindings &bindings, Ctl control, QLineEdit *field) {
  QObject::connect(field, &QLineEdit::textEdited, field,
                   [&bindings, control](const QString &text) { SendText(bindings, control, text); });
  field->installEventFilter(new FieldKeys(control, bindings.Send, field));
  return Bind(bindings, control, field);
}

QListWidget *BindList(Bindings &bindings, Ctl control, QListWidget *list) {
  QObject::connect(list, &QListWidget::currentTextChanged, list,
                   [&bindings, control](const QString &item) { Press(bindings, control, item); });
  return Bind(bindings, control, list);
}

QSlider *BindSlider(Bindings &bindings, Ctl control, QSlider *slider) {
  QObject::connect(slider, &QSlider::valueChanged, slider,
                   [&bindings, control](int value) { SendText(bindings, control, QString::number(value)); });
  return Bind(bindings, control, slider);
}

QWidget *BindChoices(Bindings &bindings, Ctl control) {
  return Bind(bindings, control, new ChoiceButtons([&bindings, control](const QString &item) {
                Press(bindings, control, item);
              }));
}

QWidget *BindPopUp(Bindings &bindings, Ctl control, Ctl title, QWidget *parent) {
  auto *list = new PopUpList([&bindings, control](const QString &item) { Press(bindings, control, item); },
                             bindings.Asked, parent);
  Bind(bindings, title, list->Head());
  return Bind(bindings, control, list);
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
