#include "view3d/camera.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {
constexpr double Degree = std::numbers::pi / 180, HalfAngle = 15 * Degree, Room = 0.92;

double Dot(const Place3 &a, const Place3 &b) { return a.X * b.X + a.Y * b.Y + a.Z * b.Z; }
double DistanceOf(const Camera &c) { return c.Span / 2 / std::tan(HalfAngle); }
double PixelSize(const Camera &c) { return c.Span / std::max(1.0, c.Height); }

Place3 FromTarget(const Camera &c, const CameraAxes &axes, const Place3 &p) {
  const Place3 d{p.X - c.TargetX, p.Y - c.TargetY, p.Z - c.TargetZ};
  return {Dot(d, axes.Right), Dot(d, axes.Up), Dot(d, axes.Back)};
}

void Shift(Camera &c, double right, double up) {
  const CameraAxes axes = AxesOf(c);
  c.TargetX += axes.Right.X * right + axes.Up.X * up;
  c.TargetY += axes.Right.Y * right + axes.Up.Y * up;
  c.TargetZ += axes.Right.Z * right + axes.Up.Z * up;
}

Place3 MiddleOf(const MeshBox &box) {
  return {(box.Low[0] + box.High[0]) / 2, (box.Low[1] + box.High[1]) / 2, (box.Low[2] + box.High[2]) / 2};
}
double ReachOf(const MeshBox &box) {
  double sum = 0;
  for (int i = 0; i < 3; ++i) sum += (box.High[i] - box.Low[i]) * (box.High[i] - box.Low[i]);
  return std::max(1e-9, std::sqrt(sum) / 2);
}
} // namespace

CameraAxes AxesOf(const Camera &c) {
  const double t = c.Turn * Degree, l = c.Lift * Degree;
  const double st = std::sin(t), ct = std::cos(t), sl = std::sin(l), cl = std::cos(l);
  return {{ct, 0, -st}, {-sl * st, cl, -sl * ct}, {cl * st, sl, cl * ct}};
}

void LookFrom(Camera &c, StandardView view) {
  constexpr struct {
    double Turn, Lift;
  } angles[] = {{0, 0}, {-90, 0}, {-90, 90}, {-50, 22}, {180, 0}, {90, 0}, {-90, -90}};
  c.Turn = angles[static_cast<std::size_t>(view)].Turn;
  c.Lift = angles[static_cast<std::size_t>(view)].Lift;
}

void Orbit(Camera &c, double right, double down) {
  const double degrees = 180 / std::max(1.0, c.Height);
  c.Turn = std::remainder(c.Turn - right * degrees, 360);
  c.Lift = std::clamp(c.Lift + down * degrees, -90.0, 90.0);
}

void PanBy(Camera &c, double right, double down) { Shift(c, -right * PixelSize(c), down * PixelSize(c)); }

void ZoomAt(Camera &c, double x, double y, double factor, double least, double most) {
  const double span = std::clamp(c.Span / factor, least, most);
  const double part = 1 - span / c.Span, size = PixelSize(c);
  Shift(c, (x - c.Width / 2) * size * part, (c.Height / 2 - y) * size * part);
  c.Span = span;
}

// The solid is a cylinder along Z, whose two rims reach farthest. A point at x, depth z (to the eye) and the
// target at t ask for a distance of z + |x - t| / slope; the least of the greatest of these is where the
// rims' extremes on both sides ask for the same.
void FitTo(Camera &c, const MeshBox &box) {
  const Place3 middle = MiddleOf(box);
  c.TargetX = middle.X, c.TargetY = middle.Y, c.TargetZ = middle.Z;
  const CameraAxes axes = AxesOf(c);
  const double aspect = std::max(1e-3, c.Width / std::max(1.0, c.Height)), steep = std::tan(HalfAngle) * Room;
  const double slope[] = {steep * aspect, steep};
  double most[] = {-HUGE_VAL, -HUGE_VAL}, least[] = {-HUGE_VAL, -HUGE_VAL};
  const double across = (box.High[0] - box.Low[0]) / 2, up = (box.High[1] - box.Low[1]) / 2;
  constexpr int around = 90;
  for (int i = 0; i < 2 * around; ++i) {
    const double t = i * 2 * std::numbers::pi / around;
    const Place3 p = FromTarget(
        c, axes,
        {middle.X + across * std::cos(t), middle.Y + up * std::sin(t), (i < around ? box.Low : box.High)[2]});
    const double depth = c.Perspective ? p.Z : 0;
    for (const int k : {0, 1}) {
      most[k] = std::max(most[k], depth + (k ? p.Y : p.X) / slope[k]);
      least[k] = std::max(least[k], depth - (k ? p.Y : p.X) / slope[k]);
    }
  }
  Shift(c, slope[0] * (most[0] - least[0]) / 2, slope[1] * (most[1] - least[1]) / 2);
  const double distance = std::max(most[0] + least[0], most[1] + least[1]) / 2;
  c.Span = std::max(1e-6, 2 * distance * std::tan(HalfAngle));
}

CameraMatrices MatricesOf(const Camera &c, const MeshBox &box) {
  const CameraAxes a = AxesOf(c);
  const double away = DistanceOf(c), reach = 2 * ReachOf(box);
  const Place3 middle = MiddleOf(box);
  const double depth = away - FromTarget(c, a, middle).Z; // of the middle, from the eye
  const Place3 target{c.TargetX, c.TargetY, c.TargetZ};
  const std::array<double, 16> view{a.Right.X,
                                    a.Up.X,
                                    a.Back.X,
                                    0,
                                    a.Right.Y,
                                    a.Up.Y,
                                    a.Back.Y,
                                    0,
                                    a.Right.Z,
                                    a.Up.Z,
                                    a.Back.Z,
                                    0,
                                    -Dot(target, a.Right),
                                    -Dot(target, a.Up),
                                    -Dot(target, a.Back) - away,
                                    1};
  const double aspect = c.Width / std::max(1.0, c.Height);
  std::array<double, 16> p{};
  double least = depth - reach, most = std::max(depth + reach, 1e-6);
  if (c.Perspective) {
    least = std::max(least, most / 5000);
    const double f = 1 / std::tan(HalfAngle);
    p[0] = f / aspect, p[5] = f, p[11] = -1;
    p[10] = -(most + least) / (most - least);
    p[14] = -2 * most * least / (most - least);
  } else {
    p[0] = 2 / (c.Span * aspect), p[5] = 2 / c.Span, p[15] = 1;
    p[10] = -2 / (most - least);
    p[14] = -(most + least) / (most - least);
  }
  CameraMatrices m;
  for (std::size_t i = 0; i < 16; ++i) {
    m.View[i] = static_cast<float>(view[i]);
    m.Projection[i] = static_cast<float>(p[i]);
  }
  return m;
}

Pixel Project(const Camera &c, const Place3 &p) {
  const Place3 at = FromTarget(c, AxesOf(c), p);
  const double away = DistanceOf(c), nearer = c.Perspective ? away - at.Z : away;
  const double scale = nearer > away * 1e-6 ? away / nearer / PixelSize(c) : 0;
  return {c.Width / 2 + at.X * scale, c.Height / 2 - at.Y * scale, scale > 0};
}
