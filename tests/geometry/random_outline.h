#pragma once
#include "geometry/primitives.h"
#include "shell/grain_document.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

// A closed chain of lines and arcs around the origin, with its exact area and centroid.
struct Outline {
  EntityTable Table;
  double Area = 0, CentroidX = 0, CentroidY = 0, Perimeter = 0;
};

struct Corner {
  double X = 0, Y = 0;
  double Bulge = 0; // of the edge to the next corner: tan of a quarter of its counter-clockwise sweep
};

inline Outline ChainOf(const std::vector<Corner> &corner, double gape = 0, std::mt19937 *random = nullptr) {
  Outline o;
  double momentX = 0, momentY = 0;
  for (std::size_t i = 0; i < corner.size(); ++i) {
    const Corner &p = corner[i], &q = corner[(i + 1) % corner.size()];
    const double cross = p.X * q.Y - q.X * p.Y, chord = std::hypot(q.X - p.X, q.Y - p.Y);
    o.Area += cross / 2;
    momentX += cross * (p.X + q.X) / 6;
    momentY += cross * (p.Y + q.Y) / 6;
    Entity e;
    if (p.Bulge == 0) {
      e = MakeLine(p.X, p.Y, q.X, q.Y);
      o.Perimeter += chord;
    } else {
      const double sweep = 4 * std::atan(p.Bulge), radius = chord / (2 * std::sin(std::abs(sweep) / 2));
      const double reach = (1 - p.Bulge * p.Bulge) / (4 * p.Bulge);
      const double cx = (p.X + q.X) / 2 - (q.Y - p.Y) * reach, cy = (p.Y + q.Y) / 2 + (q.X - p.X) * reach;
      double from = std::atan2(p.Y - cy, p.X - cx), to = std::atan2(q.Y - cy, q.X - cx);
      if (sweep < 0) std::swap(from, to);
      if (from < 0) from += 2 * Pi;
      if (to < 0) to += 2 * Pi;
      e = MakeArc(cx, cy, radius, from, to);
      o.Perimeter += radius * std::abs(sweep);
      const double segment = radius * radius * (sweep - std::sin(sweep)) / 2;
      // The segment's centroid lies on its bisector at this distance from the centre.
      const double half = std::abs(sweep) / 2;
      const double out =
          half < 0.001 ? radius
                       : 4 * radius * std::pow(std::sin(half), 3) / (3 * (2 * half - std::sin(2 * half)));
      const double bisector = std::atan2(p.Y - cy, p.X - cx) + sweep / 2;
      o.Area += segment;
      momentX += segment * (cx + out * std::cos(bisector));
      momentY += segment * (cy + out * std::sin(bisector));
    }
    if (random && gape > 0) {
      std::uniform_real_distribution<double> shift(-gape / 3, gape / 3);
      const double dx = shift(*random), dy = shift(*random);
      e.CenterX += dx, e.CenterY += dy;
      e.X1 += dx, e.X2 += dx, e.Y1 += dy, e.Y2 += dy;
      if (e.EntType == LineType) SetLineSlope(e);
    }
    if (random && e.EntType == LineType && (*random)() % 2) {
      std::swap(e.X1, e.X2);
      std::swap(e.Y1, e.Y2);
    }
    AppendRow(o.Table, e);
  }
  o.CentroidX = momentX / o.Area;
  o.CentroidY = momentY / o.Area;
  if (random) std::shuffle(o.Table.Row.begin(), o.Table.Row.begin() + o.Table.EntCount + 1, *random);
  return o;
}

// Corners at rising angles; edges of 0.02 mm, axis-parallel ones and arcs of every size among them.
inline std::vector<Corner> RandomCorners(std::mt19937 &random, double grainRadius, int count) {
  std::uniform_real_distribution<double> part(0, 1);
  std::vector<double> angle(static_cast<std::size_t>(count));
  for (double &a : angle) a = part(random) * 2 * Pi;
  for (int i = 0; i < 3; ++i) angle[static_cast<std::size_t>(i)] = i * 2 * Pi / 3;
  std::sort(angle.begin(), angle.end());
  std::vector<Corner> corner;
  const double inner = 0.1 + 0.3 * part(random), outer = inner + 0.5 * part(random);
  for (const double a : angle) {
    const double r = grainRadius * (inner + (outer - inner) * part(random));
    Corner c{r * std::cos(a), r * std::sin(a)};
    const double kind = part(random);
    if (kind < 0.1 && !corner.empty()) c.Y = corner.back().Y;
    if (kind > 0.9 && !corner.empty()) c.X = corner.back().X;
    if (kind > 0.4 && kind < 0.5 && !corner.empty()) {
      c.X = corner.back().X + 0.02 * std::cos(20 * kind);
      c.Y = corner.back().Y + 0.02 * std::sin(20 * kind);
    }
    if (part(random) < 0.5) c.Bulge = (part(random) - 0.4) * 0.6;
    if (part(random) < 0.1) c.Bulge *= 1e-4;
    corner.push_back(c);
  }
  for (std::size_t i = 0; i < corner.size(); ++i) {
    const Corner &next = corner[(i + 1) % corner.size()];
    if (std::hypot(next.X - corner[i].X, next.Y - corner[i].Y) < 0.03) corner[i].Bulge = 0;
  }
  return corner;
}
