#pragma once
#include "cli/motor_options.h"

#include <optional>
#include <string>

namespace CLI {
class App;
}

struct MotorArguments {
  std::string File, Propellant, Table, Chart, Svg, Eng, Report, TopEnd = "yes";
  std::optional<double> A, N, Density, CStar, Isp;
  DimensionOptions Dimensions;
  bool Json = false;
};

void AddMotor(CLI::App &, MotorArguments &);

// Burns one grain file as a motor and leaves its figures on standard output. Exit code.
int MotorCommand(const MotorArguments &);
