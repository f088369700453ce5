#include "view3d/view_solids.h"

#include "base/number_text.h"
#include "burnback/live_burn.h"
#include "burnback/run_sim.h"
#include "view3d/edges.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {
// Why the design has no solid. Empty: it has one.
std::string Prepare(const SolidRequest &request, SolidResult &result) {
  const GrainDoc &doc = request.Grain.Doc;
  if (request.Grain.Table.EntCount < 0) return "There is no outline yet. Draw the core, or open a grain.";
  if (!(doc.GrainLength > 0)) return "The grain has no length. Give it one under Motor, Dimensions.";
  result.Front = request.Front;
  result.End = request.EndKnown;
  if (result.Front) return {};
  auto front = std::make_shared<FrontStart>();
  BurnRefusal refusal;
  if (!PrepareFront(request.Grain, *front, refusal))
    return refusal.Open ? "The outline is not closed." : RefusalWords(refusal);
  const GrainEnds ends = EndsOf(doc);
  const int exposed = (ends.AExposed ? 1 : 0) + (ends.BExposed ? 1 : 0);
  result.End = BurnEndOf(*front);
  if (exposed > 0) result.End = std::min(result.End, ends.Length / exposed);
  result.Front = std::move(front);
  return {};
}

std::string Add(SolidResult &result, Mesh mesh, const SolidRequest &request, bool cut, bool liner) {
  if (cut && request.Cut) {
    Mesh part;
    if (std::string trouble = CutMesh(mesh, request.Plane, part); !trouble.empty()) return trouble;
    mesh = std::move(part);
  }
  auto edges = std::make_shared<std::vector<float>>(SharpEdges(mesh));
  result.Solid.push_back({std::make_shared<Mesh>(std::move(mesh)), std::move(edges), liner});
  return {};
}

std::string MakeAll(const SolidRequest &request, SolidResult &result) {
  if (std::string why = Prepare(request, result); !why.empty()) return why;
  const FrontStart &front = *result.Front;
  const GrainEnds ends = EndsOf(request.Grain.Doc);
  const double R = front.GrainRadius, chord = ViewChord(R);
  result.BurntOut = request.BurnDist >= result.End * (1 - 1e-9);
  GrainSection section;
  if (std::string trouble = SectionAt(front, result.BurntOut ? 0 : request.BurnDist, section);
      !trouble.empty())
    return trouble;
  result.BestCut = CutThroughPort(section, request.Plane.NX, request.Plane.NY);
  if (!result.BurntOut)
    for (const SectionGroup &group : section.Group) ++result.Groups, result.LooseGroups += group.Loose;
  result.PortRadius = std::sqrt(std::max(0.0, R * R - section.Area / std::numbers::pi));
  Mesh mesh;
  if (request.Liner > 0) {
    std::string trouble = LinerMesh(section, ends, request.Liner, chord, mesh);
    if (trouble.empty()) trouble = Add(result, std::move(mesh), request, true, true);
    if (!trouble.empty()) return trouble;
  }
  if (result.BurntOut) return "Burnt out: nothing is left after " + FormatMask(result.End, "0.00") + " mm.";
  if (request.Core) {
    std::string trouble = CoreMesh(section, ends, chord, mesh);
    if (trouble.empty()) trouble = Add(result, std::move(mesh), request, false, false);
    if (!trouble.empty()) return trouble;
  }
  if (std::string trouble = GrainMesh(section, ends, chord, mesh); !trouble.empty()) return trouble;
  return Add(result, std::move(mesh), request, true, false);
}
} // namespace

double ViewChord(double grainRadius) { return grainRadius / 3000; }

SolidResult MakeSolids(const SolidRequest &request) {
  SolidResult result;
  result.Trouble = MakeAll(request, result);
  return result;
}

bool SameSolids(const SolidRequest &a, const SolidRequest &b) {
  const auto plane = [](const CutPlane &p) { return std::array{p.NX, p.NY, p.NZ, p.Offset}; };
  return a.BurnDist == b.BurnDist && a.Liner == b.Liner && a.Core == b.Core && a.Cut == b.Cut &&
         plane(a.Plane) == plane(b.Plane) && a.Grain.Table.EntCount == b.Grain.Table.EntCount &&
         SameBurn(a.Grain, b.Grain);
}

std::string PartMesh(const SolidRequest &request, MeshPart part, double chord, Mesh &mesh) {
  SolidResult result;
  if (std::string why = Prepare(request, result); !why.empty()) return why;
  GrainSection section;
  if (std::string why = SectionAt(*result.Front, request.BurnDist, section); !why.empty()) return why;
  const GrainEnds ends = EndsOf(request.Grain.Doc);
  switch (part) {
  case MeshPart::Grain: return GrainMesh(section, ends, chord, mesh);
  case MeshPart::Core: return CoreMesh(section, ends, chord, mesh);
  case MeshPart::Liner: return LinerMesh(section, ends, request.Liner, chord, mesh);
  }
  return {};
}
