// The camera against its own matrices, and the file of the look.
#include "base/whole_file.h"
#include "scratch_folder.h"
#include "view3d/camera.h"
#include "view3d/edges.h"
#include "view3d/look.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace {
const MeshBox Box{{-20, -20, 0}, {20, 20, 120}};

// Where the matrices put a point: pixels and depth.
std::array<double, 3> Drawn(const Camera &c, const Place3 &p) {
  const CameraMatrices m = MatricesOf(c, Box);
  std::array<double, 4> at{p.X, p.Y, p.Z, 1};
  for (const auto &matrix : {m.View, m.Projection}) {
    std::array<double, 4> to{};
    for (std::size_t row = 0; row < 4; ++row)
      for (std::size_t k = 0; k < 4; ++k) to[row] += matrix[4 * k + row] * at[k];
    at = to;
  }
  return {(at[0] / at[3] + 1) * c.Width / 2, (1 - at[1] / at[3]) * c.Height / 2, at[2] / at[3]};
}
} // namespace

TEST(Camera, MatricesAgreeWithProjectionAndTheGrainFillsThePicture) {
  for (const bool perspective : {false, true})
    for (int view = 0; view < 7; ++view) {
      SCOPED_TRACE(view);
      Camera c;
      c.Width = 900, c.Height = 500, c.Perspective = perspective;
      LookFrom(c, static_cast<StandardView>(view));
      FitTo(c, Box);
      double left = 1e9, right = -1e9, top = 1e9, bottom = -1e9;
      for (int i = 0; i < 720; ++i) { // the rims of the cylinder in the box
        const Place3 p{20 * std::cos(i * 0.0174533), 20 * std::sin(i * 0.0174533), i < 360 ? 0.0 : 120};
        const Pixel told = Project(c, p);
        const auto drawn = Drawn(c, p);
        ASSERT_NEAR(told.X, drawn[0], 0.01);
        ASSERT_NEAR(told.Y, drawn[1], 0.01);
        ASSERT_LT(std::abs(drawn[2]), 1);
        left = std::min(left, told.X), right = std::max(right, told.X);
        top = std::min(top, told.Y), bottom = std::max(bottom, told.Y);
      }
      EXPECT_NEAR(std::max((right - left) / 900, (bottom - top) / 500), 0.92, 0.003); // fills its room
      if (right - left > 0.9 * 900) {
        EXPECT_NEAR(left + right, 900, 3);
      }
      if (bottom - top > 0.9 * 500) {
        EXPECT_NEAR(top + bottom, 500, 3);
      }
    }
}

TEST(Camera, ZoomAndPanKeepThePointHeldUnderThePointer) {
  Camera c;
  FitTo(c, Box);
  c.Perspective = false;
  const Place3 p{c.TargetX + 7, c.TargetY + 3, c.TargetZ - 5};
  const Pixel before = Project(c, p);
  ZoomAt(c, before.X, before.Y, 3, 1e-3, 1e6);
  EXPECT_NEAR(Project(c, p).X, before.X, 1e-6);
  EXPECT_NEAR(Project(c, p).Y, before.Y, 1e-6);
  PanBy(c, 40, -15);
  EXPECT_NEAR(Project(c, p).X, before.X + 40, 1e-6);
  EXPECT_NEAR(Project(c, p).Y, before.Y - 15, 1e-6);
  Orbit(c, 0, 1e6);
  EXPECT_EQ(c.Lift, 90); // never over the top
}

TEST(Look, IsReadAsItWasWrittenAndRefusedWhereItIsBroken) {
  const ScratchFolder folder;
  const std::string file = folder.Path + "Default3DFile";
  Look3d look, read;
  EXPECT_EQ(ReadLook(file, read), ""); // none is normal
  look.Colour[2] = 0x123456;
  look.Bitmap[1] = "/pictures/a, b.png";
  look.OwnGround = true;
  look.Ground = 0x010203;
  look.Liner = 1.25;
  ASSERT_EQ(WriteLook(file, look), "");
  EXPECT_EQ(ReadLook(file, read), "");
  EXPECT_EQ(read, look);
  std::string whole;
  ASSERT_EQ(ReadWhole(file, whole), "");
  const auto broken = [&](const std::string &from, const std::string &to) {
    std::string bytes = whole;
    bytes.replace(bytes.find(from), from.size(), to);
    EXPECT_EQ(WriteWhole(file, bytes), "");
    Look3d kept = look;
    const std::string trouble = ReadLook(file, kept);
    EXPECT_EQ(kept, look) << to;
    return trouble.substr(std::min(trouble.size(), file.size()));
  };
  EXPECT_EQ(broken("1193046", "-3"),
            ": line 4, field 2 (BurningColor): expected a colour from 0 to 16777215, found -3");
  EXPECT_EQ(broken("1.25", "1e9"), ": line 13, field 2 (LinerThickness): expected 0 to 100000 mm");
  EXPECT_NE(broken("CoreColor", "Core"), "");
  EXPECT_NE(broken("Look3D_1", "Look3D_2"), "");
  EXPECT_NE(broken("1.25", "1.25\r\n7"), "");

  std::mt19937 chance(7);
  for (int round = 0; round < 3000; ++round) { // any bytes: an answer, and all or nothing
    std::string bytes = whole;
    for (int i = 0; i < 3; ++i) {
      const std::size_t at = chance() % bytes.size();
      if (chance() % 3)
        bytes[at] = static_cast<char>(chance());
      else
        bytes.erase(at, chance() % 9);
      if (bytes.empty()) bytes = "x";
    }
    ASSERT_EQ(WriteWholeSoon(file, bytes), "");
    Look3d kept;
    if (const std::string trouble = ReadLook(file, kept); !trouble.empty()) {
      EXPECT_EQ(kept, Look3d{});
      EXPECT_TRUE(trouble.starts_with(file));
    }
  }
}
