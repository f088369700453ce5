#include "view3d/tessellate.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_map>

namespace {

std::uint64_t PointKey(RimPoint p) {
  return static_cast<std::uint64_t>(static_cast<std::uint32_t>(p.X)) << 32 | static_cast<std::uint32_t>(p.Y);
}

struct Numbered {
  std::vector<RimPoint> Point;
  std::vector<std::vector<int>> Contour;
  bool Twice = false; // some point is passed more than once
};

Numbered Number(const std::vector<RimLoop> &loops) {
  Numbered n;
  std::unordered_map<std::uint64_t, int> known;
  for (const RimLoop &loop : loops) {
    n.Contour.emplace_back();
    for (const RimEdge &e : loop) {
      const auto [at, fresh] = known.try_emplace(PointKey(e.From), static_cast<int>(n.Point.size()));
      if (fresh)
        n.Point.push_back(e.From);
      else
        n.Twice = true;
      n.Contour.back().push_back(at->second);
    }
  }
  return n;
}

std::vector<PlanePoint> AsPlane(const std::vector<RimPoint> &points) {
  std::vector<PlanePoint> plane;
  for (const RimPoint p : points) plane.push_back({static_cast<double>(p.X), static_cast<double>(p.Y)});
  return plane;
}

// Takes out edges of no length and spikes that run back on themselves, and loops that are nothing then.
void Prune(std::vector<RimLoop> &loops) {
  for (RimLoop &loop : loops) {
    RimLoop kept;
    for (const RimEdge &e : loop) {
      if (e.From == e.To) continue;
      if (!kept.empty() && kept.back().From == e.To)
        kept.pop_back();
      else
        kept.push_back(e);
    }
    while (kept.size() > 1 && kept.front().From == kept.back().To && kept.front().To == kept.back().From) {
      kept.pop_back();
      kept.erase(kept.begin());
    }
    loop = kept.size() < 3 ? RimLoop{} : std::move(kept);
  }
  std::erase_if(loops, [](const RimLoop &loop) { return loop.empty(); });
}

// Moves every corner that stands where another one does into the solid by a few grid units.
void PartTouching(std::vector<RimLoop> &loops, int reach) {
  std::unordered_map<std::uint64_t, int> visits;
  for (const RimLoop &loop : loops)
    for (const RimEdge &e : loop) ++visits[PointKey(e.From)];
  for (RimLoop &loop : loops) {
    const RimLoop before = loop;
    const std::size_t n = loop.size();
    for (std::size_t i = 0; i < n; ++i) {
      if (visits[PointKey(before[i].From)] < 2) continue;
      const RimEdge &in = before[(i + n - 1) % n], &out = before[i];
      const double ax = in.To.X - in.From.X, ay = in.To.Y - in.From.Y, bx = out.To.X - out.From.X,
                   by = out.To.Y - out.From.Y, la = std::hypot(ax, ay), lb = std::hypot(bx, by);
      double x = -ay / la - by / lb, y = ax / la + bx / lb;
      if (std::hypot(x, y) < 1e-6) x = bx / lb - ax / la, y = by / lb - ay / la;
      const double l = std::hypot(x, y);
      RimPoint p = out.From;
      p.X += static_cast<std::int32_t>(std::lround(reach * x / l));
      p.Y += static_cast<std::int32_t>(std::lround(reach * y / l));
      loop[i].From = p;
      loop[(i + n - 1) % n].To = p;
    }
  }
  Prune(loops);
}

double ToSegment(const RimEdge &e, double x, double y, double &part) {
  const double dx = e.To.X - e.From.X, dy = e.To.Y - e.From.Y, px = x - e.From.X, py = y - e.From.Y;
  part = std::clamp((px * dx + py * dy) / (dx * dx + dy * dy), 0.0, 1.0);
  return std::hypot(px - part * dx, py - part * dy);
}

// The edge of a cleaned contour takes surface and normals of the edge it is a part of.
RimEdge PartOf(const std::vector<RimEdge> &edges, RimPoint from, RimPoint to) {
  const double dx = to.X - from.X, dy = to.Y - from.Y, mx = from.X + dx / 2, my = from.Y + dy / 2;
  double best = std::numeric_limits<double>::max(), part = 0;
  const RimEdge *of = edges.data();
  for (const RimEdge &e : edges) {
    if (dx * (e.To.X - e.From.X) + dy * (e.To.Y - e.From.Y) <= 0) continue;
    const double away = ToSegment(e, mx, my, part);
    if (away < best) best = away, of = &e;
  }
  RimEdge edge = *of;
  edge.From = from, edge.To = to;
  const auto normal = [&](RimPoint p, float &nx, float &ny) {
    double t;
    ToSegment(*of, p.X, p.Y, t);
    const double x = of->NX1 + t * (of->NX2 - of->NX1), y = of->NY1 + t * (of->NY2 - of->NY1),
                 l = std::hypot(x, y);
    if (l > 0) nx = static_cast<float>(x / l), ny = static_cast<float>(y / l);
  };
  normal(from, edge.NX1, edge.NY1);
  normal(to, edge.NX2, edge.NY2);
  return edge;
}

bool Clean(std::vector<RimLoop> &loops) {
  const Numbered numbered = Number(loops);
  std::vector<PlanePoint> points = AsPlane(numbered.Point);
  std::vector<std::vector<int>> contours;
  if (!CleanContours(points, numbered.Contour, contours)) return false;
  std::vector<RimEdge> edges;
  std::unordered_map<std::uint64_t, std::vector<int>> leaving;
  for (const RimLoop &loop : loops)
    for (const RimEdge &e : loop) {
      leaving[PointKey(e.From)].push_back(static_cast<int>(edges.size()));
      edges.push_back(e);
    }
  std::vector<RimLoop> cleaned;
  for (const std::vector<int> &contour : contours) {
    cleaned.emplace_back();
    for (std::size_t i = 0; i < contour.size(); ++i) {
      const auto at = [&](int index) { return ToGrid(points[index].X, points[index].Y, 1); };
      const RimPoint from = at(contour[i]), to = at(contour[(i + 1) % contour.size()]);
      if (from == to) continue;
      const RimEdge *same = nullptr;
      if (const auto known = leaving.find(PointKey(from)); known != leaving.end())
        for (const int e : known->second)
          if (edges[e].To == to) same = &edges[e];
      cleaned.back().push_back(same ? *same : PartOf(edges, from, to));
    }
  }
  loops = std::move(cleaned);
  Prune(loops);
  return true;
}

} // namespace

bool FillRegion(const std::vector<RimLoop> &loops, FilledRegion &region) {
  region.Loop = loops;
  Prune(region.Loop);
  for (int round = 0; round < 24; ++round) {
    const Numbered numbered = Number(region.Loop);
    region.Point = numbered.Point;
    if (numbered.Contour.empty()) return false;
    if (!numbered.Twice && FillContours(AsPlane(numbered.Point), numbered.Contour, region.Triangle))
      return true;
    if (!Clean(region.Loop)) return false;
    PartTouching(region.Loop, 2 + round);
  }
  return false;
}
