#pragma once
#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

struct Mesh; // of view3d/mesh.h

// A closed solid and the lines along its sharp edges: two ends of three coordinates each, mm.
struct SceneSolid {
  std::shared_ptr<const Mesh> Solid;
  std::shared_ptr<const std::vector<float>> Edge;
  bool Liner = false; // what was cut open of it is liner too
};

struct ScenePoint {
  float X = 0, Y = 0; // pixels from the upper left corner
};

// What Picture1 shows. Matrices stand column by column; the projection's depth runs from -1 to 1.
struct PictureScene {
  std::vector<SceneSolid> Solid;
  unsigned Number = 0; // another one whenever Solid has changed
  std::array<float, 16> View{}, Projection{};
  std::array<std::uint32_t, 11> Colour{}; // by Surface, red in the low byte
  std::array<std::string, 3> Texture;     // bitmaps of propellant, burning surface, liner; empty: none
  float TextureSize = 1;                  // mm that a bitmap covers
  bool OwnGround = false;                 // else the theme's
  std::uint32_t Ground = 0;
  float Radius = 1, PortRadius = 1, LowZ = 0, HighZ = 1;  // of what is shown, mm; the port's mean
  std::array<float, 4> Plane{};                           // normal and offset of the cut; all 0: none
  std::vector<ScenePoint> Frame;                          // of the cut, a closed line; empty: none
  ScenePoint Grip;                                        // by which it is dragged
  bool GripHeld = false;                                  // or under the pointer
  bool Moving = false;                                    // Ticks are wanted
  std::vector<std::pair<std::string, std::uint32_t>> Key; // the materials in view and their colours
};
