#pragma once
#include "burnback/burn_run.h"
#include "performance/motor_run.h"

#include <string>
#include <vector>

// A figure by its key, its value as JSON writes it: a number, null where there is none, a text in quotes.
struct NamedFigure {
  std::string Key, Value;
};
std::vector<NamedFigure> NamedBurnFigures(const GrainDoc &, const BurnRun &);
std::vector<NamedFigure> NamedMotorFigures(const MotorFigures &);
std::string JsonText(const std::vector<NamedFigure> &); // one object, a line each
