#pragma once
#include "shell/grain_document.h"
#include "view3d/grain_section.h"

#include <optional>
#include <string>

struct GrainPicture {
  enum class Cut { None, Half, Quarter } Section = Cut::Half;
  double BurnDist = 0;                 // mm
  double Azimuth = 38, Elevation = 24; // degrees, as SceneView
  std::optional<double> Roll; // degrees that the drawing is turned about the axis; else as the cut needs
  bool Perspective = true, Liner = true, Legend = true;
  int Width = 1600, Height = 1000;
};

// The motor's grain in its liner at a burn distance, cut open along the plane across the drawing's X axis
// (through the port where that lies beside the motor's axis), as PNG. Needs no display. The trouble, or
// empty.
std::string WriteGrainPicture(const Design &, const FrontStart &, const GrainPicture &,
                              const std::string &path);
