#include "desktop/pressure_window.h"

#include "desktop/compare_rows.h"
#include "desktop/elided_label.h"
#include "desktop/form_parts.h"
#include "desktop/panes.h"
#include "desktop/plot_view.h"
#include "desktop/segment_row.h"
#include "desktop/theme.h"
#include "desktop/tutor_strip.h"
#include "platform/events.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTreeWidget>

namespace {
struct InputRow {
  Ctl Box;
  const char *Label, *Unit;
  bool ReadOnly = false;
};
constexpr InputRow Inputs[] = {{Ctl::burn_rate_a, "Burn rate &a", "mm/s at Pa"},
                               {Ctl::burn_rate_n, "Burn rate &n", ""},
                               {Ctl::Density, "&Density", "g/cc"},
                               {Ctl::c_star, "&c*", "m/s"},
                               {Ctl::Isp, "&Isp", "s"},
                               {Ctl::Throat_Diameter, "&Throat diameter", "mm"},
                               {Ctl::Grain_Diameter, "&Grain diameter", "mm"},
                               {Ctl::Grain_Length, "Grain length", "mm", true},
                               {Ctl::Exit_Diameter, "Exit diameter", "mm", true},
                               {Ctl::Time_Intervals, "Time step", "s", true}};

constexpr FigurePlace Figures[] = {{Ctl::Motor_Burn_Time, "Burn time", "s"},
                                   {Ctl::Motor_Peak_Pressure, "Peak pressure", "MPa"},
                                   {Ctl::Motor_Mean_Pressure, "Mean pressure", "MPa"},
                                   {Ctl::Motor_Peak_Thrust, "Peak thrust", "N"},
                                   {Ctl::Motor_Mean_Thrust, "Mean thrust", "N"},
                                   {Ctl::Motor_Impulse, "Total impulse", "N s"},
                                   {Ctl::Motor_Class, "Motor class", ""},
                                   {Ctl::Motor_Mass, "Propellant", "g"},
                                   {Ctl::Motor_Isp, "Delivered Isp", "s"},
                                   {Ctl::Motor_Balance, "Mass balance", "%"}};
} // namespace

PressureWindow::PressureWindow(Sender send, QWidget *parent)
    : SideWindow(Ctl::Pressure_Results, std::move(send), parent) {
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(16, 12, 16, 12);
  column->setSpacing(8);
  auto *charts = new SegmentRow;
  for (const Ctl control :
       {Ctl::KN_Chart, Ctl::Chart_Pressure, Ctl::Chart_Thrust, Ctl::Chart_Mass_Flow, Ctl::Mass_Flow_Rate,
        Ctl::Chart_Mass_Flux, Ctl::Core_Gas_Velocity, Ctl::Area_Chart})
    charts->Add(Button(Controls, control));
  column->addWidget(BuildTutorNote(Controls));
  column->addWidget(charts);
  auto *halves = new QHBoxLayout;
  halves->setSpacing(12);
  halves->addWidget(BuildInputs());
  auto *right = new QVBoxLayout;
  right->setSpacing(8);
  right->addWidget(BuildChart(), 1);
  right->addWidget(BuildStrip());
  halves->addLayout(right, 1);
  column->addLayout(halves, 1);
  column->addWidget(BuildTable());
  column->addWidget(Hairline());
  column->addWidget(BuildFoot());
}

QWidget *PressureWindow::BuildInputs() {
  auto *pane = new QWidget;
  auto *column = new QVBoxLayout(pane);
  column->setContentsMargins(0, 0, 12, 0);
  column->setSpacing(8);
  InputsHead = Head({});
  InputsHead->setWordWrap(true);
  column->addWidget(InputsHead);
  Choice = ItemBox(Controls, Ctl::Propellant_Choice, "Propellant");
  auto *fuel = RowLayout();
  fuel->addWidget(Choice, 1);
  fuel->addWidget(Slim(Button(Controls, Ctl::Edit_Propellants)));
  column->addLayout(fuel);
  auto *grid = new QGridLayout;
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(4);
  int row = 0;
  for (const InputRow &input : Inputs) {
    auto *box = NumberField(Controls, input.Box, input.Label, 10);
    box->setReadOnly(input.ReadOnly);
    box->setProperty("plain", input.ReadOnly);
    grid->addWidget(LabelOf(input.Label, box), row, 0);
    grid->addWidget(box, row, 1);
    grid->addWidget(Quiet(new QLabel(input.Unit)), row++, 2);
  }
  grid->setColumnStretch(0, 1);
  column->addLayout(grid);
  auto *note = Bind(Controls, Ctl::Input_Note, new QLabel);
  note->setWordWrap(true);
  note->setFont(TypeFont(Type::Small));
  note->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  column->addWidget(note);
  column->addStretch();
  column->addWidget(Button(Controls, Ctl::Convert_Imperial_a));
  column->addWidget(Button(Controls, Ctl::Pressure_PEP));
  return Scrolled(pane, QFontMetrics(TypeFont(Type::Base)).horizontalAdvance("0") * 34);
}

QWidget *PressureWindow::BuildChart() {
  auto *cell = Frame("ChartCell");
  auto *column = new QVBoxLayout(cell);
  column->setContentsMargins(12, 8, 8, 8);
  column->setSpacing(4);
  auto *title = Bind(Controls, Ctl::MyChart_3_Frame, new ElidedLabel);
  title->setFont(TypeFont(Type::Head));
  Chart = Bind(Controls, Ctl::My_Chart3, new PlotView(Ctl::My_Chart3, Controls.Send));
  Chart->setAccessibleName("Chart");
  Reset = new QPushButton("Reset");
  Reset->setObjectName("Reset_Zoom");
  Reset->setToolTip("The whole chart again (0, double click); wheel, + and - zoom, a pull moves it");
  connect(Reset, &QPushButton::clicked, this, [this] { Chart->ShowWhole(); });
  Chart->OnView = [this] { Reset->setEnabled(!Chart->Whole()); };
  Reset->setEnabled(false);
  auto *copy = new QPushButton("Copy");
  copy->setObjectName("Copy_Chart");
  copy->setToolTip("The chart as it is seen, and its figures, to the clipboard (Ctrl+C)");
  connect(copy, &QPushButton::clicked, this, [this, title] { Chart->CopyToClipboard(title->text()); });
  auto *save = Button(Controls, Ctl::Save_Chart);
  auto *row = RowLayout();
  row->addWidget(title, 1);
  for (QPushButton *button : {Reset, copy, save}) row->addWidget(Slim(button));
  column->addLayout(row);
  column->addWidget(Chart, 1);
  return cell;
}

QWidget *PressureWindow::BuildStrip() {
  auto *strip = new QWidget;
  auto *grid = new QGridLayout(strip);
  grid->setContentsMargins(0, 4, 0, 0);
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(4);
  AddFigures(*grid, Controls, Figures, 5);
  auto *note = Bind(Controls, Ctl::Strip_Note, Quiet(new QLabel));
  note->setWordWrap(true);
  grid->addWidget(note, 2, 0, 1, 5);
  return strip;
}

QWidget *PressureWindow::BuildTable() {
  Table = Bind(Controls, Ctl::Compare_Table, new QTreeWidget);
  Table->setAccessibleName("Comparison");
  Table->setRootIsDecorated(false);
  Table->setUniformRowHeights(true);
  Table->setSelectionMode(QAbstractItemView::SingleSelection);
  Table->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  Table->setIconSize(QSize(32, 16));
  Table->setStyleSheet("QTreeView::item { padding: 0 8px; }");
  Table->header()->setStretchLastSection(false);
  connect(Table, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem *item) {
    if (!item) return;
    Touch(Controls, Ctl::Compare_Table);
    Controls.Send(PressOf(Ctl::Compare_Table, item->text(0).toStdString()));
  });
  return Table;
}

QWidget *PressureWindow::BuildFoot() {
  auto *foot = new QWidget;
  Foot = new QBoxLayout(QBoxLayout::TopToBottom, foot);
  Foot->setContentsMargins(0, 0, 0, 0);
  Foot->setSpacing(8);
  auto *left = new QHBoxLayout, *right = new QHBoxLayout;
  for (QHBoxLayout *row : {left, right}) {
    row->setSpacing(8);
    Foot->addLayout(row);
  }
  for (const Ctl control : {Ctl::Keep_Result, Ctl::Load_Measured, Ctl::Compare_Remove})
    left->addWidget(Button(Controls, control));
  left->addStretch();
  for (const Ctl control : {Ctl::Export_Eng, Ctl::Export_Channels, Ctl::Export_Report, Ctl::Pressure_Close})
    right->addWidget(Button(Controls, control));
  return foot;
}

void PressureWindow::CopyChoice(const Control &from) {
  CopyItems(*Choice, from);
  const QString source = QString::fromStdString(from.Hint);
  Choice->setToolTip(source.isEmpty() ? "Propellant" : "<p>" + source.toHtmlEscaped() + "</p>");
}

void PressureWindow::CopyTable(const TextTable &table, const Control &from, const Theme &theme) {
  const QSignalBlocker quiet(Table);
  if (TableShown != table || TableTheme != &theme) {
    TableShown = table;
    TableTheme = &theme;
    FillTable(*Table, table, theme, LowScreen() ? 1 : 2);
  }
  Table->setVisible(!table.Row.empty());
  Table->setCurrentItem(from.Index < 0 ? nullptr : Table->topLevelItem(from.Index));
}

void PressureWindow::Copy(const Screen &screen, const Theme &theme) {
  Mirror(Controls, screen);
  InputsHead->setText(QString::fromStdString(screen[Ctl::Pressure_Inputs].Text).replace("&&", "&"));
  MarkFields(Controls, screen);
  if (auto *note = qobject_cast<QLabel *>(Find(Controls, Ctl::Strip_Note))) {
    note->setVisible(!LowScreen());
    note->parentWidget()->setToolTip(note->text());
  }
  if (QWidget *note = Find(Controls, Ctl::Input_Note)) SetMark(*note, screen[Ctl::Input_Note].Checked);
  if (QWidget *note = Find(Controls, Ctl::Tutor_Note)) SetMark(*note, screen[Ctl::Tutor_Note].Checked);
  CopyChoice(screen[Ctl::Propellant_Choice]);
  CopyTable(screen.Compare, screen[Ctl::Compare_Table], theme);
  Chart->Copy(screen.My_Chart3, screen[Ctl::Y_Axis].Item, screen[Ctl::Time_Axis].Item, theme);
}

bool PressureWindow::LowScreen() const { return screen()->availableGeometry().height() < 600; }

void PressureWindow::Place(const QRect &room) {
  resize(QSize(1040, 800).expandedTo(minimumSizeHint()).boundedTo(room.size()));
  move(room.right() - width() - std::min(24, room.width() - width()) + 1,
       room.top() + std::max(0, (room.height() - height()) / 2));
}

// Two rows of buttons where one has no room.
void PressureWindow::resizeEvent(QResizeEvent *event) {
  QWidget &foot = *Foot->parentWidget();
  int wide = 0, widest = 0;
  for (int i = 0; i < Foot->count(); ++i) {
    const int need = Foot->itemAt(i)->minimumSize().width();
    wide += need + 8;
    widest = std::max(widest, need);
  }
  foot.setMinimumWidth(widest);
  const auto wanted = wide <= width() - 32 ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom;
  if (Foot->direction() != wanted) Foot->setDirection(wanted);
  QWidget::resizeEvent(event);
}

void PressureWindow::CopyOut() {
  auto *title = qobject_cast<QLabel *>(Find(Controls, Ctl::MyChart_3_Frame));
  Chart->CopyToClipboard(title ? title->text() : QString());
}
