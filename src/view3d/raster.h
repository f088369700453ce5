#pragma once
#include "view3d/mesh.h"

#include <cstdint>
#include <string>
#include <vector>

// Solids drawn without a display: a depth buffer with nine samples to a pixel, light from a sky of many small
// lamps that each cast shadows, thin lines where surfaces meet.

struct Material {
  std::uint32_t Colour = 0; // 0xRRGGBB
  double Gloss = 0;         // 0 dull .. 1
};
struct SceneTriangle {
  MeshTriangle Corner;
  std::uint8_t Material = 0; // of Scene::Paint
};
struct Scene {
  std::vector<MeshVertex> Vertex;
  std::vector<SceneTriangle> Triangle;
  std::vector<Material> Paint; // fewer than 250
};
struct SceneView {
  double Azimuth = 0, Elevation = 0; // degrees: where the eye stands, from the side (X) towards Z, and above
  bool Perspective = true;
  int Width = 0, Height = 0;                             // pixels
  double Margin = 0.06;                                  // of the smaller side, on all sides
  double Bottom = 0;                                     // of the height, left free below
  std::uint32_t SkyTop = 0xF8F9FB, SkyBottom = 0xE2E6EB; // of the ground, which the solids lie on
};
struct Raster {
  int Width = 0, Height = 0;
  std::vector<std::uint32_t> Pixel; // 0xRRGGBB, from the top left
};

// The mesh turned about the Z axis by an angle (radians); materialOf gives the material of each surface.
void AddToScene(Scene &, const Mesh &, double turn, const std::array<std::uint8_t, SurfaceCount> &materialOf);

// The whole scene fills the picture but for the margin. An empty scene gives the ground alone.
void DrawScene(const Scene &, const SceneView &, Raster &);
