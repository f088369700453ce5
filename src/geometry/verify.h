#pragma once
#include "platform/screen.h"
#include "shell/grain_document.h"

#include <string>
#include <vector>

// Area and centroid by horizontal scan lines over a closed outline.
struct Stretch {
  double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0; // mm
};
struct AreaScan {
  bool Closed = false; // false: some scan line met an odd number of crossings at every shift tried
  double Area = 0, CentroidX = 0, CentroidY = 0; // mm2, mm; in design coordinates
  double ScanY = 0;             // when not closed: the failing scan line, in the turned drawing
  std::vector<double> Crossing; // and its crossings' X, sorted
  double Turn = 0;              // the angle the drawing was turned by for the scan, radians
  std::vector<Stretch> Filled;  // of selected rows, closed: some hundred stretches inside, as hatching
};
// Over the selected rows, or over all of them. resolution in mm; it is refined for an outline of fewer than
// 50 lines' height (all of it when it is 0) and coarsened past 400000 lines. Ends within joinTolerance (mm)
// of each other count as one point. The table is not changed.
AreaScan ScanArea(const EntityTable &, double grainRadius, double resolution, bool selectedOnly,
                  double joinTolerance = 0.01);

// The message of a scan that is not closed, with its line and count.
std::string OpenOutlineText(const AreaScan &);

struct LinePick {
  Entity Line;
  double X = 0, Y = 0; // where it was picked
};
// The boxes of the measuring commands: lengths in mm, areas in mm2.
Box VerifyPosition(double x, double y);
Box VerifyDistance(double x1, double y1, double x2, double y2);
Box VerifyAngle(const LinePick &,
                const LinePick &);        // Fault 11 for parallel lines and for a pick on the intersection
Box VerifyPerimeter(const EntityTable &); // of the selected rows
Box VerifyArea(const AreaScan &);         // of a closed scan
