#pragma once
#include "cli/motor_options.h"

#include <string>

struct MotorArguments {
  std::string File, Table, Chart, Svg, Eng, Report, TopEnd = "yes";
  FuelOptions Fuel;
  DimensionOptions Dimensions;
  bool Json = false;
};

void AddMotor(CLI::App &, MotorArguments &);

// Burns one grain file as a motor and leaves its figures on standard output. Exit code.
int MotorCommand(const MotorArguments &);
