#pragma once
#include "burnback/burn_run.h"
#include "burnback/profile.h"

#include <string>
#include <vector>

// A design ready to be cut across at any burn distance.
struct FrontStart {
  Profile Start;
  double GrainRadius = 0;
};

// A directed piece of the section's boundary; the propellant lies on the left of Front and Wall, the port on
// the left of Bare. Design coordinates, mm, radians.
struct SectionPiece {
  enum class Kind : std::uint8_t {
    Front, // burns
    Wall,  // propellant at the grain circle
    Bare   // the grain circle where the port is open to it
  } What = Kind::Front;
  bool Arc = false;
  int From = -1, To = -1; // of Joint; equal for a whole circle
  double CenterX = 0, CenterY = 0, Radius = 0, Start = 0;
  double Sweep = 0; // above 0 counter-clockwise; 0 for a line
  int Source = -1;  // of the profile, -1 for the wall
};

struct SectionJoint {
  double X = 0, Y = 0;
};

// Propellant that hangs together: a loop around it with the holes in it.
struct SectionGroup {
  double Area = 0;   // mm2
  bool Loose = true; // nothing of it stands at the grain circle
};

// The cross-section of the grain at one burn distance.
struct GrainSection {
  double GrainRadius = 0, BurnDist = 0;
  double Area = 0; // of the propellant, exact, mm2
  std::vector<SectionJoint> Joint;
  std::vector<SectionPiece> Piece;
  std::vector<std::vector<int>> Propellant; // closed loops of pieces in walking order
  std::vector<SectionGroup> Group;
  std::vector<int> GroupNo;           // of each loop of Propellant
  std::vector<std::vector<int>> Port; // closed loops: Front pieces walked backwards, Bare ones forwards
  std::vector<int> Circle;            // Wall and Bare pieces, once around counter-clockwise
};

// False: refused, as BurnDesign would.
bool PrepareFront(const Design &, FrontStart &, BurnRefusal &);

// The exact section at any burn distance (mm, 0 or more), worked out in one step from the start. The trouble,
// or empty: a distance that is no number or below 0, or at which nothing is left.
std::string SectionAt(const FrontStart &, double burnDist, GrainSection &);

// Where a cut along the motor, across this direction of unit length, stands best, mm from the axis: one wants
// to see the port, and so it goes through the middle of one that lies to one side of the axis. Else 0.
double CutThroughPort(const GrainSection &, double x, double y);

// The last distance at which something is left of the section, mm, to 1e-9 of the radius.
double BurnEndOf(const FrontStart &);
