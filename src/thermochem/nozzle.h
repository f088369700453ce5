#pragma once
#include "thermochem/balance.h"
#include "thermochem/pep_run.h"

#include <vector>

inline constexpr double PsiPerAtm = 14.70069, PsiPerMpa = 145.038;
inline constexpr double ExitPsi1 = 14.7, ExitPsi2 = 0.014695948921144009;
inline constexpr double KpaPerAtm = 101.3, MsPerSecond = 9.80621, SeaLevelMsPerSecond = 9.90621;
inline constexpr double JoulesPerCalorie = 4.184;

// The expansion of one case in one mode: the chamber's enthalpy and entropy hold along it.
struct Nozzle {
  PepMode Mode = Shifting;
  double ChamberPressure = 0, ChamberTemperature = 0; // atm, K
  double ChamberEnthalpy = 0, Entropy = 0;            // cal, cal/K
  double ThroatFlux = 0, CStar = 0;                   // kg/m2/s, m/s; 0 before the throat is found
  bool Converged = true;                              // all balances so far
};

// The state in the solver as a point: properties, mean weights, sound speed. No impulse yet.
PepPoint RecordPoint(const Solver &, double pressure, double temperature);

// Impulse, velocity, flux, and with a throat found also area ratio, c*, vacuum and sea-level impulse.
void Performance(const Nozzle &, double weight, PepPoint &);

// Impulse in seconds and velocity in m/s of a fall in enthalpy, in calories of the weight in grams.
double ImpulseOf(double fall, double weight);
double VelocityOf(double fall, double weight);

// Expands to a pressure in atm from the state in the solver, with a first temperature.
PepPoint Expand(Solver &, Nozzle &, double pressure, double temperature);

// The pressure between the chamber's and `lowest` at which the flux along the isentrope is greatest; sets
// ThroatFlux and CStar. The point is the throat's.
PepPoint FindThroat(Solver &, Nozzle &, double lowest);
