#pragma once
#include "platform/controls.h"
#include "thermochem/pep_figures.h"
#include "thermochem/reports.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

enum class PepCurve : std::uint8_t { Temperature, CStar, Isp, Gamma, Gas, Species };
enum class PepReport : std::uint8_t { None, Products, Ingredients, State, Expansion, Performance, Sweep };

// What the sliders pick out of a run; a figure is empty where the cases beside the chosen pressure lack it.
struct PepPick {
  using Figure = PepFigures::Figure;
  Figure Temperature, CStar, Gamma, GasWeight; // K, m/s, -, g/mol
  Figure Isp, VacuumIsp, DensityIsp;           // s, s, s g/cc
  Figure ExitTemperature, ExitPressure;        // K, kPa
};

struct PepSweepPoint {
  double Weight = 0; // g of the raised ingredient
  PepFigures Figures;
};

// PEP_SimA: what it holds beside the texts of its controls.
struct Thermo {
  DataFiles Files;
  std::array<int, MaxIngredients> Position{}; // list positions chosen, 0: none
  PepInputs Inputs;                           // as the boxes hold them
  std::string Objection;                      // why they cannot be run, or empty
  Ctl ObjectedBox = Ctl::Count;
  std::string PickObjection; // why a text beside a slider is not followed, or empty

  PepOutcome Run; // the last one that was done
  PepInputs RunInputs;
  std::vector<PepFigures> Figures; // of its cases

  double Pressure = 6, Ambient = 101.3; // MPa, kPa
  double Ratio = 8, Shifting = 1;       // 0 frozen to 1 shifting
  double HalfAngle = 15;                // degrees
  PepPick Pick;

  PepCurve Curve = PepCurve::Temperature;
  bool Sweeping = false; // the chart is of the sweep
  std::vector<PepSweepPoint> Sweep;
  std::string SweepTitle, SweepTrouble;
  double SweepPressure = 0; // MPa, at which it was made

  PepReport Kind = PepReport::None; // None: the chart is shown
  Report Shown;

  std::optional<std::string> SentCStar, SentIsp; // while the motor window is closed: for its boxes
};
