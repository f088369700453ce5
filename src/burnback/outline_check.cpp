#include "burnback/outline_check.h"

#include "burnback/reach.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

struct Points {
  std::array<double, 2> X{}, Y{};
  int Count = 0;
};

bool Inner(const Source &s, double x, double y,
           double margin) { // on the piece and not within margin of its ends
  if (s.What == Source::Kind::Line) {
    const double along = (x - s.X) * s.UX + (y - s.Y) * s.UY;
    return along > margin && along < s.Length - margin;
  }
  if (s.Length >= TwoPi) return true;
  double t = std::atan2(y - s.Y, x - s.X) - s.Start;
  t -= TwoPi * std::floor(t / TwoPi);
  return t * s.Radius > margin && (s.Length - t) * s.Radius > margin;
}

Points Crossings(const Source &a, const Source &b) {
  Points p;
  const auto add = [&](double x, double y) {
    p.X[p.Count] = x;
    p.Y[p.Count++] = y;
  };
  if (a.What == Source::Kind::Line && b.What == Source::Kind::Line) {
    const double cross = a.UX * b.UY - a.UY * b.UX;
    if (std::abs(cross) < 1e-9) return p;
    const double s = ((b.X - a.X) * b.UY - (b.Y - a.Y) * b.UX) / cross;
    add(a.X + s * a.UX, a.Y + s * a.UY);
  } else if (a.What == Source::Kind::Line) {
    const double dx = b.X - a.X, dy = b.Y - a.Y, middle = dx * a.UX + dy * a.UY,
                 height = a.UX * dy - a.UY * dx;
    const double D = b.Radius * b.Radius - height * height;
    if (D <= 1e-13 * b.Radius * b.Radius) return p; // a touch is no crossing
    for (const double sign : {-1.0, 1.0})
      add(a.X + (middle + sign * std::sqrt(D)) * a.UX, a.Y + (middle + sign * std::sqrt(D)) * a.UY);
  } else if (b.What == Source::Kind::Line) {
    return Crossings(b, a);
  } else if (a.Radius > b.Radius) {
    return Crossings(b, a); // from the smaller circle: the larger one's radius would drown the half chord
  } else {
    const double dx = b.X - a.X, dy = b.Y - a.Y, D = std::hypot(dx, dy);
    if (D < 1e-12 * (a.Radius + b.Radius)) return p;
    const double along = (D * D + a.Radius * a.Radius - b.Radius * b.Radius) / (2 * D);
    const double H = a.Radius * a.Radius - along * along;
    if (H <= 1e-13 * a.Radius * a.Radius) return p;
    for (const double sign : {-1.0, 1.0})
      add(a.X + (along * dx - sign * std::sqrt(H) * dy) / D,
          a.Y + (along * dy + sign * std::sqrt(H) * dx) / D);
  }
  return p;
}

// The angle, seen from x, y, that the walk along a piece sweeps, counter-clockwise positive.
double SeenSweep(const Source &s, double x, double y) {
  const auto seen = [&](double foot, double next) {
    double ax, ay, bx, by;
    FrontPoint(s, foot, 0, ax, ay);
    FrontPoint(s, next, 0, bx, by);
    ax -= x, ay -= y, bx -= x, by -= y;
    return std::atan2(ax * by - ay * bx, ax * bx + ay * by);
  };
  if (s.What == Source::Kind::Line) return seen(0, s.Length);
  double sum = 0;
  const int parts = 1 + static_cast<int>(s.Length / (TwoPi / 6));
  for (int k = 0; k < parts; ++k) {
    const double from = s.Length * k / parts, to = s.Length * (k + 1) / parts;
    double angle = seen(from, to);
    // Between chord and arc the chord is seen the other way round.
    if (angle < 0 && std::hypot(x - s.X, y - s.Y) < s.Radius) angle += TwoPi;
    sum += angle;
  }
  return s.Side < 0 ? sum : -sum;
}

// How near to the joint of two pieces a crossing is only the roughness of the joint: two ends may overshoot
// each other by what the joining tolerance lets pass.
double JointMargin(const std::vector<Source> &outline, int i, int j, double R) {
  const int n = static_cast<int>(outline.size()), apart = std::min(j - i, n - (j - i));
  if (apart == 1) return 1e-6 * R;
  if (apart > 2) return 1e-7 * R;
  const Source &between = outline[j - i == 2 ? i + 1 : (j + 1) % n];
  return std::max(1e-7 * R, between.Bridge ? 20 * between.Length : 0);
}

} // namespace

bool CrossesItself(const std::vector<Source> &outline, double R, double &x, double &y) {
  const int n = static_cast<int>(outline.size());
  for (int i = 0; i < n; ++i)
    for (int j = i + 1; j < n; ++j) {
      const Source &a = outline[i], &b = outline[j];
      const double apart = std::hypot(a.MidX - b.MidX, a.MidY - b.MidY);
      if (apart > a.Reach + b.Reach) continue;
      const double margin = JointMargin(outline, i, j, R);
      const Points p = Crossings(a, b);
      for (int k = 0; k < p.Count; ++k)
        if (Inner(a, p.X[k], p.Y[k], margin) && Inner(b, p.X[k], p.Y[k], margin)) {
          x = p.X[k], y = p.Y[k];
          return true;
        }
    }
  // The port lies on the right of every piece, once: on the left nothing, on the right one turn of the walk
  // (none in a slit of no width).
  for (const Source &s : outline)
    for (const double side : {1e-9 * R, -1e-9 * R}) {
      if (s.Bridge) continue;
      double px, py, turns = 0;
      FrontPoint(s, s.Length / 2, side, px, py);
      for (const Source &other : outline) turns += SeenSweep(other, px, py);
      if (side > 0 ? std::abs(turns) < 1 : turns < 1 && turns > -1.5 * TwoPi) continue;
      x = px, y = py;
      return true;
    }
  return false;
}
