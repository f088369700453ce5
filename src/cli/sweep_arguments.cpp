#include "cli/sweep.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

void AddSweep(CLI::App &app, SweepArguments &a) {
  CLI::App *const command = app.add_subcommand(
      "sweep", "work out motors over ranges of inputs, a table row each; a range is FROM:TO:STEP or values "
               "parted by commas");
  CLI::Option *const files = command->add_option("FILE.mvd", a.File, "grain files");
  CLI::Option *const drawn = command->add_option("--template", a.Template, "or a template: its name or path");
  drawn->excludes(files);
  command->add_option("--var", a.Var, "NAME=RANGE: values of the template's variable")->needs(drawn);
  command->add_option("--set", a.Set, "NAME=VALUE: of a variable that does not vary")->needs(drawn);
  command->add_option("--grain", a.Grain, "DIAMETER,LENGTH,THROAT,none|A|B|AB, mm (else as recorded)")
      ->needs(drawn);
  command->add_option("--folder", a.Folder, "folder of the templates (else your own, else the shipped ones)")
      ->needs(drawn);
  command->add_option("--length", a.Length, "grain lengths, mm");
  command->add_option("--throat", a.Throat, "nozzle throat diameters, mm");
  CLI::Option *const name =
      command->add_option("--propellant", a.Propellant, "propellants of the library, by name");
  const auto fuel = [&](const char *option, std::string &to, const char *what) {
    command->add_option(option, to, what)->excludes(name);
  };
  fuel("--a", a.A, "burn rate coefficients, mm/s at a pressure in Pa");
  fuel("--n", a.N, "burn rate exponents");
  fuel("--density", a.Density, "densities, g/cc");
  fuel("--cstar", a.CStar, "characteristic velocities, m/s");
  fuel("--isp", a.Isp, "specific impulses, s");
  command->add_option("--ends", a.Ends, "burning ends, in all rows")
      ->check(CLI::IsMember({"none", "A", "B", "AB"}));
  command->add_option("--top-end", a.TopEnd, "whether a single burning end is the top end (yes)")
      ->check(CLI::IsMember({"yes", "no"}));
  command->add_option("--table", a.Table, "write the rows there (CSV; else on standard output)");
}
