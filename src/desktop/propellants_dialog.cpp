#include "desktop/dialogs.h"
#include "desktop/form_parts.h"
#include "desktop/panes.h"

#include <QGridLayout>
#include <QListWidget>
#include <QPushButton>

namespace {
struct Row {
  Ctl Box;
  const char *Label, *Unit;
};
constexpr Row Rows[] = {{Ctl::Fuel_a, "Burn rate &a", "mm/s at Pa"},
                        {Ctl::Fuel_n, "&Exponent n", ""},
                        {Ctl::Fuel_Density, "De&nsity", "g/cc"},
                        {Ctl::Fuel_c_star, "&c*", "m/s"},
                        {Ctl::Fuel_Isp, "&Isp", "s"},
                        {Ctl::Fuel_Lowest, "Pressure &from", "MPa"},
                        {Ctl::Fuel_Highest, "Pressure &to", "MPa"}};
} // namespace

FormDialog *MakePropellants(Sender send, QWidget *parent) {
  auto *dialog = new FormDialog(Ctl::Propellants_Form, std::move(send), parent);
  Bindings &bindings = dialog->Controls;
  auto *column = Column(*dialog);
  auto *halves = new QHBoxLayout;
  halves->setSpacing(24);

  auto *left = new QVBoxLayout;
  left->setSpacing(8);
  auto *list = BindList(bindings, Ctl::Fuel_List, new QListWidget);
  list->setAccessibleName("Propellants");
  list->setFixedWidth(QFontMetrics(list->font()).horizontalAdvance("Ammonium perchlorate, HTPB") + 44);
  left->addWidget(list, 1);
  auto *change = new QHBoxLayout;
  change->setSpacing(8);
  for (const Ctl control : {Ctl::Fuel_Add, Ctl::Fuel_Delete}) {
    auto *button = Button(bindings, control);
    button->setAutoDefault(false);
    change->addWidget(button, 1);
  }
  left->addLayout(change);
  halves->addLayout(left);

  auto *form = new QGridLayout;
  form->setHorizontalSpacing(12);
  form->setVerticalSpacing(8);
  auto *name = BindField(bindings, Ctl::Fuel_Name, new QLineEdit);
  name->setMinimumWidth(320);
  form->addWidget(LabelOf("Na&me", name), 0, 0);
  form->addWidget(name, 0, 1, 1, 2);
  int row = 1;
  for (const Row &r : Rows) {
    auto *box = BindField(bindings, r.Box, new QLineEdit);
    box->setAlignment(Qt::AlignRight);
    box->setFixedWidth(120);
    form->addWidget(LabelOf(r.Label, box), row, 0);
    form->addWidget(box, row, 1);
    form->addWidget(Quiet(new QLabel(r.Unit)), row++, 2);
  }
  auto *source = BindField(bindings, Ctl::Fuel_Source, new QLineEdit);
  form->addWidget(LabelOf("&Source", source), row, 0);
  form->addWidget(source, row++, 1, 1, 2);
  auto *note = Bind(bindings, Ctl::Fuel_Note, Quiet(new QLabel));
  note->setWordWrap(true);
  note->setAlignment(Qt::AlignTop);
  note->setMinimumHeight(2 * QFontMetrics(note->font()).height() + 4);
  form->addWidget(note, row, 1, 1, 2);
  form->setColumnStretch(2, 1);
  halves->addLayout(form, 1);
  column->addLayout(halves);
  dialog->Follow = [source](const Screen &) {
    source->setToolTip(source->text());
    if (!source->hasFocus()) source->setCursorPosition(0); // its beginning is to be read
  };
  AddDialogButtons(*dialog, *column, Ctl::Fuel_OK, Ctl::Fuel_Cancel);
  return dialog;
}
