#pragma once
#include "performance/motor_inputs.h"
#include "performance/motor_table.h"

#include <cstdint>
#include <string>
#include <vector>

enum class ChartKind : std::uint8_t {
  KN_Chart,
  Chart_Pressure,
  Chart_Thrust,
  Chart_Mass_Flow,
  Mass_Flow_Rate,
  Chart_Mass_Flux,
  Core_Gas_Velocity, // the same calculation as Chart_Mass_Flux
  Area_Chart
};

// What a chart's loop runs over: Kn, and for the mass flux the port's area (mm2; else empty), by burn
// distance (mm, ascending).
struct KnCurve {
  std::vector<double> Dist, Kn, Port;
};
KnCurve CurveOfTable(const MotorTable &, const MotorInputs &, bool withPort);
KnCurve CurveOfProfile(const std::vector<KnRow> &);

// Kn (or the port) at a distance: linear between the rows, the first row's value up to it. `row` is where the
// search begins and is left where it ended; distances must not fall from call to call.
double InterpolateKn(const std::vector<double> &dist, const std::vector<double> &value, double at,
                     std::size_t &row);

// The points of a motor's burn as a chart shows them.
struct BurnTrace {
  std::vector<float> Time, Value;  // s; Pa, N, mg, g/s or kg/s/m2
  std::vector<float> Dist;         // mm, the burn distance of each point
  std::vector<float> MassFlowRate; // g/s
  float Largest = 0;               // of Value
  float TimeStep = 0;              // s
  double Sum = 0;                  // of Value; of the mass flow rate, a thousandth of it
};

constexpr int MostPoints = 30000, FewestPoints = 1000;

// Steady state in steps of time: chamber pressure (a c* rho Kn)^(1/(1-n)), burn rate a Pc^n. The step is 0.01
// s, divided by ten until there are 1000 points; 30000 points at most, even if the table is not at its end.
// False, and the trace as it was: the curve spans no distance, a value is not finite and above 0, or the step
// would fall below 1e-6 s. Not for the two charts over the burn distance.
bool IntegrateBurn(const KnCurve &, const MotorInputs &, ChartKind, BurnTrace &);

double CircleArea(double diameter); // mm2, with the charts' pi of 3.141592654
