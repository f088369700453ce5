#include "desktop/curve_key.h"

#include "desktop/plot_view.h"

#include <QPainter>

void CurveKey::Copy(const std::vector<PlotCurve> &curves, const Theme &theme) {
  Shown = curves;
  Colours = &theme;
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
  updateGeometry();
  update();
}

int CurveKey::Lay(int width, QPainter *painter) const {
  constexpr int line = 28, gap = 6, apart = 16;
  const QFont font = TypeFont(Type::Small);
  const QFontMetrics metrics(font);
  if (painter) painter->setFont(font);
  int x = 0, y = 0;
  for (const PlotCurve &curve : Shown) {
    const QString name = QString::fromStdString(curve.Name);
    const int need = line + gap + metrics.horizontalAdvance(name);
    if (x > 0 && x + need > width) {
      x = 0;
      y += metrics.height() + 2;
    }
    if (painter) {
      painter->setPen(PenOf(curve, *Colours, 2));
      painter->drawLine(x, y + metrics.height() / 2, x + line, y + metrics.height() / 2);
      painter->setPen(Colours->Text);
      painter->drawText(x + line + gap, y + metrics.ascent(), name);
    }
    x += need + apart;
  }
  return y + metrics.height() + 2;
}

void CurveKey::paintEvent(QPaintEvent *) {
  if (!Colours) return;
  QPainter painter(this);
  Lay(width(), &painter);
}
