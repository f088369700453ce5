#include "cli/data.h"

#include "cli/exit_codes.h"
#include "thermochem/data_check.h"
#include "thermochem/data_places.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <fmt/format.h>

namespace {

void Print(const std::string &path, const std::vector<DataFault> &faults) {
  for (const DataFault &fault : faults)
    if (fault.Record == 0) // the sentence names the file itself where it could not be read
      fmt::print(stderr, "{}\n", fault.Words.starts_with(path) ? fault.Words : path + ": " + fault.Words);
    else
      fmt::print(stderr, "{}: record {}{}: {}\n", path, fault.Record,
                 fault.Name.empty() ? "" : " (" + fault.Name + ")", fault.Words);
}

} // namespace

void AddData(CLI::App &app, DataArguments &a) {
  CLI::App *const data = app.add_subcommand("data", "the data files of the thermochemistry");
  data->require_subcommand(1);
  CLI::App *const check = data->add_subcommand("check", "read both files back and list their faults");
  check->add_option("FOLDER", a.Folder,
                    "folder of pepcoded.daf and jannaf.daf (else those beside the program)");
}

int DataCommand(const DataArguments &a) {
  const DataPlaces places = PlacesOfData(a.Folder);
  const DataCheck check = CheckData(places);
  Print(places.Ingredients, check.IngredientFaults);
  Print(places.Species, check.SpeciesFaults);
  const std::size_t faults = check.IngredientFaults.size() + check.SpeciesFaults.size();
  fmt::print("{}: {} ingredients\n{}: {} gases, {} condensed species\n{}\n", places.Ingredients,
             check.Ingredients, places.Species, check.Gases, check.Condensed,
             faults == 0   ? "no faults"
             : faults == 1 ? "1 fault"
                           : fmt::format("{} faults", faults));
  return faults == 0 ? Done : BadUse;
}
