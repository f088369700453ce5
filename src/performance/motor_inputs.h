#pragma once
#include <string>

// A propellant by the figures a motor needs, as the propellant library keeps them.
struct Propellant {
  std::string Name, Source;
  double A = 0.04;                                // burn rate coefficient, mm/s at a pressure in Pa
  double N = 0.3;                                 // burn rate exponent
  double Density = 1.7;                           // g/cc
  double CStar = 1500;                            // m/s
  double Isp = 180;                               // s
  double LowestPressure = 0, HighestPressure = 0; // MPa, where a and n hold; 0: not told
};

// What a motor's burn is worked out from, beside the grain's own run. The values are those that stand when
// the window opens.
struct MotorInputs {
  Propellant Fuel;
  double ThroatDiam = 0, GrainDiam = 0, GrainLength = 0; // mm
  int EndsExposed = 0;                                   // bit 1: A, bit 2: B
  bool TopEnd = true; // a single burning end is the top end, whose gas passes through the port
};
