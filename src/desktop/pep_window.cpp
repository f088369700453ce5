#include "desktop/pep_window.h"

#include "desktop/curve_key.h"
#include "desktop/form_parts.h"
#include "desktop/ingredient_picker.h"
#include "desktop/nozzle_sketch.h"
#include "desktop/panes.h"
#include "desktop/plot_view.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QScrollArea>
#include <QTreeWidget>

PepWindow::PepWindow(Sender send, QWidget *parent) : SideWindow(Ctl::PEP_SimA, std::move(send), parent) {
  auto *pane = new QWidget;
  auto *halves = new QHBoxLayout(pane);
  halves->setContentsMargins(16, 12, 16, 4);
  halves->setSpacing(20);
  auto *left = new QVBoxLayout, *right = new QVBoxLayout;
  left->setSpacing(8);
  right->setSpacing(8);
  for (QWidget *part : {BuildMix(), static_cast<QWidget *>(Hairline()), BuildRun(),
                        static_cast<QWidget *>(Hairline()), BuildLook()})
    left->addWidget(part);
  left->addStretch();
  right->addWidget(BuildStrip());
  auto *warning = Bind(Controls, Ctl::Pep_Warning, new QLabel);
  warning->setWordWrap(true);
  warning->setMargin(8);
  warning->setTextInteractionFlags(Qt::TextSelectableByMouse);
  right->addWidget(warning);
  right->addWidget(BuildGrid(), 3);
  right->addWidget(BuildChart(), 4);
  halves->addLayout(left);
  halves->addLayout(right, 1);
  auto *area = new QScrollArea;
  area->setWidgetResizable(true);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidget(pane);
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(area, 1);
  column->addWidget(Hairline());
  column->addWidget(BuildFoot());
}

// Figures that copy to a table elsewhere.
static void CopyTable(const QTreeWidget &table) {
  QString text;
  const int columns = table.columnCount();
  for (int c = 0; c < columns; ++c) text += table.headerItem()->text(c) + (c + 1 < columns ? "\t" : "\n");
  for (int r = 0; r < table.topLevelItemCount(); ++r)
    for (int c = 0; c < columns; ++c)
      text += table.topLevelItem(r)->text(c).trimmed() + (c + 1 < columns ? "\t" : "\n");
  QGuiApplication::clipboard()->setText(text);
}

void PepWindow::CopyGrid(const TextTable &table, int chosen) {
  const QSignalBlocker quiet(Grid);
  if (!(GridShown == table)) {
    GridShown = table;
    Grid->clear();
    QStringList head;
    for (const std::string &text : table.Head) head += QString::fromStdString(text);
    Grid->setColumnCount(static_cast<int>(head.size()));
    Grid->setHeaderLabels(head);
    for (const TextTable::Line &line : table.Row) {
      auto *item = new QTreeWidgetItem(Grid);
      for (int i = 0; i < static_cast<int>(line.Cell.size()); ++i) {
        item->setText(i, QString::fromStdString(line.Cell[static_cast<std::size_t>(i)]));
        item->setTextAlignment(i, Qt::AlignRight | Qt::AlignVCenter);
      }
    }
    for (int i = 0; i < head.size(); ++i) {
      Grid->header()->setSectionResizeMode(i, QHeaderView::Stretch);
      Grid->headerItem()->setTextAlignment(i, Qt::AlignRight | Qt::AlignVCenter);
    }
  }
  Grid->setCurrentItem(chosen < 0 ? nullptr : Grid->topLevelItem(chosen));
}

void PepWindow::CopyKey(const Plot &plot, const Theme &theme) {
  if (KeyShown == plot.Number && Colours == &theme) return;
  KeyShown = plot.Number;
  const bool any = plot.Curve.size() > 1;
  if (any) Key->Copy(plot.Curve, theme);
  Key->setVisible(any);
}

void PepWindow::Copy(const Screen &screen, const Theme &theme) {
  Mirror(Controls, screen);
  for (std::size_t row = 0; row < Pickers.size(); ++row) {
    const auto input = static_cast<Ctl>(static_cast<std::size_t>(Ctl::Ingredient_Input0) + row);
    Pickers[row]->Copy(screen[input]);
  }
  MarkFields(Controls, screen);
  Pickers.front()->setPlaceholderText("type to find an ingredient");
  if (QWidget *note = Find(Controls, Ctl::Pep_Note)) SetMark(*note, screen[Ctl::Pep_Note].Checked);
  Progress->setValue(QString::fromStdString(screen[Ctl::ProgressBar1].Text).toInt());
  CopyItems(*Raised, screen[Ctl::Sweep_Raised]);
  CopyItems(*Lowered, screen[Ctl::Sweep_Lowered]);
  CopyGrid(screen.Pep_Grid, screen[Ctl::Result_Grid].Index);
  CopyKey(screen.Pep_Chart, theme);
  Colours = &theme;
  Chart->Copy(screen.Pep_Chart, {}, {}, theme);
  Sketch->Copy(screen.Nozzle, theme);
  const bool report = screen[Ctl::Report_Text].Visible;
  if (report && Words->toPlainText() != QString::fromStdString(screen[Ctl::Report_Text].Text))
    Words->setPlainText(QString::fromStdString(screen[Ctl::Report_Text].Text));
  ReportCell->setVisible(report);
  ChartCell->setVisible(!report);
  SweepRow->setVisible(screen[Ctl::Run_Sweep].Visible);
}

void PepWindow::Place(const QRect &room) {
  resize(QSize(1320, 880).boundedTo(room.size()));
  move(room.left() + (room.width() - width()) / 2, room.top() + (room.height() - height()) / 2);
}

void PepWindow::CopyOut() { CopyTable(*Grid); }
