#pragma once
#include "shell/grain_document.h"

// The small operations every solver stands on. Lengths in mm, angles in radians; lines are used through their
// guarded Slope and Intercept. A line is vertical when abs(Slope) >= 1000000.

constexpr double NoAngle = 999; // what ArcCosine and ArcSine return outside their range
constexpr double VerticalSlope = 1000000;

struct Point {
  double X = 0, Y = 0;
};

// The argument is a 32-bit float on purpose: callers narrow, and angles found so are good to seven digits. 1
// to 1.0001 counts as 1 and the same below; beyond it the result is NoAngle. Results 0..pi and -pi/2..pi/2.
double ArcCosine(float x);
double ArcSine(float x);

// The angle of a point about a centre, 0..2*pi, through ArcCosine of (x - cx)/divisor, where divisor is the
// radius or the measured distance; NoAngle when that is out of range. Fault 11 for a divisor of 0.
double AngleAbout(Point p, Point centre, double divisor);

double
GetLineAng(const Entity &line); // from the first to the second end; the guard slope shows: 1e-9 along +X
double GetLineLength(const Entity &line); // mm

double MyMin(double a, double b); // the first when it is smaller, else the second
double MyMax(double a, double b);
int MyMinI(int a, int b);
int MyMaxI(int a, int b);

enum class RootCase { None, Two }; // a double root counts as two equal ones
struct Roots {
  RootCase Case = RootCase::None;
  Point First, Second; // of Two
  double Discriminant = 0;
};

// How the discriminant B^2 - 4AC is formed: both terms rounded to 15 decimal digits and subtracted in
// decimal, so that terms agreeing so far give exactly 0; or the difference taken in binary and then rounded
// to 15 digits.
enum class Discriminant { TermsInDecimal, DifferenceInDecimal, Binary };

// y = slope*x + intercept against a circle. Two when the discriminant is not below -margin (a slightly
// negative one passes as a double root). First has the larger X. Lines steeper than 1000 are solved on copies
// turned by 10 degrees about the circle's centre, since intercepts near 1e6 times X would cost a vertical's
// roots their last 0.01 mm; the discriminant told is then that of the turned copy.
Roots LineCircleRoots(double slope, double intercept, Point centre, double radius, double margin = 0,
                      Discriminant = Discriminant::TermsInDecimal);

// Circle 1 is the entity acted on. Two when d - 0.001 <= r1 + r2 and d + 0.001 >= r1 - r2; the second test
// takes no absolute value, so a first circle inside the second passes it. First lies to the right of the way
// from c1 to c2. Fault 11 for equal centres.
Roots CircleCircleRoots(Point c1, double r1, Point c2, double r2);

// x = -(b1 - b2)/(m1 - m2), y from the first line; Case None only when the slopes are exactly equal. Both of
// First and Second hold the point.
Roots LineLineRoots(double m1, double b1, double m2, double b2);

// The first when it is strictly nearer to the pick, else the second: the second wins a tie.
Point NearerRoot(const Roots &, Point pick);

enum class ArcEnds { Open, Closed }; // an angle equal to an end is off the arc, or on it
// angle 0..2*pi; the arc is widened by margin at both ends. Equal StartAngle and EndAngle are a whole turn.
bool AngleInArc(double angle, const Entity &arc, ArcEnds, double margin = 0);

void SetArcEnds(Entity &arc); // X1, Y1 from StartAngle and X2, Y2 from EndAngle
double
ArcSweep(const Entity &arc); // counter-clockwise, 0..2*pi; 2*pi when the angles stand a whole turn apart

Point Turned(Point, double angle); // about the origin, counter-clockwise
