#pragma once
#include "geometry/solution.h"

#include <optional>

// Where an entity is cut, and the moving of its ends: shared by trim, break and section cut. mm, radians.

inline constexpr std::string_view NoIntersectionText = "Error: Can't find Intersection";
inline constexpr std::string_view ParallelCutText = "Lines can't be Parallel";
inline constexpr std::string_view CircleTrimText =
    "Can't Trim Circles with this Option! Use Trim Both Ends Option";

enum class MeetCase {
  Meet,
  Parallel, // two lines of equal slope
  Apart,    // two rounds, by the existence test of CircleCircleRoots
  None      // no root, or none whose angle can be told
};
struct Meeting {
  MeetCase Case = MeetCase::None;
  Point At;
  double Angle = 0; // of At on the cut entity when that is round: 0 <= Angle < 2*pi, by the 32-bit ArcCosine
};
// The crossing of the whole carriers nearer to a point (on a tie the second root): the cutter acts as its
// full line or circle. strict: the existence test of two rounds takes no equality.
Meeting MeetingOf(const Entity &cut, const Entity &cutter, Point nearTo, bool strict = false);

// Both crossings of the carriers; None also for parallel lines and for rounds that do not meet.
Roots CarrierMeetings(const Entity &cut, const Entity &cutter);

// The crossing of a failed or missing meeting as a message.
Solution MeetingFailure(const Meeting &);

// Moves the end that the pick does not keep: the first when (first - pick)*(pick - at) is below `least` on
// the line's longer axis, else the second. A pick beyond an end counts as on it.
void MoveLineEnd(Entity &line, Point pick, Point at, double least);

// Shortens on the side away from the pick, or extends the end nearer to it around the circle. Ends that meet
// to 1e-9 make a full circle.
void MoveArcEnd(Entity &arc, double pickAngle, double to);

double LineCoordinate(const Entity &line, Point); // X for abs(Slope) < 1, else Y
void MakeFullCircle(Entity &arc);
