#pragma once
#include "desktop/draw_panel.h"
#include "platform/chart.h"

#include <qcustomplot.h>

// Shows a Chart. The cursor line is painted over the plot, so that a pointer move never redraws the curves.
class ChartView final : public QCustomPlot {
public:
  ChartView(Ctl, Sender);
  void Copy(const Chart &, const Theme &);

protected:
  void paintEvent(QPaintEvent *) override;
  void mouseMoveEvent(QMouseEvent *) override;
  void mousePressEvent(QMouseEvent *) override;
  void mouseReleaseEvent(QMouseEvent *) override {}
  void wheelEvent(QWheelEvent *) override {}

private:
  void SendMouse(Event::Kind, const QMouseEvent &);
  void Dress();
  void Plot();

  Ctl Self;
  Sender Send;
  Chart Shown;
  const Theme *Colours = nullptr;
};
