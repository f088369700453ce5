#pragma once
#include "dxf/dxf_file.h"
#include "dxf/plane_map.h"

#include <map>
#include <string>
#include <vector>

// What the entities of a drawing come to: rows in mm, in the file's order, with the line of the entity each
// came from, and what was left out.
struct DxfShapes {
  std::vector<Entity> Row;
  std::vector<int> RowLine;
  std::size_t Count = 0; // of rows; Row holds no more than MostRows of them
  std::map<std::string, int> Skipped;
  int Approximated = 0, ApproximationRows = 0; // ellipses and splines, and the rows they became
  std::string Trouble; // a bad field, a block within itself; all else then means nothing
};
constexpr std::size_t MostRows = 303; // one more than any design can use, with a grain's edge beside it

// LINE, ARC, CIRCLE, LWPOLYLINE, POLYLINE, ELLIPSE and SPLINE, and those of inserted blocks, seen from above:
// Z is dropped. `map` goes from the file's units to the design's. Ellipses and splines, and circles and arcs
// under an uneven scale, become tangent arcs within tolerance (mm).
DxfShapes ShapesOf(const DxfFile &, const PlaneMap &map, double tolerance);
