#include "desktop/label_layout.h"

#include <QLineF>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace {
constexpr QSizeF PlateRoom(6, 2); // beside the words
constexpr double Air = 3, Step = 6, Inset = 2;
constexpr double AcrossPointer = 28; // from a label right of the pointer to one left of it
constexpr std::size_t MostObstacles = 64;

bool LineMeets(const QLineF &line, const QRectF &box) {
  if (box.contains(line.p1()) || box.contains(line.p2())) return true;
  const QLineF sides[] = {{box.topLeft(), box.topRight()},
                          {box.topRight(), box.bottomRight()},
                          {box.bottomRight(), box.bottomLeft()},
                          {box.bottomLeft(), box.topLeft()}};
  return std::any_of(std::begin(sides), std::end(sides), [&line](const QLineF &side) {
    return line.intersects(side) == QLineF::BoundedIntersection;
  });
}

// Curves by points nearer to each other than a plate is high.
bool Meets(const DrawItem &item, const SurfaceView &view, const QRectF &box) {
  const auto &at = item.At;
  const QPointF p = view.ToPixels(at[0], at[1]);
  if (item.What == DrawItem::Kind::Line) return LineMeets({p, view.ToPixels(at[2], at[3])}, box);
  if (item.What != DrawItem::Kind::Circle && item.What != DrawItem::Kind::Arc) return false;
  const bool arc = item.What == DrawItem::Kind::Arc;
  const double radius = at[2] * view.Scale, from = arc ? at[3] : 0;
  double sweep = arc ? at[4] - at[3] : 2 * std::numbers::pi;
  if (sweep <= 0) sweep += 2 * std::numbers::pi;
  const int steps = static_cast<int>(std::clamp(radius * sweep / Step, 4.0, 2000.0));
  for (int i = 0; i <= steps; ++i) {
    const double angle = from + sweep * i / steps;
    if (box.contains(p + QPointF(radius * std::cos(angle), -radius * std::sin(angle)))) return true;
  }
  return false;
}

QRectF Inside(QRectF plate, QSizeF pixels) {
  plate.moveLeft(std::max(Inset, std::min(plate.left(), pixels.width() - plate.width() - Inset)));
  plate.moveTop(std::max(Inset, std::min(plate.top(), pixels.height() - plate.height() - Inset)));
  return plate;
}
} // namespace

std::vector<QRectF> LabelPlates(std::span<const DrawItem> items, const SurfaceView &view, QSizeF pixels) {
  std::vector<QRectF> plates;
  std::vector<const DrawItem *> labels, obstacles;
  for (const DrawItem &item : items) {
    if (item.What == DrawItem::Kind::Label)
      labels.push_back(&item);
    else if (item.Role == Ink::WillBe && obstacles.size() < MostObstacles)
      obstacles.push_back(&item);
  }
  if (labels.empty()) return plates;
  const QFontMetricsF metrics(TypeFont(Type::Base));
  for (const DrawItem *label : labels) {
    const QSizeF words(metrics.horizontalAdvance(QString::fromStdString(label->Text)), metrics.height());
    const QRectF plate(view.ToPixels(label->At[0], label->At[1]) - QPointF(PlateRoom.width(), words.height()),
                       words + 2 * PlateRoom);
    const auto free = [&](const QRectF &place) {
      const QRectF box = place.adjusted(-Air, -Air, Air, Air);
      return std::none_of(plates.begin(), plates.end(),
                          [&box](const QRectF &other) { return other.intersects(box); }) &&
             std::none_of(obstacles.begin(), obstacles.end(),
                          [&](const DrawItem *item) { return Meets(*item, view, box); });
    };
    // A snap's name stands below the pointer and gives way downward, all else upward.
    const double away = (label->Role == Ink::Guide ? 1 : -1) * (plate.height() + Air);
    const double left = -plate.width() - AcrossPointer + 2 * PlateRoom.width();
    const QPointF ways[] = {{0, 0},       {0, away},        {0, 2 * away}, {left, 0},
                            {left, away}, {left, 2 * away}, {0, 3 * away}, {left, 3 * away}};
    QRectF chosen = Inside(plate, pixels);
    for (const QPointF way : ways) {
      const QRectF place = Inside(plate.translated(way), pixels);
      if (!free(place)) continue;
      chosen = place;
      break;
    }
    plates.push_back(chosen);
  }
  return plates;
}
