#pragma once
#include "burnback/burn_run.h"
#include "performance/motor_inputs.h"

#include <string>
#include <vector>

struct MotorSample {
  double Time = 0, BurnDist = 0; // s, mm
  double Kn = 0;
  double Pressure = 0; // Pa
  double Thrust = 0;   // N
  double MassFlow = 0; // g/s
  double MassFlux = 0; // kg/s/m2 through the port
};

// The figures of a motor's burn.
struct MotorFigures {
  double BurnTime = 0;                       // s
  double PeakPressure = 0, MeanPressure = 0; // Pa
  double PeakThrust = 0, MeanThrust = 0;     // N
  double TotalImpulse = 0;                   // N s
  std::string MotorClass;                    // letter by total impulse
  double PropellantMass = 0;                 // g, by geometry
  double DeliveredIsp = 0;                   // s
  double MassBalance = 0;                    // integrated mass flow over the propellant's mass
  double ChartBurnTime = 0;                  // s, by the charts' own loop
};

// A motor over time: the samples stand at 0, at each mid-step point of the run and at the end of the burn.
struct MotorRun {
  std::vector<MotorSample> Sample;
  MotorFigures Figures;
};

// The burn over time from the run's own rows, Kn linear between them, time and mass in closed form per
// segment. False: `trouble` says why, `run` is as it was.
bool RunMotor(const BurnRun &, const MotorInputs &, MotorRun &run, std::string &trouble);
