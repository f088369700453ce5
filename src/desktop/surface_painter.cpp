#include "desktop/surface_painter.h"

#include "desktop/label_layout.h"
#include "outputs/picture.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <cmath>
#include <numbers>
#include <vector>

namespace {
constexpr double Degrees = 180 / std::numbers::pi;
constexpr double ErasedWidth = 4, GoneBand = 7, GoneBandInk = 0.22; // pixels; opaque part

// The toolkit's rasteriser looks through all edges of a row of pixels for each of them: long paths are slow.
constexpr int MostInStroke = 8;

double WidthOf(Ink role) { // pixels
  switch (role) {
  case Ink::Grid:
  case Ink::GridFifth:
  case Ink::Contour: return 1;
  case Ink::Guide: return 1.25;
  case Ink::WillBe: return 2.25;
  default: return 1.75;
  }
}

void PaintLabel(QPainter &painter, const DrawItem &item, const QRectF &plate, const Theme &theme) {
  QColor ground = theme.Field;
  ground.setAlphaF(0.92F);
  painter.setPen(QPen(theme.Hairline, 1));
  painter.setBrush(ground);
  painter.drawRoundedRect(plate.translated(0.5, 0.5), 4, 4);
  painter.setBrush(Qt::NoBrush);
  painter.setFont(TypeFont(Type::Base));
  painter.setPen(InkColour(theme, item));
  painter.drawText(plate, Qt::AlignCenter, QString::fromStdString(item.Text));
}

QPen PenOf(const DrawItem &item, const Theme &theme) {
  QPen pen(InkColour(theme, item), WidthOf(item.Role));
  pen.setCapStyle(item.Style ? Qt::FlatCap : Qt::SquareCap); // round caps and joins take three times as long
  pen.setJoinStyle(Qt::MiterJoin);
  if (item.Style == 1) pen.setDashPattern({6, 4});
  if (item.Style == 2) pen.setDashPattern({1, 3});
  return pen;
}

QRectF Around(QPointF centre, double radius) {
  return {centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius};
}

void AddArc(QPainterPath &path, QPointF centre, double radius, double start, double sweep) {
  path.arcTo(Around(centre, radius), start * Degrees, sweep * Degrees);
}

// Contours nearer to each other than the eye parts are painted as bands that touch, some of them as lines on
// top.
struct ContourForm {
  double Band = 1; // pixels
  int LineEvery = 1;
};

ContourForm FormOf(std::span<const DrawItem> items, double pixels) {
  constexpr double Parted = 4, Lines = 14; // pixels
  int count = 0;
  const DrawItem *last = nullptr;
  for (const DrawItem &item : items) {
    if (item.Role != Ink::Contour) continue;
    count += !last || last->Colour != item.Colour;
    last = &item;
  }
  const double gap = pixels / std::max(1, count);
  if (gap >= Parted) return {};
  return {gap + 0.75, static_cast<int>(std::ceil(Lines / std::max(gap, 0.05)))};
}

bool SameInk(const DrawItem &a, const DrawItem &b) {
  return a.Role == b.Role && a.Colour == b.Colour && a.Style == b.Style && a.Inverse == b.Inverse;
}

// Lines, circles and arcs of one ink become one path.
void AddStroke(QPainterPath &path, const DrawItem &item, const SurfaceView &view) {
  const auto &at = item.At;
  const QPointF p = view.ToPixels(at[0], at[1]);
  switch (item.What) {
  case DrawItem::Kind::Line:
    if (path.isEmpty() || path.currentPosition() != p) path.moveTo(p);
    path.lineTo(view.ToPixels(at[2], at[3]));
    break;
  case DrawItem::Kind::Circle: path.addEllipse(Around(p, at[2] * view.Scale)); break;
  case DrawItem::Kind::Arc: {
    double sweep = at[4] - at[3];
    if (sweep <= 0) sweep += 2 * std::numbers::pi;
    const double radius = at[2] * view.Scale;
    path.moveTo(p + QPointF(radius * std::cos(at[3]), -radius * std::sin(at[3])));
    AddArc(path, p, radius, at[3], sweep);
    break;
  }
  case DrawItem::Kind::Mark: {
    const double half = at[2] * view.Scale;
    path.moveTo(p + QPointF(-half, -half));
    path.lineTo(p + QPointF(half, half));
    path.moveTo(p + QPointF(-half, half));
    path.lineTo(p + QPointF(half, -half));
    break;
  }
  case DrawItem::Kind::Dot:
  case DrawItem::Kind::Label: break;
  }
}

// On its ground, as if it had gone already: a faint band with a dashed line in it.
void StrokeGone(QPainter &painter, const QPainterPath &path, const DrawSurface &surface,
                const SurfaceView &view, QSizeF pixels, const Theme &theme) {
  QPainterPathStroker wide;
  wide.setWidth(ErasedWidth);
  wide.setCapStyle(Qt::FlatCap);
  painter.save();
  painter.setClipPath(wide.createStroke(path));
  PaintGround(painter, surface, view, pixels, theme);
  painter.restore();
  QColor faint = theme.Gone;
  faint.setAlphaF(static_cast<float>(GoneBandInk));
  painter.strokePath(path, QPen(faint, GoneBand, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
  QPen dashes(theme.Gone, 1.75, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
  dashes.setDashPattern({3, 2});
  painter.strokePath(path, dashes);
}

// 1, 2 or 5 times a power of ten, the next at or above; above 0.
double RoundStep(double step) {
  const double power = std::pow(10, std::floor(std::log10(step))), lead = step / power;
  return power * (lead <= 1 ? 1 : lead <= 2 ? 2 : lead <= 5 ? 5 : 10);
}

QPainterPath CorePath(const std::vector<OutlinePiece> &core, const SurfaceView &view) {
  QPainterPath path;
  QPointF end;
  for (const OutlinePiece &piece : core) {
    const QPointF start = view.ToPixels(piece.X1, piece.Y1);
    if (path.isEmpty() || std::hypot(start.x() - end.x(), start.y() - end.y()) > 1) path.moveTo(start);
    end = view.ToPixels(piece.X2, piece.Y2);
    if (piece.Radius > 0) {
      const double angle = std::atan2(piece.Y1 - piece.CenterY, piece.X1 - piece.CenterX);
      AddArc(path, view.ToPixels(piece.CenterX, piece.CenterY), piece.Radius * view.Scale, angle,
             piece.Sweep);
    } else {
      path.lineTo(end);
    }
  }
  path.closeSubpath();
  return path;
}
} // namespace

SurfaceView FitView(const DrawSurface &surface, QSizeF pixels) {
  const double width = std::fabs(surface.Width), height = std::fabs(surface.Height);
  SurfaceView view;
  if (width > 0 && height > 0) view.Scale = std::min(pixels.width() / width, pixels.height() / height);
  view.OriginX = pixels.width() / 2 - (surface.Left + surface.Width / 2) * view.Scale;
  view.OriginY = pixels.height() / 2 + (surface.Top + surface.Height / 2) * view.Scale;
  return view;
}

void PaintGround(QPainter &painter, const DrawSurface &surface, const SurfaceView &view, QSizeF pixels,
                 const Theme &theme) {
  painter.fillRect(QRectF({}, pixels), surface.Ground ? FromRed(*surface.Ground) : theme.Ground);
  if (surface.Ground) return;
  QPainterPath disc;
  disc.addEllipse(Around(view.ToPixels(0, 0), surface.GrainRadius * view.Scale));
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, false); // strokes cover the edges
  painter.fillPath(disc, surface.Core.empty() ? theme.Disc : theme.Propellant);
  if (!surface.Core.empty()) {
    painter.setClipPath(disc, Qt::IntersectClip);
    painter.fillPath(CorePath(surface.Core, view), theme.Core);
  }
  painter.restore();
}

bool IsSnapName(const DrawItem &item) {
  return item.What == DrawItem::Kind::Label && item.Role == Ink::Guide;
}

void PaintItems(QPainter &painter, std::span<const DrawItem> items, const DrawSurface &surface,
                const SurfaceView &view, QSizeF pixels, const Theme &theme, double snapNames) {
  const ContourForm form = FormOf(surface.Item, (surface.ContourTo - surface.ContourFrom) * view.Scale);
  QPainterPath disc;
  disc.addEllipse(Around(view.ToPixels(0, 0), surface.GrainRadius * view.Scale));
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  QPainterPath path;
  const DrawItem *ink = nullptr;
  int contour = 0;
  std::vector<std::pair<QPainterPath, QColor>> lines;
  const auto flush = [&] {
    if (path.isEmpty()) return;
    if (ink->Role == Ink::WillGo) {
      painter.setClipping(false);
      StrokeGone(painter, path, surface, view, pixels, theme);
      return path.clear();
    }
    QPen pen = PenOf(*ink, theme);
    if (ink->Role == Ink::Contour && form.LineEvery > 1) {
      pen.setWidthF(form.Band);
      if (contour++ % form.LineEvery == 0)
        lines.emplace_back(path, pen.color().darker(theme.Dark ? 75 : 145));
    }
    painter.setClipPath(disc, ink->Role == Ink::Contour ? Qt::ReplaceClip : Qt::NoClip);
    painter.strokePath(path, pen);
    path.clear();
  };
  const auto flushLines = [&] {
    for (const auto &[line, colour] : lines) painter.strokePath(line, QPen(colour, 1));
    lines.clear();
  };
  for (const DrawItem &item : items) {
    if (!ink || !SameInk(*ink, item)) {
      flush();
      if (item.Role != Ink::Contour) flushLines();
      ink = &item;
    }
    const QPointF p = view.ToPixels(item.At[0], item.At[1]);
    if (item.What == DrawItem::Kind::Dot) {
      painter.fillRect(QRectF(p.x() - 0.75, p.y() - 0.75, 1.5, 1.5), InkColour(theme, item));
    } else if (item.What != DrawItem::Kind::Label) { // those on top
      if (item.Role != Ink::Contour && path.elementCount() > MostInStroke) flush();
      AddStroke(path, item, view);
    }
  }
  flush();
  flushLines();
  painter.setClipping(false);
  auto plate = LabelPlates(items, view, pixels);
  auto next = plate.begin();
  for (const DrawItem &item : items) {
    if (item.What != DrawItem::Kind::Label) continue;
    painter.setOpacity(IsSnapName(item) ? snapNames : 1);
    PaintLabel(painter, item, *next++, theme);
  }
  painter.setOpacity(1);
}

QRectF PixelBounds(std::span<const DrawItem> items, const SurfaceView &view, QSizeF pixels) {
  constexpr double Pen = 4; // pixels about a stroke
  QRectF bounds;
  const auto take = [&bounds](const QRectF &box) { bounds |= box.adjusted(-Pen, -Pen, Pen, Pen); };
  for (const DrawItem &item : items) {
    const auto &at = item.At;
    const QPointF p = view.ToPixels(at[0], at[1]);
    switch (item.What) {
    case DrawItem::Kind::Line: take(QRectF(p, view.ToPixels(at[2], at[3])).normalized()); break;
    case DrawItem::Kind::Circle:
    case DrawItem::Kind::Arc:
    case DrawItem::Kind::Mark: take(Around(p, at[2] * view.Scale)); break;
    case DrawItem::Kind::Dot: take(QRectF(p, QSizeF(0, 0))); break;
    case DrawItem::Kind::Label: break;
    }
  }
  for (const QRectF &plate : LabelPlates(items, view, pixels)) take(plate);
  return bounds;
}

void PaintContourScale(QPainter &painter, const DrawSurface &surface, QSizeF pixels, const Theme &theme) {
  if (surface.ContourTo <= surface.ContourFrom || pixels.height() < 120) return;
  const QFont font = TypeFont(Type::Small);
  const QFontMetricsF metrics(font);
  const double height = std::min(180.0, pixels.height() * 0.45), line = metrics.height();
  const QRectF bar(20, pixels.height() - 20 - height, 12, height);
  QLinearGradient ramp(bar.bottomLeft(), bar.topLeft());
  for (int i = 0; i <= 16; ++i) ramp.setColorAt(i / 16.0, ContourColour(theme, Viridis(i / 16.0)));
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ramp);
  painter.drawRoundedRect(bar, 2, 2);
  painter.setFont(font);
  painter.setPen(theme.Quiet);
  painter.drawText(QPointF(bar.left(), bar.top() - line * 0.6), "Burn distance, mm");
  painter.setPen(theme.Text);
  const double span = surface.ContourTo - surface.ContourFrom, step = RoundStep(span / 5);
  const int decimals = std::clamp(static_cast<int>(std::ceil(-std::log10(step) - 1e-9)), 0, 9);
  for (double value = std::ceil(surface.ContourFrom / step) * step; value <= surface.ContourTo;
       value += step) {
    const double y = bar.bottom() - (value - surface.ContourFrom) / span * height;
    painter.drawText(QRectF(bar.right() + 7, y - line / 2, 64, line), Qt::AlignLeft | Qt::AlignVCenter,
                     QString::number(value, 'f', decimals));
  }
}
