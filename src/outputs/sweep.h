#pragma once
#include "performance/motor_inputs.h"
#include "shell/grain_document.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

enum class SweepField { Length, Throat, Propellant, A, N, Density, CStar, Isp };

// One thing that varies: its values in turn. Of Propellant the values are places in Sweep::Fuel.
struct SweepAxis {
  SweepField Field = SweepField::Length;
  std::vector<double> Value;
};

// Where the designs come from. Each worker opens a maker of its own; it makes the design of a place and
// returns the trouble, or an empty text.
struct SweepDesigns {
  using Maker = std::function<std::string(std::size_t place, Design &)>;
  std::size_t Count = 0;
  std::vector<std::string> Column;                                    // what tells them apart in the table
  std::function<std::vector<std::string>(std::size_t place)> Cells{}; // as many texts as Column
  std::function<std::string(std::size_t place)> Name{};               // as it is spoken of
  std::function<Maker()> Open{};
};
SweepDesigns FileDesigns(const std::vector<std::string> &paths); // a column of them when there are several

// The product of all ranges, the first varying slowest: designs, then the axes.
struct Sweep {
  SweepDesigns Designs;
  std::vector<SweepAxis> Axis;
  std::vector<Propellant> Fuel{Propellant{}}; // the first holds where no axis names another
  int EndsExposed = -1;                       // -1: each design's own
  bool TopEnd = true;
  int Workers = 1;
};

constexpr std::size_t MostSweepRows = 1000000;
std::size_t SweepRows(const Sweep &); // of the whole product, or more than MostSweepRows

struct SweepOutcome {
  std::vector<std::string> Row;     // lines of the table; empty where a row was not reached
  std::vector<std::string> Trouble; // of each design, or else of each row, that could not be worked out
};

// Values parted by commas, each a number or FROM:TO:STEP with both ends. The trouble, or empty.
std::string ReadRange(std::string_view text, std::vector<double> &values);

// Works all rows out on several threads; a design burns once. A row that cannot be worked out keeps its
// inputs and leaves the rest empty. `step` is called now and then, by one thread at a time, with the rows
// done; false stops the sweep.
SweepOutcome RunSweep(const Sweep &, const std::function<bool(std::size_t done)> &step);

std::string SweepTableText(const Sweep &, const SweepOutcome &); // the rows done, under their names
