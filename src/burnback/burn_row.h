#pragma once
#include "geometry/carrier.h"
#include "shell/grain_document.h"

// A row of the burning chain: one live stretch of one offset source. The entity fields keep the geometry of
// the start of the run (turned), save an arc's Radius and angles, which move.
struct BurnEntity : Entity {
  double BurnX1 = 0, BurnY1 = 0, BurnX2 = 0,
         BurnY2 = 0;     // current ends: a line's in walking order, an arc's Start, End
  std::int16_t Side = 0; // arcs: sign of the radius change; lines: direction of the offset
  std::int16_t NextLink = -1, PrevLink = -1; // the row that last cut the walk's second and first end
  bool BurntOut = false;
  double CaseX1 = 0, CaseY1 = 0, CaseX2 = 0,
         CaseY2 = 0;       // where the walk's first, second end stop on the grain circle
  int Source = -1;         // index into Profile::Sources
  double From = 0, To = 0; // live feet: mm along a line, radians from the source's Start along an arc
  double FromX = 0, FromY = 0, ToX = 0, ToY = 0,
         Height = 0;     // arcs: unit vectors from the centre to both feet; the
                         // height of the arc over its chord for radius 1
  int NextOfSource = -1; // another row of the same source
  bool CaseFrom = false, CaseTo = false;
};

void TurnPoint(double &x, double &y, double angle); // about the origin, radians
