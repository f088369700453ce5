#pragma once
#include "view3d/mesh.h"

#include <array>

// Where a solid is looked at from. Y is up; the motor's axis, Z, lies level. Nothing here draws.
struct Camera {
  double Turn = -50, Lift = 22; // degrees: about the upward axis from +Z towards +X; above the level, +-90
  double TargetX = 0, TargetY = 0, TargetZ = 0; // mm, stands in the middle of the picture
  double Span = 100;                            // mm that the picture's height shows at the target
  bool Perspective = true;                      // else parallel
  double Width = 800, Height = 600;             // pixels of the picture
  bool operator==(const Camera &) const = default;
};

struct Place3 {
  double X = 0, Y = 0, Z = 0;
};
struct CameraAxes {
  Place3 Right, Up, Back; // Back points to the eye
};
CameraAxes AxesOf(const Camera &);

enum class StandardView : std::uint8_t { Front, Side, Top, Iso, Back, OtherSide, Bottom };
void LookFrom(Camera &, StandardView); // Front: end B, as it is drawn; Side: end B at the right

// Pixels; a pull over the whole height turns by half a circle.
void Orbit(Camera &, double right, double down);
void PanBy(Camera &, double right, double down);
// About the place of the target's plane under x, y (pixels from the upper left corner); above 1 comes nearer.
void ZoomAt(Camera &, double x, double y, double factor, double least, double most);
void FitTo(Camera &, const MeshBox &); // all of it in the picture with a little room around; keeps the angles

// Column by column; depth from -1 to 1, for what lies within reach (mm) of the box's middle.
struct CameraMatrices {
  std::array<float, 16> View{}, Projection{};
};
CameraMatrices MatricesOf(const Camera &, const MeshBox &);

struct Pixel {
  double X = 0, Y = 0; // from the upper left corner
  bool Before = true;  // of the eye
};
Pixel Project(const Camera &, const Place3 &);
