#include "view3d/raster.h"

#include "view3d/lamps.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int Fine = 3;              // samples to a pixel in each direction
constexpr int BandSamples = 3000000; // drawn at a time
constexpr std::uint8_t Ground = 254, Nothing = 255;

struct Camera {
  Vector3 Eye, Right, Up, Ahead;
  bool Perspective = true;
  double Scale = 1, ShiftX = 0, ShiftY = 0; // of the image plane at distance 1, into samples
};

struct ScreenPoint {
  double X = 0, Y = 0, Near = 0; // samples; 1/depth, or the depth below 0 when parallel
};

ScreenPoint Project(const Camera &c, const Vector3 &p) {
  const Vector3 d = p - c.Eye;
  const double depth = Dot(d, c.Ahead), near = c.Perspective ? 1 / depth : 1;
  return {c.ShiftX + c.Scale * near * Dot(d, c.Right), c.ShiftY - c.Scale * near * Dot(d, c.Up),
          c.Perspective ? near : -depth};
}

Vector3 RayOf(const Camera &c, double x, double y, Vector3 &from) { // unit length
  const double u = (x - c.ShiftX) / c.Scale, v = (c.ShiftY - y) / c.Scale;
  if (!c.Perspective) {
    from = c.Eye + c.Right * u + c.Up * v;
    return c.Ahead;
  }
  from = c.Eye;
  return c.Ahead + c.Right * u + c.Up * v; // of depth 1
}

Vector3 PlaceOf(const MeshVertex &v) { return {v.X, v.Y, v.Z}; }

Camera CameraFor(const Scene &scene, const SceneView &view, const Ball &ball) {
  const double a = view.Azimuth * 3.14159265358979 / 180, e = view.Elevation * 3.14159265358979 / 180;
  Camera c;
  c.Perspective = view.Perspective;
  const Vector3 toEye{std::cos(e) * std::cos(a), std::sin(e), std::cos(e) * std::sin(a)};
  c.Ahead = toEye * -1;
  c.Right = std::abs(toEye.Y) > 0.9999 ? Vector3{-std::sin(a), 0, std::cos(a)} * -1
                                       : Unit(Cross(c.Ahead, {0, 1, 0}));
  c.Up = Cross(c.Right, c.Ahead);
  c.Eye = ball.Middle + toEye * (ball.Radius * 4.2);
  double left = 1e300, right = -1e300, top = 1e300, bottom = -1e300;
  for (const MeshVertex &v : scene.Vertex) {
    const ScreenPoint p = Project(c, PlaceOf(v));
    left = std::min(left, p.X), right = std::max(right, p.X);
    top = std::min(top, p.Y), bottom = std::max(bottom, p.Y);
  }
  if (scene.Vertex.empty()) left = top = -1, right = bottom = 1;
  const double w = view.Width * Fine, h = view.Height * Fine * (1 - view.Bottom),
               margin = view.Margin * std::min(view.Width, view.Height) * Fine;
  c.Scale = std::max(1.0, std::min((w - 2 * margin) / std::max(right - left, 1e-12),
                                   (h - 2 * margin) / std::max(bottom - top, 1e-12)));
  c.ShiftX = w / 2 - c.Scale * (left + right) / 2;
  c.ShiftY = h / 2 - c.Scale * (top + bottom) / 2;
  return c;
}

struct Sample {
  float Near = -1e30f;
  float NX = 0, NY = 0, NZ = 0;
  std::uint8_t Material = Nothing;
};

struct Band {
  int Top = 0, Rows = 0, Width = 0; // samples
  std::vector<Sample> Of;
  Sample &At(int x, int y) { return Of[static_cast<std::size_t>(y - Top) * Width + x]; }
};

void DrawTriangle(Band &band, const Camera &camera, const Scene &scene, const SceneTriangle &t) {
  const MeshVertex *v[3] = {&scene.Vertex[t.Corner.A], &scene.Vertex[t.Corner.B], &scene.Vertex[t.Corner.C]};
  ScreenPoint p[3];
  for (int i = 0; i < 3; ++i) p[i] = Project(camera, PlaceOf(*v[i]));
  const double area = (p[1].X - p[0].X) * (p[2].Y - p[0].Y) - (p[2].X - p[0].X) * (p[1].Y - p[0].Y);
  if (area >= 0) return; // seen from behind: Y runs down
  const auto low = [](double a, double b, double c) { return std::min({a, b, c}); };
  const auto high = [](double a, double b, double c) { return std::max({a, b, c}); };
  const int y0 = std::max(band.Top, static_cast<int>(std::ceil(low(p[0].Y, p[1].Y, p[2].Y) - 0.5))),
            y1 = std::min(band.Top + band.Rows - 1,
                          static_cast<int>(std::floor(high(p[0].Y, p[1].Y, p[2].Y) - 0.5)));
  const double xs[3] = {p[0].X, p[1].X, p[2].X}, ys[3] = {p[0].Y, p[1].Y, p[2].Y};
  for (int y = y0; y <= y1; ++y) {
    const RowSpan span = SpanOf(xs, ys, y + 0.5, band.Width);
    for (int x = span.First; x <= span.Last; ++x) {
      const double sx = x + 0.5, sy = y + 0.5;
      double part[3];
      for (int i = 0; i < 3; ++i) {
        const ScreenPoint &a = p[(i + 1) % 3], &b = p[(i + 2) % 3];
        part[i] = ((b.X - a.X) * (sy - a.Y) - (sx - a.X) * (b.Y - a.Y)) / area;
      }
      const double near = part[0] * p[0].Near + part[1] * p[1].Near + part[2] * p[2].Near;
      Sample &s = band.At(x, y);
      if (static_cast<float>(near) <= s.Near) continue;
      s.Near = static_cast<float>(near);
      s.Material = t.Material;
      double n[3] = {0, 0, 0};
      for (int i = 0; i < 3; ++i) {
        const double share = camera.Perspective ? part[i] * p[i].Near / near : part[i];
        n[0] += share * v[i]->NormalX, n[1] += share * v[i]->NormalY, n[2] += share * v[i]->NormalZ;
      }
      s.NX = static_cast<float>(n[0]), s.NY = static_cast<float>(n[1]), s.NZ = static_cast<float>(n[2]);
    }
  }
}

Vector3 PlaceAt(const Camera &c, int x, int y, double near) {
  Vector3 from;
  const Vector3 ray = RayOf(c, x + 0.5, y + 0.5, from);
  return from + ray * (c.Perspective ? 1 / near : -near);
}

// The ground under the solids, where nothing else is.
void AddGround(Band &band, const Camera &camera, double height) {
  for (int y = band.Top; y < band.Top + band.Rows; ++y)
    for (int x = 0; x < band.Width; ++x) {
      Sample &s = band.At(x, y);
      if (s.Material != Nothing) continue;
      Vector3 from;
      const Vector3 ray = RayOf(camera, x + 0.5, y + 0.5, from);
      if (ray.Y >= -1e-9) continue;
      const double along = (height - from.Y) / ray.Y;
      s.Near = static_cast<float>(camera.Perspective ? 1 / along : -along);
      s.NX = 0, s.NY = 1, s.NZ = 0;
      s.Material = Ground;
    }
}

struct Shade {
  float R = 0, G = 0, B = 0;
};

Shade FromHex(std::uint32_t rgb) { // to the amount of light
  const auto light = [](std::uint32_t c) { return std::pow(static_cast<float>(c & 0xff) / 255, 2.2f); };
  return {light(rgb >> 16), light(rgb >> 8), light(rgb)};
}

std::uint32_t ToHex(const Shade &s) {
  const auto byte = [](float light) {
    return static_cast<std::uint32_t>(std::lround(255 * std::pow(std::clamp(light, 0.0f, 1.0f), 1 / 2.2f)));
  };
  return byte(s.R) << 16 | byte(s.G) << 8 | byte(s.B);
}

// A fold or a step between two samples: a line is drawn there.
bool Apart(const Sample &a, const Sample &b, bool perspective, double step) {
  if (a.Material == Nothing || b.Material == Nothing || (a.Material == Ground && b.Material == Ground))
    return false;
  if (a.Material != b.Material) return true;
  if (a.NX * b.NX + a.NY * b.NY + a.NZ * b.NZ < 0.82f) return true;
  const double gap = perspective ? std::abs(1.0 / a.Near - 1.0 / b.Near) : std::abs(a.Near - b.Near);
  return gap > step;
}

struct Received {
  float Light = 0, Shine = 0;
};

// halfway: for each lamp, the direction midway between it and the eye.
Received LightOn(const Sample &s, const Vector3 &place, double lift, const std::vector<Lamp> &lamps,
                 const std::vector<Vector3> &halfway, float gloss) {
  const float x = static_cast<float>(place.X + s.NX * lift), y = static_cast<float>(place.Y + s.NY * lift),
              z = static_cast<float>(place.Z + s.NZ * lift);
  Received r{0.14f, 0}; // what other surfaces throw back
  for (std::size_t i = 0; i < lamps.size(); ++i) {
    const Lamp &lamp = lamps[i];
    const float facing =
        static_cast<float>(s.NX * lamp.Toward.X + s.NY * lamp.Toward.Y + s.NZ * lamp.Toward.Z);
    if (facing <= 0 || Shadowed(lamp, x, y, z)) continue;
    r.Light += static_cast<float>(lamp.Strength) * facing;
    if (gloss <= 0) continue;
    const Vector3 &half = halfway[i];
    const float mirror = static_cast<float>(s.NX * half.X + s.NY * half.Y + s.NZ * half.Z);
    if (mirror > 0.8f) r.Shine += 0.5f * gloss * static_cast<float>(lamp.Strength) * std::pow(mirror, 60.0f);
  }
  return r;
}

} // namespace

void AddToScene(Scene &scene, const Mesh &mesh, double turn,
                const std::array<std::uint8_t, SurfaceCount> &materialOf) {
  const std::uint32_t base = static_cast<std::uint32_t>(scene.Vertex.size());
  const float c = static_cast<float>(std::cos(turn)), s = static_cast<float>(std::sin(turn));
  for (MeshVertex v : mesh.Vertex) {
    const MeshVertex o = v;
    v.X = c * o.X - s * o.Y, v.Y = s * o.X + c * o.Y;
    v.NormalX = c * o.NormalX - s * o.NormalY, v.NormalY = s * o.NormalX + c * o.NormalY;
    scene.Vertex.push_back(v);
  }
  for (std::size_t i = 0; i < mesh.Triangle.size(); ++i) {
    const MeshTriangle &t = mesh.Triangle[i];
    scene.Triangle.push_back(
        {{t.A + base, t.B + base, t.C + base}, materialOf[static_cast<std::size_t>(mesh.Tag[i])]});
  }
}

void DrawScene(const Scene &scene, const SceneView &view, Raster &raster) {
  const Ball ball = BallAround(scene.Vertex);
  const Camera camera = CameraFor(scene, view, ball);
  double floor = ball.Middle.Y;
  for (const MeshVertex &v : scene.Vertex) floor = std::min(floor, static_cast<double>(v.Y));
  const std::vector<Lamp> lamps = LightLamps(scene, ball, camera.Right, camera.Up, camera.Ahead * -1);
  std::vector<Vector3> halfway;
  for (const Lamp &lamp : lamps) halfway.push_back(Unit(lamp.Toward - camera.Ahead));
  std::vector<Shade> albedo(256);
  std::vector<float> gloss(256);
  for (std::size_t i = 0; i < scene.Paint.size(); ++i) {
    albedo[i] = FromHex(scene.Paint[i].Colour);
    gloss[i] = static_cast<float>(scene.Paint[i].Gloss);
  }
  const Shade skyTop = FromHex(view.SkyTop), skyBottom = FromHex(view.SkyBottom);
  raster.Width = view.Width, raster.Height = view.Height;
  raster.Pixel.assign(static_cast<std::size_t>(view.Width) * view.Height, 0);
  const double step = ball.Radius * 0.02, lift = ball.Radius * 0.004;

  Band band;
  band.Width = view.Width * Fine;
  const int bandPixels = std::max(1, BandSamples / Fine / band.Width);
  for (int top = 0; top < view.Height; top += bandPixels) {
    const int rows = std::min(bandPixels, view.Height - top);
    // One row of samples more on each side, so that lines go on across bands.
    band.Top = top * Fine - 1, band.Rows = rows * Fine + 2;
    band.Of.assign(static_cast<std::size_t>(band.Width) * band.Rows, {});
    for (const SceneTriangle &t : scene.Triangle) DrawTriangle(band, camera, scene, t);
    AddGround(band, camera, floor);
    for (Sample &s : band.Of) {
      const float l = std::sqrt(s.NX * s.NX + s.NY * s.NY + s.NZ * s.NZ), per = l > 0 ? 1 / l : 0;
      s.NX *= per, s.NY *= per, s.NZ *= per;
    }
    const float open = OpenLight(lamps);
    for (int py = 0; py < rows; ++py)
      for (int px = 0; px < view.Width; ++px) {
        Shade sum;
        // Samples of one pixel that lie on one smooth surface share the light of the first of them.
        std::size_t lit[Fine * Fine];
        Received received[Fine * Fine];
        int kinds = 0;
        for (int k = 0; k < Fine * Fine; ++k) {
          const int x = px * Fine + k % Fine, y = (top + py) * Fine + k / Fine;
          const std::size_t i = static_cast<std::size_t>(y - band.Top) * band.Width + x;
          const Sample &s = band.Of[i];
          int kind = 0;
          while (kind < kinds && (s.Material != band.Of[lit[kind]].Material ||
                                  Apart(s, band.Of[lit[kind]], camera.Perspective, step)))
            ++kind;
          if (kind == kinds) {
            lit[kinds++] = i;
            if (s.Material != Nothing)
              received[kind] =
                  LightOn(s, PlaceAt(camera, x, y, s.Near), lift, lamps, halfway, gloss[s.Material]);
          }
          const float down = (static_cast<float>(y) + 0.5f) / static_cast<float>(view.Height * Fine);
          Shade shade{skyTop.R + down * (skyBottom.R - skyTop.R), skyTop.G + down * (skyBottom.G - skyTop.G),
                      skyTop.B + down * (skyBottom.B - skyTop.B)};
          if (s.Material == Ground) {
            const float bright = 0.25f + 0.75f * std::min(1.0f, received[kind].Light / open);
            shade = {shade.R * bright, shade.G * bright, shade.B * (0.03f + 0.97f * bright)};
          } else if (s.Material != Nothing) {
            const Shade &a = albedo[s.Material];
            const float bright = received[kind].Light, spark = received[kind].Shine;
            shade = {a.R * bright + spark, a.G * bright + spark, a.B * bright + spark};
          }
          bool line = x + 1 < band.Width && Apart(s, band.Of[i + 1], camera.Perspective, step);
          line = line || Apart(s, band.Of[i + band.Width], camera.Perspective, step);
          line = line || Apart(s, band.Of[i - band.Width], camera.Perspective, step);
          line = line || (x > 0 && Apart(s, band.Of[i - 1], camera.Perspective, step));
          if (line && s.Material != Ground) shade = {shade.R * 0.35f, shade.G * 0.35f, shade.B * 0.35f};
          sum.R += std::min(shade.R, 1.0f), sum.G += std::min(shade.G, 1.0f),
              sum.B += std::min(shade.B, 1.0f);
        }
        constexpr float each = 1.0f / (Fine * Fine);
        raster.Pixel[static_cast<std::size_t>(top + py) * view.Width + px] =
            ToHex({sum.R * each, sum.G * each, sum.B * each});
      }
  }
}
