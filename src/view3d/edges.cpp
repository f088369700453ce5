#include "view3d/edges.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr float SmoothCosine = 0.94F; // of 20 degrees

struct Side {
  std::uint64_t Edge = 0; // its two positions, the lower one first
  std::uint32_t Triangle = 0, A = 0, B = 0;
};

bool Alike(const MeshVertex &a, const MeshVertex &b) {
  return a.NormalX * b.NormalX + a.NormalY * b.NormalY + a.NormalZ * b.NormalZ > SmoothCosine;
}
} // namespace

std::vector<float> SharpEdges(const Mesh &mesh) {
  std::vector<std::uint32_t> place;
  WeldedIndices(mesh, place);
  std::vector<Side> side;
  side.reserve(mesh.Triangle.size() * 3);
  for (std::uint32_t t = 0; t < mesh.Triangle.size(); ++t) {
    const MeshTriangle &m = mesh.Triangle[t];
    const std::uint32_t corner[] = {m.A, m.B, m.C};
    for (int i = 0; i < 3; ++i) {
      std::uint32_t a = corner[i], b = corner[(i + 1) % 3];
      if (place[a] > place[b]) std::swap(a, b);
      side.push_back({std::uint64_t{place[a]} << 32 | place[b], t, a, b});
    }
  }
  std::sort(side.begin(), side.end(), [](const Side &a, const Side &b) { return a.Edge < b.Edge; });
  std::vector<float> lines;
  for (std::size_t i = 0; i + 1 < side.size(); ++i) {
    const Side &a = side[i], &b = side[i + 1];
    if (a.Edge != b.Edge) continue;
    const bool smooth =
        Alike(mesh.Vertex[a.A], mesh.Vertex[b.A]) && Alike(mesh.Vertex[a.B], mesh.Vertex[b.B]);
    if (smooth && mesh.Tag[a.Triangle] == mesh.Tag[b.Triangle]) continue;
    for (const std::uint32_t v : {a.A, a.B})
      lines.insert(lines.end(), {mesh.Vertex[v].X, mesh.Vertex[v].Y, mesh.Vertex[v].Z});
  }
  return lines;
}
