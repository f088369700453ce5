#pragma once
#include "shell/pep.h"

// What a run gives at the chosen pressure, mode and nozzle. Between two cases figures go evenly with the
// logarithm of the pressure, between frozen and shifting evenly.
PepPick PickOf(const Thermo &);
PepPick::Figure BestRatioOf(const Thermo &); // the area ratio that expands to the ambient pressure
std::size_t NearestCase(const Thermo &);     // to the chosen pressure, of a run that is done
PepMode ModeOf(const Thermo &);              // the one that the slider is nearer to

// Of a conical nozzle of this half angle in degrees: the part of the momentum that leaves along the axis.
double EfficiencyOf(double halfAngle);

// Height in feet above sea level at which the standard atmosphere has this pressure; that at sea level is
// 101.3 kPa here. Layers of the 1976 standard atmosphere, the last one going on.
double AltitudeFeet(double kilopascals);
