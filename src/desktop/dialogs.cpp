#include "desktop/dialogs.h"

#include "desktop/icons.h"
#include "desktop/panes.h"
#include "desktop/theme.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>

namespace {
QHBoxLayout *Heading(const QString &title, QLabel *below, const QWidget &dialog) {
  auto *row = new QHBoxLayout;
  row->setSpacing(16);
  auto *picture = new QLabel;
  picture->setPixmap(SvgPicture("morvandel", 56, dialog.devicePixelRatioF()));
  row->addWidget(picture, 0, Qt::AlignTop);
  auto *words = new QVBoxLayout;
  words->setSpacing(4);
  auto *head = new QLabel(title);
  head->setFont(TypeFont(Type::Title));
  words->addWidget(head);
  below->setWordWrap(true);
  words->addWidget(below);
  words->addStretch();
  row->addLayout(words, 1);
  return row;
}
} // namespace

FormDialog *MakeDimensions(Sender send, QWidget *parent) {
  static constexpr struct {
    Ctl Control;
    const char *Label;
  } Fields[] = {{Ctl::GrainDiam, "Grain &Diameter:"},
                {Ctl::GrainLength, "Grain &Length:"},
                {Ctl::Nozzle_Throat, "Nozzle &Throat Diam:"}};
  auto *dialog = new FormDialog(Ctl::Dimensions, std::move(send), parent);
  auto *column = Column(*dialog);
  column->addLayout(Heading("Overall Basic Dimensions",
                            Quiet(new QLabel("The grain around the core, and its nozzle.")), *dialog));
  auto *grid = new QGridLayout;
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(10);
  int row = 0;
  for (const auto &[control, text] : Fields) {
    auto *label = new QLabel(text);
    auto *field = BindField(dialog->Controls, control, new QLineEdit);
    field->setAlignment(Qt::AlignRight);
    field->setMinimumWidth(140);
    label->setBuddy(field);
    grid->addWidget(label, row, 0);
    grid->addWidget(field, row, 1);
    grid->addWidget(Quiet(new QLabel("mm")), row++, 2);
  }
  grid->setColumnStretch(0, 1);
  for (const Ctl control : {Ctl::EndA_Exposed, Ctl::EndB_Exposed}) {
    auto *box = new QCheckBox;
    BindButton(dialog->Controls, control, box);
    grid->addWidget(box, row++, 1, 1, 2);
  }
  grid->addWidget(Quiet(new QLabel("Ends that burn")), row - 2, 0);
  column->addLayout(grid);
  AddDialogButtons(*dialog, *column, Ctl::Dimensions_Next, Ctl::Dimensions_Cancel);
  return dialog;
}

FormDialog *MakeIntroPage(Sender send, QWidget *parent) {
  static constexpr struct {
    const char *Icon, *Text;
  } Steps[] = {{"dimensions", "<b>Set the grain.</b> Diameter, length, throat and the ends that burn stand "
                              "under Motor, Dimensions."},
               {"open", "<b>Bring a core.</b> Open a grain file, or drop one on the window. The outline must "
                        "close and lie in the grain."},
               {"performance", "<b>Press RUN SIM.</b> The outline burns outward, step by step: burn area, "
                               "Kn, sliver and loading follow."},
               {"view2d", "<b>Replay the burn.</b> Run the pointer over the area chart: the drawing shows "
                          "the front at that distance."},
               {"tutor", "<b>Learn by lessons.</b> The cap in the tool bar leads from the first circle to a "
                         "burnt star, step by step."}};
  auto *dialog = new FormDialog(Ctl::IntroPage, std::move(send), parent);
  auto *column = Column(*dialog);
  auto *text = Bind(dialog->Controls, Ctl::Intro_Text, new QLabel);
  text->setProperty("quiet", true);
  column->addLayout(Heading("Introduction", text, *dialog));
  auto *grid = new QGridLayout;
  grid->setHorizontalSpacing(16);
  grid->setVerticalSpacing(14);
  int row = 0;
  for (const auto &[icon, step] : Steps) {
    auto *picture = new QLabel;
    picture->setPixmap(SvgIcon(icon).pixmap(QSize(28, 28), dialog->devicePixelRatioF()));
    auto *words = new QLabel(step);
    words->setWordWrap(true);
    words->setMinimumWidth(440);
    grid->addWidget(picture, row, 0, Qt::AlignTop);
    grid->addWidget(words, row++, 1);
  }
  column->addLayout(grid);
  auto *buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  auto *box = new QCheckBox;
  BindButton(dialog->Controls, Ctl::Intro_DontShow, box);
  buttons->addWidget(box);
  buttons->addStretch();
  buttons->addWidget(DialogButton(dialog->Controls, Ctl::Intro_Example, false));
  buttons->addWidget(DialogButton(dialog->Controls, Ctl::Intro_OK, true));
  column->addLayout(buttons);
  return dialog;
}

FormDialog *MakeExportDxf(Sender send, QWidget *parent) {
  auto *dialog = new FormDialog(Ctl::Export_DXF, std::move(send), parent);
  auto *column = Column(*dialog);
  column->addLayout(
      Heading("Export DXF", Quiet(new QLabel("The drawing as a DXF file of release 12, in mm.")), *dialog));
  for (const Ctl control : {Ctl::Include_Grain, Ctl::Plain_R12}) {
    auto *box = new QCheckBox;
    BindButton(dialog->Controls, control, box);
    column->addWidget(box);
  }
  AddDialogButtons(*dialog, *column, Ctl::Export_Now, Ctl::Cancel_Now);
  return dialog;
}

FormDialog *MakeAbout(Sender send, QWidget *parent) {
  auto *dialog = new FormDialog(Ctl::frmAbout, std::move(send), parent);
  auto *column = Column(*dialog);
  auto *text = Bind(dialog->Controls, Ctl::About_Text, new QLabel);
  text->setMinimumWidth(380);
  column->addLayout(Heading("Morvandel", text, *dialog));
  AddDialogButtons(*dialog, *column, Ctl::About_OK);
  return dialog;
}
