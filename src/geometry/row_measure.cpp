#include "geometry/row_measure.h"

#include "geometry/carrier.h"

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
  const bool whole = IsWholeTurn(e);
  const double start = NormalAngle(e.StartAngle), end = start + (whole ? TwoPi : ArcSweep(e));
  Entity arc = e;
  if (!whole) SetArcEnds(arc);
  const auto passes = [&](int quarter) { // the arc, over this quarter turn
    return whole || (quarter * TwoPi / 4 >= start && quarter * TwoPi / 4 <= end) ||
           (quarter + 4) * TwoPi / 4 <= end;
  };
  Extent x;
  x.Right = passes(0) ? e.CenterX + e.Radius : std::max(arc.X1, arc.X2);
  x.High = passes(1) ? e.CenterY + e.Radius : std::max(arc.Y1, arc.Y2);
  x.Left = passes(2) ? e.CenterX - e.Radius : std::min(arc.X1, arc.X2);
  x.Low = passes(3) ? e.CenterY - e.Radius : std::min(arc.Y1, arc.Y2);
  return x;
}
