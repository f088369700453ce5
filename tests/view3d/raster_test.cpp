// What a picture without a display covers, against the exact section: seen from end B, without perspective.
#include "burnback/designs.h"
#include "shell/grain_file.h"
#include "view3d/raster.h"
#include "view3d/solids.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(Raster, SilhouetteIsTheExactSection) {
  for (const char *name : {"wagon_wheel_6", "c_slot"}) {
    Design design;
    ASSERT_EQ(ReadGrainFile(std::string(TEST_DATA "/cases/") + name + ".mvd", design), "");
    FrontStart start;
    BurnRefusal refusal;
    ASSERT_TRUE(PrepareFront(design, start, refusal));
    for (const double part : {0.0, 0.6}) {
      GrainSection section;
      Mesh mesh;
      ASSERT_EQ(SectionAt(start, part * BurnEndOf(start), section), "");
      ASSERT_EQ(GrainMesh(section, {100, false, false}, start.GrainRadius / 2000, mesh), "");
      Scene scene;
      AddToScene(scene, mesh, 0, {});
      const SceneView view{.Azimuth = 90, .Perspective = false, .Width = 240, .Height = 240};
      Raster light, dark;
      scene.Paint = {{0xFFFFFF, 0}};
      DrawScene(scene, view, light);
      scene.Paint = {{0x202020, 0}};
      DrawScene(scene, view, dark);
      int covered = 0, left = 240, right = 0, rim = 0;
      const auto solid = [&](int i) { return (light.Pixel[i] & 255) - (dark.Pixel[i] & 255) > 60; };
      for (int y = 1; y < 239; ++y)
        for (int x = 1; x < 239; ++x) {
          const int i = y * 240 + x;
          if (solid(i) != solid(i + 1) || solid(i) != solid(i + 240)) ++rim;
          if (!solid(i)) continue;
          ++covered;
          left = std::min(left, x), right = std::max(right, x + 1);
        }
      const MeshBox box = BoundsOf(mesh);
      const double pixel = (box.High[0] - box.Low[0]) / (right - left); // mm
      EXPECT_NEAR(covered * pixel * pixel / section.Area, 1, 0.01 + 0.15 * rim / covered)
          << name << " at " << part << ": " << covered << " pixels, " << rim << " at the rim";
    }
  }
}
