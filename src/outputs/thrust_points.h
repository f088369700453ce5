#pragma once
#include "performance/motor_run.h"

#include <vector>

struct ThrustPoint {
  double Time = 0, Thrust = 0; // s, N
};

// At most `most` (5 or more) points for a thrust curve, joined by straight lines from (0, 0): the choice of
// samples whose line stays nearest to the curve (least squares over time), a first point shortly after 0, the
// thrust's end and 0 at the end of the burn. All thrusts are then scaled so that the area is the total
// impulse. Empty when the run has no thrust.
std::vector<ThrustPoint> ThrustPoints(const MotorRun &, std::size_t most);
