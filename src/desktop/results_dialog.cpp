#include "desktop/dialogs.h"
#include "desktop/panes.h"
#include "desktop/theme.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>

namespace {
constexpr Ctl Columns[] = {Ctl::Burn_Dist_Col, Ctl::Core_Area_Col,  Ctl::Conduit_Area_Col,
                           Ctl::Ends_Area_Col, Ctl::Total_Area_Col, Ctl::KnRatio_Col};

// A toggle that is on wears the core's own colour, with dark words in either theme.
void ShowFace(QWidget &button, std::uint32_t colour) {
  const QString face =
      colour == 0 ? QString()
                  : QString("QPushButton { background: %1; color: #3A2412; }").arg(FromRed(colour).name());
  if (button.styleSheet() != face) button.setStyleSheet(face);
}
} // namespace

FormDialog *MakeSaveResults(Sender send, QWidget *parent) {
  auto *dialog = new FormDialog(Ctl::Save_Results_Form, std::move(send), parent);
  Bindings &bindings = dialog->Controls;
  auto *column = Column(*dialog);
  auto *form = new QGridLayout;
  form->setHorizontalSpacing(12);
  form->setVerticalSpacing(10);
  auto *step = BindField(bindings, Ctl::Burn_Inc, new QLineEdit);
  step->setAlignment(Qt::AlignRight);
  step->setFixedWidth(130);
  auto *header = BindField(bindings, Ctl::Results_Header, new QLineEdit);
  header->setMinimumWidth(380);
  auto *stepLabel = new QLabel("&Burn increment:"), *headerLabel = new QLabel("&Header:");
  stepLabel->setBuddy(step);
  headerLabel->setBuddy(header);
  form->addWidget(stepLabel, 0, 0);
  form->addWidget(step, 0, 1);
  form->addWidget(Quiet(new QLabel("mm")), 0, 2);
  form->addWidget(headerLabel, 1, 0);
  form->addWidget(header, 1, 1, 1, 3);
  int row = 2;
  for (const Ctl control : {Ctl::IncludeDimensions, Ctl::Include_Template_Data}) {
    auto *box = new QCheckBox;
    BindButton(bindings, control, box);
    form->addWidget(box, row++, 1, 1, 3, Qt::AlignLeft);
  }
  form->setColumnStretch(3, 1);
  column->addLayout(form);
  auto *labels = new QGridLayout;
  labels->setSpacing(8);
  int place = 0;
  for (const Ctl control : Columns) {
    auto *toggle = new QPushButton;
    toggle->setCheckable(true);
    toggle->setAutoDefault(false);
    BindButton(bindings, control, toggle);
    labels->addWidget(toggle, place / 3, place % 3);
    ++place;
  }
  auto *group = new QVBoxLayout;
  group->setSpacing(8);
  group->addWidget(Head("Labels of the columns"));
  group->addLayout(labels);
  auto *note = Bind(bindings, Ctl::Results_Note, Quiet(new QLabel));
  note->setWordWrap(true);
  note->setMinimumHeight(2 * QFontMetrics(note->font()).height() + 4);
  note->setAlignment(Qt::AlignTop);
  group->addWidget(note);
  column->addLayout(group);
  AddDialogButtons(*dialog, *column, Ctl::Save_File, Ctl::Results_Cancel);
  dialog->Follow = [&bindings](const Screen &screen) {
    for (const Ctl control : Columns)
      if (QWidget *button = Find(bindings, control)) ShowFace(*button, screen[control].Colour);
  };
  return dialog;
}
