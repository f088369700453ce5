#include "desktop/compare_rows.h"

#include "desktop/plot_view.h"
#include "desktop/theme.h"

#include <QHeaderView>
#include <QPainter>
#include <QTreeWidget>
#include <algorithm>

namespace {
QPixmap Key(const PlotCurve &curve, const Theme &theme, double ratio) {
  QPixmap key(QSize(32, 16) * ratio);
  key.setDevicePixelRatio(ratio);
  key.fill(Qt::transparent);
  QPainter painter(&key);
  painter.setRenderHint(QPainter::Antialiasing);
  if (curve.Dash < 0) {
    painter.fillRect(QRectF(0, 3, 32, 10), ChartFill(theme, curve.Colour));
    painter.setPen(PenOf(curve, theme, 2));
    painter.drawLine(QPointF(0, 3), QPointF(32, 3));
    return key;
  }
  painter.setPen(PenOf(curve, theme, 2));
  painter.drawLine(QPointF(0, 8), QPointF(32, 8));
  if (!curve.Points) return key;
  painter.setBrush(theme.Text);
  for (const double x : {6.0, 16.0, 26.0}) painter.drawEllipse(QPointF(x, 8), 2.5, 2.5);
  return key;
}

} // namespace

void FillTable(QTreeWidget &into, const TextTable &table, const Theme &theme, int leastRows) {
  into.clear();
  QStringList head;
  for (const std::string &text : table.Head) head += QString::fromStdString(text);
  into.setHeaderLabels(head);
  for (const TextTable::Line &line : table.Row) {
    auto *item = new QTreeWidgetItem(&into);
    for (int i = 0; i < static_cast<int>(line.Cell.size()); ++i) {
      item->setText(i, QString::fromStdString(line.Cell[static_cast<std::size_t>(i)]));
      if (i > 0) item->setTextAlignment(i, Qt::AlignRight | Qt::AlignVCenter);
    }
    item->setIcon(0, Key(line.Key, theme, into.devicePixelRatioF()));
    item->setToolTip(0, item->text(0));
  }
  for (int i = 0; i < head.size(); ++i) {
    into.header()->setSectionResizeMode(i, i == 0 ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
    into.headerItem()->setTextAlignment(i, (i == 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
  }
  const int rows = static_cast<int>(table.Row.size()), heading = into.header()->sizeHint().height() + 6;
  into.setMaximumHeight(heading + std::clamp(rows, 1, 6) * into.sizeHintForRow(0));
  into.setMinimumHeight(heading + std::clamp(rows, 1, leastRows) * into.sizeHintForRow(0));
}
