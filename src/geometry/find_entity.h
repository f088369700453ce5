#pragma once
#include "geometry/primitives.h"
#include "shell/grain_document.h"

#include <array>

// The two searches from a position on the drawing to an entity or to an exact point of one. Nothing is drawn
// here.

// Where FindEntity may look. The later of FirstRow/LastRow, ForcedIndex and SnapEntity rules.
struct PickScope {
  int FirstRow = 0, LastRow = 300; // cut to 0..EntCount
  int TypeMask = 7;                // 1 lines, 2 circles, 4 arcs
  int ForcedIndex = 0;             // above 0: row ForcedIndex - 1 alone
  bool AllowSelected = false;      // else rows with Selected are passed over
  bool SnapActive = false;         // SnapEntity alone, selected or not; a centre counts as hit
  int SnapEntity = -1;
};

struct Pick {
  bool Found = false;
  int Index = -1;
  double PickX = 0, PickY = 0; // line: the foot of the position on it, mm
  double PickAngle = 0;        // circle, arc: the position's angle about the centre
  bool GeomAbort = false;      // an angle could not be formed: "ERROR: No Solution Found" is due
};

// Walks the pick radius from grainRadius/10 to grainRadius/1000 and keeps the last hit, so the tightest
// radius decides, and at one radius the highest row. A line is hit when a chord end of the pick circle lies
// within the line's X range (a vertical one: strictly within its Y range); a circle within the pick radius of
// its edge; an arc likewise, on its closed sweep or near an end.
Pick FindEntity(const EntityTable &, Point position, double grainRadius, const PickScope & = {});

enum SnapKinds : int { NoSnap = 0, FirstEnd = 1, SecondEnd = 2, CentreSnap = 3, EdgeSnap = 4 };
struct Snap {
  bool SnapActive = false;
  int SnapEntity = -1;
  int SnapKind = NoSnap;
};

// A line's ends; an arc's ends by its angles, which hold where its stored ends do not; twice a circle's point
// at angle 0.
std::array<Point, 2> EndsOf(const Entity &);

// Moves the position to the nearest end, centre or line midpoint within snapRadius (the panel's scale height
// by 100, mm) and, when there is none and `edges` is set (no ortho-tracking), onto the nearest circle or arc.
// The position stays when nothing is near. The earlier row and the earlier of first end, second end, centre
// win a tie. When nothing is found snap is empty, save that a SnapKind of 4 from the call before stays.
void Find_End_Or_Center(const EntityTable &, double grainRadius, double snapRadius, bool edges,
                        Point &position, Snap &);

// The grain's outer edge as a last row to trim against; appended unless the last row is that circle already.
// Fault 9 when all rows are used.
void AddGrainCircle(EntityTable &, double grainRadius);
void RemoveGrainCircle(EntityTable &,
                       double grainRadius); // the last row, only when it is exactly that circle
