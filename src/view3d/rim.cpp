#include "view3d/rim.h"

#include <algorithm>
#include <cmath>

double GridUnit(double R) {
  int exponent = 0;
  std::frexp(R, &exponent); // R <= 2^exponent
  return std::ldexp(1.0, exponent - 23);
}

RimPoint ToGrid(double x, double y, double unit) {
  return {static_cast<std::int32_t>(std::lround(x / unit)), static_cast<std::int32_t>(std::lround(y / unit))};
}

int ChordCount(const SectionPiece &p, double chord) {
  if (!p.Arc) return 1;
  const double sweep = std::abs(p.Sweep);
  if (p.Radius * sweep * sweep / 8 < chord * 1e-4) return 1; // next to straight
  // Of two chords the middle point stands r (step^2)/6 outside, which is the farthest that any gets.
  const double step = std::min(std::sqrt(6 * chord / p.Radius), Pi / 4);
  return std::max(2, static_cast<int>(std::ceil(sweep / step)));
}

std::vector<PlanePoint> CutArc(const SectionPiece &p, PlanePoint from, PlanePoint to, int n) {
  const double w = std::abs(p.Sweep), r = p.Radius;
  const bool whole = p.From == p.To;
  const double C = r * r * w / std::sin(w / n); // twice the sector's area over the sine of a step
  const double out = whole ? std::sqrt(C / n) : C / (r + std::sqrt(r * r + (n - 2) * C));
  std::vector<PlanePoint> at;
  for (int i = 0; i <= n; ++i) {
    const double a = p.Start + p.Sweep * (whole && i == n ? 0 : i) / n;
    at.push_back({p.CenterX + out * std::cos(a), p.CenterY + out * std::sin(a)});
  }
  if (!whole) at.front() = from, at.back() = to;
  return at;
}

CutSection CutPieces(const GrainSection &s, double chord) {
  CutSection cut;
  cut.Unit = GridUnit(s.GrainRadius);
  for (const SectionPiece &p : s.Piece) {
    const PlanePoint from{s.Joint[p.From].X, s.Joint[p.From].Y}, to{s.Joint[p.To].X, s.Joint[p.To].Y};
    const std::vector<PlanePoint> at =
        p.Arc ? CutArc(p, from, to, ChordCount(p, chord)) : std::vector{from, to};
    std::vector<RimPoint> points;
    std::vector<PlanePoint> normals;
    const int last = static_cast<int>(at.size()) - 1;
    for (int i = 0; i <= last; ++i) {
      points.push_back(ToGrid(at[i].X, at[i].Y, cut.Unit));
      if (p.Arc) {
        const double a = p.Start + p.Sweep * i / last, side = p.Sweep > 0 ? 1 : -1;
        normals.push_back({side * std::cos(a), side * std::sin(a)});
      } else {
        const double l = std::hypot(to.X - from.X, to.Y - from.Y);
        normals.push_back({(to.Y - from.Y) / l, (from.X - to.X) / l});
      }
    }
    cut.Point.push_back(std::move(points));
    cut.Normal.push_back(std::move(normals));
  }
  return cut;
}

RimLoop RimOf(const CutSection &cut, const std::vector<int> &pieces, const std::vector<char> &backwards,
              const std::vector<Surface> &tags) {
  RimLoop loop;
  for (const int piece : pieces) {
    const std::vector<RimPoint> &at = cut.Point[piece];
    const std::vector<PlanePoint> &normal = cut.Normal[piece];
    const int n = static_cast<int>(at.size());
    const bool back = backwards[piece] != 0;
    const double side = back ? -1 : 1;
    for (int k = 0; k + 1 < n; ++k) {
      const int a = back ? n - 1 - k : k, b = back ? a - 1 : a + 1;
      if (at[a] == at[b]) continue;
      loop.push_back({at[a], at[b], static_cast<float>(side * normal[a].X),
                      static_cast<float>(side * normal[a].Y), static_cast<float>(side * normal[b].X),
                      static_cast<float>(side * normal[b].Y), tags[piece]});
    }
  }
  SmoothJoints(loop);
  return loop;
}

void SmoothJoints(RimLoop &loop) {
  for (std::size_t i = 0; i < loop.size(); ++i) {
    RimEdge &a = loop[i], &b = loop[(i + 1) % loop.size()];
    if (a.Tag != b.Tag || (a.NX2 == b.NX1 && a.NY2 == b.NY1)) continue;
    if (a.NX2 * b.NX1 + a.NY2 * b.NY1 < 0.9986f) continue;
    const float x = a.NX2 + b.NX1, y = a.NY2 + b.NY1, l = std::sqrt(x * x + y * y);
    a.NX2 = b.NX1 = x / l;
    a.NY2 = b.NY1 = y / l;
  }
}
