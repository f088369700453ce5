#include "desktop/template_search_pane.h"

#include "desktop/form_parts.h"
#include "desktop/panes.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QProgressBar>
#include <QPushButton>

namespace {
QComboBox *AddList(SearchPane &pane, Bindings &bindings, Ctl control, const QString &name, int letters) {
  auto *box = ItemBox(bindings, control, name.toUtf8().constData());
  box->setMinimumContentsLength(letters);
  pane.List.push_back({control, box});
  return box;
}

void AddGoal(SearchPane &pane, Bindings &bindings, QGridLayout &grid) {
  auto *row = RowLayout();
  row->addWidget(AddList(pane, bindings, Ctl::Optimise_Way, "Way", 9));
  row->addWidget(AddList(pane, bindings, Ctl::Optimise_Figure, "Figure", 22));
  row->addStretch();
  grid.addWidget(new QLabel("Find"), 0, 0);
  grid.addLayout(row, 0, 1);
}

void AddRule(SearchPane &pane, Bindings &bindings, QGridLayout &grid, int i) {
  const QString number = QString::number(i + 1);
  auto *row = RowLayout();
  row->addWidget(AddList(pane, bindings, NthControl(Ctl::Optimise_Rule0, i), "Kept figure " + number, 22));
  row->addWidget(AddList(pane, bindings, NthControl(Ctl::Optimise_Side0, i), "Side " + number, 9));
  row->addWidget(NumberField(bindings, NthControl(Ctl::Optimise_Limit0, i), "Limit " + number, 8));
  row->addStretch();
  grid.addWidget(new QLabel("Keep " + number), i + 1, 0);
  grid.addLayout(row, i + 1, 1);
}

void AddLimits(Bindings &bindings, QGridLayout &grid, int at) {
  auto *row = RowLayout();
  row->addWidget(NumberField(bindings, Ctl::Optimise_Seconds, "Seconds", 6));
  row->addWidget(Quiet(new QLabel("s, or")));
  row->addWidget(NumberField(bindings, Ctl::Optimise_Trials, "Trials", 7));
  row->addWidget(Quiet(new QLabel("trials;")));
  auto *seed = NumberField(bindings, Ctl::Optimise_Seed, "Seed", 6);
  row->addWidget(LabelOf("seed", seed));
  row->addWidget(seed);
  row->addStretch();
  grid.addWidget(new QLabel("Up to"), at, 0);
  grid.addLayout(row, at, 1);
}
} // namespace

void AddRange(QGridLayout &grid, Bindings &bindings, int row, int line, int column) {
  const QString number = QString::number(row + 1);
  auto *vary = new QCheckBox;
  vary->setProperty("wordless", true);
  vary->setAccessibleName("Vary " + number);
  BindButton(bindings, NthControl(Ctl::Optimise_Vary0, row), vary);
  grid.addWidget(vary, line, column);
  grid.addWidget(NumberField(bindings, NthControl(Ctl::Optimise_From0, row), "From " + number, 7), line,
                 column + 1);
  grid.addWidget(NumberField(bindings, NthControl(Ctl::Optimise_To0, row), "To " + number, 7), line,
                 column + 2);
}

SearchPane BuildSearchPane(Bindings &bindings) {
  SearchPane pane;
  pane.Pane = new QWidget;
  auto *column = ColumnLayout(pane.Pane, 8);
  column->addWidget(Hairline());
  column->addWidget(Bind(bindings, Ctl::Optimise_Frame, Head({})));
  auto *inputs = new QWidget;
  auto *grid = GridLayout(inputs, 12, 6);
  AddGoal(pane, bindings, *grid);
  constexpr int Rules = 3;
  for (int i = 0; i < Rules; ++i) AddRule(pane, bindings, *grid, i);
  AddLimits(bindings, *grid, Rules + 1);
  auto *best = Bind(bindings, Ctl::Optimise_Best, new QLabel);
  best->setAlignment(Qt::AlignTop);
  auto *middle = RowLayout(24);
  middle->addWidget(inputs);
  middle->addWidget(best, 1);
  column->addLayout(middle);

  auto *row = RowLayout();
  for (const Ctl control : {Ctl::Optimise_Start, Ctl::Optimise_Stop, Ctl::Optimise_Restore}) {
    QPushButton *button = Button(bindings, control);
    button->setAutoDefault(true); // Enter presses it, where it has the focus
    button->setMinimumWidth(96);
    row->addWidget(button);
  }
  row->addSpacing(8);
  auto *progress = Bind(bindings, Ctl::Optimise_Progress, Quiet(new QLabel));
  row->addWidget(progress, 1);
  column->addLayout(row);
  pane.Bar = Bind(bindings, Ctl::Optimise_Bar, new QProgressBar);
  pane.Bar->setRange(0, 100);
  pane.Bar->setTextVisible(false);
  column->addWidget(pane.Bar);
  column->addWidget(Bind(bindings, Ctl::Optimise_Note, BadNote(2)));
  return pane;
}

void CopySearch(const SearchPane &pane, const Screen &screen) {
  pane.Pane->setVisible(screen[Ctl::Optimise_Frame].Visible);
  pane.Bar->setValue(QString::fromStdString(screen[Ctl::Optimise_Bar].Text).toInt());
  for (const auto &[control, box] : pane.List) {
    CopyItems(*box, screen[control]);
    SetMark(*box, !screen[control].Hint.empty());
    box->setToolTip(QString::fromStdString(screen[control].Hint));
  }
}
