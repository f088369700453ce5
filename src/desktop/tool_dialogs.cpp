#include "desktop/dialogs.h"

#include "desktop/command_frames.h"
#include "desktop/event_codes.h"
#include "desktop/name_list.h"
#include "desktop/panes.h"
#include "desktop/theme.h"
#include "platform/events.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QSlider>

namespace {
// Every key in the field is an answer: none edits it, none leaves it, none is a shortcut.
class KeyCatcher final : public QObject {
public:
  KeyCatcher(Sender send, QObject *parent) : QObject(parent), Send(std::move(send)) {}

protected:
  bool eventFilter(QObject *, QEvent *event) override {
    if (event->type() == QEvent::ShortcutOverride) {
      event->accept();
      return true;
    }
    if (event->type() != QEvent::KeyPress) return false;
    const auto &key = static_cast<const QKeyEvent &>(*event);
    const Event e = KeyIn(Ctl::HotKeys, KeyCode(key), ShiftCode(key.modifiers()));
    if (e.KeyCode != 0) Send(e);
    return true;
  }

private:
  Sender Send;
};

QString TextOf(const Screen &screen, Ctl control) { return QString::fromStdString(screen[control].Text); }
} // namespace

FormDialog *MakeQuestion(Sender send, QWidget *parent) {
  auto *dialog = new FormDialog(Ctl::Question_Form, std::move(send), parent);
  auto *column = Column(*dialog);
  auto *label = Bind(dialog->Controls, Ctl::Question_Label, new QLabel);
  auto *field = BindField(dialog->Controls, Ctl::Question_Value, new QLineEdit);
  field->setFont(TypeFont(Type::Prompt));
  field->setMinimumWidth(300);
  label->setBuddy(field);
  column->addWidget(label);
  column->addWidget(field);
  auto *names = new NameList(dialog->Controls, Ctl::VariableList1, false, [field] { return field; });
  names->setToolTip("A double click puts the variable into the answer");
  column->addWidget(names);
  dialog->Follow = [names](const Screen &) {
    if (names->count() > 0)
      names->setFixedHeight(names->sizeHintForRow(0) * std::min(names->count(), 6) + 10);
  };
  column->setSpacing(10);
  column->addSpacing(6);
  AddDialogButtons(*dialog, *column, Ctl::Question_OK, Ctl::Question_Cancel);
  return dialog;
}

FormDialog *MakeHotKey(Sender send, QWidget *parent) {
  auto *dialog = new FormDialog(Ctl::HotKeyForm, std::move(send), parent);
  auto *column = Column(*dialog);
  auto *tool = new QLabel;
  tool->setFont(TypeFont(Type::Prompt));
  auto *field = Bind(dialog->Controls, Ctl::HotKeys, new QLineEdit);
  field->setReadOnly(true);
  field->setAlignment(Qt::AlignCenter);
  field->setFont(TypeFont(Type::Prompt));
  field->setMinimumWidth(300);
  field->setAccessibleName("Hot key");
  field->installEventFilter(new KeyCatcher(dialog->Controls.Send, field));
  column->addWidget(tool);
  column->addWidget(Quiet(new QLabel("Press the key, with Shift, Ctrl or Alt if you like.")));
  column->addWidget(field);
  column->setSpacing(10);
  column->addSpacing(6);
  AddDialogButtons(*dialog, *column, Ctl::HotKey_Ok, Ctl::HotKey_Cancel);
  dialog->Follow = [tool](const Screen &screen) { tool->setText(TextOf(screen, Ctl::HotKeyPrompt)); };
  field->setFocus();
  return dialog;
}

FormDialog *MakeOptions(Sender send, QWidget *parent) {
  auto *dialog = new FormDialog(Ctl::Options_Form, std::move(send), parent);
  auto *column = Column(*dialog);
  auto *row = new QHBoxLayout;
  row->setSpacing(20);
  auto *list = BindList(dialog->Controls, Ctl::Default_List, new QListWidget);
  list->setAccessibleName("Defaults");
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  row->addWidget(list);
  auto *side = new QVBoxLayout;
  side->setSpacing(6);
  auto *name = new QLabel;
  auto *field = BindField(dialog->Controls, Ctl::Default_Value, new QLineEdit);
  auto *unit = Quiet(new QLabel);
  field->setAlignment(Qt::AlignRight);
  field->setFixedWidth(130);
  unit->setMinimumWidth(28);
  name->setMinimumWidth(QFontMetrics(name->font()).horizontalAdvance("Sim Increment Display!") + 4);
  auto *value = new QHBoxLayout;
  value->setSpacing(8);
  value->addWidget(field);
  value->addWidget(unit);
  value->addStretch();
  side->addWidget(name);
  side->addLayout(value);
  side->addStretch();
  row->addLayout(side);
  column->addLayout(row);
  AddDialogButtons(*dialog, *column, Ctl::Options_OK, Ctl::Options_Cancel);
  dialog->Follow = [=](const Screen &screen) {
    const Control &rows = screen[Ctl::Default_List];
    const bool chosen = rows.Index >= 0 && rows.Index < static_cast<int>(rows.Item.size());
    const QString item =
        chosen ? QString::fromStdString(rows.Item[static_cast<std::size_t>(rows.Index)]) : "";
    name->setText(item);
    unit->setText(item.contains("Angle") ? "deg" : item.contains("Tolerance") ? "mm" : "");
    list->setFixedSize(list->sizeHintForColumn(0) + 24, list->sizeHintForRow(0) * list->count() + 6);
  };
  return dialog;
}

FormDialog *MakeIncrements(Sender send, QWidget *parent) {
  auto *dialog = new FormDialog(Ctl::Increments_2d, std::move(send), parent);
  auto *column = Column(*dialog);
  auto *row = new QHBoxLayout;
  row->setSpacing(16);
  auto *slider = BindSlider(dialog->Controls, Ctl::IncrementSize, new QSlider(Qt::Horizontal));
  slider->setMinimumWidth(280);
  slider->setAccessibleName("Steps between contours");
  auto *value = Bind(dialog->Controls, Ctl::DispIncSize, new QLabel);
  value->setFont(TypeFont(Type::Figure));
  value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  value->setMinimumWidth(QFontMetrics(value->font()).horizontalAdvance("0000"));
  row->addWidget(slider, 1);
  row->addWidget(value);
  column->addWidget(new QLabel("Burn steps from one contour to the next"));
  column->addLayout(row);
  column->setSpacing(12);
  AddDialogButtons(*dialog, *column, Ctl::IncAccept, Ctl::IncCancel);
  return dialog;
}
