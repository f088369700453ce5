#pragma once
#include "burnback/designs.h"

// A star with both fillets, four entities a point, in a grain of 100 mm.
inline Design FilletedStar(int entities) {
  const int points = entities / 4;
  Design design = MakeDesign(100, 300, 20, 3);
  const double fillet = 8.0 / points;
  AddRows(design, RoundedPolygon(StarCorners(points, 35, 25, 0.1, fillet, fillet)));
  return design;
}
