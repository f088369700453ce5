#pragma once
#include "thermochem/pep_run.h"

#include <optional>
#include <string>
#include <vector>

struct SpeciesAmount {
  std::string Name;
  double Moles = 0;        // per 100 g of propellant
  double MoleFraction = 0; // of all products, condensed ones too
  double MassFraction = 0;
  bool Condensed = false;
};

// What a case comes to, per 100 g of propellant. A figure that the case did not reach (an exit above the
// chamber's pressure) or that is not finite is empty.
struct PepFigures {
  using Figure = std::optional<double>;
  double ChamberPressure = 0;          // MPa
  Figure ChamberTemperature;           // K
  Figure CStar[2];                     // m/s; [] by PepMode
  Figure GasMoles;                     // per 100 g, chamber
  Figure MeanGasWeight;                // g/mol, of the chamber's gas alone
  Figure Gamma;                        // chamber, composition held
  Figure CondensedPart;                // of the mass, chamber, 0 to 1
  Figure Isp[2], ExitTemperature[2];   // s, K at 14.7 psi
  Figure VacIsp[2], VacTemperature[2]; // s, K at the second exit pressure: the impulse expanded to it
  Figure DensityIsp[2];                // s g/cc at 14.7 psi
  std::vector<SpeciesAmount> Species;  // of the chamber, the most first
  bool Converged = true;
};
PepFigures FiguresOf(const PepOutcome &, const PepCase &);

// The species of a point down to `least` moles per 100 g, the most first.
std::vector<SpeciesAmount> SpeciesOf(const PepOutcome &, const PepPoint &, double least = 1e-6);

inline constexpr double MuchCondensed = 0.3; // of the products' mass: a real motor falls short of the figures

// What a user must know before trusting a run, a sentence each: the messages of the data, ingredients whose
// heat of formation is an estimate, a temperature that weights of another total than 100 g do not fit.
std::vector<std::string> MixWarnings(const PepOutcome &, const DataFiles &);
// These and what is to be told of the cases: much condensed mass, no convergence, the solver's own messages.
std::vector<std::string> PepWarnings(const PepOutcome &, const DataFiles &);
