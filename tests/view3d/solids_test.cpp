// Meshes of the shipped designs and of random ones: closed, outward, and of the volume that the exact section
// gives, which in turn is held against the stepwise burn.
#include "burnback/designs.h"
#include "rounds.h"
#include "shell/grain_file.h"
#include "view3d/cut_mesh.h"
#include "view3d/solids.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>

namespace {

std::vector<std::string> CaseFiles() {
  std::vector<std::string> files;
  for (const auto &file : std::filesystem::directory_iterator(TEST_DATA "/cases"))
    if (file.path().extension() == ".mvd") files.push_back(file.path().string());
  std::sort(files.begin(), files.end());
  return files;
}

void ExpectClosed(const Mesh &mesh, double volume, double within, const std::string &what) {
  ASSERT_FALSE(mesh.Triangle.empty()) << what;
  ASSERT_EQ(mesh.Triangle.size(), mesh.Tag.size()) << what;
  EXPECT_EQ(OpenEdges(mesh), 0u) << what;
  EXPECT_NEAR(VolumeOf(mesh) / volume, 1, within) << what;
}

// Triangle normals and vertex normals look the same way, save on slivers.
void ExpectOutward(const Mesh &mesh, const std::string &what, double hair = 0) {
  int against = 0;
  for (const MeshTriangle &t : mesh.Triangle) {
    const MeshVertex &a = mesh.Vertex[t.A], &b = mesh.Vertex[t.B], &c = mesh.Vertex[t.C];
    const double ux = b.X - a.X, uy = b.Y - a.Y, uz = b.Z - a.Z, vx = c.X - a.X, vy = c.Y - a.Y,
                 vz = c.Z - a.Z;
    // On the grid the shortest edges have hardly a direction.
    if (std::min({std::hypot(ux, uy, uz), std::hypot(vx, vy, vz), std::hypot(ux - vx, uy - vy, uz - vz)}) <
        hair)
      continue;
    const double nx = uy * vz - uz * vy, ny = uz * vx - ux * vz, nz = ux * vy - uy * vx,
                 l = std::sqrt(nx * nx + ny * ny + nz * nz);
    for (const MeshVertex *v : {&a, &b, &c})
      if (nx * v->NormalX + ny * v->NormalY + nz * v->NormalZ < 0.7 * l) ++against;
  }
  EXPECT_EQ(against, 0) << what << " of " << mesh.Triangle.size();
}

// Shells of a mesh, by the edges that triangles share: for each whether it reaches the wall.
std::vector<bool> ShellsAtWall(const Mesh &mesh) {
  std::vector<std::uint32_t> at, of;
  const std::uint32_t count = WeldedIndices(mesh, at);
  for (std::uint32_t i = 0; i < count; ++i) of.push_back(i);
  const auto root = [&](std::uint32_t i) {
    while (of[i] != i) i = of[i] = of[of[i]];
    return i;
  };
  for (const MeshTriangle &t : mesh.Triangle) {
    of[root(at[t.B])] = root(at[t.A]);
    of[root(at[t.C])] = root(at[t.A]);
  }
  std::map<std::uint32_t, bool> shell;
  for (std::size_t i = 0; i < mesh.Triangle.size(); ++i)
    shell[root(at[mesh.Triangle[i].A])] |= mesh.Tag[i] == Surface::Wall;
  std::vector<bool> walls;
  for (const auto &[first, wall] : shell) walls.push_back(wall);
  std::sort(walls.begin(), walls.end());
  return walls;
}

std::vector<bool> GroupsAtWall(const GrainSection &s) {
  std::vector<bool> walls;
  for (const SectionGroup &group : s.Group) walls.push_back(!group.Loose);
  std::sort(walls.begin(), walls.end());
  return walls;
}

TEST(Solids, ShippedDesignsKeepTheirVolume) {
  for (const std::string &file : CaseFiles()) {
    Design design;
    ASSERT_EQ(ReadGrainFile(file, design), "");
    const double R = design.Doc.GrainRadius;
    const GrainEnds ends{design.Doc.GrainLength, false, true};
    BurnRun run;
    BurnRefusal refusal;
    FrontStart start;
    ASSERT_TRUE(BurnDesign(design, {}, run, refusal)) << file;
    ASSERT_TRUE(PrepareFront(design, start, refusal)) << file;
    for (int i = 0; i < 20; ++i) {
      const int step = run.StepCount * i / 20;
      const double w = i == 0 ? 0 : run.StepDist[step];
      const std::string what = std::filesystem::path(file).stem().string() + " at " + std::to_string(w);
      GrainSection section;
      ASSERT_EQ(SectionAt(start, w, section), "") << what;
      const double exact = i == 0 ? run.SectionAtStart : run.StepSection[step];
      EXPECT_NEAR(section.Area, exact, 1e-9 * R * R) << what;
      for (const double chord : {R / 10000, R / 1000, R / 20}) {
        Mesh mesh;
        ASSERT_EQ(GrainMesh(section, ends, chord, mesh), "") << what;
        ExpectClosed(mesh, exact * (ends.Length - w), chord < R / 5000 ? 1e-4 : 0.1, what);
        if (chord < R / 5000) {
          EXPECT_EQ(ShellsAtWall(mesh), GroupsAtWall(section)) << what;
        }
        ExpectOutward(mesh, what);
      }
      Mesh core, liner;
      ASSERT_EQ(CoreMesh(section, ends, R / 10000, core), "") << what;
      ExpectClosed(core, (Pi * R * R - exact) * ends.Length, 1e-4, what);
      ASSERT_EQ(LinerMesh(section, ends, R / 20, R / 10000, liner), "") << what;
      ExpectClosed(liner, Pi * R * R * (1.05 * 1.05 - 1) * ends.Length, 1e-4, what);
    }
  }
}

// Random outlines, some past the wall, down to the last slivers before they are gone.
TEST(Solids, RandomOutlinesAreClosed) {
  int meshes = 0, thin = 0;
  for (int round = 0; round < 60 * Rounds(); ++round) {
    std::mt19937 random(static_cast<unsigned>(Seed()) + round);
    std::uniform_real_distribution<double> part(0, 1);
    const double R = std::vector<double>{2, 21.5, 40, 1000}[round % 4];
    std::vector<Entity> rows = RandomOutline(random, R, 3 + round % 40);
    if (round % 3 == 0)
      for (Entity &e : rows) e = ScaledRow(e, 1.2 + part(random));
    Design design = MakeDesign(2 * R, 3 * R);
    AddRows(design, rows);
    FrontStart start;
    BurnRun run;
    BurnRefusal refusal;
    if (!BurnDesign(design, {}, run, refusal)) continue;
    ASSERT_TRUE(PrepareFront(design, start, refusal));
    const double end = BurnEndOf(start);
    EXPECT_NEAR(end, run.LastLiveDist, run.BurnIncrement) << Seed() + round;
    for (int i = 0; i < 6; ++i) { // away from the steps at both ends
      const int step = std::min(static_cast<int>(run.StepCount * part(random)), run.StepCount - 1);
      const double w = i == 0 ? 0 : i == 1 ? end * 0.98 : i == 2 ? end * 0.9999 : run.StepDist[step];
      const std::string what = "seed " + std::to_string(Seed() + round) + " at " + std::to_string(w / end);
      GrainSection section;
      const std::string refused = SectionAt(start, w, section);
      EXPECT_EQ(refused, "") << what;
      if (!refused.empty()) continue;
      EXPECT_GT(section.Area, 0) << what;
      if (i > 2) {
        EXPECT_NEAR(section.Area, run.StepSection[step], 1e-7 * R * R) << what;
      }
      for (const double chord : {R / 1000, R / 30}) {
        Mesh mesh, core;
        const std::string trouble = GrainMesh(section, {3 * R, false, false}, chord, mesh);
        ++meshes;
        if (!trouble.empty()) {
          ++thin;
          EXPECT_LT(section.Area, 1e-7 * R * R) << what << trouble;
          continue;
        }
        EXPECT_EQ(OpenEdges(mesh), 0u) << what;
        EXPECT_GT(VolumeOf(mesh), 0) << what;
        if (i > 2 && chord < R / 500) {
          EXPECT_EQ(ShellsAtWall(mesh), GroupsAtWall(section)) << what;
        }
        ASSERT_EQ(CoreMesh(section, {3 * R, false, false}, chord, core), "") << what;
        EXPECT_EQ(OpenEdges(core), 0u) << what;
      }
    }
  }
  EXPECT_GT(meshes, 300);
  EXPECT_LT(thin, meshes / 100);
}

// Where the front just touches the wall, and just before nothing is left, solids are thinner than their
// chords.
TEST(Solids, TouchingFrontsAndLastSliversAreClosed) {
  const struct {
    const char *Name;
    double Touch;
  } rows[] = {{"c_slot", 0},
              {"circle_centred", 14},
              {"cross_sharp", 9.630683123},
              {"d_port", 12},
              {"dogbone", 9},
              {"slot_tube_4", 7},
              {"square_port", 10.10050506},
              {"star5_sharp", 11},
              {"star6_fillet", 24.47443035},
              {"wagon_wheel_6", 13.7417299}};
  int meshes = 0;
  for (const auto &row : rows) {
    Design design;
    ASSERT_EQ(ReadGrainFile(std::string(TEST_DATA "/cases/") + row.Name + ".mvd", design), "");
    const double R = design.Doc.GrainRadius;
    FrontStart start;
    BurnRefusal refusal;
    ASSERT_TRUE(PrepareFront(design, start, refusal));
    const double end = BurnEndOf(start);
    for (const double w : {row.Touch, row.Touch - 1e-9, row.Touch + 1e-9, row.Touch - 1e-6, row.Touch + 1e-6,
                           row.Touch + 1e-3, end * (1 - 1e-3), end * (1 - 1e-4), end * (1 - 1e-5)}) {
      GrainSection section;
      if (w < 0 || w >= end) continue;
      const std::string what = std::string(row.Name) + " at " + std::to_string(w);
      ASSERT_EQ(SectionAt(start, w, section), "") << what;
      for (const double chord : {R / 10000, R / 1000, R / 50}) {
        Mesh mesh, core;
        if (GrainMesh(section, {100, false, false}, chord, mesh).empty()) {
          ++meshes;
          EXPECT_EQ(OpenEdges(mesh), 0u) << what;
          EXPECT_GT(VolumeOf(mesh), 0) << what;
        } else {
          EXPECT_LT(section.Area, 1e-6 * R * R) << what;
        }
        ASSERT_EQ(CoreMesh(section, {100, false, false}, chord, core), "") << what;
        EXPECT_EQ(OpenEdges(core), 0u) << what;
      }
    }
  }
  EXPECT_GT(meshes, 200);
}

// Cut across, along the axis and askew: both halves are closed and make up the whole.
TEST(Cut, HalvesAreClosedAndMakeUpTheWhole) {
  std::mt19937 random(static_cast<unsigned>(Seed()));
  std::uniform_real_distribution<double> part(-1, 1);
  for (const std::string &file : CaseFiles()) {
    Design design;
    ASSERT_EQ(ReadGrainFile(file, design), "");
    const double R = design.Doc.GrainRadius, L = design.Doc.GrainLength;
    FrontStart start;
    BurnRefusal refusal;
    ASSERT_TRUE(PrepareFront(design, start, refusal));
    const double end = BurnEndOf(start);
    for (int i = 0; i < 12 * Rounds(); ++i) {
      Mesh mesh, front, back;
      ASSERT_EQ(
          Triangulate(start, EndsOf(design.Doc), std::min(end, L / 2) * 0.08 * (i % 12), R / 1000, mesh), "");
      CutPlane plane{part(random), part(random), part(random), R * part(random)};
      if (i % 4 == 0) plane = {1, 0, 0, 0};
      if (i % 4 == 1) plane = {0, 0, 2, L};
      if (i % 4 == 2) plane.NZ = plane.Offset = 0;
      const CutPlane other{-plane.NX, -plane.NY, -plane.NZ, -plane.Offset};
      const std::string what = file + " cut " + std::to_string(i);
      ASSERT_EQ(CutMesh(mesh, plane, front), "") << what;
      ASSERT_EQ(CutMesh(mesh, other, back), "") << what;
      EXPECT_EQ(OpenEdges(front), 0u) << what;
      EXPECT_EQ(OpenEdges(back), 0u) << what;
      EXPECT_NEAR((VolumeOf(front) + VolumeOf(back)) / VolumeOf(mesh), 1, 1e-5) << what;
      if (i % 4 == 1) {
        EXPECT_GT(VolumeOf(front), 0) << what;
      }
    }
  }
  Mesh empty, mesh;
  EXPECT_NE(CutMesh(mesh, {0, 0, 0, 0}, empty), "");
}

// Between the straight cores of both ends; one that the draft would close is refused with the draft that is
// not.
TEST(Core, DraftWidensTowardsEndB) {
  int drafted = 0;
  for (const std::string &file : CaseFiles()) {
    Design design;
    ASSERT_EQ(ReadGrainFile(file, design), "");
    const double R = design.Doc.GrainRadius;
    const GrainEnds ends = EndsOf(design.Doc);
    FrontStart start;
    BurnRefusal refusal;
    ASSERT_TRUE(PrepareFront(design, start, refusal));
    for (const double degrees : {0.1, 0.5, 2.0}) {
      const std::string what = file + " " + std::to_string(degrees);
      Mesh mesh;
      const std::string trouble = DraftedCoreMesh(start, ends, R / 2000, degrees, mesh);
      if (!trouble.empty()) {
        EXPECT_NE(trouble.find("degrees"), std::string::npos) << what << trouble;
        continue;
      }
      ++drafted;
      double mean = 0; // Simpson's rule over the exact sections
      for (int i = 0; i <= 20; ++i) {
        GrainSection s;
        ASSERT_EQ(SectionAt(start, ends.Length * std::tan(degrees * Pi / 180) * i / 20, s), "");
        mean += (i == 0 || i == 20 ? 1 : i % 2 ? 4 : 2) * (Pi * R * R - s.Area) / 60;
      }
      ExpectClosed(mesh, mean * ends.Length, 3e-3, what);
      ExpectOutward(mesh, what, 2e-5 * R);
    }
  }
  EXPECT_GT(drafted, 12);
}

} // namespace
