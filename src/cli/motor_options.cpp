#include "cli/motor_options.h"

#include "base/number_text.h"
#include "performance/propellants.h"
#include "shell/work_folder.h"

#include <cmath>
#include <fmt/format.h>

std::string ApplyDimensions(const DimensionOptions &given, GrainDoc &doc) {
  const auto fits = [](double v) { return std::isfinite(v) && v <= 1e6; };
  if (given.Diameter && !(*given.Diameter > 0 && fits(*given.Diameter)))
    return "--diameter: expected millimetres above 0";
  if (given.Length && !(*given.Length >= 0 && fits(*given.Length)))
    return "--length: expected millimetres, 0 or more";
  if (given.Throat && !(*given.Throat >= 0 && fits(*given.Throat)))
    return "--throat: expected millimetres, 0 or more";
  if (given.Diameter) {
    doc.GrainDiam = *given.Diameter;
    doc.GrainRadius = static_cast<float>(*given.Diameter / 2);
  }
  if (given.Length) doc.GrainLength = static_cast<float>(*given.Length);
  if (given.Throat) doc.ThroatDiam = static_cast<float>(*given.Throat);
  if (!given.Ends.empty())
    doc.EndsExposed = given.Ends == "none" ? 0 : given.Ends == "A" ? 1 : given.Ends == "B" ? 2 : 3;
  return {};
}

MotorInputs OpeningInputs(const GrainDoc &doc) {
  MotorInputs in;
  in.ThroatDiam = Val(PlainText(doc.ThroatDiam)); // as the boxes show it
  in.GrainDiam = doc.GrainDiam;
  in.GrainLength = Val(PlainText(doc.GrainLength));
  in.EndsExposed = doc.EndsExposed & 3;
  return in;
}

std::string LoadLibrary(std::vector<Propellant> &list) {
  const WorkFolders folders = FindFolders(ExecutablePath());
  return LoadPropellants(folders.Trouble.empty() ? folders.AppDir : "", folders.Install, list);
}

std::string PickPropellant(const std::vector<Propellant> &list, const std::string &name, Propellant &pick) {
  if (const Propellant *found = FindPropellant(list, name)) {
    pick = *found;
    return {};
  }
  std::string names;
  for (const Propellant &p : list) names += (names.empty() ? "" : ", ") + p.Name;
  return fmt::format("--propellant: there is no {} in the library; it holds: {}", name, names);
}

std::string ReadFuel(const FuelOptions &given, Propellant &fuel) {
  if (!given.Propellant.empty()) {
    std::vector<Propellant> library;
    std::string trouble = LoadLibrary(library);
    if (trouble.empty()) trouble = PickPropellant(library, given.Propellant, fuel);
    if (!trouble.empty()) return trouble;
  }
  fuel.A = given.A.value_or(fuel.A);
  fuel.N = given.N.value_or(fuel.N);
  fuel.Density = given.Density.value_or(fuel.Density);
  fuel.CStar = given.CStar.value_or(fuel.CStar);
  fuel.Isp = given.Isp.value_or(fuel.Isp);
  return {};
}
