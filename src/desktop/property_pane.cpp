#include "desktop/property_pane.h"

#include "desktop/panes.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QStyle>

namespace {
constexpr std::pair<Ctl, Ctl> Fields[] = {
    {Ctl::Prop_X1_Label, Ctl::Prop_X1},         {Ctl::Prop_Y1_Label, Ctl::Prop_Y1},
    {Ctl::Prop_X2_Label, Ctl::Prop_X2},         {Ctl::Prop_Y2_Label, Ctl::Prop_Y2},
    {Ctl::Prop_Length_Label, Ctl::Prop_Length}, {Ctl::Prop_Angle_Label, Ctl::Prop_Angle},
    {Ctl::Prop_CX_Label, Ctl::Prop_CX},         {Ctl::Prop_CY_Label, Ctl::Prop_CY},
    {Ctl::Prop_Radius_Label, Ctl::Prop_Radius}, {Ctl::Prop_Diameter_Label, Ctl::Prop_Diameter},
    {Ctl::Prop_Start_Label, Ctl::Prop_Start},   {Ctl::Prop_End_Label, Ctl::Prop_End},
    {Ctl::Prop_Sweep_Label, Ctl::Prop_Sweep}};
} // namespace

QWidget *BuildPropertyPane(Bindings &bindings) {
  auto *pane = Bind(bindings, Ctl::Property_Frame, new QWidget);
  auto *column = new QVBoxLayout(pane);
  column->setContentsMargins(4, 0, 4, 0);
  column->setSpacing(6);
  auto *head = Head({});
  bindings.List.push_back({Ctl::Property_Frame, head, {}, true});
  column->addWidget(head);
  auto *text = Bind(bindings, Ctl::Prop_Text, new QLabel);
  text->setWordWrap(true);
  column->addWidget(text);
  auto *grid = new QGridLayout;
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(2);
  grid->setColumnStretch(0, 1);
  const int wide = QFontMetrics(TypeFont(Type::Base)).horizontalAdvance("-00000.000000") + 20;
  int row = 0;
  for (const auto &[label, control] : Fields) {
    auto *words = Bind(bindings, label, Quiet(new QLabel));
    auto *field = BindField(bindings, control, new QLineEdit);
    field->setAlignment(Qt::AlignRight);
    field->setFixedWidth(wide);
    words->setBuddy(field);
    grid->addWidget(words, row, 0);
    grid->addWidget(field, row++, 1);
  }
  column->addLayout(grid);
  return pane;
}

QWidget *BuildDiagnosisLine(Bindings &bindings) {
  auto *line = Frame("Diagnosis_Line");
  line->setCursor(Qt::ArrowCursor);
  line->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
  auto *row = new QHBoxLayout(line);
  row->setContentsMargins(14, 4, 6, 4);
  row->setSpacing(8);
  row->addWidget(Bind(bindings, Ctl::Diagnosis_Text, new QLabel));
  for (const Ctl control : {Ctl::Diagnosis_Next, Ctl::Close_Gaps}) {
    QPushButton *button = Button(bindings, control);
    button->setProperty("slim", true);
    button->setFocusPolicy(Qt::TabFocus);
    row->addWidget(button);
  }
  bindings.List.push_back({Ctl::Diagnosis_Text, line, {}, true});
  return line;
}
