#include "desktop/nozzle_sketch.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace {
constexpr double LeastAngle = 4, Inlet = 2.2, InletLength = 1.6, Wall = 0.35; // degrees; throat radii
constexpr double Radian = 0.017453292519943295;
} // namespace

NozzleSketch::NozzleSketch() { setMinimumSize(150, 88); }

void NozzleSketch::Copy(const NozzleShape &shape, const Theme &theme) {
  if (shape == Shown && Colours == &theme) return;
  Shown = shape;
  Colours = &theme;
  update();
}

void NozzleSketch::paintEvent(QPaintEvent *) {
  if (!Colours || Shown.Ratio < 1) return;
  // In throat radii from the throat on; a cone that hardly opens is cut short.
  const double exit = std::sqrt(Shown.Ratio);
  const double length = std::max(0.3, (exit - 1) / std::tan(std::max(LeastAngle, Shown.HalfAngle) * Radian));
  const double tall = 2 * (std::max(exit, Inlet) + Wall), wide = InletLength + length;
  const double scale = std::min((width() - 4) / wide, (height() - 4) / tall);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(width() / 2.0 + (InletLength - length) / 2 * scale, height() / 2.0);
  for (const int side : {-1, 1}) {
    const auto at = [&](double x, double r) { return QPointF(x * scale, side * r * scale); };
    QPainterPath inside;
    inside.moveTo(at(-InletLength, Inlet));
    inside.cubicTo(at(-InletLength * 0.5, Inlet), at(-InletLength * 0.35, 1), at(0, 1));
    inside.lineTo(at(length, exit));
    QPainterPath wall = inside;
    wall.lineTo(at(length, exit + Wall));
    wall.lineTo(at(0, 1 + Wall));
    wall.lineTo(at(-InletLength, Inlet + Wall));
    wall.closeSubpath();
    painter.setPen(Qt::NoPen);
    painter.setBrush(Colours->Hover);
    painter.drawPath(wall);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Colours->GrainCircle, 1.5));
    painter.drawPath(inside);
  }
  painter.setPen(QPen(Colours->Accent, 1.5));
  painter.drawLine(QPointF(0, -scale), QPointF(0, scale));
  painter.drawLine(QPointF(length * scale, -exit * scale), QPointF(length * scale, exit * scale));
  painter.setPen(QPen(Colours->Quiet, 1, Qt::DashDotLine));
  painter.drawLine(QPointF(-InletLength * scale, 0), QPointF(length * scale, 0));
}
