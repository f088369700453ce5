#include "burnback/reach.h"

#include <cmath>

namespace {

bool IsDisc(const Source &s) { return s.What == Source::Kind::Corner || s.What == Source::Kind::Point; }

constexpr double HalfTurn = 3.14159265358979323846;

double Apart(double ax, double ay, double bx, double by) {
  return std::sqrt((ax - bx) * (ax - bx) + (ay - by) * (ay - by));
}

double HalfAngle(double cosine) { return cosine >= 1 ? 0 : cosine <= -1 ? HalfTurn : std::acos(cosine); }

// Stretches on a line, O + s u.
struct Track {
  double OX, OY, UX, UY;
};

Track OffsetLine(const Source &of, double d) { return {of.X - of.UY * d, of.Y + of.UX * d, of.UX, of.UY}; }

void KeepBetween(Ranges &r, double at0, double rate, double low, double high) { // low < at0 + rate s < high
  if (std::abs(rate) < 1e-15) {
    if (!(at0 > low && at0 < high)) r.Count = 0;
    return;
  }
  const double a = (low - at0) / rate, b = (high - at0) / rate;
  Keep(r, std::min(a, b), std::max(a, b));
}

// In the sector of an arc, seen from its centre: half planes on a line, circular stretches on a circle.
template <class KeepStart, class KeepEnd>
void KeepSector(Ranges &r, const Source &by, KeepStart keepStart, KeepEnd keepEnd) {
  const double sweep = by.Length + 2 * by.AngleSlack;
  if (sweep >= 2 * HalfTurn) return;
  if (sweep <= HalfTurn) {
    keepStart(r, 1);
    keepEnd(r, 1);
    return;
  }
  Ranges first = r, second = r; // the union of the two half planes
  keepStart(first, 1);
  keepStart(second, -1);
  keepEnd(second, 1);
  for (int i = 0; i < second.Count; ++i) AddRange(first, second.From[i], second.To[i]);
  r = first;
}

Ranges LineSwallowed(const Source &of, double from, double to, const Source &by, double d,
                     const BurnTolerance &tol) {
  const Track t = OffsetLine(of, d);
  const double near = d - tol.Depth;
  Ranges dead = OneRange(from, to);
  if (by.What == Source::Kind::Line) {
    const double dx = t.OX - by.X, dy = t.OY - by.Y;
    KeepBetween(dead, by.UX * dy - by.UY * dx, by.UX * t.UY - by.UY * t.UX, -near, near);
    if (dead.Count)
      KeepBetween(dead, dx * by.UX + dy * by.UY, t.UX * by.UX + t.UY * by.UY, -tol.Slack,
                  by.Length + tol.Slack);
    return dead;
  }
  const double cx = by.X - t.OX, cy = by.Y - t.OY;
  const double middle = cx * t.UX + cy * t.UY, height = t.UX * cy - t.UY * cx;
  const double outer = by.Radius + near, inner = by.Radius - near;
  const double D = (outer - height) * (outer + height);
  if (D <= 0) return {};
  Keep(dead, middle - std::sqrt(D), middle + std::sqrt(D));
  if (IsDisc(by) || dead.Count == 0) return dead;
  if (inner > 0) {
    const double E = (inner - height) * (inner + height);
    if (E > 0) Remove(dead, middle - std::sqrt(E), middle + std::sqrt(E));
  }
  if (dead.Count == 0) return dead;
  const double inf = 1e300;
  KeepSector(
      dead, by,
      [&](Ranges &r, int sign) { // cross(U, q - C) >= 0, or below
        KeepBetween(r, -(by.UX * cy - by.UY * cx), by.UX * t.UY - by.UY * t.UX, sign > 0 ? 0 : -inf,
                    sign > 0 ? inf : 0);
      },
      [&](Ranges &r, int) { // cross(q - C, V) >= 0
        KeepBetween(r, by.VX * cy - by.VY * cx, by.VY * t.UX - by.VX * t.UY, 0, inf);
      });
  return dead;
}

Ranges ArcSwallowed(const Source &of, double from, double to, const Source &by, double d,
                    const BurnTolerance &tol) {
  const double rho = of.Radius + of.Side * d, near = d - tol.Depth;
  Ranges dead = OneRange(from, to);
  if (rho <= 0) return {};
  const double dx = of.X - by.X, dy = of.Y - by.Y;
  if (by.What == Source::Kind::Line) {
    const double along = dx * by.UX + dy * by.UY, height = by.UX * dy - by.UY * dx;
    if (height - rho >= near || height + rho <= -near) return {};
    if (along + rho <= -tol.Slack || along - rho >= by.Length + tol.Slack) return {};
    const double up = by.Direction + HalfTurn / 2 - of.Start, ahead = by.Direction - of.Start;
    RemoveAround(dead, up, HalfAngle((near - height) / rho));                    // too high
    RemoveAround(dead, up + HalfTurn, HalfAngle((near + height) / rho));         // too low
    RemoveAround(dead, ahead, HalfAngle((by.Length + tol.Slack - along) / rho)); // past the end
    RemoveAround(dead, ahead + HalfTurn, HalfAngle((tol.Slack + along) / rho));  // before the start
    return dead;
  }
  const double D = std::sqrt(dx * dx + dy * dy), outer = by.Radius + near, inner = by.Radius - near;
  const bool ring = by.What == Source::Kind::Arc;
  if (D - rho >= outer || (ring && D + rho <= inner) || (ring && rho - D >= outer)) return {};
  if (D < 1e-14 * (rho + by.Radius)) {
    if (rho >= outer || (ring && rho <= inner)) return {};
  } else {
    const double toward = std::atan2(-dy, -dx) - of.Start; // from our centre to theirs
    KeepAround(dead, toward, HalfAngle((D * D + (rho - outer) * (rho + outer)) / (2 * D * rho)));
    if (ring && inner > 0)
      RemoveAround(dead, toward, HalfAngle((D * D + (rho - inner) * (rho + inner)) / (2 * D * rho)));
  }
  if (!ring || dead.Count == 0) return dead;
  // On the circle, cross(U, q - C) = cross(U, our centre - C) + rho sin(angle - angle of U).
  const double start = by.Start - by.AngleSlack - of.Start,
               end = by.Start + by.Length + by.AngleSlack - of.Start;
  KeepSector(
      dead, by,
      [&](Ranges &r, int sign) {
        const double half = HalfAngle(-(by.UX * dy - by.UY * dx) / rho);
        if (sign > 0)
          KeepAround(r, start + HalfTurn / 2, half);
        else
          RemoveAround(r, start + HalfTurn / 2, half);
      },
      [&](Ranges &r, int) { KeepAround(r, end - HalfTurn / 2, HalfAngle((by.VX * dy - by.VY * dx) / rho)); });
  return dead;
}

double Clamp01(double t) { return t < 0 ? 0 : t > 1 ? 1 : t; }

double PointSegment(double x, double y, double ax, double ay, double bx, double by) {
  const double dx = bx - ax, dy = by - ay, l2 = dx * dx + dy * dy;
  const double t = l2 > 0 ? Clamp01(((x - ax) * dx + (y - ay) * dy) / l2) : 0;
  return std::sqrt((ax + t * dx - x) * (ax + t * dx - x) + (ay + t * dy - y) * (ay + t * dy - y));
}

double SegmentSegment(double ax, double ay, double bx, double by, double cx, double cy, double dx,
                      double dy) {
  const double ux = bx - ax, uy = by - ay, vx = dx - cx, vy = dy - cy, wx = cx - ax, wy = cy - ay;
  const double cross = ux * vy - uy * vx;
  if (cross != 0) {
    const double s = (wx * vy - wy * vx) / cross, t = (wx * uy - wy * ux) / cross;
    if (s >= 0 && s <= 1 && t >= 0 && t <= 1) return 0;
  }
  return std::min(std::min(PointSegment(ax, ay, cx, cy, dx, dy), PointSegment(bx, by, cx, cy, dx, dy)),
                  std::min(PointSegment(cx, cy, ax, ay, bx, by), PointSegment(dx, dy, ax, ay, bx, by)));
}

} // namespace

BurnTolerance ToleranceOf(double R) { return {R * 1e-12, R * 1e-9, R * 4e-9}; }

void FrontPoint(const Source &s, double foot, double d, double &x, double &y) {
  if (s.What == Source::Kind::Line) {
    x = s.X + s.UX * foot - s.UY * d;
    y = s.Y + s.UY * foot + s.UX * d;
    return;
  }
  const double rho = s.Radius + s.Side * d;
  x = s.X + rho * std::cos(s.Start + foot);
  y = s.Y + rho * std::sin(s.Start + foot);
}

void Tangent(const Source &s, bool atEnd, double &ux, double &uy) {
  if (s.What == Source::Kind::Line) {
    ux = s.UX, uy = s.UY;
    return;
  }
  // Side -1 walks counter-clockwise from Start, Side +1 clockwise from Start + Length.
  const double a = atEnd == (s.Side < 0) ? s.Start + s.Length : s.Start;
  ux = s.Side * std::sin(a);
  uy = -s.Side * std::cos(a);
}

double FrontLength(const Source &s, double from, double to, double d) {
  return s.What == Source::Kind::Line ? to - from : (to - from) * std::max(0.0, s.Radius + s.Side * d);
}

Ranges Swallowed(const Source &of, double from, double to, const Source &by, double d,
                 const BurnTolerance &tol) {
  return of.What == Source::Kind::Line ? LineSwallowed(of, from, to, by, d, tol)
                                       : ArcSwallowed(of, from, to, by, d, tol);
}

Ranges InsideCircle(const Source &of, double from, double to, double d, double R) {
  Ranges kept = OneRange(from, to);
  if (of.What == Source::Kind::Line) {
    const Track t = OffsetLine(of, d);
    const double middle = -(t.OX * t.UX + t.OY * t.UY), height = t.OX * t.UY - t.OY * t.UX;
    const double D = (R - height) * (R + height);
    if (D <= 0) return {};
    Keep(kept, middle - std::sqrt(D), middle + std::sqrt(D));
    return kept;
  }
  const double rho = of.Radius + of.Side * d, D = std::sqrt(of.X * of.X + of.Y * of.Y);
  if (D + rho <= R) return kept;
  if (D < 1e-12 * R) return {};
  RemoveAround(kept, std::atan2(of.Y, of.X) - of.Start,
               HalfAngle(((R - D) * (R + D) - rho * rho) / (2 * D * rho)));
  return kept;
}

double GapBound(const Source &of, const FrontPiece &f, const Source &by, double d) {
  double bound = SegmentSegment(f.X1, f.Y1, f.X2, f.Y2, by.ChordX1, by.ChordY1, by.ChordX2, by.ChordY2) -
                 f.Height - by.Height;
  // A long arc is better bounded by its whole circle.
  if (by.Height > 0) {
    const double near = PointSegment(by.X, by.Y, f.X1, f.Y1, f.X2, f.Y2) - f.Height;
    const double far = std::max(Apart(f.X1, f.Y1, by.X, by.Y), Apart(f.X2, f.Y2, by.X, by.Y)) + f.Height;
    bound = std::max(bound, std::max(near - by.Radius, by.Radius - far));
  }
  if (f.Height > 0) {
    const double rho = of.Radius + of.Side * d;
    const double near = PointSegment(of.X, of.Y, by.ChordX1, by.ChordY1, by.ChordX2, by.ChordY2) - by.Height;
    const double far =
        std::max(Apart(by.ChordX1, by.ChordY1, of.X, of.Y), Apart(by.ChordX2, by.ChordY2, of.X, of.Y)) +
        by.Height;
    bound = std::max(bound, std::max(near - rho, rho - far));
  }
  return bound - d;
}

double DistanceWithin(const Source &by, double x, double y, double slack) {
  const double dx = x - by.X, dy = y - by.Y, none = 1e300;
  switch (by.What) {
  case Source::Kind::Corner:
  case Source::Kind::Point: return std::hypot(dx, dy);
  case Source::Kind::Line: {
    const double along = dx * by.UX + dy * by.UY;
    return along < -slack || along > by.Length + slack ? none : std::abs(by.UX * dy - by.UY * dx);
  }
  case Source::Kind::Arc: {
    const double r = std::hypot(dx, dy), wide = slack / by.Radius;
    double t = std::atan2(dy, dx) - by.Start + wide;
    t -= TwoPi * std::floor(t / TwoPi);
    return t > by.Length + 2 * wide ? none : std::abs(r - by.Radius);
  }
  }
  return none;
}

void FinishSource(Source &s, double slack) {
  if (s.What == Source::Kind::Line) {
    s.Direction = std::atan2(s.UY, s.UX);
    s.ChordX1 = s.X, s.ChordY1 = s.Y;
    s.ChordX2 = s.X + s.UX * s.Length, s.ChordY2 = s.Y + s.UY * s.Length;
    s.MidX = (s.ChordX1 + s.ChordX2) / 2, s.MidY = (s.ChordY1 + s.ChordY2) / 2, s.Reach = s.Length / 2;
    return;
  }
  s.AngleSlack = s.What == Source::Kind::Arc ? slack / s.Radius : 0;
  const double a = s.Start - s.AngleSlack, b = s.Start + s.Length + s.AngleSlack;
  s.UX = std::cos(a), s.UY = std::sin(a), s.VX = std::cos(b), s.VY = std::sin(b);
  const double half = s.Length / 2;
  s.ChordX1 = s.X + s.Radius * std::cos(s.Start), s.ChordY1 = s.Y + s.Radius * std::sin(s.Start);
  s.ChordX2 = s.X + s.Radius * std::cos(s.Start + s.Length),
  s.ChordY2 = s.Y + s.Radius * std::sin(s.Start + s.Length);
  s.Height = half < HalfTurn / 2 ? s.Radius * (1 - std::cos(half)) : 2 * s.Radius;
  if (half < HalfTurn / 2) {
    s.MidX = (s.ChordX1 + s.ChordX2) / 2, s.MidY = (s.ChordY1 + s.ChordY2) / 2,
    s.Reach = s.Radius * std::sin(half);
  } else {
    s.MidX = s.X, s.MidY = s.Y, s.Reach = s.Radius;
  }
}
