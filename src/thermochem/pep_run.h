#pragma once
#include "thermochem/tables.h"

#include <functional>
#include <string>
#include <vector>

struct PepIngredient {
  int ListPosition = 0; // from 1; 0: nothing chosen, the row is skipped
  double Weight = 0;    // g
};

struct PepInputs {
  std::vector<PepIngredient> Ingredient;        // 10 chosen rows at most
  double Temperature = 25;                      // of the propellant, degrees Celsius
  double LowerPressure = 2, UpperPressure = 10; // MPa; may be equal or in either order
  int CaseCount = MaxCases; // pressures, evenly from lower to upper; a sweep may ask for 1 (the lower)
};

enum PepMode { Shifting, Frozen };
enum PepStation { Chamber, Throat, Exit1, Exit2 }; // exits at 14.7 psi and 0.014695948921144009 psi

// One state of the flow. Extensive values are of the mix's total weight.
struct PepPoint {
  bool Stands = false;      // false: not reached (an exit above the chamber's pressure)
  double Temperature = 0;   // K
  double Pressure = 0;      // atm (14.70069 psi)
  double Enthalpy = 0;      // J (cal times 4.184)
  double Entropy = 0;       // kcal/K
  double Cp = 0, GasCp = 0; // cal/K, composition held; the gas's part
  double Gamma = 0;         // Cp/(Cp - R GasMoles), composition held
  double GasMoles = 0, CondensedMoles = 0;
  double GasWeight = 0, CondensedWeight = 0;     // g
  double MeanWeight = 0;                         // g/mol, of gas and condensed together
  double MeanGasWeight = 0;                      // g/mol, of the gas alone
  double SoundSpeed = 0;                         // m/s
  double Density = 0;                            // g/l
  double Velocity = 0;                           // m/s
  double Flux = 0;                               // g/cm2/s: density times velocity
  double AreaRatio = 0;                          // over the throat; 0 at the chamber
  double Impulse = 0;                            // s, expanded to this pressure
  double VacuumImpulse = 0, SeaLevelImpulse = 0; // s; sea level is far below zero at a vacuum exit
  double CStar = 0;                              // m/s, of the throat of this mode
  std::vector<float> Moles;                      // by species slot 0..SpeciesCount; empty where not kept
};

// One point of the isentrope from the chamber down; the flow between two is by the slope dH/d(ln P) = n R T.
struct IsentropeNode {
  double LogPressure = 0; // ln atm
  double Enthalpy = 0;    // cal
  double Temperature = 0; // K
  double GasMoles = 0;
};

struct ExpansionRow {
  bool Stands = false; // false: the ratio is below 1 or beyond the isentrope's end
  double Ratio = 0;
  double Pressure = 0, PressureKpa = 0; // atm, kPa (101.3 an atmosphere)
  double Temperature = 0;               // K
  double Optimum = 0, OptimumMs = 0;    // s, m/s (9.80621)
  double Vacuum = 0, VacuumMs = 0;
  double SeaLevel = 0, SeaLevelMs = 0; // m/s with 9.90621
  double Enthalpy = 0;                 // J
};

struct PepCase {
  double ChamberPressure = 0;      // MPa
  double Psi = 0, Atmospheres = 0; // of the chamber
  bool Converged = true;           // every balance of the case
  std::vector<std::string> Notes;  // why not, and other messages of the case
  PepPoint Point[2][4];            // by PepMode, PepStation; both chambers are the same
  std::vector<IsentropeNode> Isentrope[2];
  std::vector<ExpansionRow> Expansion[2]; // ratios 1..100
};

// Everything a run leaves for the reports.
struct PepOutcome {
  bool Done = false; // false: Trouble says why there are no cases
  std::string Trouble;
  std::vector<std::string> Messages; // of the data, in the system's words; the run went on
  bool Converged = false;            // all cases
  ElementTable Elements;
  SpeciesTable Species;
  IngredientTable Ingredients;
  Mix Propellant;
  std::vector<PepCase> Case; // from the lower range to the higher
};

// A whole run: one propellant, CaseCount pressures, shifting and frozen, throat, both exits, the expansion
// table. Throws nothing. `progress` gets the number of finished cases; false stops the run.
PepOutcome RunPep(const PepInputs &, const DataFiles &, const std::function<bool(int)> &progress = {});

// The flow at an area ratio (1 or more) from a case's isentrope, beyond the table's whole numbers too.
ExpansionRow ExpansionAt(const PepOutcome &, const PepCase &, PepMode, double ratio);
// The flow expanded to a pressure in atm; Ratio is the area ratio there.
ExpansionRow ExpansionTo(const PepOutcome &, const PepCase &, PepMode, double atmospheres);
// Impulse in seconds of such a row against an outer pressure in atm.
double ImpulseAgainst(const ExpansionRow &, double atmospheres);
