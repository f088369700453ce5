#include "desktop/view3d_pane.h"

#include "desktop/form_parts.h"
#include "desktop/icons.h"
#include "desktop/menus.h"
#include "desktop/panes.h"
#include "desktop/scene_view.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QPushButton>
#include <QSlider>
#include <QToolButton>

namespace {
constexpr struct {
  Ctl Control;
  const char *Icon;
  bool Parted;
} Tools[] = {{Ctl::View_Front, "view_front", false}, {Ctl::View_Side, "view_side", false},
             {Ctl::View_Top, "view_top", false},     {Ctl::View_Iso, "view_iso", false},
             {Ctl::View_Fit, "zoom_grain", false},   {Ctl::View_Perspective, "perspective", false},
             {Ctl::Cut_None, "cut_none", true},      {Ctl::Cut_Lengthwise, "cut_lengthwise", false},
             {Ctl::Cut_Across, "cut_across", false}, {Ctl::Show_Liner, "show_liner", true},
             {Ctl::Show_Core, "show_core", false},   {Ctl::tb3DConfig, "setup3d", true}};
} // namespace

View3dPane::View3dPane(Bindings &bindings) {
  Bind(bindings, Ctl::View_3D, this);
  auto *column = ColumnLayout(this, 0);
  column->addWidget(BuildStrip(bindings));
  View = Bind(bindings, Ctl::Picture1, new SceneView(bindings.Send));
  Over = new QGridLayout(View);
  auto *note = Bind(bindings, Ctl::View_Note, new QLabel);
  note->setWordWrap(true);
  note->setAlignment(Qt::AlignCenter);
  note->setMargin(18);
  note->setMinimumWidth(320);
  Note = note;
  Over->addWidget(Note, 0, 0, Qt::AlignCenter);
  column->addWidget(View, 1);
  column->addWidget(BuildBurn(bindings));
}

QWidget *View3dPane::BuildStrip(Bindings &bindings) {
  auto *strip = Frame("ViewStrip");
  auto *row = RowLayout(1);
  strip->setLayout(row);
  row->setContentsMargins(8, 4, 12, 4);
  for (const auto &tool : Tools) {
    if (tool.Parted) row->addSpacing(12);
    auto *button = ToolButton(bindings, tool.Control, tool.Icon);
    if (tool.Control == Ctl::tb3DConfig) button->setObjectName("View_Setup"); // the tool bar has its name
    button->setProperty("small", true);
    row->addWidget(button);
  }
  row->addStretch(1);
  row->addSpacing(8);
  row->addWidget(Slim(Button(bindings, Ctl::Save_Shot)));
  row->addSpacing(12);
  Part = ItemBox(bindings, Ctl::Mesh_Part, "Part to export");
  Part->setMinimumContentsLength(5);
  Part->setProperty("slim", true);
  row->addWidget(Part);
  row->addSpacing(4);
  row->addWidget(Slim(Button(bindings, Ctl::Export_Mesh)));
  for (auto *button : strip->findChildren<QPushButton *>()) button->setFocusPolicy(Qt::TabFocus);
  Part->setFocusPolicy(Qt::TabFocus);
  return strip;
}

QWidget *View3dPane::BuildBurn(Bindings &bindings) {
  auto *strip = Frame("BurnStrip");
  auto *row = RowLayout(10);
  strip->setLayout(row);
  row->setContentsMargins(12, 5, 14, 5);
  auto *play = Slim(Button(bindings, Ctl::Burn_Play));
  play->setFocusPolicy(Qt::TabFocus);
  play->setMinimumWidth(QFontMetrics(play->font()).horizontalAdvance("Pause") + 36); // it says both in turn
  row->addWidget(play);
  auto *slider = BindSlider(bindings, Ctl::Burn_Slider, new QSlider(Qt::Horizontal));
  slider->setAccessibleName("Burn distance");
  slider->setPageStep(50);
  row->addWidget(slider, 1);
  row->addWidget(LabelOf("Burn", nullptr));
  row->addWidget(NumberField(bindings, Ctl::Burn_At, "Burn distance, mm", 6));
  auto *of = Bind(bindings, Ctl::Burn_Of, Quiet(new QLabel));
  of->setMinimumWidth(QFontMetrics(of->font()).horizontalAdvance("of 00.00 mm"));
  row->addWidget(of);
  return strip;
}

void View3dPane::Copy(const Screen &screen, const Theme &theme) {
  CopyItems(*Part, screen[Ctl::Mesh_Part]);
  if (QWidget *field = findChild<QLineEdit *>("Burn_At")) {
    const QString why = QString::fromStdString(screen[Ctl::Burn_At].Hint);
    SetMark(*field, !why.isEmpty());
    field->setToolTip(why);
  }
  View->Copy(screen.View3d, theme);
}
