#include "view3d/solids.h"

#include "base/number_text.h"
#include "view3d/tessellate.h"

#include <cmath>

namespace {

// Ends of a raised region: where they stand and what they are.
struct Raise {
  float From = 0, To = 0;
  Surface Low = Surface::InhibitedEnd, High = Surface::InhibitedEnd;
};

void AddCaps(const FilledRegion &region, double unit, const Raise &raise, Mesh &mesh) {
  for (const bool high : {false, true}) {
    const std::uint32_t base = static_cast<std::uint32_t>(mesh.Vertex.size());
    const float z = high ? raise.To : raise.From;
    for (const RimPoint p : region.Point)
      mesh.Vertex.push_back(
          {static_cast<float>(p.X * unit), static_cast<float>(p.Y * unit), z, 0, 0, high ? 1.0f : -1.0f});
    for (const FlatTriangle &t : region.Triangle) {
      const std::uint32_t a = base + t[0], b = base + t[1], c = base + t[2];
      mesh.Triangle.push_back(high ? MeshTriangle{a, b, c} : MeshTriangle{a, c, b});
      mesh.Tag.push_back(high ? raise.High : raise.Low);
    }
  }
}

void AddSides(const RimLoop &loop, double unit, const Raise &raise, Mesh &mesh) {
  const auto pair = [&](RimPoint p, float nx, float ny) {
    for (const float z : {raise.From, raise.To})
      mesh.Vertex.push_back({static_cast<float>(p.X * unit), static_cast<float>(p.Y * unit), z, nx, ny, 0});
    return static_cast<std::uint32_t>(mesh.Vertex.size()) - 2;
  };
  std::uint32_t last = 0;
  for (std::size_t i = 0; i < loop.size(); ++i) {
    const RimEdge &e = loop[i];
    const bool on = i > 0 && loop[i - 1].NX2 == e.NX1 && loop[i - 1].NY2 == e.NY1 && loop[i - 1].Tag == e.Tag;
    const std::uint32_t a = on ? last : pair(e.From, e.NX1, e.NY1), b = pair(e.To, e.NX2, e.NY2);
    mesh.Triangle.push_back({a, b, b + 1});
    mesh.Triangle.push_back({a, b + 1, a + 1});
    mesh.Tag.insert(mesh.Tag.end(), 2, e.Tag);
    last = b;
  }
}

std::string RaiseRegion(const std::vector<RimLoop> &loops, double unit, const Raise &raise,
                        const std::string &what, Mesh &mesh) {
  FilledRegion region;
  if (!FillRegion(loops, region)) return what + " is too thin for a solid";
  Mesh fresh;
  for (const RimLoop &loop : region.Loop) AddSides(loop, unit, raise, fresh);
  AddCaps(region, unit, raise, fresh);
  mesh = std::move(fresh);
  return {};
}

std::vector<Surface> TagsOf(const GrainSection &s, Surface front, Surface wall) {
  std::vector<Surface> tags;
  for (const SectionPiece &p : s.Piece) tags.push_back(p.What == SectionPiece::Kind::Front ? front : wall);
  return tags;
}

std::string CheckLength(const GrainEnds &ends) {
  if (ends.Length > 0 && std::isfinite(ends.Length)) return {};
  return "The grain length must be greater than 0 for a solid";
}

} // namespace

GrainEnds EndsOf(const GrainDoc &doc) {
  return {doc.GrainLength, (doc.EndsExposed & 1) != 0, (doc.EndsExposed & 2) != 0};
}

std::string CheckChord(double R, double chord) {
  if (chord >= R * 1e-6 && chord <= R) return {};
  return "The chord tolerance must be between " + PlainText(static_cast<float>(R * 1e-6)) + " and " +
         PlainText(static_cast<float>(R)) + " mm";
}

std::string GrainMesh(const GrainSection &s, const GrainEnds &ends, double chord, Mesh &mesh) {
  if (std::string trouble = CheckLength(ends); !trouble.empty()) return trouble;
  if (std::string trouble = CheckChord(s.GrainRadius, chord); !trouble.empty()) return trouble;
  Raise raise;
  raise.From = static_cast<float>(ends.AExposed ? s.BurnDist : 0);
  raise.To = static_cast<float>(ends.Length - (ends.BExposed ? s.BurnDist : 0));
  if (!(raise.From < raise.To))
    return "Nothing is left to burn at " + PlainText(s.BurnDist) + " mm: the grain's length of " +
           PlainText(static_cast<float>(ends.Length)) + " mm is burnt away";
  raise.Low = ends.AExposed ? Surface::ExposedEndA : Surface::InhibitedEnd;
  raise.High = ends.BExposed ? Surface::ExposedEndB : Surface::InhibitedEnd;
  const CutSection cut = CutPieces(s, chord);
  const std::vector<char> forward(s.Piece.size(), 0);
  const std::vector<Surface> tags = TagsOf(s, Surface::Port, Surface::Wall);
  std::vector<RimLoop> loops;
  for (const std::vector<int> &loop : s.Propellant) loops.push_back(RimOf(cut, loop, forward, tags));
  return RaiseRegion(loops, cut.Unit, raise, "What is left of the propellant", mesh);
}

std::string LinerMesh(const GrainSection &s, const GrainEnds &ends, double thickness, double chord,
                      Mesh &mesh) {
  if (std::string trouble = CheckLength(ends); !trouble.empty()) return trouble;
  if (std::string trouble = CheckChord(s.GrainRadius, chord); !trouble.empty()) return trouble;
  const double R = s.GrainRadius;
  if (!(thickness >= 2 * chord && thickness <= R))
    return "The liner must be at least twice the chord tolerance, " +
           PlainText(static_cast<float>(2 * chord)) + " mm, and at most " + PlainText(static_cast<float>(R)) +
           " mm thick";
  const CutSection cut = CutPieces(s, chord);
  const std::vector<Surface> tags(s.Piece.size(), Surface::LinerInner);
  const std::vector<char> backwards(s.Piece.size(), 1);
  const std::vector<int> inner(s.Circle.rbegin(), s.Circle.rend());
  GrainSection outside;
  outside.GrainRadius = R; // the same grid
  outside.Joint.push_back({R + thickness, 0});
  SectionPiece ring;
  ring.Arc = true;
  ring.From = ring.To = 0;
  ring.Radius = R + thickness;
  ring.Sweep = TwoPi;
  outside.Piece.push_back(ring);
  const CutSection outer = CutPieces(outside, chord);
  Raise raise{0, static_cast<float>(ends.Length), Surface::LinerEnd, Surface::LinerEnd};
  return RaiseRegion({RimOf(outer, {0}, {0}, {Surface::LinerOuter}), RimOf(cut, inner, backwards, tags)},
                     cut.Unit, raise, "The liner", mesh);
}

std::string CoreMesh(const GrainSection &s, const GrainEnds &ends, double chord, Mesh &mesh) {
  if (std::string trouble = CheckLength(ends); !trouble.empty()) return trouble;
  if (std::string trouble = CheckChord(s.GrainRadius, chord); !trouble.empty()) return trouble;
  const CutSection cut = CutPieces(s, chord);
  std::vector<char> backwards;
  for (const SectionPiece &p : s.Piece) backwards.push_back(p.What == SectionPiece::Kind::Front ? 1 : 0);
  const std::vector<Surface> tags(s.Piece.size(), Surface::CoreSide);
  std::vector<RimLoop> loops;
  for (const std::vector<int> &loop : s.Port) loops.push_back(RimOf(cut, loop, backwards, tags));
  Raise raise{0, static_cast<float>(ends.Length), Surface::CoreEnd, Surface::CoreEnd};
  return RaiseRegion(loops, cut.Unit, raise, "The core", mesh);
}

std::string Triangulate(const FrontStart &start, const GrainEnds &ends, double burnDist, double chord,
                        Mesh &mesh) {
  GrainSection section;
  if (std::string trouble = SectionAt(start, burnDist, section); !trouble.empty()) return trouble;
  return GrainMesh(section, ends, chord, mesh);
}
