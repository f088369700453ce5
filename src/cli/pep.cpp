#include "cli/pep.h"

#include "base/whole_file.h"
#include "cli/exit_codes.h"
#include "cli/outputs.h"
#include "cli/pep_output.h"
#include "thermochem/data_places.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <fmt/format.h>

namespace {

int Fail(int code, const std::string &words) {
  fmt::print(stderr, "{}\n", words);
  return code;
}

void AppendRows(const PepRequest &request, const PepArguments &a, const SweepStep &step,
                const PepOutcome &run, std::vector<PepRow> &rows) {
  for (const PepCase &one : run.Case) {
    PepRow row{step.Weight, FiguresOf(run, one), std::nullopt};
    if (request.Expansion > 0)
      if (const ExpansionRow at = ExpansionAt(run, one, a.Frozen ? Frozen : Shifting, request.Expansion);
          at.Stands)
        row.At = at;
    rows.insert(rows.end(), Repeats(request), row);
  }
}

void AppendSweepWarnings(const PepRequest &request, const std::vector<PepRow> &rows,
                         std::vector<std::string> &warnings) {
  const std::size_t stride = Repeats(request);
  const auto tell = [&](const char *what, const auto &holds) {
    double least = 0, most = 0;
    int found = 0;
    for (std::size_t i = 0; i < rows.size(); i += stride) {
      const PepRow &row = rows[i];
      if (!holds(row.Figures)) continue;
      least = found ? std::min(least, row.SweepWeight) : row.SweepWeight;
      most = found ? std::max(most, row.SweepWeight) : row.SweepWeight;
      ++found;
    }
    if (found)
      warnings.push_back(fmt::format("{} in {} of {} cases, at weights from {:.6g} to {:.6g}", what, found,
                                     rows.size() / stride, least, most));
  };
  tell("More than 30 % of the products are condensed",
       [](const PepFigures &f) { return f.CondensedPart.value_or(0) > MuchCondensed; });
  tell("The result did not converge", [](const PepFigures &f) { return !f.Converged; });
}

} // namespace

void AddPep(CLI::App &app, PepArguments &a) {
  CLI::App *const command =
      app.add_subcommand("pep", "work out a propellant's performance from its ingredients");
  command->add_option("NAME=WEIGHT", a.Ingredient, "up to ten ingredients, in grams or percent")->required();
  command->add_option("--pressure", a.Pressure, "LOWER:UPPER, the range of 15 chamber pressures, MPa")
      ->capture_default_str();
  command->add_option("--temperature", a.Temperature, "of the propellant, degrees Celsius")
      ->capture_default_str();
  command->add_option("--expansion", a.Expansion, "also tell the flow at this area ratio, 1 to 100");
  command->add_flag("--frozen", a.Frozen, "show the flow with its composition frozen in the chamber");
  command->add_option("--table", a.Table, "write the cases (CSV)");
  command->add_flag("--species", a.Species, "tell the products");
  command->add_option("--sweep", a.Sweep,
                      "NAME=FROM:TO:STEP,OTHER: step the weight of one ingredient, taken from another");
  command->add_option("--data", a.Data,
                      "folder of pepcoded.daf and jannaf.daf (else those beside the program)");
  command->add_flag("--json", a.Json, "print the cases as JSON; warnings go to standard error");
}

int PepCommand(const PepArguments &a) {
  DataFiles files;
  if (std::string trouble = LoadDataFiles(a.Data, files); !trouble.empty()) return Fail(BadUse, trouble);
  PepRequest request;
  if (std::string trouble = ReadPepRequest(a, files, request); !trouble.empty()) return Fail(BadUse, trouble);
  Outputs outputs;
  if (!a.Table.empty())
    if (std::string trouble = PlanOutput(outputs, a.Table); !trouble.empty()) return Fail(BadUse, trouble);

  std::vector<PepRow> rows;
  std::vector<std::string> warnings;
  PepOutcome run;
  for (const SweepStep &step : request.Step) {
    run = RunPep(step.Inputs, files);
    const std::string at = request.Sweeping ? fmt::format("At {:.6g}: ", step.Weight) : "";
    if (!run.Done) return Fail(Refused, at + run.Trouble);
    AppendRows(request, a, step, run, rows);
    // Of a sweep, what is told of cases is gathered over its steps below.
    for (const std::string &warning : request.Sweeping ? MixWarnings(run, files) : PepWarnings(run, files))
      if (std::find(warnings.begin(), warnings.end(), warning) == warnings.end()) warnings.push_back(warning);
  }

  if (request.Sweeping) AppendSweepWarnings(request, rows, warnings);

  if (!a.Table.empty()) {
    std::string trouble = FillOutput(outputs, a.Table, [&](const std::string &draft) {
      return WriteWhole(draft, PepCsv(request, a, rows));
    });
    if (trouble.empty()) trouble = MoveIntoPlace(outputs);
    if (!trouble.empty()) return Fail(BadUse, trouble);
  }
  fmt::print("{}", a.Json ? PepJson(request, a, rows) : PepText(request, a, files, run, rows));
  for (const std::string &warning : warnings)
    if (a.Json)
      fmt::print(stderr, "{}\n", warning);
    else
      fmt::print("{}{}\n", &warning == warnings.data() ? "\n" : "", warning);
  return Done;
}
