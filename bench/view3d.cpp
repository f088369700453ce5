// From a front to a closed mesh, the section it stands on, and the cut through it, by number of entities.
#include "stars.h"
#include "view3d/cut_mesh.h"
#include "view3d/solids.h"

#include <benchmark/benchmark.h>

namespace {

FrontStart StarFront(int entities) {
  const Design design = FilletedStar(entities);
  FrontStart start;
  BurnRefusal refusal;
  PrepareFront(design, start, refusal);
  return start;
}

constexpr double BurnDist = 1.5, Chord = 0.05; // a thousandth of the radius
const GrainEnds Ends{300, true, true};

void SectionOfFront(benchmark::State &state) {
  const FrontStart start = StarFront(static_cast<int>(state.range(0)));
  GrainSection section;
  for (auto _ : state)
    if (!SectionAt(start, BurnDist, section).empty()) state.SkipWithError("no section");
}

void MeshOfFront(benchmark::State &state) {
  const FrontStart start = StarFront(static_cast<int>(state.range(0)));
  GrainSection section;
  Mesh mesh;
  if (!SectionAt(start, BurnDist, section).empty()) state.SkipWithError("no section");
  for (auto _ : state)
    if (!GrainMesh(section, Ends, Chord, mesh).empty()) state.SkipWithError("no mesh");
  state.counters["triangles"] = static_cast<double>(mesh.Triangle.size());
}

void CutOfMesh(benchmark::State &state) {
  const FrontStart start = StarFront(static_cast<int>(state.range(0)));
  Mesh mesh, half;
  if (!Triangulate(start, Ends, BurnDist, Chord, mesh).empty()) state.SkipWithError("no mesh");
  for (auto _ : state)
    if (!CutMesh(mesh, {1, 0.2, 0, 0}, half).empty()) state.SkipWithError("no cut");
}

BENCHMARK(SectionOfFront)->Arg(24)->Arg(60)->Arg(300)->Unit(benchmark::kMillisecond);
BENCHMARK(MeshOfFront)->Arg(24)->Arg(60)->Arg(300)->Unit(benchmark::kMillisecond);
BENCHMARK(CutOfMesh)->Arg(24)->Arg(60)->Arg(300)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
