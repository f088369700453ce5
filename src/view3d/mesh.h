#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <vector>

// What a triangle belongs to; no vertex is shared by triangles of two surfaces.
enum class Surface : std::uint8_t {
  Port, // the burning surface along the grain
  ExposedEndA,
  ExposedEndB,
  InhibitedEnd,
  Wall, // of the grain, at the liner
  LinerInner,
  LinerOuter,
  LinerEnd,
  CoreSide,
  CoreEnd,
  CutFace
};
constexpr int SurfaceCount = 11;

// Millimetres. Z runs along the motor: end A of the design stands at 0, end B at the grain's length; X and Y
// are those of the drawing. Positions are the ones worked with, nothing finer is kept beside them.
struct MeshVertex {
  float X = 0, Y = 0, Z = 0, NormalX = 0, NormalY = 0,
        NormalZ = 0; // the normal has unit length and points out
};
struct MeshTriangle {
  std::uint32_t A = 0, B = 0, C = 0; // counter-clockwise seen from outside
};
// A closed solid: each edge, told by its ends' positions, is run through once in each direction. Vertices of
// one position and different normals stand beside each other.
struct Mesh {
  std::vector<MeshVertex> Vertex;
  std::vector<MeshTriangle> Triangle;
  std::vector<Surface> Tag; // by triangle
};

void AppendMesh(Mesh &, const Mesh &);
double VolumeOf(const Mesh &); // mm3
struct MeshBox {
  std::array<double, 3> Low{}, High{};
};
MeshBox BoundsOf(const Mesh &);

// For each vertex the number of its position, counted from 0 in the order of appearance; the return value is
// their count.
std::uint32_t WeldedIndices(const Mesh &, std::vector<std::uint32_t> &);
// How many edges are not run through exactly once in each direction; 0 for a closed solid. Triangles with two
// corners at one place count too.
std::size_t OpenEdges(const Mesh &);
