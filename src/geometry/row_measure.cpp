#include "geometry/row_measure.h"

#include <algorithm>
#include <cmath>

bool IsWholeTurn(const Entity &e) {
  if (e.EntType == CircleType) return true;
  if (e.EntType != ArcType) return false;
  const double sweep = ArcSweep(e); // 0 where the angles are equal
  return sweep <= 1e-12 || sweep >= TwoPi - 1e-12;
}

double RowLength(const Entity &e) {
  if (e.EntType == LineType) return std::hypot(e.X2 - e.X1, e.Y2 - e.Y1);
  return e.Radius * (IsWholeTurn(e) ? TwoPi : ArcSweep(e));
}

Extent ExtentOf(const Entity &e) {
  if (e.EntType == LineType)
    return {std::min(e.X1, e.X2), std::max(e.X1, e.X2), std::min(e.Y1, e.Y2), std::max(e.Y1, e.Y2)};
  return {e.CenterX - e.Radius, e.CenterX + e.Radius, e.CenterY - e.Radius, e.CenterY + e.Radius};
}
