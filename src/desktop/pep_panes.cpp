#include "desktop/curve_key.h"
#include "desktop/elided_label.h"
#include "desktop/form_parts.h"
#include "desktop/ingredient_picker.h"
#include "desktop/nozzle_sketch.h"
#include "desktop/panes.h"
#include "desktop/pep_window.h"
#include "desktop/plot_view.h"
#include "desktop/segment_row.h"
#include "platform/events.h"

#include <QClipboard>
#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSlider>
#include <QTreeWidget>

namespace {
constexpr int RowCount = 10;

Ctl Nth(Ctl first, int row) { return static_cast<Ctl>(static_cast<int>(first) + row); }

constexpr FigurePlace Figures[] = {{Ctl::Pep_Temperature, "Flame temperature", "K"},
                                   {Ctl::Pep_CStar, "c*", "m/s"},
                                   {Ctl::Pep_Isp, "Isp", "s"},
                                   {Ctl::Pep_Vacuum_Isp, "Vacuum Isp", "s"},
                                   {Ctl::Pep_Density_Isp, "Density Isp", "s g/cc"},
                                   {Ctl::Pep_Gamma, "Gamma", ""},
                                   {Ctl::Pep_Gas_Weight, "Gas weight", "g/mol"},
                                   {Ctl::Pep_Exit_Temperature, "Exit temperature", "K"},
                                   {Ctl::Pep_Exit_Pressure, "Exit pressure", "kPa"},
                                   {Ctl::Pep_Density, "Density", "g/cc"}};

QSlider *Slider(Bindings &bindings, Ctl control, const char *name) {
  auto *slider = BindSlider(bindings, control, new QSlider(Qt::Horizontal));
  slider->setAccessibleName(name);
  slider->setMinimumWidth(120);
  return slider;
}

QLabel *SmallLabel(Bindings &bindings, Ctl control, const char *longest) {
  auto *label = Bind(bindings, control, Quiet(new QLabel));
  label->setMinimumWidth(QFontMetrics(label->font()).horizontalAdvance(longest));
  return label;
}
} // namespace

QWidget *PepWindow::BuildMix() {
  auto *pane = new QWidget;
  auto *grid = GridLayout(pane, 8, 3);
  grid->addWidget(Head("Ingredients"), 0, 0);
  auto *weights = Head("Weight, g");
  weights->setAlignment(Qt::AlignRight);
  grid->addWidget(weights, 0, 1);
  for (int row = 0; row < RowCount; ++row) {
    auto *picker = new IngredientPicker(Controls, Nth(Ctl::Ingredient_Input0, row));
    picker->setAccessibleName(QString("Ingredient %1").arg(row + 1));
    picker->setMinimumWidth(QFontMetrics(picker->font()).horizontalAdvance("AMMONIUM PERCHLORATE 200 MU") +
                            20);
    Pickers.push_back(picker);
    auto *weight = NumberField(Controls, Nth(Ctl::Weight_Input0, row), "Weight", 8);
    auto *note = Bind(Controls, Nth(Ctl::Ingredient_Note0, row),
                      new ElidedLabel("C10 H10 O10 N10   -10000 cal/g   0.000 g/cc   A"));
    Quiet(note);
    grid->addWidget(picker, row + 1, 0);
    grid->addWidget(weight, row + 1, 1);
    grid->addWidget(note, row + 1, 2);
  }
  auto *total = RowLayout();
  total->addWidget(Slim(Button(Controls, Ctl::Make_100)));
  total->addWidget(Slim(Button(Controls, Ctl::Clear_Mix)));
  total->addStretch();
  total->addWidget(new QLabel("Total"));
  grid->addLayout(total, RowCount + 1, 0);
  auto *sum = Bind(Controls, Ctl::Total_Weight, new QLabel);
  sum->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  sum->setContentsMargins(0, 0, 9, 0);
  sum->setFont(TypeFont(Type::Head));
  grid->addWidget(sum, RowCount + 1, 1);
  grid->addWidget(Quiet(new QLabel("g")), RowCount + 1, 2);
  grid->setColumnStretch(2, 1);
  return pane;
}

QWidget *PepWindow::BuildRun() {
  auto *pane = new QWidget;
  auto *column = ColumnLayout(pane, 8);
  auto *row = RowLayout();
  auto *heat = NumberField(Controls, Ctl::Propellant_Temp, "Propellant temperature", 5);
  auto *low = NumberField(Controls, Ctl::Pc_Lower_Range, "Lower chamber pressure", 6),
       *high = NumberField(Controls, Ctl::Pc_Higher_Range, "Higher chamber pressure", 6);
  row->addWidget(LabelOf("&Temperature", heat));
  row->addWidget(heat);
  row->addWidget(Quiet(new QLabel("\u00b0C")));
  row->addSpacing(16);
  row->addWidget(LabelOf("Chamber &pressure", low));
  row->addWidget(low);
  row->addWidget(LabelOf("t&o", high));
  row->addWidget(high);
  row->addWidget(Quiet(new QLabel("MPa")));
  row->addStretch();
  auto *run = Button(Controls, Ctl::Run_Sim);
  run->setProperty("chief", true);
  run->setMinimumWidth(QFontMetrics(run->font()).horizontalAdvance("Processing") + 40);
  row->addWidget(run);
  column->addLayout(row);
  Progress = Bind(Controls, Ctl::ProgressBar1, new QProgressBar);
  Progress->setRange(0, 15);
  Progress->setTextVisible(false);
  column->addWidget(Progress);
  auto *note = Bind(Controls, Ctl::Pep_Note, new QLabel);
  note->setWordWrap(true);
  note->setFont(TypeFont(Type::Small));
  note->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  note->setMinimumHeight(2 * QFontMetrics(note->font()).height() + 2);
  column->addWidget(note);
  return pane;
}

QWidget *PepWindow::BuildLook() {
  auto *pane = new QWidget;
  auto *grid = GridLayout(pane, 8, 4);
  grid->addWidget(Head("Look at"), 0, 0);
  constexpr struct {
    Ctl Slide, Box, Note;
    const char *Label, *Unit, *Longest;
  } rows[] = {{Ctl::Chamber_Pressure, Ctl::Pc_Slider_Selection, Ctl::Pc_Psi_Label, "&Chamber pressure", "MPa",
               "(100000 psi)"},
              {Ctl::Ambient_Pressure, Ctl::Pa_Slider_Selection, Ctl::Pa_Alt_Label, "&Ambient pressure", "kPa",
               "(100,000 ft)"},
              {Ctl::Expansion_Ratio, Ctl::Exp_Rat_Slider_Selection, Ctl::Exp_Rat_Label, "&Expansion ratio",
               "", "1000.0mm"}};
  int at = 1;
  grid->addWidget(SmallLabel(Controls, Ctl::Pc_Min_Label, "100"), at, 1, Qt::AlignRight | Qt::AlignVCenter);
  grid->addWidget(SmallLabel(Controls, Ctl::Pc_Max_Label, "100"), at, 3);
  for (const auto &r : rows) {
    auto *box = NumberField(Controls, r.Box, r.Label, 7);
    grid->addWidget(LabelOf(r.Label, box), at, 0);
    grid->addWidget(Slider(Controls, r.Slide, r.Label + 1), at, 2);
    grid->addWidget(box, at, 4);
    if (*r.Unit)
      grid->addWidget(Quiet(new QLabel(r.Unit)), at, 5);
    else
      grid->addWidget(Slim(Button(Controls, Ctl::Best_Ratio)), at, 5);
    grid->addWidget(SmallLabel(Controls, r.Note, r.Longest), at++, 6);
  }
  grid->addWidget(new QLabel("Frozen to shifting"), at, 0);
  grid->addWidget(Slider(Controls, Ctl::Frozen_Shifting_Slider, "Frozen to shifting"), at, 2);
  grid->addWidget(SmallLabel(Controls, Ctl::Frozen_Shifting_Label, "100 % shifting"), at++, 4, 1, 3);
  grid->setColumnStretch(2, 1);

  auto *angle = NumberField(Controls, Ctl::Nozzle_Half_Angle, "Nozzle half angle", 5),
       *part = NumberField(Controls, Ctl::Nozzle_Angle_Eff, "Nozzle efficiency", 6);
  auto *cone = new QGridLayout;
  cone->setHorizontalSpacing(8);
  cone->setVerticalSpacing(4);
  cone->addWidget(LabelOf("Nozzle &half angle", angle), 0, 0);
  cone->addWidget(angle, 0, 1);
  cone->addWidget(Quiet(new QLabel("\u00b0")), 0, 2);
  cone->addWidget(LabelOf("Nozzle e&fficiency", part), 1, 0);
  cone->addWidget(part, 1, 1);
  cone->addWidget(Bind(Controls, Ctl::Draw_Note, Quiet(new QLabel)), 2, 0, 1, 3);
  cone->setRowStretch(3, 1);
  Sketch = Bind(Controls, Ctl::Draw_Nozzle, new NozzleSketch);
  auto *nozzle = RowLayout(24);
  nozzle->addLayout(cone);
  nozzle->addWidget(Sketch, 1);
  grid->addLayout(nozzle, at, 0, 1, 7);
  return pane;
}

QWidget *PepWindow::BuildStrip() {
  auto *strip = new QWidget;
  auto *grid = GridLayout(strip, 12, 4);
  AddFigures(*grid, Controls, Figures, 5);
  return strip;
}

QWidget *PepWindow::BuildGrid() {
  Grid = Bind(Controls, Ctl::Result_Grid, new QTreeWidget);
  Grid->setAccessibleName("Results");
  Grid->setRootIsDecorated(false);
  Grid->setUniformRowHeights(true);
  Grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  Grid->header()->setStretchLastSection(false);
  Grid->header()->setSectionsClickable(false);
  Grid->setMinimumHeight(150);
  connect(Grid, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem *item) {
    if (!item) return;
    Touch(Controls, Ctl::Result_Grid);
    Controls.Send(PressOf(Ctl::Result_Grid, item->text(0).toStdString()));
  });
  return Grid;
}

QWidget *PepWindow::BuildChart() {
  auto *pane = new QWidget;
  auto *column = ColumnLayout(pane, 8);
  auto *curves = new SegmentRow, *reports = new SegmentRow;
  for (const Ctl c : {Ctl::Curve_T, Ctl::Curve_CStar, Ctl::Curve_Isp, Ctl::Curve_Gamma, Ctl::Curve_Gas,
                      Ctl::Curve_Species, Ctl::Curve_Sweep})
    curves->Add(Button(Controls, c));
  for (const Ctl c : {Ctl::Chem_Report, Ctl::Ing_Input, Ctl::Report1, Ctl::Report2, Ctl::ThermoChem_Report})
    reports->Add(Button(Controls, c));
  column->addWidget(curves);
  column->addWidget(reports);
  SweepRow = BuildSweep();
  column->addWidget(SweepRow);

  ChartCell = Frame("ChartCell");
  auto *chart = new QVBoxLayout(ChartCell);
  chart->setContentsMargins(12, 8, 8, 8);
  chart->setSpacing(4);
  auto *title = Bind(Controls, Ctl::Pep_Chart_Title, new ElidedLabel);
  title->setFont(TypeFont(Type::Head));
  Key = new CurveKey;
  Chart = Bind(Controls, Ctl::Pep_Chart, new PlotView(Ctl::Pep_Chart, Controls.Send));
  Chart->setAccessibleName("Chart");
  auto *copy = Slim(new QPushButton("Copy"));
  copy->setObjectName("Copy_Pep_Chart");
  copy->setToolTip("The chart and its figures, to the clipboard");
  connect(copy, &QPushButton::clicked, this, [this, title] { Chart->CopyToClipboard(title->text()); });
  auto *top = RowLayout();
  top->addWidget(title, 1);
  top->addWidget(copy);
  top->addWidget(Slim(Button(Controls, Ctl::Save_Pep_Chart)));
  chart->addLayout(top);
  chart->addWidget(Key);
  chart->addWidget(Chart, 1);
  column->addWidget(ChartCell, 1);

  ReportCell = Frame("ChartCell");
  auto *report = new QVBoxLayout(ReportCell);
  report->setContentsMargins(12, 8, 8, 8);
  report->setSpacing(4);
  Words = Bind(Controls, Ctl::Report_Text, new QPlainTextEdit);
  Words->setReadOnly(true);
  Words->setLineWrapMode(QPlainTextEdit::NoWrap);
  Words->setFrameShape(QFrame::NoFrame);
  Words->setAccessibleName("Report");
  QFont even = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  even.setPointSizeF(TypeFont(Type::Small).pointSizeF());
  Words->setFont(even);
  auto *all = Slim(new QPushButton("Copy"));
  all->setObjectName("Copy_Report");
  all->setToolTip("The whole report to the clipboard");
  connect(all, &QPushButton::clicked, this,
          [this] { QGuiApplication::clipboard()->setText(Words->toPlainText()); });
  auto *acts = RowLayout();
  acts->addStretch();
  acts->addWidget(all);
  acts->addWidget(Slim(Button(Controls, Ctl::Save_Report)));
  report->addLayout(acts);
  report->addWidget(Words, 1);
  column->addWidget(ReportCell, 1);
  return pane;
}

QWidget *PepWindow::BuildSweep() {
  auto *pane = new QWidget;
  auto *grid = GridLayout(pane, 8, 4);
  Raised = ItemBox(Controls, Ctl::Sweep_Raised, "Raised");
  Lowered = ItemBox(Controls, Ctl::Sweep_Lowered, "Taken from");
  for (QComboBox *box : {Raised, Lowered}) box->setMinimumContentsLength(14);
  QWidget *const first[] = {new QLabel("Raise"),   Raised,
                            new QLabel("from"),    NumberField(Controls, Ctl::Sweep_From, "From", 5),
                            new QLabel("to"),      NumberField(Controls, Ctl::Sweep_To, "To", 5),
                            new QLabel("by"),      NumberField(Controls, Ctl::Sweep_Step, "By", 4),
                            Quiet(new QLabel("g"))};
  int column = 0;
  for (QWidget *part : first) grid->addWidget(part, 0, column++);
  grid->addWidget(new QLabel("Lower"), 1, 0);
  grid->addWidget(Lowered, 1, 1);
  grid->addWidget(Slim(Button(Controls, Ctl::Run_Sweep)), 1, 2, 1, 4);
  grid->addWidget(Slim(Button(Controls, Ctl::Sweep_Report)), 1, 6, 1, 3);
  grid->setColumnStretch(1, 1);
  return pane;
}

QWidget *PepWindow::BuildFoot() {
  auto *foot = new QWidget;
  auto *row = new QHBoxLayout(foot);
  row->setContentsMargins(16, 8, 16, 12);
  row->setSpacing(8);
  auto *name = BindField(Controls, Ctl::Pep_Name, new QLineEdit);
  name->setAccessibleName("Name in the library");
  name->setMinimumWidth(QFontMetrics(name->font()).horizontalAdvance("0") * 24);
  row->addWidget(LabelOf("&Name", name));
  row->addWidget(name);
  row->addWidget(Button(Controls, Ctl::Keep_Propellant));
  row->addStretch();
  row->addWidget(Button(Controls, Ctl::PEP_Close));
  row->addWidget(Button(Controls, Ctl::Close_and_Send));
  return foot;
}
