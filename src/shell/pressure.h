#pragma once
#include "performance/charts.h"
#include "performance/measured_curve.h"
#include "performance/motor_run.h"
#include "performance/propellants.h"

#include <array>
#include <string>
#include <vector>

// A result that is kept to be drawn over others.
struct KeptResult {
  std::string Name; // design, propellant, throat
  MotorRun Run;
  int Place = 0; // of its colour and dash, which it keeps
};

struct KeptMeasurement {
  std::string Name; // of its file
  MeasuredCurve Curve;
  int Number = 0; // of the chart it lies over
};

// The working copy of Propellants_Form: the texts of each propellant's fields, in the order of the form.
struct PropellantsCopy {
  std::vector<std::array<std::string, 9>> Entry;
  bool Accepted = false;
};

constexpr std::size_t MostKept = 6;

// Pressure_Results: what it shows and what stands in its boxes.
struct Pressure {
  bool Loading = false; // the boxes are being filled: nothing is recomputed
  int ChartNumber = 0;  // of the chart chosen, 1 to 7; 0: none yet
  ChartKind Kind = ChartKind::KN_Chart;
  MotorTable Table;       // of the run at hand
  MotorInputs Inputs;     // as the boxes hold them; 0 for what is no number
  PerformanceChart Chart; // the last one drawn; without values: none
  MotorRun Run;           // of the strip's figures; without samples: none
  MotorInputs RunInputs;  // what they were worked out from
  std::string Objection;  // why the inputs cannot be used, or empty

  std::vector<Propellant> Library;
  std::string LibraryTrouble, Chosen; // why the library cannot be read; the propellant last chosen
  PropellantsCopy Form;

  std::vector<KeptResult> Kept; // outlive the run and the window
  std::vector<KeptMeasurement> Measured;
};
