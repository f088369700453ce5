#include "desktop/dialogs.h"
#include "desktop/panes.h"

#include <QListWidget>
#include <QVBoxLayout>

FormDialog *MakeFindTool(Sender send, QWidget *parent) {
  auto *dialog = new FormDialog(Ctl::Find_Tool, std::move(send), parent);
  auto *column = Column(*dialog);
  column->setContentsMargins(16, 16, 16, 14);
  column->setSpacing(10);
  auto *field = BindField(dialog->Controls, Ctl::Find_Text, new QLineEdit);
  field->setFont(TypeFont(Type::Prompt));
  field->setPlaceholderText("Name of a tool, or what it does");
  field->setAccessibleName("Find a tool");
  auto *list = BindList(dialog->Controls, Ctl::Find_List, new QListWidget);
  list->setAccessibleName("Tools");
  list->setFocusPolicy(Qt::NoFocus); // Up and Down go through the list from the field
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list->setTextElideMode(Qt::ElideRight);
  list->setFixedSize(560, 360);
  column->addWidget(field);
  column->addWidget(list);
  column->addWidget(Quiet(new QLabel("Up, Down: choose     Enter: start     Esc: close")));
  dialog->Follow = [list](const Screen &) {
    if (list->currentItem()) list->scrollToItem(list->currentItem());
  };
  return dialog;
}
