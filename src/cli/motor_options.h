#pragma once
#include "performance/motor_inputs.h"
#include "shell/grain_document.h"

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

// The dimensions given take the place of the file's.
struct DimensionOptions {
  std::optional<double> Diameter, Length, Throat; // mm
  std::string Ends;                               // none, A, B, AB; empty: the file's
};
std::string ApplyDimensions(const DimensionOptions &, GrainDoc &); // the trouble, or empty

// A propellant of the library by its name, or figure by figure.
struct FuelOptions {
  std::string Propellant;
  std::optional<double> A, N, Density, CStar, Isp;
};
void AddFuel(CLI::App &command, FuelOptions &);
std::string ReadFuel(const FuelOptions &, Propellant &); // figures not given stay. The trouble, or empty

// The inputs as the motor's window opens with them.
MotorInputs OpeningInputs(const GrainDoc &);

// The user's library of propellants, else the shipped one. The trouble, or empty.
std::string LoadLibrary(std::vector<Propellant> &);
// One of them by name; the trouble names those there are.
std::string PickPropellant(const std::vector<Propellant> &, const std::string &name, Propellant &);
