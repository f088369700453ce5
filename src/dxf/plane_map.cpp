#include "dxf/plane_map.h"

#include <algorithm>
#include <cmath>

Point Mapped(const PlaneMap &m, Point p) {
  return {m.A * p.X + m.C * p.Y + m.E, m.B * p.X + m.D * p.Y + m.F};
}

Point MappedVector(const PlaneMap &m, Point p) { return {m.A * p.X + m.C * p.Y, m.B * p.X + m.D * p.Y}; }

PlaneMap After(const PlaneMap &second, const PlaneMap &first) {
  const Point u = MappedVector(second, {first.A, first.B}), v = MappedVector(second, {first.C, first.D});
  const Point at = Mapped(second, {first.E, first.F});
  return {u.X, u.Y, v.X, v.Y, at.X, at.Y};
}

PlaneMap ScaleMap(double x, double y) { return {x, 0, 0, y, 0, 0}; }
PlaneMap ShiftMap(double x, double y) { return {1, 0, 0, 1, x, y}; }

PlaneMap TurnMap(double degrees) {
  const double quarters = degrees / 90;
  if (quarters == std::floor(quarters)) {
    constexpr double cosine[] = {1, 0, -1, 0};
    const auto q = static_cast<int>(std::fmod(std::fmod(quarters, 4) + 4, 4));
    const double c = cosine[q], s = cosine[(q + 3) % 4];
    return {c, s, -s, c, 0, 0};
  }
  const double angle = std::fmod(degrees, 360) * std::acos(-1.0) / 180;
  return {std::cos(angle), std::sin(angle), -std::sin(angle), std::cos(angle), 0, 0};
}

Conic MappedConic(const PlaneMap &m, const Conic &c) {
  Conic mapped = c;
  mapped.Centre = Mapped(m, c.Centre);
  mapped.U = MappedVector(m, c.U);
  mapped.V = MappedVector(m, c.V);
  return mapped;
}

bool IsRound(const Conic &c) {
  const double u = std::hypot(c.U.X, c.U.Y), v = std::hypot(c.V.X, c.V.Y), most = std::max(u, v);
  return std::abs(u - v) <= 1e-9 * most && std::abs(c.U.X * c.V.X + c.U.Y * c.V.Y) <= 1e-9 * most * most;
}

bool IsFlat(const Conic &c) {
  const double u = std::hypot(c.U.X, c.U.Y), v = std::hypot(c.V.X, c.V.Y);
  return !(std::abs(c.U.X * c.V.Y - c.U.Y * c.V.X) > 1e-9 * std::max(u, v) * std::max(u, v));
}

namespace {
double InTurn(double angle) { // as it is within 0..2*pi
  if (angle >= 0 && angle <= TwoPi) return angle;
  const double turned = std::fmod(angle, TwoPi);
  return turned < 0 ? turned + TwoPi : turned;
}
} // namespace

Entity RowFrom(const Conic &c) {
  const double radius = std::hypot(c.U.X, c.U.Y);
  if (c.Whole) return MakeCircle(c.Centre.X, c.Centre.Y, radius);
  const double turn = std::atan2(c.U.Y, c.U.X);
  const bool mirrored = c.U.X * c.V.Y - c.U.Y * c.V.X < 0;
  const double start = mirrored ? turn - c.To : turn + c.From, end = mirrored ? turn - c.From : turn + c.To;
  if (turn == 0 && !mirrored && c.GivenTo >= 0 && c.GivenTo <= TwoPi)
    return MakeArc(c.Centre.X, c.Centre.Y, radius, InTurn(start), c.GivenTo);
  return MakeArc(c.Centre.X, c.Centre.Y, radius, InTurn(start), InTurn(end));
}
