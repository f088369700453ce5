#pragma once
#include "performance/motor_run.h"

#include <string>

// The thrust curve in RASP form for flight simulators: comments, header (name, diameter and length in mm,
// delays, propellant and total mass in kg, maker), points of time (s) and thrust (N). At most 32 points stand
// for the samples, the closing zero among them; together with the rise from 0 that readers add they keep the
// total impulse. Blanks in the name become underscores; an empty one is the motor's class and mean thrust.
std::string ThrustFileText(const MotorRun &, const MotorInputs &, const std::string &name);
