#pragma once
#include "burnback/burn_run.h"
#include "performance/motor_run.h"

#include <span>
#include <string>
#include <vector>

// A figure by its key, its value as JSON writes it: a number, null where there is none, a text in quotes.
struct NamedFigure {
  std::string Key, Value;
};
std::vector<NamedFigure> NamedBurnFigures(const GrainDoc &, const BurnRun &);
std::vector<NamedFigure> NamedMotorFigures(const MotorFigures &);

// How a person reads a figure: its words, then value times factor and the unit. Those that say something
// about the grain or the motor, none that only check the numbers.
struct FigureWords {
  const char *Key, *Words, *Unit;
  double Factor = 1;
  bool OfThroat = false; // there is none without a nozzle throat
};
std::span<const FigureWords> AllFigureWords();

std::string JsonText(const std::vector<NamedFigure> &); // one object, a line each
