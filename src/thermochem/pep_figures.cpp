#include "thermochem/pep_figures.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace {

constexpr double Basis = 100;             // g
constexpr int ReferenceTemperature = 298; // K

PepFigures::Figure Finite(bool stands, double value) {
  return stands && std::isfinite(value) ? PepFigures::Figure(value) : std::nullopt;
}

double CondensedPart(const PepPoint &point) {
  const double weight = point.GasWeight + point.CondensedWeight;
  return weight > 0 ? point.CondensedWeight / weight : 0;
}

// "2, 2.571 and 4 more of 15 cases (MPa)"
std::string CaseList(const std::vector<double> &pressures, std::size_t all) {
  if (pressures.size() == all) return all == 1 ? "the case" : fmt::format("all {} cases", all);
  constexpr std::size_t Shown = 4;
  std::string text;
  for (std::size_t i = 0; i < std::min(Shown, pressures.size()); ++i)
    text += fmt::format("{}{:.4g}", i ? ", " : "", pressures[i]);
  if (pressures.size() > Shown) text += fmt::format(" and {} more", pressures.size() - Shown);
  return text + " MPa";
}

} // namespace

std::vector<SpeciesAmount> SpeciesOf(const PepOutcome &outcome, const PepPoint &point, double least) {
  std::vector<SpeciesAmount> list;
  const SpeciesTable &species = outcome.Species;
  const double total = outcome.Propellant.TotalWeight, moles = point.GasMoles + point.CondensedMoles;
  const int count = std::min(species.SpeciesCount, static_cast<int>(point.Moles.size()) - 1);
  for (int s = 1; s <= count; ++s) {
    SpeciesAmount amount{species.Name[s], point.Moles[s] * Basis / total, point.Moles[s] / moles,
                         double{point.Moles[s]} * species.MolecularWeight[s] / total, s > species.GasCount};
    if (amount.Moles >= least) list.push_back(std::move(amount));
  }
  std::stable_sort(list.begin(), list.end(),
                   [](const SpeciesAmount &a, const SpeciesAmount &b) { return a.Moles > b.Moles; });
  return list;
}

PepFigures FiguresOf(const PepOutcome &outcome, const PepCase &one) {
  PepFigures figures;
  const PepPoint &chamber = one.Point[Shifting][Chamber];
  figures.ChamberPressure = one.ChamberPressure;
  figures.ChamberTemperature = Finite(chamber.Stands, chamber.Temperature);
  figures.GasMoles = Finite(chamber.Stands, chamber.GasMoles * Basis / outcome.Propellant.TotalWeight);
  figures.MeanGasWeight = Finite(chamber.Stands, chamber.MeanGasWeight);
  figures.Gamma = Finite(chamber.Stands, chamber.Gamma);
  figures.CondensedPart = Finite(chamber.Stands, CondensedPart(chamber));
  for (const PepMode mode : {Shifting, Frozen}) {
    const PepPoint *const point = one.Point[mode];
    figures.CStar[mode] = Finite(point[Throat].Stands, point[Throat].CStar);
    figures.Isp[mode] = Finite(point[Exit1].Stands, point[Exit1].Impulse);
    figures.ExitTemperature[mode] = Finite(point[Exit1].Stands, point[Exit1].Temperature);
    figures.VacIsp[mode] = Finite(point[Exit2].Stands, point[Exit2].Impulse);
    figures.VacTemperature[mode] = Finite(point[Exit2].Stands, point[Exit2].Temperature);
    figures.DensityIsp[mode] =
        Finite(point[Exit1].Stands, point[Exit1].Impulse * outcome.Propellant.DensityGcc);
  }
  figures.Species = SpeciesOf(outcome, chamber);
  figures.Converged = one.Converged;
  return figures;
}

std::vector<std::string> MixWarnings(const PepOutcome &outcome, const DataFiles &files) {
  std::vector<std::string> warnings = outcome.Messages;
  for (int i = 1; i <= outcome.Ingredients.IngredientCount; ++i) {
    const std::size_t at =
        static_cast<std::size_t>(outcome.Ingredients.Row[i].CodeNumber - FillerRecords - 1);
    if (at < files.Ingredient.size() && files.Ingredient[at].Confidence == "C")
      warnings.push_back("The heat of formation of " + files.Ingredient[at].Name + " is an estimate");
  }
  const Mix &mix = outcome.Propellant;
  if (mix.Temperature != ReferenceTemperature && std::abs(mix.TotalWeight - Basis) > 0.01 * Basis)
    warnings.push_back(
        fmt::format("The heat to bring the propellant to {} K is that of 100 g, for {:.6g} g too: "
                    "give weights of 100 in all",
                    mix.Temperature, mix.TotalWeight));
  return warnings;
}

std::vector<std::string> PepWarnings(const PepOutcome &outcome, const DataFiles &files) {
  std::vector<std::string> warnings = MixWarnings(outcome, files);
  std::vector<double> condensed, unconverged;
  double most = 0;
  for (const PepCase &one : outcome.Case) {
    const double part = CondensedPart(one.Point[Shifting][Chamber]);
    most = std::max(most, part);
    if (part > MuchCondensed) condensed.push_back(one.ChamberPressure);
    if (!one.Converged) unconverged.push_back(one.ChamberPressure);
    for (const std::string &note : one.Notes)
      if (std::find(warnings.begin(), warnings.end(), note) == warnings.end()) warnings.push_back(note);
  }
  if (!condensed.empty())
    warnings.push_back(
        fmt::format("More than 30 % of the products are condensed (up to {:.1f} % of the mass) "
                    "in {}: a real motor delivers less than this",
                    100 * most, CaseList(condensed, outcome.Case.size())));
  if (!unconverged.empty())
    warnings.push_back("The result did not converge in " + CaseList(unconverged, outcome.Case.size()) +
                       ": do not trust it");
  return warnings;
}
