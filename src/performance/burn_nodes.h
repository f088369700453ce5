#pragma once
#include "burnback/burn_run.h"

#include <vector>

// The burning surface of a motor at one burn distance. Lengths in mm, areas in mm2.
struct BurnNode {
  double Dist = 0, Section = 0; // of propellant left
  double Area = 0;              // of the surface, core and ends
  double Volume = 0;            // of propellant left, mm3
  // How the surface goes to 0 on the way to this node: as this power of the way left. Elsewhere it goes
  // evenly.
  double Fall = 1;
};

// The surface at 0, at each mid-step point of the run and at the end of the burn, which is where the outline
// has gone or where the burning ends meet. Start and end are found so that the perimeter burns just the
// section that is measured. Empty: nothing burns.
std::vector<BurnNode> BurnNodes(const BurnRun &, double length, int endsExposed);
