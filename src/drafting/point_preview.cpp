#include "drafting/point_preview.h"

#include "drafting/rotation_draw.h"
#include "geometry/carrier.h"
#include "geometry/construct.h"

#include <cmath>

namespace {
Entity LineRow(Point a, Point b) { return MakeLine(a.X, a.Y, b.X, b.Y); }
} // namespace

DrawItem RowItem(const Entity &e, Ink role) {
  DrawItem item;
  item.Role = role;
  if (e.EntType == LineType) {
    item.At = {e.X1, e.Y1, e.X2, e.Y2};
  } else {
    item.What = e.EntType == CircleType ? DrawItem::Kind::Circle : DrawItem::Kind::Arc;
    item.At = {e.CenterX, e.CenterY, e.Radius, e.StartAngle, e.EndAngle};
  }
  return item;
}

void PreviewPoints(Drafting &d, Point at) {
  if (d.Cmd.PointCount >= 0)
    d.Out.Panel.Overlay.push_back(RowItem(LineRow(LastPoint(d.Cmd), at), Ink::Guide));
}
