#pragma once
#include "geometry/solution.h"
#include "geometry/surplus_rows.h"

#include <string>
#include <vector>

// Why an outline does not burn, and what can be mended. Lengths in mm.

struct Gap {
  Point One, Other;
  double Apart = 0;
};

struct Diagnosis {
  bool Closed = false;          // one closed chain takes all rows
  std::vector<Point> OpenEnds;  // no other row ends within JoinTolerance; the grain's edge closes nothing
  std::vector<Gap> Gaps;        // the open ends in pairs, the nearest first; an odd one stays by itself
  Surplus Extra;                // rows without ends here, and crossing nothing
  std::vector<Point> Crossings; // between rows, away from their ends
  std::vector<Point> Branches;  // where more than two ends meet: told when nothing else keeps one chain open
  int Outlines = 1;             // told likewise
  std::string Words;            // all of this in one line; empty for an empty drawing
};
Diagnosis Diagnose(const EntityTable &, const GrainDoc &);

// Ends of rows that lie within joinTolerance without being equal (1e-6) become one point: the crossing of two
// lines where it lies within the tolerance of both, else their middle; beside an arc a line takes the arc's
// exact end; two arcs meet where their circles cross, else in the middle, keeping their sweeps. Rows that
// SurplusRows names are deleted. A solution without changes: there is nothing to close.
Solution CloseGaps(const EntityTable &, double joinTolerance);
