#include "shell/pep_keep.h"

#include "base/number_text.h"
#include "shell/pep_inputs.h"
#include "shell/pressure_inputs.h"
#include "thermochem/data_records.h"

#include <algorithm>

namespace {

constexpr std::size_t LongestSource = 1000;

void Tell(Workbench &bench, const std::string &words) {
  bench.Out.Ask({words, "Keep in Library", Buttons::Ok, Icon::Exclamation});
}

// The burn rate is no matter of chemistry: that of the motor window's boxes, or of a former entry of the
// name, stands until it is measured.
Propellant MadeFrom(const Workbench &bench, const std::string &name, const Propellant *former) {
  const Thermo &state = bench.Pep;
  const Propellant &motor = bench.Motor.Inputs.Fuel;
  Propellant made;
  if (motor.A > 0 && motor.N > 0) made = motor;
  if (former) made = *former;
  made.Name = name;
  made.Density = RoundPlaces(state.Run.Propellant.DensityGcc, 4);
  made.CStar = RoundPlaces(*state.Pick.CStar, 1);
  made.Isp = RoundPlaces(*state.Pick.Isp, 2);
  if (!former) made.LowestPressure = made.HighestPressure = 0;
  std::string source = "Worked out at " + FormatMask(state.Pressure, "0.00") +
                       " MPa, burn rate not included: " + MixText(bench);
  if (source.size() > LongestSource) source.resize(LongestSource);
  made.Source = std::string(Trimmed(source));
  return made;
}

} // namespace

void KeepPropellant(Workbench &bench) {
  Thermo &state = bench.Pep;
  if (!state.Pick.CStar || !state.Pick.Isp || RunIsStale(bench)) return;
  const std::string name(Trimmed(bench.Out[Ctl::Pep_Name].Text));
  if (name.empty()) {
    bench.Out.Focus = Ctl::Pep_Name;
    return Tell(bench, "The propellant needs a name to be kept under");
  }
  LoadPropellantLibrary(bench);
  if (!bench.Motor.LibraryTrouble.empty()) return Tell(bench, bench.Motor.LibraryTrouble);
  std::vector<Propellant> list = bench.Motor.Library;
  const Propellant *former = FindPropellant(list, name);
  const Propellant made = MadeFrom(bench, former ? former->Name : name, former);
  if (const std::string trouble = CheckPropellant(made); !trouble.empty()) return Tell(bench, trouble);
  if (former) {
    const Box question{former->Name + " is in the library. Replace its density, c* and Isp?",
                       "Keep in Library", Buttons::YesNo, Icon::Question};
    if (bench.Out.Ask(question) != Answer::Yes) return;
    list[static_cast<std::size_t>(former - list.data())] = made;
  } else {
    list.push_back(made);
  }
  const std::string trouble = WritePropellants(bench.Folders.AppDir + "propellants.txt", list);
  if (!trouble.empty()) return Tell(bench, trouble);
  LoadPropellantLibrary(bench);
  ShowPropellantChoice(bench);
  bench.Out.Ask({made.Name + " is in the library; its burn rate is " +
                     (former ? "the one it had." : "a stand-in until it is measured."),
                 "Keep in Library", Buttons::Ok, Icon::None});
}
