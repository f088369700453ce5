#pragma once
#include "shell/grain_document.h"

#include <vector>

// Area and centroid by horizontal scan lines over a closed outline.
struct AreaScan {
  bool Closed = false;  // false: some scan line met an odd number of crossings at every shift tried
  double Area = 0, CentroidX = 0, CentroidY = 0;  // mm2, mm; in design coordinates
  double ScanY = 0;              // when not closed: the failing scan line, in the turned drawing
  std::vector<double> Crossing;  // and its crossings' X, sorted
  double Turn = 0;               // the angle the drawing was turned by for the scan, radians
};
// Over the selected rows, or over all of them. resolution in mm, above 0. The table is not changed.
AreaScan ScanArea(const EntityTable &, double grainRadius, double resolution, bool selectedOnly);
