#include "desktop/command_frames.h"
#include "desktop/dialogs.h"
#include "desktop/elided_label.h"
#include "desktop/form_parts.h"
#include "desktop/panes.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>

namespace {
constexpr Ctl Paints[] = {Ctl::Paint_Propellant, Ctl::Paint_Cut,   Ctl::Paint_Burning, Ctl::Paint_Exposed,
                          Ctl::Paint_Inhibited,  Ctl::Paint_Liner, Ctl::Paint_Core};
constexpr struct {
  const char *Label;
  Ctl Name, Pick, Drop;
} Textures[] = {{"Propellant", Ctl::Texture_Propellant, Ctl::Pick_Propellant, Ctl::Drop_Propellant},
                {"Burning", Ctl::Texture_Burning, Ctl::Pick_Burning, Ctl::Drop_Burning},
                {"Liner", Ctl::Texture_Liner, Ctl::Pick_Liner, Ctl::Drop_Liner}};

QPushButton *Sample(Bindings &bindings, Ctl control) {
  auto *button = Button(bindings, control);
  button->setProperty("sample", true);
  button->setIconSize(SampleSize);
  button->setAutoDefault(false);
  return button;
}
} // namespace

FormDialog *MakeSetup3d(Sender send, QWidget *parent) {
  auto *dialog = new FormDialog(Ctl::Setup_3D, std::move(send), parent);
  Bindings &bindings = dialog->Controls;
  auto *column = Column(*dialog);
  column->addWidget(Head("Colours"));
  auto *colours = new QGridLayout;
  colours->setSpacing(8);
  int place = 0;
  for (const Ctl paint : Paints) {
    colours->addWidget(Sample(bindings, paint), place / 3, place % 3);
    ++place;
  }
  column->addLayout(colours);
  auto *ground = RowLayout(12);
  auto *own = new QCheckBox;
  BindButton(bindings, Ctl::Own_Ground, own);
  ground->addWidget(own);
  ground->addWidget(Sample(bindings, Ctl::Paint_Ground));
  ground->addStretch();
  column->addLayout(ground);
  column->addSpacing(4);
  column->addWidget(Head("Textures"));
  auto *textures = new QGridLayout;
  textures->setHorizontalSpacing(10);
  textures->setVerticalSpacing(6);
  int row = 0;
  for (const auto &t : Textures) {
    textures->addWidget(new QLabel(t.Label), row, 0);
    auto *name = Bind(bindings, t.Name, new ElidedLabel);
    textures->addWidget(name, row, 1);
    int across = 2;
    for (const Ctl control : {t.Pick, t.Drop}) {
      auto *button = Slim(Button(bindings, control));
      button->setAutoDefault(false);
      textures->addWidget(button, row, across++);
    }
    ++row;
  }
  textures->setColumnStretch(1, 1);
  column->addLayout(textures);
  column->addSpacing(4);
  column->addWidget(LabelledField(bindings, Ctl::Liner_Thickness, "Liner thickness", "mm"));
  AddDialogButtons(*dialog, *column, Ctl::Setup_OK, Ctl::Setup_Cancel, Ctl::Setup_Restore);
  return dialog;
}
