#include "geometry/primitives.h"

#include "base/fault.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace {

constexpr float ArcLimit = 1.0001f;
constexpr double SteepSlope = 1000;

// The value as a decimal of 15 significant digits: Digits times ten to the Exponent.
struct Decimal {
  __extension__ typedef __int128 Wide;
  Wide Digits = 0;
  int Exponent = 0;
};

Decimal ToDecimal(double value) {
  std::array<char, 40> text{};
  const auto written =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific, 14);
  Decimal d;
  bool negative = false;
  const char *at = text.data();
  for (; at < written.ptr && *at != 'e'; ++at) {
    if (*at == '-') negative = true;
    if (*at >= '0' && *at <= '9') d.Digits = d.Digits * 10 + (*at - '0');
  }
  if (negative) d.Digits = -d.Digits;
  ++at;
  if (at < written.ptr && *at == '+') ++at;
  if (at < written.ptr) std::from_chars(at, written.ptr, d.Exponent);
  d.Exponent -= 14;
  return d;
}

double DecimalDifference(double a, double b) {
  if (!std::isfinite(a) || !std::isfinite(b)) return a - b;
  Decimal p = ToDecimal(a), q = ToDecimal(b);
  // 96 bits hold 28 digits: terms further apart than 13 places do not meet.
  if (p.Digits == 0 || std::abs(p.Exponent - q.Exponent) > 13 || q.Digits == 0) return a - b;
  for (; p.Exponent > q.Exponent; --p.Exponent) p.Digits *= 10;
  for (; q.Exponent > p.Exponent; --q.Exponent) q.Digits *= 10;
  return static_cast<double>(static_cast<long double>(p.Digits - q.Digits) *
                             std::pow(10.0L, static_cast<long double>(p.Exponent)));
}

double FormDiscriminant(double b2, double ac4, Discriminant form) {
  switch (form) {
  case Discriminant::TermsInDecimal: return DecimalDifference(b2, ac4);
  case Discriminant::DifferenceInDecimal: return DecimalDifference(b2 - ac4, 0);
  case Discriminant::Binary: break;
  }
  return b2 - ac4;
}

Roots SlopedRoots(double m, double b, Point c, double r, double margin, Discriminant form) {
  const double A = m * m + 1;
  const double B = 2 * (m * b - m * c.Y - c.X);
  const double C = c.X * c.X + (b - c.Y) * (b - c.Y) - r * r;
  Roots roots;
  roots.Discriminant = FormDiscriminant(B * B, 4 * A * C, form);
  if (!(roots.Discriminant >= -margin)) return roots;
  const double root = std::sqrt(std::abs(roots.Discriminant));
  roots.Case = RootCase::Two;
  roots.First.X = (-B + root) / (2 * A);
  roots.Second.X = (-B - root) / (2 * A);
  roots.First.Y = m * roots.First.X + b;
  roots.Second.Y = m * roots.Second.X + b;
  return roots;
}

} // namespace

double ArcCosine(float x) {
  if (std::abs(x) > ArcLimit || std::isnan(x)) return NoAngle;
  if (x >= 1) return 0;
  if (std::trunc(x) == -1) return Pi;
  const double wide = x;
  return std::atan(-wide / std::sqrt(1 - wide * wide)) + 2 * std::atan(1.0);
}

double ArcSine(float x) {
  if (std::abs(x) > ArcLimit || std::isnan(x)) return NoAngle;
  if (x >= 1) return Pi / 2;
  if (std::trunc(x) == -1) return -Pi / 2;
  const double wide = x;
  return std::atan(wide / std::sqrt(1 - wide * wide));
}

double AngleAbout(Point p, Point centre, double divisor) {
  const double angle = ArcCosine(static_cast<float>(Quotient(p.X - centre.X, divisor)));
  if (angle == NoAngle) return NoAngle;
  return p.Y < centre.Y ? Pi + Pi - angle : angle;
}

double GetLineAng(const Entity &line) {
  const double dx = line.X2 - line.X1, dy = line.Y2 - line.Y1, s = std::atan(line.Slope);
  if (std::abs(dy) < 0.0001) return dx > 0 ? s : s + Pi;
  if (dy > 0) return std::abs(dx) < 0.0001 || dx > 0 ? s : s + Pi;
  return dx > 0 ? s + TwoPi : s + Pi;
}

double GetLineLength(const Entity &line) {
  const double dx = line.X1 - line.X2, dy = line.Y1 - line.Y2;
  return std::sqrt(dx * dx + dy * dy);
}

double MyMin(double a, double b) { return a < b ? a : b; }
double MyMax(double a, double b) { return a > b ? a : b; }
int MyMinI(int a, int b) { return a < b ? a : b; }
int MyMaxI(int a, int b) { return a > b ? a : b; }

Roots LineCircleRoots(double slope, double intercept, Point centre, double radius, double margin,
                      Discriminant form) {
  if (std::abs(slope) < SteepSlope) return SlopedRoots(slope, intercept, centre, radius, margin, form);
  // The X at the centre's height is good to the last digits; with the angle it fixes the line.
  const double turn = 10 * Pi / 180;
  const double passX = (centre.Y - intercept) / slope - centre.X;
  const Point pass = Turned({passX, 0}, turn);
  const double m = std::tan(std::atan(slope) + turn);
  Roots roots = SlopedRoots(m, pass.Y - m * pass.X, {0, 0}, radius, margin, form);
  if (roots.Case == RootCase::None) return roots;
  for (Point *p : {&roots.First, &roots.Second}) {
    const Point back = Turned(*p, -turn);
    *p = {back.X + centre.X, back.Y + centre.Y};
  }
  if ((roots.First.Y < roots.Second.Y) == (slope > 0)) std::swap(roots.First, roots.Second);
  return roots;
}

Roots CircleCircleRoots(Point c1, double r1, Point c2, double r2) {
  const double dx = c2.X - c1.X, dy = c2.Y - c1.Y, d = std::sqrt(dx * dx + dy * dy);
  Roots roots;
  if (!(d - 0.001 <= r1 + r2) || !(d + 0.001 >= r1 - r2)) return roots;
  const double a = Quotient(d * d + r1 * r1 - r2 * r2, 2 * d);
  const double h = std::sqrt(std::abs(r1 * r1 - a * a));
  const Point p{c1.X + a * dx / d, c1.Y + a * dy / d};
  roots.Case = RootCase::Two;
  roots.First = {p.X + h * dy / d, p.Y - h * dx / d};
  roots.Second = {p.X - h * dy / d, p.Y + h * dx / d};
  return roots;
}

Roots LineLineRoots(double m1, double b1, double m2, double b2) {
  Roots roots;
  if (m1 == m2) return roots;
  roots.Case = RootCase::Two;
  roots.First.X = -(b1 - b2) / (m1 - m2);
  roots.First.Y = roots.First.X * m1 + b1;
  roots.Second = roots.First;
  return roots;
}

Point NearerRoot(const Roots &roots, Point pick) {
  const double first = std::hypot(roots.First.X - pick.X, roots.First.Y - pick.Y);
  const double second = std::hypot(roots.Second.X - pick.X, roots.Second.Y - pick.Y);
  return first < second ? roots.First : roots.Second;
}

bool AngleInArc(double angle, const Entity &arc, ArcEnds ends, double margin) {
  const double from = arc.StartAngle - margin, to = arc.EndAngle + margin;
  const bool closed = ends == ArcEnds::Closed;
  if (arc.EndAngle > arc.StartAngle)
    return closed ? from <= angle && angle <= to : from < angle && angle < to;
  return closed ? angle >= from || angle <= to : angle > from || angle < to;
}

void SetArcEnds(Entity &arc) {
  arc.X1 = arc.CenterX + std::cos(arc.StartAngle) * arc.Radius;
  arc.Y1 = arc.CenterY + std::sin(arc.StartAngle) * arc.Radius;
  arc.X2 = arc.CenterX + std::cos(arc.EndAngle) * arc.Radius;
  arc.Y2 = arc.CenterY + std::sin(arc.EndAngle) * arc.Radius;
}

double ArcSweep(const Entity &arc) {
  double sweep = std::fmod(arc.EndAngle - arc.StartAngle, 2 * Pi);
  if (sweep < 0) sweep += 2 * Pi;
  if (sweep < 1e-12 && std::abs(arc.EndAngle - arc.StartAngle) > 1) sweep = 2 * Pi;
  return sweep;
}

Point Turned(Point p, double angle) {
  const double c = std::cos(angle), s = std::sin(angle);
  return {p.X * c - p.Y * s, p.X * s + p.Y * c};
}
