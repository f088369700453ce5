#include "drafting/transform_rows.h"

#include "geometry/carrier.h"

#include <cmath>

namespace {
constexpr double Flat = 0.0001; // mm

bool WholeTurn(const Entity &arc) { return std::abs(arc.EndAngle - arc.StartAngle) >= TwoPi - 1e-9; }

void SetRoundEnds(Entity &e) {
  if (e.EntType == ArcType) return SetArcEnds(e);
  e.X1 = e.X2 = e.CenterX + e.Radius;
  e.Y1 = e.Y2 = e.CenterY;
}

void SetAngles(Entity &arc, double start, double end) {
  if (WholeTurn(arc)) return;
  arc.StartAngle = NormalAngle(start);
  arc.EndAngle = NormalAngle(end);
}

// A line's ends, or a round's centre, through the map.
template <typename Map>
void MapPoints(Entity &e, const Map &map) {
  const auto through = [&](double &x, double &y) {
    const Point p = map(Point{x, y});
    x = p.X;
    y = p.Y;
  };
  if (e.EntType == LineType) {
    through(e.X1, e.Y1);
    through(e.X2, e.Y2);
  } else {
    through(e.CenterX, e.CenterY);
  }
}

void MoveLine(Entity &line, double dx, double dy) {
  SetLineEnds(line, {line.X1 + dx, line.Y1 + dy}, {line.X2 + dx, line.Y2 + dy});
  line.Intercept = line.Y1 - line.Slope * line.X1;
}

bool Same(Point a, Point b) { return a.X == b.X && a.Y == b.Y; }
} // namespace

Entity MovedRow(Entity e, double dx, double dy) {
  if (e.EntType == LineType) {
    MoveLine(e, dx, dy);
  } else {
    e.CenterX += dx;
    e.CenterY += dy;
    SetRoundEnds(e);
  }
  return e;
}

Entity RotatedRow(Entity e, Point about, double angle) {
  MapPoints(e, [&](Point p) {
    const Point t = Turned({p.X - about.X, p.Y - about.Y}, angle);
    return Point{about.X + t.X, about.Y + t.Y};
  });
  if (e.EntType == LineType) {
    SetLineSlope(e);
    return e;
  }
  if (e.EntType == ArcType) SetAngles(e, e.StartAngle + angle, e.EndAngle + angle);
  SetRoundEnds(e);
  return e;
}

Entity ScaledRow(Entity e, Point about, double factor) {
  MapPoints(e, [&](Point p) {
    return Point{about.X + factor * (p.X - about.X), about.Y + factor * (p.Y - about.Y)};
  });
  if (e.EntType == LineType) {
    SetLineSlope(e);
    return e;
  }
  e.Radius *= factor;
  SetRoundEnds(e);
  return e;
}

Entity MirroredRow(Entity e, Point p, Point q) {
  double dx = q.X - p.X, dy = q.Y - p.Y;
  if (std::abs(dy) < Flat)
    dx = 1, dy = 0;
  else if (std::abs(dx) < Flat)
    dx = 0, dy = 1;
  const double length = std::hypot(dx, dy);
  dx /= length;
  dy /= length;
  MapPoints(e, [&](Point at) {
    const double aside = (at.Y - p.Y) * dx - (at.X - p.X) * dy;
    return Point{at.X + 2 * aside * dy, at.Y - 2 * aside * dx};
  });
  if (e.EntType == LineType) {
    SetLineSlope(e);
    return e;
  }
  if (e.EntType == ArcType) {
    const double twice = 2 * std::atan2(dy, dx);
    SetAngles(e, twice - e.EndAngle, twice - e.StartAngle);
  }
  SetRoundEnds(e);
  return e;
}

Entity ShiftedEnds(Entity e, const EndShift &by) {
  const bool whole = e.EntType == CircleType || (e.EntType == ArcType && WholeTurn(e));
  if (whole) return Same(by.Centre, {}) ? e : MovedRow(e, by.Centre.X, by.Centre.Y);
  if (Same(by.First, by.Second)) return Same(by.First, {}) ? e : MovedRow(e, by.First.X, by.First.Y);
  const Point first{e.X1 + by.First.X, e.Y1 + by.First.Y}, second{e.X2 + by.Second.X, e.Y2 + by.Second.Y};
  if (e.EntType == ArcType) {
    SpanChord(e, first, second);
    return e;
  }
  SetLineEnds(e, first, second);
  SetLineSlope(e);
  return e;
}

bool InRectangle(const SelectionValues &w, Point p) {
  return p.X >= w.WindowLeft && p.X <= w.WindowRight && p.Y >= w.WindowBottom && p.Y <= w.WindowTop;
}

Entity StretchedRow(const Entity &e, const SelectionValues &window, double dx, double dy) {
  const auto shift = [&](double x, double y) {
    return InRectangle(window, {x, y}) ? Point{dx, dy} : Point{};
  };
  return ShiftedEnds(e, {shift(e.X1, e.Y1), shift(e.X2, e.Y2), shift(e.CenterX, e.CenterY)});
}
