#pragma once
#include "desktop/draw_panel.h"
#include "platform/plot.h"

#include <qcustomplot.h>

// Shows a Plot. What is seen of it (zoom, pan) is the view's own; the cursor is painted over the curves, so
// that a pointer move never draws them again.
// Wheel, + and -: zoom; a pull, Ctrl and arrows: pan; 0, Home, a double click: the whole again; arrows: the
// cursor.
class PlotView final : public QCustomPlot {
public:
  PlotView(Ctl, Sender);
  void Copy(const Plot &, const std::vector<std::string> &yLabels, const std::vector<std::string> &timeLabels,
            const Theme &);
  void ShowWhole();
  void ZoomBy(double times); // about the cursor, or else the middle
  bool Whole() const;
  void CopyToClipboard(const QString &title); // picture and figures
  std::function<void()> OnView;               // what is seen has changed

protected:
  void paintEvent(QPaintEvent *) override;
  void resizeEvent(QResizeEvent *) override;
  void mouseMoveEvent(QMouseEvent *) override;
  void mouseDoubleClickEvent(QMouseEvent *) override;
  void keyPressEvent(QKeyEvent *) override;
  void leaveEvent(QEvent *) override;

private:
  void FillArea();
  void Fill();   // the curves, as many points as there are pixels
  void Label();  // the plot's own labels on the whole, round figures on a part
  void Follow(); // after a change of the ranges
  void Look(double left, double right, double bottom, double top);
  void Point(double x); // the cursor goes to this place of the axis

  Ctl Self;
  Sender Send;
  Plot Shown;
  std::vector<std::string> YLabels, TimeLabels;
  const Theme *Colours = nullptr;
  bool Following = false;
};
QPen PenOf(const PlotCurve &, const Theme &, double width);
