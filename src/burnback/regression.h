#pragma once
#include "burnback/pair_watch.h"
#include "burnback/profile.h"
#include "burnback/reach.h"

#include <vector>

// What the step keeps beside the rows.
struct Regression {
  Profile Chain;
  BurnTolerance Tol;
  PairWatch Watch;
  std::vector<char> Touching; // by pair: its gap was closed when last measured
  double FullStep = 0;        // mm; the first step is half of it
  int Step = 0;               // number of the step under way, from 1
  double WallAngles =
      0; // sum of the walk's first ends' angles on the wall less that of the second ends, radians
  int LeftCount = 0, RightCount = 0;
  double Section = 0;   // propellant left, mm2
  double Perimeter = 0; // of the step, mm
  int LiveRows = 0;
  bool AtWall = false; // the step cut some row at the wall, or took it whole
};

// Sets the pairs to watch and measures the start; steps is the most that the run can take, step the full one
// in mm.
void StartRegression(Regression &, int steps, double step);

// One step: moves the front to BurnDist + BurnIncrement and trims it. The front then is the exact offset of
// the outline inside the grain circle: a stretch of an entity is live where it is nowhere nearer than
// BurnDist to the outline.
void StepFront(Regression &);

// The named parts of the step, in its order.
void GetNewLinePos(Profile &, BurnEntity &);
void GetNewArcPos(Profile &, BurnEntity &);
void TrimLines(Regression &);
void TrimLinesArcs(Regression &);
void TrimArcsArcs(Regression &);
void TrimLinesGrain(Regression &);
void TrimArcsGrain(Regression &);
void TrimFillets(Profile &);
void UpdateArrays(Regression &);
void RemoveFreeEnts(Regression &);

// Wall stretches that still hold propellant, as arcs about the origin from a second end to the next first
// end; one full circle when the front is nowhere at the wall. For the surface build and the debug display.
std::vector<BurnEntity> CaseArcs(const Profile &);
