#pragma once
#include "shell/grain_document.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <random>
#include <vector>

// Designs for the burn tests, built as a person would draw them.
struct Corner {
  double X = 0, Y = 0, Fillet = 0;
};

inline Design MakeDesign(double diameter, double length = 100, double throat = 8, int ends = 3) {
  Design d;
  SetDimensions(d.Doc, diameter, length, throat, ends);
  return d;
}

inline void AddRows(Design &d, const std::vector<Entity> &rows) {
  for (const Entity &e : rows) AppendRow(d.Table, e);
}

// A closed polygon whose corners may be rounded by tangent arcs.
inline std::vector<Entity> RoundedPolygon(const std::vector<Corner> &at) {
  const std::size_t n = at.size();
  std::vector<Entity> rows;
  std::vector<double> inX(n), inY(n), outX(n), outY(n);
  for (std::size_t i = 0; i < n; ++i) {
    const Corner &p = at[(i + n - 1) % n], &q = at[i], &r = at[(i + 1) % n];
    const double l1 = std::hypot(q.X - p.X, q.Y - p.Y), l2 = std::hypot(r.X - q.X, r.Y - q.Y);
    const double ux = (q.X - p.X) / l1, uy = (q.Y - p.Y) / l1, vx = (r.X - q.X) / l2, vy = (r.Y - q.Y) / l2;
    const double turn = std::atan2(ux * vy - uy * vx, ux * vx + uy * vy);
    const double t = q.Fillet * std::tan(std::abs(turn) / 2);
    inX[i] = q.X - ux * t, inY[i] = q.Y - uy * t, outX[i] = q.X + vx * t, outY[i] = q.Y + vy * t;
    if (t <= 0) continue;
    const double side = turn > 0 ? 1 : -1;
    const double cx = inX[i] - side * uy * q.Fillet, cy = inY[i] + side * ux * q.Fillet;
    double a = std::atan2(inY[i] - cy, inX[i] - cx), b = std::atan2(outY[i] - cy, outX[i] - cx);
    if (side < 0) std::swap(a, b);
    rows.push_back(MakeArc(cx, cy, q.Fillet, a < 0 ? a + TwoPi : a, b < 0 ? b + TwoPi : b));
  }
  for (std::size_t i = 0; i < n; ++i)
    rows.push_back(MakeLine(outX[i], outY[i], inX[(i + 1) % n], inY[(i + 1) % n]));
  return rows;
}

inline std::vector<Corner> StarCorners(int points, double tip, double valley, double turn = 0,
                                       double tipFillet = 0, double valleyFillet = 0) {
  std::vector<Corner> at;
  for (int k = 0; k < 2 * points; ++k) {
    const double r = k % 2 ? valley : tip, a = turn + k * TwoPi / (2 * points);
    at.push_back({r * std::cos(a), r * std::sin(a), k % 2 ? valleyFillet : tipFillet});
  }
  return at;
}

// A star-shaped random outline of lines with some rounded corners; simple by construction.
inline std::vector<Entity> RandomOutline(std::mt19937 &random, double R, int corners) {
  std::uniform_real_distribution<double> part(0, 1);
  std::vector<Corner> at;
  for (int k = 0; k < corners; ++k) {
    const double a = (k + 0.6 * part(random)) * TwoPi / corners, r = R * (0.2 + 0.55 * part(random));
    at.push_back({r * std::cos(a), r * std::sin(a), 0});
  }
  for (int k = 0; k < corners; ++k) {
    const Corner &p = at[(k + corners - 1) % corners], &q = at[(k + 1) % corners];
    Corner &c = at[k];
    const double l = std::min(std::hypot(p.X - c.X, p.Y - c.Y), std::hypot(q.X - c.X, q.Y - c.Y));
    const double turn =
        std::abs(std::remainder(std::atan2(q.Y - c.Y, q.X - c.X) - std::atan2(c.Y - p.Y, c.X - p.X), TwoPi));
    if (k % 2 == 0) c.Fillet = 0.3 * l * part(random) / std::tan(std::max(turn, 0.05) / 2);
  }
  return RoundedPolygon(at);
}

inline Entity TurnedRow(const Entity &e, double angle) {
  const double c = std::cos(angle), s = std::sin(angle);
  const auto norm = [](double a) { return a - TwoPi * std::floor(a / TwoPi); };
  if (e.EntType == LineType)
    return MakeLine(e.X1 * c - e.Y1 * s, e.X1 * s + e.Y1 * c, e.X2 * c - e.Y2 * s, e.X2 * s + e.Y2 * c);
  const double x = e.CenterX * c - e.CenterY * s, y = e.CenterX * s + e.CenterY * c;
  if (e.EntType == CircleType) return MakeCircle(x, y, e.Radius);
  return MakeArc(x, y, e.Radius, norm(e.StartAngle + angle), norm(e.EndAngle + angle));
}

inline Entity MirroredRow(const Entity &e) {
  const auto norm = [](double a) { return a - TwoPi * std::floor(a / TwoPi); };
  if (e.EntType == LineType) return MakeLine(e.X1, -e.Y1, e.X2, -e.Y2);
  if (e.EntType == CircleType) return MakeCircle(e.CenterX, -e.CenterY, e.Radius);
  return MakeArc(e.CenterX, -e.CenterY, e.Radius, norm(-e.EndAngle), norm(-e.StartAngle));
}

inline Entity ScaledRow(const Entity &e, double f) {
  if (e.EntType == LineType) return MakeLine(e.X1 * f, e.Y1 * f, e.X2 * f, e.Y2 * f);
  if (e.EntType == CircleType) return MakeCircle(e.CenterX * f, e.CenterY * f, e.Radius * f);
  return MakeArc(e.CenterX * f, e.CenterY * f, e.Radius * f, e.StartAngle, e.EndAngle);
}

inline Entity SwappedRow(const Entity &e) {
  return e.EntType == LineType ? MakeLine(e.X2, e.Y2, e.X1, e.Y1) : e;
}
