#pragma once
#include "burnback/burn_row.h"
#include "burnback/source.h"

#include <vector>

// The working copy of a run. The first rows of BurnTable are those of the sources, in chain order; later ones
// are stretches that a pinch or the wall has split off. Behind the sources with rows stand the Points.
struct Profile {
  double GrainRadius = 0;
  std::vector<BurnEntity> BurnTable;
  std::vector<Source> Sources;
  double ProfileRotation = 0; // as the turning rule adds it up
  double Turn = 0;            // the true sum of the turns, radians
  bool ProfileOK = false;
  double ChainTipX = 0, ChainTipY = 0; // free end (or crossing) when ProfileOK is false, design coordinates
  int DesignEntCount = -1;
  double BurnDist = 0, BurnIncrement = 0;
};

// Copies the table, turns it off the axes, orders it into one clockwise chain (port on the right hand),
// inserts the corner arcs and the edge arcs, and clips all to the grain circle. ProfileOK false: the entities
// do not close within JoinTolerance (mm), or the closed outline crosses itself.
void Init(Profile &, const EntityTable &, double grainRadius, double joinTolerance);

void SetFeet(const Profile &, BurnEntity &, double from, double to); // the stretch and what hangs on it
void SetEnds(const Profile &, BurnEntity &);                         // BurnX1.. from the feet at BurnDist
