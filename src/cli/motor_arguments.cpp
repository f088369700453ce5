#include "cli/motor.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

void AddFuel(CLI::App &command, FuelOptions &a) {
  CLI::Option *const name = command.add_option("--propellant", a.Propellant, "a propellant of the library");
  const auto fuel = [&](const char *option, std::optional<double> &to, const char *what) {
    command.add_option(option, to, what)->excludes(name);
  };
  fuel("--a", a.A, "burn rate coefficient, mm/s at a pressure in Pa (0.04)");
  fuel("--n", a.N, "burn rate exponent (0.3)");
  fuel("--density", a.Density, "density, g/cc (1.7)");
  fuel("--cstar", a.CStar, "characteristic velocity, m/s (1500)");
  fuel("--isp", a.Isp, "specific impulse, s (180)");
}

void AddMotor(CLI::App &app, MotorArguments &a) {
  CLI::App *const command =
      app.add_subcommand("motor", "burn a grain file as a motor: figures, charts, thrust file, report");
  command->add_option("FILE.mvd", a.File, "grain file")->required();
  AddFuel(*command, a.Fuel);
  command->add_option("--throat", a.Dimensions.Throat, "nozzle throat diameter, mm (else the file's)");
  command->add_option("--diameter", a.Dimensions.Diameter, "grain diameter, mm (changes the circle only)");
  command->add_option("--length", a.Dimensions.Length, "grain length, mm");
  command->add_option("--ends", a.Dimensions.Ends, "burning ends")
      ->check(CLI::IsMember({"none", "A", "B", "AB"}));
  command->add_option("--top-end", a.TopEnd, "whether a single burning end is the top end (yes)")
      ->check(CLI::IsMember({"yes", "no"}));
  command->add_option("--table", a.Table, "write every channel over time (CSV)");
  CLI::Option *const chart = command->add_option("--chart", a.Chart, "the chart that --svg draws")
                                 ->check(CLI::IsMember({"kn", "pressure", "thrust", "mass-flow",
                                                        "mass-flow-rate", "mass-flux", "area"}));
  CLI::Option *const svg = command->add_option("--svg", a.Svg, "write the chart as SVG");
  chart->needs(svg);
  svg->needs(chart);
  command->add_option("--eng", a.Eng, "write a thrust file for flight simulators");
  command->add_option("--report", a.Report, "write a report of one page as PDF");
  command->add_flag("--json", a.Json, "print the figures as JSON");
}
