#pragma once
#include "view3d/raster.h"

#include <array>
#include <cmath>
#include <vector>

struct Vector3 {
  double X = 0, Y = 0, Z = 0;
};
inline Vector3 operator+(const Vector3 &a, const Vector3 &b) { return {a.X + b.X, a.Y + b.Y, a.Z + b.Z}; }
inline Vector3 operator-(const Vector3 &a, const Vector3 &b) { return {a.X - b.X, a.Y - b.Y, a.Z - b.Z}; }
inline Vector3 operator*(const Vector3 &a, double f) { return {a.X * f, a.Y * f, a.Z * f}; }
inline double Dot(const Vector3 &a, const Vector3 &b) { return a.X * b.X + a.Y * b.Y + a.Z * b.Z; }
inline Vector3 Cross(const Vector3 &a, const Vector3 &b) {
  return {a.Y * b.Z - a.Z * b.Y, a.Z * b.X - a.X * b.Z, a.X * b.Y - a.Y * b.X};
}
inline Vector3 Unit(const Vector3 &a) { return a * (1 / std::sqrt(Dot(a, a))); }

// Where a row at height y (of sample middles) lies within a triangle; empty when it does not. The first and
// last whole sample, clipped to 0..width-1.
struct RowSpan {
  int First = 0, Last = -1;
};
RowSpan SpanOf(const double (&x)[3], const double (&y)[3], double row, int width);

struct Ball {
  Vector3 Middle;
  double Radius = 1;
};
Ball BallAround(const std::vector<MeshVertex> &);

// A far lamp and the depths that it sees of the scene.
struct Lamp {
  Vector3 Toward, Across, Along; // unit vectors
  double Strength = 0;
  Vector3 Middle;
  double Texel = 1;              // mm
  std::vector<float> Height;     // along Toward, LampSide squared
  std::array<float, 12> Place{}; // rows that give Across, Along (texels) and Toward (mm) of a place
};
constexpr int LampSide = 512;

// A soft main light from above the eye's left shoulder and a sky of weaker ones all around.
std::vector<Lamp> LightLamps(const Scene &, const Ball &, const Vector3 &right, const Vector3 &up,
                             const Vector3 &toEye);
bool Shadowed(const Lamp &, float x, float y, float z);
float OpenLight(const std::vector<Lamp> &); // what open level ground receives
