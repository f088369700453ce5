#include "desktop/pressure_window.h"

#include "desktop/compare_rows.h"
#include "desktop/elided_label.h"
#include "desktop/figure_label.h"
#include "desktop/panes.h"
#include "desktop/plot_view.h"
#include "desktop/segment_row.h"
#include "desktop/theme.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
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

constexpr struct {
  Ctl Control;
  const char *Caption, *Unit;
} Figures[] = {{Ctl::Motor_Burn_Time, "Burn time", "s"},
               {Ctl::Motor_Peak_Pressure, "Peak pressure", "MPa"},
               {Ctl::Motor_Mean_Pressure, "Mean pressure", "MPa"},
               {Ctl::Motor_Peak_Thrust, "Peak thrust", "N"},
               {Ctl::Motor_Mean_Thrust, "Mean thrust", "N"},
               {Ctl::Motor_Impulse, "Total impulse", "N s"},
               {Ctl::Motor_Class, "Motor class", ""},
               {Ctl::Motor_Mass, "Propellant", "g"},
               {Ctl::Motor_Isp, "Delivered Isp", "s"},
               {Ctl::Motor_Balance, "Mass balance", "%"}};

void SetMark(QWidget &field, bool bad) {
  if (field.property("bad").toBool() == bad) return;
  field.setProperty("bad", bad);
  field.style()->unpolish(&field);
  field.style()->polish(&field);
}
} // namespace

PressureWindow::PressureWindow(Sender send, QWidget *parent) : QWidget(parent, Qt::Window) {
  Controls.Send = std::move(send);
  Bind(Controls, Ctl::Pressure_Results, this);
  setAutoFillBackground(true);
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(16, 12, 16, 12);
  column->setSpacing(8);
  auto *charts = new SegmentRow;
  for (const Ctl control :
       {Ctl::KN_Chart, Ctl::Chart_Pressure, Ctl::Chart_Thrust, Ctl::Chart_Mass_Flow, Ctl::Mass_Flow_Rate,
        Ctl::Chart_Mass_Flux, Ctl::Core_Gas_Velocity, Ctl::Area_Chart})
    charts->Add(Button(Controls, control));
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
  Choice = Bind(Controls, Ctl::Propellant_Choice, new QComboBox);
  Choice->setAccessibleName("Propellant");
  Choice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  connect(Choice, &QComboBox::textActivated, this,
          [this](const QString &item) { PressItem(Ctl::Propellant_Choice, item); });
  auto *fuel = new QHBoxLayout;
  fuel->setSpacing(8);
  fuel->addWidget(Choice, 1);
  auto *library = Button(Controls, Ctl::Edit_Propellants);
  library->setProperty("slim", true);
  fuel->addWidget(library);
  column->addLayout(fuel);
  auto *grid = new QGridLayout;
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(4);
  int row = 0;
  for (const InputRow &input : Inputs) {
    auto *label = new QLabel(input.Label);
    auto *box = BindField(Controls, input.Box, new QLineEdit);
    box->setAlignment(Qt::AlignRight);
    box->setFixedWidth(QFontMetrics(box->font()).horizontalAdvance("0000000000") + 18);
    box->setReadOnly(input.ReadOnly);
    box->setProperty("plain", input.ReadOnly);
    box->setAccessibleName(QString(input.Label).remove('&'));
    label->setBuddy(box);
    grid->addWidget(label, row, 0);
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
  auto *row = new QHBoxLayout;
  row->setSpacing(8);
  row->addWidget(title, 1);
  for (QPushButton *button : {Reset, copy, save}) {
    button->setProperty("slim", true);
    row->addWidget(button);
  }
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
  int place = 0;
  for (const auto &f : Figures) {
    auto *figure = Bind(Controls, f.Control, new FigureLabel(f.Caption, f.Unit));
    figure->setAccessibleName(f.Caption);
    grid->addWidget(figure, place / 5, place % 5);
    grid->setColumnStretch(place % 5, 1);
    ++place;
  }
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
    if (item) PressItem(Ctl::Compare_Table, item->text(0));
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

void PressureWindow::PressItem(Ctl control, const QString &item) {
  Touch(Controls, control);
  Event e;
  e.Target = control;
  e.Text = item.toStdString();
  Controls.Send(e);
}

void PressureWindow::CopyChoice(const Control &from) {
  const QSignalBlocker quiet(Choice);
  bool same = Choice->count() == static_cast<int>(from.Item.size());
  for (int i = 0; same && i < Choice->count(); ++i)
    same = Choice->itemText(i).toStdString() == from.Item[static_cast<std::size_t>(i)];
  if (!same) {
    Choice->clear();
    for (const std::string &item : from.Item) Choice->addItem(QString::fromStdString(item));
  }
  Choice->setCurrentIndex(from.Index);
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
  for (const InputRow &input : Inputs) {
    auto *box = qobject_cast<QLineEdit *>(Find(Controls, input.Box));
    if (!box) continue;
    const QString why = QString::fromStdString(screen[input.Box].Hint);
    SetMark(*box, !why.isEmpty());
    box->setToolTip(why);
    box->setPlaceholderText({});
  }
  if (auto *note = qobject_cast<QLabel *>(Find(Controls, Ctl::Strip_Note))) {
    note->setVisible(!LowScreen());
    note->parentWidget()->setToolTip(note->text());
  }
  if (QWidget *note = Find(Controls, Ctl::Input_Note)) SetMark(*note, screen[Ctl::Input_Note].Checked);
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

void PressureWindow::SendClose() {
  Event e;
  e.What = Event::Kind::Close;
  e.Target = Ctl::Pressure_Results;
  Controls.Send(e);
}

void PressureWindow::closeEvent(QCloseEvent *close) {
  close->ignore();
  SendClose();
}

void PressureWindow::keyPressEvent(QKeyEvent *key) {
  if (key->key() == Qt::Key_Escape) return SendClose();
  if (key->matches(QKeySequence::Copy)) {
    auto *title = qobject_cast<QLabel *>(Find(Controls, Ctl::MyChart_3_Frame));
    return Chart->CopyToClipboard(title ? title->text() : QString());
  }
  QWidget::keyPressEvent(key);
}
