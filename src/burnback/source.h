#pragma once
#include <cstdint>

// One piece of the port's outline, as it stands before the burn, with all that the regression reads of it.
// A foot is a point of the source; its front point lies burn distance away along the propellant's normal.
struct Source {
  enum class Kind : std::uint8_t {
    Line,
    Arc,
    Corner, // an arc born with radius 0
    Point,  // a vertex without a front of its own, which still swallows what has leapt over it
  } What = Kind::Line;
  double X = 0, Y = 0;   // line: first end of the walk; arc: centre
  double UX = 0, UY = 0; // line: walking direction; arc: direction of Start less the slack
  double VX = 0, VY = 0; // arc: direction of End plus the slack
  double Length = 0;     // line: mm; arc: sweep, radians counter-clockwise
  double Start = 0;      // arc: angle, radians
  double Direction = 0;  // line: angle of its direction, radians
  double Radius = 0;
  int Side = 1;             // arc: sign of the radius change
  double AngleSlack = 0;    // arc: how far its sweep is stretched when it swallows, radians
  bool Bridge = false;      // a line put in where two ends gape within the joining tolerance
  int LastLive = 0;         // the last step after which some row of it was live
  int FirstRow = -1;        // chain of its rows by NextOfSource; -1 for a Point
  int Prev = -1, Next = -1; // neighbours over an uncut joint
  // Circle around all feet, for cheap bounds.
  double MidX = 0, MidY = 0, Reach = 0;
  // Chord and the height of the arc over it.
  double ChordX1 = 0, ChordY1 = 0, ChordX2 = 0, ChordY2 = 0, Height = 0;
};
