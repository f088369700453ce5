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
  double ChartBurnTime = 0;                  // s, the last time of the charts' own loop; 0: it has none
};

// A motor over time: the samples stand at 0, at each mid-step point of the run and at the end of the burn.
struct MotorRun {
  std::vector<MotorSample> Sample;
  MotorFigures Figures;
};

// The burn over time from the run's own rows: Kn linear between the mid-step points, 0 and the exact end of
// the burn; time (the integral of db / (c Kn^m), m = n/(1-n)) and mass in closed form per segment. The
// grain's length and burning ends are those of the inputs, the outline's steps those of the run. False:
// `trouble` says why, `run` is as it was.
bool RunMotor(const BurnRun &, const MotorInputs &, MotorRun &run, std::string &trouble);

// The letter of a total impulse (N s): A up to 2.5, each next to the double; "1/2A", "1/4A", "1/8A" below,
// and AA behind Z.
std::string MotorClassOf(double totalImpulse);

// Why a motor cannot be worked out from these inputs, naming the field, or empty.
std::string CheckInputs(const MotorInputs &);
