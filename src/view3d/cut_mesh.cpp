#include "view3d/cut_mesh.h"

#include "view3d/tessellate.h"

#include <algorithm>
#include <cmath>

namespace {

struct Cutter {
  const Mesh *From = nullptr;
  double NX = 0, NY = 0, NZ = 0, Offset = 0;           // unit normal
  std::vector<double> Height;                          // over the plane, by vertex of From
  std::vector<std::uint32_t> Kept;                     // its number in the result, by vertex of From
  std::vector<std::pair<MeshVertex, MeshVertex>> Seam; // of the cut, the solid on the left seen from behind
  Mesh Result;
};

bool SamePlace(const MeshVertex &a, const MeshVertex &b) { return a.X == b.X && a.Y == b.Y && a.Z == b.Z; }

// Where the edge from a kept corner to another one meets the plane. Both triangles of an edge come to the
// same bits, since the kept corner always comes first.
MeshVertex Crossing(const Cutter &c, std::uint32_t in, std::uint32_t out) {
  const MeshVertex &a = c.From->Vertex[in], &b = c.From->Vertex[out];
  const double t = c.Height[in] / (c.Height[in] - c.Height[out]);
  if (t >= 1) return {b.X, b.Y, b.Z, a.NormalX, a.NormalY, a.NormalZ};
  const auto between = [&](float p, float q) { return static_cast<float>(p + t * (double{q} - p)); };
  MeshVertex v{between(a.X, b.X),
               between(a.Y, b.Y),
               between(a.Z, b.Z),
               between(a.NormalX, b.NormalX),
               between(a.NormalY, b.NormalY),
               between(a.NormalZ, b.NormalZ)};
  const float l = std::sqrt(v.NormalX * v.NormalX + v.NormalY * v.NormalY + v.NormalZ * v.NormalZ);
  if (l > 0) v.NormalX /= l, v.NormalY /= l, v.NormalZ /= l;
  // Exactly into a plane across one of the axes.
  if (std::abs(c.NX) == 1) v.X = static_cast<float>(c.NX * c.Offset);
  if (std::abs(c.NY) == 1) v.Y = static_cast<float>(c.NY * c.Offset);
  if (std::abs(c.NZ) == 1) v.Z = static_cast<float>(c.NZ * c.Offset);
  return v;
}

std::uint32_t Keep(Cutter &c, std::uint32_t vertex) {
  if (c.Kept[vertex] == ~0u) {
    c.Kept[vertex] = static_cast<std::uint32_t>(c.Result.Vertex.size());
    c.Result.Vertex.push_back(c.From->Vertex[vertex]);
  }
  return c.Kept[vertex];
}

void AddTriangle(Cutter &c, std::uint32_t a, std::uint32_t b, std::uint32_t d, Surface tag) {
  const std::vector<MeshVertex> &v = c.Result.Vertex;
  if (SamePlace(v[a], v[b]) || SamePlace(v[b], v[d]) || SamePlace(v[d], v[a])) return;
  c.Result.Triangle.push_back({a, b, d});
  c.Result.Tag.push_back(tag);
}

void CutTriangle(Cutter &c, std::size_t index) {
  const MeshTriangle &t = c.From->Triangle[index];
  const Surface tag = c.From->Tag[index];
  std::uint32_t corner[3] = {t.A, t.B, t.C};
  const auto in = [&](std::uint32_t v) { return c.Height[v] > 0; };
  const int inside = in(corner[0]) + in(corner[1]) + in(corner[2]);
  if (inside == 0) return;
  if (inside == 3) {
    AddTriangle(c, Keep(c, t.A), Keep(c, t.B), Keep(c, t.C), tag);
    return;
  }
  // Turned until the corner that stands alone on its side comes first.
  while (in(corner[0]) == (inside == 2) || in(corner[1]) != in(corner[2])) {
    const std::uint32_t first = corner[0];
    corner[0] = corner[1], corner[1] = corner[2], corner[2] = first;
  }
  const bool lone = inside == 1;
  const MeshVertex p = lone ? Crossing(c, corner[0], corner[1]) : Crossing(c, corner[1], corner[0]);
  const MeshVertex q = lone ? Crossing(c, corner[0], corner[2]) : Crossing(c, corner[2], corner[0]);
  const std::uint32_t at = static_cast<std::uint32_t>(c.Result.Vertex.size());
  c.Result.Vertex.push_back(p);
  c.Result.Vertex.push_back(q);
  if (lone) {
    AddTriangle(c, Keep(c, corner[0]), at, at + 1, tag);
    c.Seam.push_back({q, p});
  } else {
    const std::uint32_t b = Keep(c, corner[1]), d = Keep(c, corner[2]);
    AddTriangle(c, at, b, d, tag);
    AddTriangle(c, at, d, at + 1, tag);
    c.Seam.push_back({p, q});
  }
  if (SamePlace(p, q)) c.Seam.pop_back();
}

// Closes the cut. The seam's edges run the other way round than the cap's triangles need them.
bool AddCap(Cutter &c) {
  if (c.Seam.empty()) return true;
  Mesh corners; // all ends of the seam, to be told apart by place
  for (const auto &[from, to] : c.Seam) {
    corners.Vertex.push_back(from);
    corners.Vertex.push_back(to);
  }
  std::vector<std::uint32_t> number;
  const std::uint32_t count = WeldedIndices(corners, number);
  std::vector<MeshVertex> place(count);
  std::vector<std::vector<int>> leaving(count);
  for (std::size_t i = 0; i < number.size(); ++i) place[number[i]] = corners.Vertex[i];
  // An edge that is run through both ways closes nothing.
  for (std::size_t i = 0; i < number.size(); i += 2) {
    std::vector<int> &back = leaving[number[i + 1]];
    const auto known = std::find(back.begin(), back.end(), static_cast<int>(number[i]));
    if (known != back.end())
      back.erase(known);
    else
      leaving[number[i]].push_back(static_cast<int>(number[i + 1]));
  }
  // Seen against the normal: right-handed axes in the plane with the cap's outside toward the eye.
  const double nx = -c.NX, ny = -c.NY, nz = -c.NZ;
  double ux, uy, uz;
  if (std::abs(nx) <= std::abs(ny) && std::abs(nx) <= std::abs(nz))
    ux = 0, uy = nz, uz = -ny;
  else if (std::abs(ny) <= std::abs(nz))
    ux = -nz, uy = 0, uz = nx;
  else
    ux = ny, uy = -nx, uz = 0;
  const double l = std::sqrt(ux * ux + uy * uy + uz * uz);
  ux /= l, uy /= l, uz /= l;
  const double vx = ny * uz - nz * uy, vy = nz * ux - nx * uz, vz = nx * uy - ny * ux;
  std::vector<PlanePoint> flat;
  for (const MeshVertex &p : place)
    flat.push_back({ux * p.X + uy * p.Y + uz * p.Z, vx * p.X + vy * p.Y + vz * p.Z});
  std::vector<std::vector<int>> contours;
  for (std::uint32_t i = 0; i < count; ++i)
    while (!leaving[i].empty()) {
      contours.emplace_back();
      int at = static_cast<int>(i);
      do {
        if (leaving[at].empty()) return false;
        contours.back().push_back(at);
        const int next = leaving[at].back();
        leaving[at].pop_back();
        at = next;
      } while (at != static_cast<int>(i));
    }
  std::vector<FlatTriangle> triangles;
  if (!FillContours(flat, contours, triangles)) return false;
  const std::uint32_t base = static_cast<std::uint32_t>(c.Result.Vertex.size());
  for (MeshVertex p : place) {
    p.NormalX = static_cast<float>(nx), p.NormalY = static_cast<float>(ny),
    p.NormalZ = static_cast<float>(nz);
    c.Result.Vertex.push_back(p);
  }
  for (const FlatTriangle &t : triangles) {
    c.Result.Triangle.push_back({base + t[0], base + t[1], base + t[2]});
    c.Result.Tag.push_back(Surface::CutFace);
  }
  return true;
}

bool CutOnce(const Mesh &mesh, const CutPlane &plane, double offset, Mesh &result) {
  Cutter c;
  const double l = std::sqrt(plane.NX * plane.NX + plane.NY * plane.NY + plane.NZ * plane.NZ);
  c.From = &mesh;
  c.NX = plane.NX / l, c.NY = plane.NY / l, c.NZ = plane.NZ / l;
  c.Offset = offset;
  for (const MeshVertex &v : mesh.Vertex) c.Height.push_back(c.NX * v.X + c.NY * v.Y + c.NZ * v.Z - c.Offset);
  c.Kept.assign(mesh.Vertex.size(), ~0u);
  for (std::size_t i = 0; i < mesh.Triangle.size(); ++i) CutTriangle(c, i);
  if (!AddCap(c)) return false;
  result = std::move(c.Result);
  return true;
}

} // namespace

std::string CutMesh(const Mesh &mesh, const CutPlane &plane, Mesh &result) {
  const double l = std::sqrt(plane.NX * plane.NX + plane.NY * plane.NY + plane.NZ * plane.NZ);
  if (!(l > 0) || !std::isfinite(l) || !std::isfinite(plane.Offset))
    return "The cutting plane has no direction";
  const MeshBox box = BoundsOf(mesh);
  const double hair = 1e-7 * (box.High[0] - box.Low[0] + box.High[1] - box.Low[1]);
  // A plane that touches an edge or a sliver just so is moved by a hair until it does not.
  double move = 0;
  for (int round = 0; round < 12; ++round, move = (round % 2 ? 1 : -1) * hair * round * round)
    if (CutOnce(mesh, plane, plane.Offset / l + move, result)) return {};
  return "The solid cannot be cut there";
}
