#pragma once
#include "burnback/ranges.h"
#include "burnback/source.h"

// Tolerances of a run, in mm, all from the grain radius.
struct BurnTolerance {
  double Depth =
      0; // R/1e12: a front point counts as swallowed when it is nearer than BurnDist by more than this
  double Slack =
      0; // R/1e9: how far a source reaches past its ends when it swallows, so that neighbours leave no seam
  double Sliver = 0; // 4 R/1e9: a shorter stretch is none
};
BurnTolerance ToleranceOf(double grainRadius);

// The feet from..to of `of` whose front points at distance d are nearer than d to `by`: what `by` has
// swallowed.
Ranges Swallowed(const Source &of, double from, double to, const Source &by, double d, const BurnTolerance &);

// The feet from..to of `of` whose front points at distance d lie inside the circle of radius R about the
// origin.
Ranges InsideCircle(const Source &of, double from, double to, double d, double R);

// A live stretch of front: its ends and the height of its arc over their chord. mm
struct FrontPiece {
  double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0, Height = 0;
};
// A lower bound of (distance of a front piece of `of` to `by`) - d, mm.
double GapBound(const Source &of, const FrontPiece &, const Source &by, double d);

// Distance of a point to a source within its slack-widened reach; a large number outside it. mm.
double DistanceWithin(const Source &by, double x, double y, double slack);

void FrontPoint(const Source &, double foot, double d, double &x, double &y);
void Tangent(const Source &, bool atEnd, double &ux, double &uy); // of the walk, unit length
double FrontLength(const Source &, double from, double to, double d);
void FinishSource(Source &, double slack); // fills the derived fields
