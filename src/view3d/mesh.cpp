#include "view3d/mesh.h"

#include <algorithm>
#include <bit>

namespace {

std::uint64_t Mixed(std::uint64_t h) {
  h ^= h >> 31;
  h *= 0x9E3779B97F4A7C15u;
  return h ^ h >> 29;
}

std::uint64_t PositionHash(const MeshVertex &v) {
  const auto bits = [](float f) { return std::bit_cast<std::uint32_t>(f + 0.0f); }; // -0 reads as 0
  return Mixed(Mixed(Mixed(bits(v.X)) + bits(v.Y)) + bits(v.Z));
}

} // namespace

void AppendMesh(Mesh &to, const Mesh &from) {
  const std::uint32_t base = static_cast<std::uint32_t>(to.Vertex.size());
  to.Vertex.insert(to.Vertex.end(), from.Vertex.begin(), from.Vertex.end());
  for (const MeshTriangle &t : from.Triangle) to.Triangle.push_back({t.A + base, t.B + base, t.C + base});
  to.Tag.insert(to.Tag.end(), from.Tag.begin(), from.Tag.end());
}

MeshBox BoundsOf(const Mesh &mesh) {
  MeshBox box;
  box.Low.fill(1e300);
  box.High.fill(-1e300);
  for (const MeshVertex &v : mesh.Vertex) {
    const double at[3] = {v.X, v.Y, v.Z};
    for (int i = 0; i < 3; ++i) {
      box.Low[i] = std::min(box.Low[i], at[i]);
      box.High[i] = std::max(box.High[i], at[i]);
    }
  }
  return box;
}

double VolumeOf(const Mesh &mesh) {
  if (mesh.Vertex.empty()) return 0;
  const MeshVertex o = mesh.Vertex[0];
  double six = 0;
  for (const MeshTriangle &t : mesh.Triangle) {
    const MeshVertex &a = mesh.Vertex[t.A], &b = mesh.Vertex[t.B], &c = mesh.Vertex[t.C];
    const double ax = double{a.X} - o.X, ay = double{a.Y} - o.Y, az = double{a.Z} - o.Z;
    const double bx = double{b.X} - o.X, by = double{b.Y} - o.Y, bz = double{b.Z} - o.Z;
    const double cx = double{c.X} - o.X, cy = double{c.Y} - o.Y, cz = double{c.Z} - o.Z;
    six += ax * (by * cz - bz * cy) + ay * (bz * cx - bx * cz) + az * (bx * cy - by * cx);
  }
  return six / 6;
}

std::uint32_t WeldedIndices(const Mesh &mesh, std::vector<std::uint32_t> &number) {
  const std::size_t n = mesh.Vertex.size();
  number.assign(n, 0);
  const std::size_t slots = std::bit_ceil(2 * n + 2);
  std::vector<std::int32_t> slot(slots, -1);
  std::uint32_t count = 0;
  for (std::size_t i = 0; i < n; ++i) {
    const MeshVertex &v = mesh.Vertex[i];
    std::size_t at = PositionHash(v) & (slots - 1);
    while (slot[at] >= 0) {
      const MeshVertex &o = mesh.Vertex[slot[at]];
      if (o.X == v.X && o.Y == v.Y && o.Z == v.Z) break;
      at = (at + 1) & (slots - 1);
    }
    if (slot[at] < 0) {
      slot[at] = static_cast<std::int32_t>(i);
      number[i] = count++;
    } else {
      number[i] = number[slot[at]];
    }
  }
  return count;
}

std::size_t OpenEdges(const Mesh &mesh) {
  std::vector<std::uint32_t> number;
  WeldedIndices(mesh, number);
  std::vector<std::uint64_t> edges;
  edges.reserve(3 * mesh.Triangle.size());
  std::size_t faults = 0;
  const auto add = [&](std::uint32_t a, std::uint32_t b) {
    const std::uint64_t p = number[a], q = number[b];
    if (p == q) ++faults;
    // Both directions sort side by side.
    edges.push_back(p < q ? p << 32 | q << 1 : q << 32 | p << 1 | 1);
  };
  for (const MeshTriangle &t : mesh.Triangle) {
    add(t.A, t.B);
    add(t.B, t.C);
    add(t.C, t.A);
  }
  std::sort(edges.begin(), edges.end());
  for (std::size_t i = 0; i < edges.size();) {
    std::size_t end = i;
    while (end < edges.size() && edges[end] >> 1 == edges[i] >> 1) ++end;
    if (end - i != 2 || edges[i] == edges[i + 1]) ++faults;
    i = end;
  }
  return faults;
}
