#include "dxf/shape_rows.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace {
constexpr double LeastLength = 1e-9; // mm; shorter rows are left out

void Keep(ShapeSink &sink, const Entity &row) {
  for (const double v : {row.X1, row.Y1, row.X2, row.Y2, row.CenterX, row.CenterY, row.Radius})
    if (!std::isfinite(v)) return Skip(sink, "beyond all numbers");
  ++sink.Out.Count;
  if (sink.Out.Row.size() >= MostRows) return;
  sink.Out.Row.push_back(row);
  sink.Out.RowLine.push_back(sink.Line);
}

bool IsFull(const ShapeSink &sink) { return sink.Out.Row.size() >= MostRows; }

void KeepApproximation(ShapeSink &sink, const std::vector<Entity> &rows) {
  ++sink.Out.Approximated;
  sink.Out.ApproximationRows += static_cast<int>(rows.size());
  for (const Entity &row : rows) Keep(sink, row);
}

double Apart(Point a, Point b) { return std::hypot(a.X - b.X, a.Y - b.Y); }
} // namespace

void Skip(ShapeSink &sink, const char *why) {
  constexpr std::size_t mostKinds = 30;
  std::string kind = sink.Type + (*why ? std::string(" (") + why + ")" : "");
  if (sink.Out.Skipped.size() >= mostKinds && !sink.Out.Skipped.count(kind)) kind = "other kinds";
  ++sink.Out.Skipped[kind];
}

void AddLine(ShapeSink &sink, const PlaneMap &map, Point from, Point to) {
  const Point a = Mapped(map, from), b = Mapped(map, to);
  if (!(Apart(a, b) > LeastLength)) return Skip(sink, "without length");
  Keep(sink, MakeLine(a.X, a.Y, b.X, b.Y));
}

void AddConic(ShapeSink &sink, const PlaneMap &map, const Conic &drawn) {
  const Conic c = MappedConic(map, drawn);
  const double size = std::max(std::hypot(c.U.X, c.U.Y), std::hypot(c.V.X, c.V.Y));
  if (!(size * (c.To - c.From) > LeastLength) || IsFlat(c)) return Skip(sink, "without length");
  if (IsRound(c)) return Keep(sink, RowFrom(c));
  if (IsFull(sink)) {
    ++sink.Out.Count;
    return;
  }
  const Curve curve = [&c](double t) {
    const double x = std::cos(t), y = std::sin(t);
    return CurvePoint{{c.Centre.X + c.U.X * x + c.V.X * y, c.Centre.Y + c.U.Y * x + c.V.Y * y},
                      {c.V.X * x - c.U.X * y, c.V.Y * x - c.U.Y * y}};
  };
  std::vector<Entity> rows;
  const double quarter = Pi / 2; // parted at the axes, so that a whole ellipse comes out even
  for (double from = c.From; from < c.To && rows.size() < MostRows;) {
    double to = quarter * (std::floor(from / quarter + 1e-9) + 1);
    if (to > c.To - 1e-9) to = c.To;
    AppendTangentArcs(curve, from, to, sink.Tolerance, MostRows, rows);
    from = to;
  }
  KeepApproximation(sink, rows);
}

void AddSpline(ShapeSink &sink, const PlaneMap &map, SplineCurve spline) {
  if (const char *why = Unsound(spline)) return Skip(sink, why);
  if (IsFull(sink)) {
    ++sink.Out.Count;
    return;
  }
  for (Point &pole : spline.Pole) pole = Mapped(map, pole);
  std::vector<Entity> rows, sound;
  AppendSpline(spline, sink.Tolerance, MostRows, rows);
  for (const Entity &row : rows)
    if (Apart({row.X1, row.Y1}, {row.X2, row.Y2}) > LeastLength) sound.push_back(row);
  if (sound.empty()) return Skip(sink, "without length");
  KeepApproximation(sink, sound);
}

void AddPath(ShapeSink &sink, const PlaneMap &map, const std::vector<BulgePoint> &path, bool closed) {
  if (path.size() < 2) return Skip(sink, "without length");
  const std::size_t pieces = path.size() - (closed ? 0 : 1);
  std::size_t kept = 0;
  for (std::size_t i = 0; i < pieces; ++i) {
    const BulgePoint &from = path[i], &to = path[(i + 1) % path.size()];
    const Point a = Mapped(map, from.At), b = Mapped(map, to.At);
    if (!(Apart(a, b) > LeastLength)) continue; // doubled points are common and mean nothing
    ++kept;
    if (std::abs(from.Bulge) < 1e-12) {
      AddLine(sink, map, from.At, to.At);
      continue;
    }
    const double half = 2 * std::atan(from.Bulge); // of the sweep, signed
    const double chord = Apart(from.At, to.At), radius = std::abs(chord / (2 * std::sin(half)));
    // From the chord's middle to the centre, to the left of the way: r cos(half), its sign that of the bulge.
    const double off = (1 - from.Bulge * from.Bulge) / (4 * from.Bulge);
    const Point way{to.At.X - from.At.X, to.At.Y - from.At.Y};
    const Point centre{(from.At.X + to.At.X) / 2 - off * way.Y, (from.At.Y + to.At.Y) / 2 + off * way.X};
    const Point &start = from.Bulge > 0 ? from.At : to.At;
    Conic arc{centre, {radius, 0}, {0, radius}, std::atan2(start.Y - centre.Y, start.X - centre.X), 0, false};
    if (arc.From < 0) arc.From += TwoPi;
    arc.To = arc.From + 2 * std::abs(half);
    AddConic(sink, map, arc);
  }
  if (kept == 0) Skip(sink, "without length");
}
