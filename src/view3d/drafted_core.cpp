#include "base/number_text.h"
#include "view3d/solids.h"
#include "view3d/tessellate.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int MostRings = 64;

using SourceKey = std::vector<std::vector<int>>;

// The port's loops, each turned and all sorted so that equal outlines stand in equal order; their sources.
SourceKey OrderPort(GrainSection &s) {
  const auto sources = [&](const std::vector<int> &loop) {
    std::vector<int> key;
    for (const int i : loop) key.push_back(s.Piece[i].Source);
    return key;
  };
  for (std::vector<int> &loop : s.Port) {
    std::vector<int> best = loop;
    for (std::size_t i = 1; i < loop.size(); ++i) {
      std::rotate(loop.begin(), loop.begin() + 1, loop.end());
      if (sources(loop) < sources(best)) best = loop;
    }
    loop = best;
  }
  std::sort(s.Port.begin(), s.Port.end(),
            [&](const std::vector<int> &a, const std::vector<int> &b) { return sources(a) < sources(b); });
  SourceKey key;
  for (const std::vector<int> &loop : s.Port) key.push_back(sources(loop));
  return key;
}

bool OrderedSection(const FrontStart &start, double w, const SourceKey &like, GrainSection &s) {
  return SectionAt(start, w, s).empty() && (OrderPort(s) == like);
}

// The sections from end A (a hair beyond the outline, where each corner already has its arc) to end B.
bool Sections(const FrontStart &start, double widening, int rings, const SourceKey &like,
              std::vector<GrainSection> &sections) {
  const double hair = 1e-6 * start.GrainRadius;
  sections.resize(static_cast<std::size_t>(rings) + 1);
  for (int i = 0; i <= rings; ++i)
    if (!OrderedSection(start, hair + widening * i / rings, like, sections[i])) return false;
  return true;
}

// How far the middle one of three sections is from the mean of the others, at the joints. mm
double Bend(const GrainSection &a, const GrainSection &middle, const GrainSection &b) {
  double most = 0;
  for (std::size_t l = 0; l < a.Port.size(); ++l)
    for (std::size_t k = 0; k < a.Port[l].size(); ++k)
      for (const bool last : {false, true}) {
        const auto at = [&](const GrainSection &s) {
          const SectionPiece &p = s.Piece[s.Port[l][k]];
          return s.Joint[last ? p.To : p.From];
        };
        const SectionJoint p = at(a), m = at(middle), q = at(b);
        most = std::max(most, std::hypot((p.X + q.X) / 2 - m.X, (p.Y + q.Y) / 2 - m.Y));
      }
  return most;
}

struct RingEdge {
  RimPoint From, To;
  PlanePoint First, Last; // normals
  bool AtWall = false;
};
using Ring = std::vector<std::vector<RingEdge>>; // by loop; the same counts at every height

Ring RingOf(const GrainSection &s, const std::vector<std::vector<int>> &chords) {
  Ring ring;
  const double unit = GridUnit(s.GrainRadius);
  for (std::size_t l = 0; l < s.Port.size(); ++l) {
    ring.emplace_back();
    for (std::size_t k = 0; k < s.Port[l].size(); ++k) {
      const SectionPiece &p = s.Piece[s.Port[l][k]];
      const PlanePoint from{s.Joint[p.From].X, s.Joint[p.From].Y}, to{s.Joint[p.To].X, s.Joint[p.To].Y};
      const int n = chords[l][k];
      const std::vector<PlanePoint> at = p.Arc ? CutArc(p, from, to, n) : std::vector{from, to};
      const bool back = p.What == SectionPiece::Kind::Front;
      const auto normal = [&](int i) {
        const double side = back ? -1 : 1, sense = p.Sweep > 0 ? side : -side;
        if (p.Arc) {
          const double a = p.Start + p.Sweep * i / n;
          return PlanePoint{sense * std::cos(a), sense * std::sin(a)};
        }
        const double length = std::hypot(to.X - from.X, to.Y - from.Y);
        return PlanePoint{side * (to.Y - from.Y) / length, side * (from.X - to.X) / length};
      };
      for (int i = 0; i < n; ++i) {
        const int a = back ? n - i : i, b = back ? a - 1 : a + 1;
        ring.back().push_back(
            {ToGrid(at[a].X, at[a].Y, unit), ToGrid(at[b].X, at[b].Y, unit), normal(a), normal(b), !back});
      }
    }
  }
  return ring;
}

bool AddCap(const Ring &ring, double unit, float z, bool high, Mesh &mesh) {
  std::vector<PlanePoint> points;
  std::vector<std::vector<int>> contours;
  for (const std::vector<RingEdge> &loop : ring) {
    contours.emplace_back();
    for (const RingEdge &e : loop) {
      if (e.From == e.To) continue;
      contours.back().push_back(static_cast<int>(points.size()));
      points.push_back({static_cast<double>(e.From.X), static_cast<double>(e.From.Y)});
    }
  }
  std::vector<FlatTriangle> triangles;
  if (!FillContours(points, contours, triangles)) return false;
  const std::uint32_t base = static_cast<std::uint32_t>(mesh.Vertex.size());
  for (const PlanePoint p : points)
    mesh.Vertex.push_back(
        {static_cast<float>(p.X * unit), static_cast<float>(p.Y * unit), z, 0, 0, high ? 1.0f : -1.0f});
  for (const FlatTriangle &t : triangles) {
    const std::uint32_t a = base + t[0], b = base + t[1], c = base + t[2];
    mesh.Triangle.push_back(high ? MeshTriangle{a, b, c} : MeshTriangle{a, c, b});
    mesh.Tag.push_back(Surface::CoreEnd);
  }
  return true;
}

void AddBand(const Ring &low, const Ring &high, double unit, float z0, float z1, double draft, Mesh &mesh) {
  const auto corner = [&](RimPoint p, PlanePoint normal, float z, bool atWall) {
    const double lean = atWall ? 0 : draft;
    mesh.Vertex.push_back({static_cast<float>(p.X * unit), static_cast<float>(p.Y * unit), z,
                           static_cast<float>(normal.X * std::cos(lean)),
                           static_cast<float>(normal.Y * std::cos(lean)),
                           static_cast<float>(-std::sin(lean))});
  };
  for (std::size_t l = 0; l < low.size(); ++l)
    for (std::size_t k = 0; k < low[l].size(); ++k) {
      const RingEdge &a = low[l][k], &b = high[l][k];
      const std::uint32_t at = static_cast<std::uint32_t>(mesh.Vertex.size());
      corner(a.From, a.First, z0, a.AtWall);
      corner(a.To, a.Last, z0, a.AtWall);
      corner(b.To, b.Last, z1, a.AtWall);
      corner(b.From, b.First, z1, a.AtWall);
      if (!(a.From == a.To))
        mesh.Triangle.push_back({at, at + 1, at + 2}), mesh.Tag.push_back(Surface::CoreSide);
      if (!(b.From == b.To))
        mesh.Triangle.push_back({at, at + 2, at + 3}), mesh.Tag.push_back(Surface::CoreSide);
    }
}

std::string TooSteep(const FrontStart &start, const SourceKey &like, double length, double widening) {
  double good = 0, bad = widening;
  for (int i = 0; i < 30; ++i) {
    GrainSection s;
    const double w = (good + bad) / 2;
    (OrderedSection(start, w + 1e-6 * start.GrainRadius, like, s) ? good : bad) = w;
  }
  return "The draft widens the core by " + PlainText(RoundPlaces(widening, 3)) +
         " mm, which closes part of its outline: at most " +
         PlainText(RoundPlaces(std::floor(std::atan(good / length) * 180 / Pi * 1000) / 1000, 3)) +
         " degrees";
}

} // namespace

std::string DraftedCoreMesh(const FrontStart &start, const GrainEnds &ends, double chord, double draft,
                            Mesh &mesh) {
  if (!(draft >= 0 && draft <= 45)) return "The draft must be between 0 and 45 degrees";
  const double R = start.GrainRadius, hair = 1e-6 * R;
  GrainSection outline;
  if (draft == 0) {
    if (std::string trouble = SectionAt(start, 0, outline); !trouble.empty()) return trouble;
    return CoreMesh(outline, ends, chord, mesh);
  }
  if (!(ends.Length > 0)) return "The grain length must be greater than 0 for a solid";
  if (std::string trouble = CheckChord(R, chord); !trouble.empty()) return trouble;
  if (std::string trouble = SectionAt(start, hair, outline); !trouble.empty()) return trouble;
  const SourceKey like = OrderPort(outline);
  const double lean = draft * Pi / 180, widening = ends.Length * std::tan(lean);
  // As many bands as keep the joints within the tolerance of where they belong.
  std::vector<GrainSection> sections, finer;
  int bands = 1;
  if (!Sections(start, widening, bands, like, sections)) return TooSteep(start, like, ends.Length, widening);
  for (;; bands *= 2) {
    if (!Sections(start, widening, 2 * bands, like, finer))
      return TooSteep(start, like, ends.Length, widening);
    double bend = 0;
    for (int i = 0; i < bands; ++i)
      bend = std::max(bend, Bend(finer[2 * i], finer[2 * i + 1], finer[2 * i + 2]));
    if (bend <= chord || bands == MostRings) break;
    sections = finer;
  }
  std::vector<std::vector<int>> chords; // by loop and piece, of the widest need
  for (std::size_t l = 0; l < outline.Port.size(); ++l) {
    chords.emplace_back(outline.Port[l].size(), 1);
    for (const GrainSection &s : sections)
      for (std::size_t k = 0; k < s.Port[l].size(); ++k) {
        const SectionPiece &p = s.Piece[s.Port[l][k]];
        const int least = p.From == p.To ? 8 : 1;
        chords[l][k] = std::max({chords[l][k], least, ChordCount(p, chord)});
      }
  }
  const double unit = GridUnit(R);
  Mesh fresh;
  Ring below;
  for (int i = 0; i <= bands; ++i) {
    const float z = static_cast<float>(ends.Length * i / bands);
    Ring ring = RingOf(sections[i], chords);
    if ((i == 0 || i == bands) && !AddCap(ring, unit, z, i > 0, fresh))
      return "The core is too thin for a drafted solid";
    if (i > 0) AddBand(below, ring, unit, static_cast<float>(ends.Length * (i - 1) / bands), z, lean, fresh);
    below = std::move(ring);
  }
  mesh = std::move(fresh);
  return {};
}
