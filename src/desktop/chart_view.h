#pragma once
#include "desktop/draw_panel.h"
#include "platform/chart.h"

#include <QLabel>
#include <qcustomplot.h>

// Shows a Chart. The cursor line is painted over the plot, so that a pointer move never redraws the curves.
class ChartView final : public QCustomPlot {
public:
  ChartView(Ctl, Sender, QLabel *key); // key: takes the names and colours of the series
  void Copy(const Chart &, const Theme &);

protected:
  void paintEvent(QPaintEvent *) override;
  void resizeEvent(QResizeEvent *) override;
  void mouseMoveEvent(QMouseEvent *) override;
  void mousePressEvent(QMouseEvent *) override;
  void mouseReleaseEvent(QMouseEvent *) override {}
  void wheelEvent(QWheelEvent *) override {}

private:
  void SendMouse(Event::Kind, const QMouseEvent &);
  void Plot();
  void ShowKey();
  QRectF TagOf(double x, const QFontMetricsF &) const; // beside the cursor line; empty where there is no room

  Ctl Self;
  Sender Send;
  QLabel *Key;
  QString Names; // of the series, as rich text
  Chart Shown;
  const Theme *Colours = nullptr;
};
