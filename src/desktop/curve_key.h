#pragma once
#include "desktop/theme.h"
#include "platform/plot.h"

#include <QWidget>

// The names of a plot's curves, each beside its line as it is drawn; in as many rows as it takes.
class CurveKey final : public QWidget {
public:
  void Copy(const std::vector<PlotCurve> &, const Theme &);
  int heightForWidth(int width) const override { return Lay(width, nullptr); }
  QSize sizeHint() const override { return {200, Lay(std::max(200, width()), nullptr)}; }

protected:
  void paintEvent(QPaintEvent *) override;

private:
  int Lay(int width, QPainter *) const; // the height it takes

  std::vector<PlotCurve> Shown;
  const Theme *Colours = nullptr;
};
