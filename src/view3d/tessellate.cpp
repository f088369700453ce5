#include "view3d/tessellate.h"

#include <GL/glu.h>

#include <algorithm>
#include <cstdint>
#include <memory>

namespace {

struct Run {
  std::vector<PlanePoint> *Point = nullptr;
  std::vector<FlatTriangle> *Triangle = nullptr;
  std::vector<std::vector<int>> *Contour = nullptr;
  std::array<int, 3> Corner{};
  int Corners = 0;
  bool Changed = false, Failed = false;
};

// The tessellator carries a vertex through as an address; here the address is its number plus one.
void *Handle(int index) { return reinterpret_cast<void *>(static_cast<std::intptr_t>(index) + 1); }
int IndexOf(const void *handle) { return static_cast<int>(reinterpret_cast<std::intptr_t>(handle) - 1); }

void OnEdgeFlag(GLboolean) {} // its presence makes all output single triangles
void OnBegin(GLenum, void *data) {
  Run &run = *static_cast<Run *>(data);
  if (run.Contour) run.Contour->emplace_back();
}
void OnVertex(void *vertex, void *data) {
  Run &run = *static_cast<Run *>(data);
  if (run.Contour) {
    run.Contour->back().push_back(IndexOf(vertex));
    return;
  }
  run.Corner[run.Corners++] = IndexOf(vertex);
  if (run.Corners < 3) return;
  run.Triangle->push_back(run.Corner);
  run.Corners = 0;
}
void OnCombine(GLdouble at[3], void *vertex[4], GLfloat[4], void **out, void *data) {
  Run &run = *static_cast<Run *>(data);
  run.Changed = true;
  for (int i = 0; i < 4; ++i) {
    if (!vertex[i]) continue;
    const PlanePoint &p = (*run.Point)[IndexOf(vertex[i])];
    if (p.X == at[0] && p.Y == at[1]) {
      *out = vertex[i];
      return;
    }
  }
  run.Point->push_back({at[0], at[1]});
  *out = Handle(static_cast<int>(run.Point->size()) - 1);
}
void OnError(GLenum, void *data) { static_cast<Run *>(data)->Failed = true; }

using Callback = void (*)();

bool Tessellate(std::vector<PlanePoint> &points, const std::vector<std::vector<int>> &contours, Run &run) {
  const std::unique_ptr<GLUtesselator, void (*)(GLUtesselator *)> tess(gluNewTess(), gluDeleteTess);
  if (!tess) return false;
  GLUtesselator *const t = tess.get();
  run.Point = &points;
  gluTessProperty(t, GLU_TESS_WINDING_RULE, GLU_TESS_WINDING_POSITIVE);
  gluTessProperty(t, GLU_TESS_BOUNDARY_ONLY, run.Contour ? 1 : 0);
  gluTessCallback(t, GLU_TESS_BEGIN_DATA, reinterpret_cast<Callback>(OnBegin));
  if (!run.Contour) gluTessCallback(t, GLU_TESS_EDGE_FLAG, reinterpret_cast<Callback>(OnEdgeFlag));
  gluTessCallback(t, GLU_TESS_VERTEX_DATA, reinterpret_cast<Callback>(OnVertex));
  gluTessCallback(t, GLU_TESS_COMBINE_DATA, reinterpret_cast<Callback>(OnCombine));
  gluTessCallback(t, GLU_TESS_ERROR_DATA, reinterpret_cast<Callback>(OnError));
  gluTessNormal(t, 0, 0, 1);
  gluTessBeginPolygon(t, &run);
  for (const std::vector<int> &contour : contours) {
    gluTessBeginContour(t);
    for (const int i : contour) {
      GLdouble at[3] = {points[i].X, points[i].Y, 0};
      gluTessVertex(t, at, Handle(i));
    }
    gluTessEndContour(t);
  }
  gluTessEndPolygon(t);
  return !run.Failed;
}

std::uint64_t EdgeKey(int a, int b) {
  return static_cast<std::uint64_t>(static_cast<std::uint32_t>(a)) << 32 | static_cast<std::uint32_t>(b);
}

} // namespace

bool FillContours(const std::vector<PlanePoint> &points, const std::vector<std::vector<int>> &contours,
                  std::vector<FlatTriangle> &triangles) {
  std::vector<PlanePoint> own = points;
  triangles.clear();
  Run run;
  run.Triangle = &triangles;
  if (!Tessellate(own, contours, run) || run.Changed) return false;
  // With a contour's edges run through backwards, each edge must be run through once in each direction.
  std::vector<std::uint64_t> forth, back;
  const auto add = [&](int a, int b) {
    forth.push_back(EdgeKey(a, b));
    back.push_back(EdgeKey(b, a));
  };
  for (const FlatTriangle &t : triangles)
    for (int i = 0; i < 3; ++i) add(t[i], t[(i + 1) % 3]);
  for (const std::vector<int> &contour : contours)
    for (std::size_t i = 0; i < contour.size(); ++i) add(contour[(i + 1) % contour.size()], contour[i]);
  std::sort(forth.begin(), forth.end());
  std::sort(back.begin(), back.end());
  return forth == back && std::adjacent_find(forth.begin(), forth.end()) == forth.end();
}

bool CleanContours(std::vector<PlanePoint> &points, const std::vector<std::vector<int>> &contours,
                   std::vector<std::vector<int>> &clean) {
  clean.clear();
  Run run;
  run.Contour = &clean;
  return Tessellate(points, contours, run);
}
