#include "desktop/plot_dress.h"

void DressPlot(QCustomPlot &plot, const Theme &t) {
  plot.setBackground(t.Field);
  for (QCPAxis *axis : {plot.xAxis, plot.yAxis}) {
    axis->setBasePen(QPen(t.Hairline, 1));
    axis->setTickPen(QPen(t.Hairline, 1));
    axis->setSubTickPen(Qt::NoPen);
    axis->setTickLength(0, 4);
    axis->setTickLabelColor(t.Text);
    axis->setTickLabelFont(TypeFont(Type::Small));
    axis->setLabelColor(t.Quiet);
    axis->setLabelFont(TypeFont(Type::Small));
    axis->setLabelPadding(3);
    axis->setNumberFormat("g");
    axis->grid()->setPen(QPen(t.Hairline, 1));
    axis->grid()->setZeroLinePen(Qt::NoPen);
  }
}
