#include "view3d/lamps.h"

#include <algorithm>

namespace {

constexpr int SkyLamps = 40, MainLamps = 9;
constexpr double SkyLight = 0.62, MainLight = 0.75;

void SeeScene(Lamp &lamp, const Scene &scene) {
  lamp.Height.assign(static_cast<std::size_t>(LampSide) * LampSide, -1e30f);
  struct Seen {
    double X, Y, H;
  };
  std::vector<Seen> seen;
  for (const MeshVertex &v : scene.Vertex) {
    const Vector3 d = Vector3{v.X, v.Y, v.Z} - lamp.Middle;
    seen.push_back({Dot(d, lamp.Across) / lamp.Texel + LampSide / 2.0,
                    Dot(d, lamp.Along) / lamp.Texel + LampSide / 2.0, Dot(d, lamp.Toward)});
  }
  for (const SceneTriangle &t : scene.Triangle) {
    const Seen &a = seen[t.Corner.A], &b = seen[t.Corner.B], &c = seen[t.Corner.C];
    const double area = (b.X - a.X) * (c.Y - a.Y) - (c.X - a.X) * (b.Y - a.Y);
    if (area <= 0) continue; // away from the lamp
    const double xs[3] = {a.X, b.X, c.X}, ys[3] = {a.Y, b.Y, c.Y};
    const int y0 = std::max(0, static_cast<int>(std::min({a.Y, b.Y, c.Y}))),
              y1 = std::min(LampSide - 1, static_cast<int>(std::max({a.Y, b.Y, c.Y})));
    for (int y = y0; y <= y1; ++y) {
      const RowSpan span = SpanOf(xs, ys, y + 0.5, LampSide);
      for (int x = span.First; x <= span.Last; ++x) {
        const double px = x + 0.5, py = y + 0.5;
        const double pa = ((b.X - px) * (c.Y - py) - (c.X - px) * (b.Y - py)) / area;
        const double pb = ((c.X - px) * (a.Y - py) - (a.X - px) * (c.Y - py)) / area;
        const double pc = 1 - pa - pb;
        float &h = lamp.Height[static_cast<std::size_t>(y) * LampSide + x];
        h = std::max(h, static_cast<float>(pa * a.H + pb * b.H + pc * c.H));
      }
    }
  }
}

Lamp LampAt(const Vector3 &toward, double strength, const Ball &ball) {
  Lamp lamp;
  lamp.Toward = toward;
  lamp.Across = Unit(Cross(std::abs(toward.Y) > 0.9 ? Vector3{1, 0, 0} : Vector3{0, 1, 0}, toward));
  lamp.Along = Cross(toward, lamp.Across);
  lamp.Strength = strength;
  lamp.Middle = ball.Middle;
  lamp.Texel = 2.05 * ball.Radius / LampSide;
  const Vector3 rows[3] = {lamp.Across * (1 / lamp.Texel), lamp.Along * (1 / lamp.Texel), lamp.Toward};
  const double shift[3] = {LampSide / 2.0, LampSide / 2.0, 0.8 * lamp.Texel};
  for (std::size_t i = 0; i < 3; ++i) {
    const double row[4] = {rows[i].X, rows[i].Y, rows[i].Z, shift[i] - Dot(rows[i], lamp.Middle)};
    for (std::size_t k = 0; k < 4; ++k) lamp.Place[4 * i + k] = static_cast<float>(row[k]);
  }
  return lamp;
}

} // namespace

Ball BallAround(const std::vector<MeshVertex> &vertices) {
  Ball ball;
  if (vertices.empty()) return ball;
  Vector3 low{1e300, 1e300, 1e300}, high{-1e300, -1e300, -1e300};
  for (const MeshVertex &v : vertices) {
    low = {std::min(low.X, double{v.X}), std::min(low.Y, double{v.Y}), std::min(low.Z, double{v.Z})};
    high = {std::max(high.X, double{v.X}), std::max(high.Y, double{v.Y}), std::max(high.Z, double{v.Z})};
  }
  ball.Middle = (low + high) * 0.5;
  double most = 0;
  for (const MeshVertex &v : vertices) {
    const Vector3 d = Vector3{v.X, v.Y, v.Z} - ball.Middle;
    most = std::max(most, Dot(d, d));
  }
  ball.Radius = std::sqrt(most);
  return ball;
}

std::vector<Lamp> LightLamps(const Scene &scene, const Ball &ball, const Vector3 &right, const Vector3 &up,
                             const Vector3 &toEye) {
  std::vector<Lamp> lamps;
  const double golden = 2.39996322972865;
  for (int i = 0; i < SkyLamps; ++i) { // evenly over the sky, down to a little below the horizon
    const double y = 1 - 1.15 * (i + 0.5) / SkyLamps, r = std::sqrt(1 - y * y), a = golden * i;
    lamps.push_back(LampAt({r * std::cos(a), y, r * std::sin(a)}, 2.2 * SkyLight / SkyLamps, ball));
  }
  const Vector3 main = Unit(toEye * 0.75 + right * -0.55 + up * 0.85);
  for (int i = 0; i < MainLamps; ++i) { // a disc of six degrees
    const double r = 0.11 * std::sqrt((i + 0.5) / MainLamps), a = golden * i;
    lamps.push_back(
        LampAt(Unit(main + right * (r * std::cos(a)) + up * (r * std::sin(a))), MainLight / MainLamps, ball));
  }
  for (Lamp &lamp : lamps) SeeScene(lamp, scene);
  return lamps;
}

bool Shadowed(const Lamp &lamp, float x, float y, float z) {
  const std::array<float, 12> &m = lamp.Place;
  const float u = m[0] * x + m[1] * y + m[2] * z + m[3], v = m[4] * x + m[5] * y + m[6] * z + m[7];
  constexpr float side = LampSide;
  if (!(u >= 0 && v >= 0 && u < side && v < side)) return false;
  const std::size_t at = static_cast<std::size_t>(v) * LampSide + static_cast<std::size_t>(u);
  return lamp.Height[at] > m[8] * x + m[9] * y + m[10] * z + m[11];
}

RowSpan SpanOf(const double (&x)[3], const double (&y)[3], double row, int width) {
  double from = 1e300, to = -1e300;
  for (int i = 0; i < 3; ++i) {
    const int k = (i + 1) % 3;
    if ((y[i] <= row) == (y[k] <= row)) continue;
    const double at = x[i] + (row - y[i]) / (y[k] - y[i]) * (x[k] - x[i]);
    from = std::min(from, at), to = std::max(to, at);
  }
  if (!(from <= to)) return {};
  return {static_cast<int>(std::ceil(std::max(from - 0.5, 0.0))),
          static_cast<int>(std::floor(std::min(to - 0.5, width - 1.0)))};
}

float OpenLight(const std::vector<Lamp> &lamps) {
  double sum = 0;
  for (const Lamp &lamp : lamps) sum += lamp.Strength * std::max(0.0, lamp.Toward.Y);
  return static_cast<float>(sum);
}
