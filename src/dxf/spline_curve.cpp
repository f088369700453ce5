#include "dxf/spline_curve.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {
struct Lifted { // a pole times its weight
  double X = 0, Y = 0, W = 0;
};
Lifted Between(const Lifted &a, const Lifted &b, double part) {
  return {a.X + (b.X - a.X) * part, a.Y + (b.Y - a.Y) * part, a.W + (b.W - a.W) * part};
}

double KnotAt(const SplineCurve &s, int i) { return s.Knot[static_cast<std::size_t>(i)]; }
int Poles(const SplineCurve &s) { return static_cast<int>(s.Pole.size()); }

int SpanOf(const SplineCurve &s, double t) { // the last one that begins at or before t and has a length
  const auto first = s.Knot.begin() + s.Degree, last = s.Knot.begin() + Poles(s);
  auto it = std::upper_bound(first, last, t);
  if (it == last) it = std::lower_bound(first, last, *last);
  return static_cast<int>(std::max(it - 1, first) - s.Knot.begin());
}

bool IsNull(Point p) { return !(std::hypot(p.X, p.Y) > 0); }
} // namespace

const char *Unsound(const SplineCurve &s) {
  if (s.Degree < 1 || s.Degree > MostDegree) return "its degree";
  if (Poles(s) < s.Degree + 1) return "too few control points";
  if (s.Knot.size() != s.Pole.size() + static_cast<std::size_t>(s.Degree) + 1) return "its number of knots";
  if (!std::is_sorted(s.Knot.begin(), s.Knot.end())) return "knots that fall";
  if (!(KnotAt(s, s.Degree) < KnotAt(s, Poles(s)))) return "knots without a span";
  if (s.Weight.size() != s.Pole.size()) return "its number of weights";
  for (const double w : s.Weight)
    if (!(w > 0)) return "a weight that is not above 0";
  return nullptr;
}

CurvePoint PointOf(const SplineCurve &s, double t, int span) {
  std::array<Lifted, MostDegree + 1> d;
  const int p = s.Degree;
  for (int j = 0; j <= p; ++j) {
    const auto i = static_cast<std::size_t>(span - p + j);
    d[static_cast<std::size_t>(j)] = {s.Pole[i].X * s.Weight[i], s.Pole[i].Y * s.Weight[i], s.Weight[i]};
  }
  Lifted rate; // the derivative, up to a factor
  for (int r = 1; r <= p; ++r) {
    if (r == p) rate = {d[p].X - d[p - 1].X, d[p].Y - d[p - 1].Y, d[p].W - d[p - 1].W};
    for (int j = p; j >= r; --j) {
      const double low = KnotAt(s, span - p + j), high = KnotAt(s, span + 1 + j - r);
      const auto k = static_cast<std::size_t>(j);
      d[k] = Between(d[k - 1], d[k], high > low ? (t - low) / (high - low) : 0);
    }
  }
  const Lifted &at = d[static_cast<std::size_t>(p)];
  const Point place{at.X / at.W, at.Y / at.W};
  return {place, {rate.X - rate.W * place.X, rate.Y - rate.W * place.Y}};
}

namespace {
// Where poles coincide the derivative vanishes: there the direction is that of a place close by, within the
// span.
CurvePoint SoundPoint(const SplineCurve &s, double t, int span) {
  CurvePoint here = PointOf(s, t, span);
  const double low = KnotAt(s, span), high = KnotAt(s, span + 1);
  double size = 0;
  for (int j = 0; j < s.Degree; ++j) {
    const Point &a = s.Pole[static_cast<std::size_t>(span - j)],
                &b = s.Pole[static_cast<std::size_t>(span - j - 1)];
    size = std::max(size, std::hypot(a.X - b.X, a.Y - b.Y));
  }
  if (std::hypot(here.Along.X, here.Along.Y) > 1e-9 * size) return here;
  const double step = (high - low) * 1e-4, other = t + step <= high ? t + step : t - step;
  const Point near = PointOf(s, other, span).At;
  const double sign = other > t ? 1 : -1;
  here.Along = {(near.X - here.At.X) * sign, (near.Y - here.At.Y) * sign};
  return here;
}

double TurnBetween(Point a, Point b) {
  return std::abs(std::atan2(a.X * b.Y - a.Y * b.X, a.X * b.X + a.Y * b.Y));
}
} // namespace

void AppendSpline(const SplineCurve &s, double tolerance, std::size_t most, std::vector<Entity> &rows) {
  constexpr double corner = 1e-6; // radians
  const int first = SpanOf(s, KnotAt(s, s.Degree)), last = Poles(s) - 1;
  double from = KnotAt(s, first);
  int before = first;
  const auto append = [&](double to) {
    const Curve curve = [&s, from, to, before](double t) {
      // At its ends a stretch is seen from inside: beyond may lie a corner.
      int span = t <= from ? SpanOf(s, from) : SpanOf(s, t);
      if (t >= to) span = before;
      return SoundPoint(s, t, span);
    };
    AppendTangentArcs(curve, from, to, tolerance, most, rows);
    from = to;
  };
  for (int span = first + 1; span <= last; ++span) {
    if (!(KnotAt(s, span) < KnotAt(s, span + 1))) continue;
    const double t = KnotAt(s, span);
    if (TurnBetween(SoundPoint(s, t, before).Along, SoundPoint(s, t, span).Along) > corner) append(t);
    before = span;
  }
  append(KnotAt(s, Poles(s)));
}

SplineCurve ThroughPoints(const std::vector<Point> &at, Point startTangent, Point endTangent) {
  const std::size_t n = at.size();
  std::vector<double> t(n), diagonal(n), upper(n);
  std::vector<Point> slope(n);
  for (std::size_t i = 1; i < n; ++i)
    t[i] = t[i - 1] + std::hypot(at[i].X - at[i - 1].X, at[i].Y - at[i - 1].Y);
  const auto rate = [&](std::size_t i) { // of the chord that ends in i
    const double h = t[i] - t[i - 1];
    return Point{(at[i].X - at[i - 1].X) / h, (at[i].Y - at[i - 1].Y) / h};
  };
  const auto unit = [](Point p) {
    const double l = std::hypot(p.X, p.Y);
    return Point{p.X / l, p.Y / l};
  };
  // The slopes that make the second derivative continuous, by one sweep down and one up.
  for (std::size_t i = 0; i < n; ++i) {
    double low = 0, here = 1, high = 0;
    Point right;
    if (i == 0 || i + 1 == n) {
      const Point tangent = i == 0 ? startTangent : endTangent;
      if (IsNull(tangent)) {
        here = 2;
        (i == 0 ? high : low) = 1;
        const Point r = rate(i == 0 ? 1 : i);
        right = {3 * r.X, 3 * r.Y};
      } else {
        right = unit(tangent);
      }
    } else {
      low = t[i + 1] - t[i];
      high = t[i] - t[i - 1];
      here = 2 * (low + high);
      const Point a = rate(i), b = rate(i + 1);
      right = {3 * (low * a.X + high * b.X), 3 * (low * a.Y + high * b.Y)};
    }
    const double factor = i == 0 ? 0 : low / diagonal[i - 1];
    diagonal[i] = here - (i == 0 ? 0 : factor * upper[i - 1]);
    upper[i] = high;
    slope[i] = i == 0 ? right : Point{right.X - factor * slope[i - 1].X, right.Y - factor * slope[i - 1].Y};
  }
  for (std::size_t i = n; i-- > 0;) {
    const Point next = i + 1 < n ? slope[i + 1] : Point{};
    slope[i] = {(slope[i].X - upper[i] * next.X) / diagonal[i],
                (slope[i].Y - upper[i] * next.Y) / diagonal[i]};
  }
  SplineCurve s;
  s.Knot.assign(4, t.front());
  for (std::size_t i = 0; i < n; ++i) {
    if (i > 0) {
      const double third = (t[i] - t[i - 1]) / 3;
      s.Pole.push_back({at[i - 1].X + third * slope[i - 1].X, at[i - 1].Y + third * slope[i - 1].Y});
      s.Pole.push_back({at[i].X - third * slope[i].X, at[i].Y - third * slope[i].Y});
    }
    s.Pole.push_back(at[i]);
    if (i > 0) s.Knot.insert(s.Knot.end(), i + 1 == n ? 4 : 3, t[i]);
  }
  s.Weight.assign(s.Pole.size(), 1);
  return s;
}
