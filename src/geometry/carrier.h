#pragma once
#include "geometry/primitives.h"

// The unbounded line under a line entity, by its ends instead of its slope: exact for verticals and for steep
// lines, whose stored slope is held to 1e6. Lengths in mm.

struct Carrier {
  Point At;              // the first end
  double UX = 1, UY = 0; // unit direction from the first end to the second
};
Carrier CarrierOf(const Entity &line);  // a line shorter than 1e-6 mm takes its direction from the slope
double AlongOf(const Carrier &, Point); // signed distance of the foot from At
double AsideOf(const Carrier &,
               Point); // signed distance from the line, positive to the left of the direction
Point PointAlong(const Carrier &, double along);
Point FootOn(const Carrier &, Point);

bool IsVertical(const Entity &line);                    // abs(Slope) >= 1000000
bool AreParallel(const Entity &one, const Entity &two); // equal slopes, or both vertical

// One point in First and Second, on the first line; None for parallel lines.
Roots CarrierRoots(const Carrier &, const Carrier &);

// As LineCircleRoots, the larger X first (of a vertical: the larger Y). The discriminant is that of the slope
// form, of a line steeper than 80 degrees that of 80 degrees, so that margin means the same in every
// direction; a distance equal to the radius in 13 digits is a double
// root: computed tangents come no nearer.
Roots CarrierCircleRoots(const Carrier &, Point centre, double radius, double margin);

// Unit normal of the line toward a point; a point exactly on the line gives the side of lower intercepts.
Point NormalToward(const Carrier &, Point);

double Distance(Point, Point);
Point CentreOf(const Entity &);
Point Midway(Point, Point);
double NormalAngle(double angle);     // brought to 0 <= angle < 2*pi; NoAngle stays
bool SameAngle(double, double);       // to 1e-9, a whole turn apart counts as the same
double Bearing(Point from, Point to); // 0 <= angle < 2*pi, in full precision; 0 for equal points

// A circle row: both ends at angle 0, as every circle row holds them.
Entity CircleRow(Point centre, double radius);
// The row cut back to a line between two ends; Slope and Intercept stay, the midpoint follows.
void SetLineEnds(Entity &line, Point first, Point second);
// The arc of the same sweep over another chord; its radius is chord/(2*sin(sweep/2)).
void SpanChord(Entity &arc, Point first, Point second);
