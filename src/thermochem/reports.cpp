#include "thermochem/reports.h"

#include "base/number_text.h"
#include "thermochem/elements.h"
#include "thermochem/ingredient_names.h"
#include "thermochem/pep_figures.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace {

constexpr double MajorFraction = 0.009995;
constexpr double PsiPerAtm = 14.70069;
constexpr int HeadedRows[] = {26, 66}; // the expansion table's headings stand again before these

// "-" for what was not reached and for what means nothing.
std::string Cell(bool stands, double value, const char *mask) {
  return stands && std::isfinite(value) ? FormatMask(value, mask) : "-";
}

std::string Cell(const PepFigures::Figure &figure, const char *mask) {
  return Cell(figure.has_value(), figure.value_or(0), mask);
}

const char *ModeName(PepMode mode) { return mode == Frozen ? "frozen composition" : "shifting equilibrium"; }

std::string CaseTitle(const char *what, const PepCase &one) {
  return fmt::format("{} at {} MPa ({} psi)", what, FormatMask(one.ChamberPressure, "0.00"),
                     FormatMask(one.Psi, "0"));
}

void AppendNotes(Report &report, const PepCase &one) {
  report.Note = one.Notes;
  if (!one.Converged) report.Note.push_back("The result did not converge: do not trust it");
}

} // namespace

Report IngredientReport(const PepOutcome &run, const DataFiles &files) {
  Report report{"Ingredients", {}, {}, {}};
  const double total = run.Propellant.TotalWeight;
  ReportTable list{"",
                   {"Code", "Ingredient", "Weight g", "%", "Formula", "Mol. weight", "Heat cal/g", "Conf.",
                    "Density lb/cu-in"},
                   {}};
  for (int i = 1; i <= run.Ingredients.IngredientCount; ++i) {
    const IngredientRow &row = run.Ingredients.Row[i];
    const std::size_t at = static_cast<std::size_t>(row.CodeNumber - FillerRecords - 1);
    const IngredientRecord record = at < files.Ingredient.size() ? files.Ingredient[at] : IngredientRecord{};
    list.Row.push_back({std::to_string(row.CodeNumber), row.Name, FormatMask(row.Weight, "0.000"),
                        FormatMask(100 * row.Weight / total, "0.00"), FormulaText(record),
                        FormatMask(row.MolecularWeight, "0.000"), FormatMask(row.HeatOfFormation, "0.0"),
                        record.Confidence, FormatMask(row.Density, "0.00000")});
  }
  ReportTable elements{"Elements", {"Element", "Gram atoms", "Grams", "Mass fraction"}, {}};
  for (int e = 1; e <= run.Elements.ElementCount; ++e) {
    const double grams = double{run.Elements.ElementTotal[e]} * AtomicWeight(run.Elements.AtomicNumber[e]);
    elements.Row.push_back({run.Elements.Symbol[e], FormatMask(run.Elements.ElementTotal[e], "0.00000"),
                            FormatMask(grams, "0.0000"), FormatMask(grams / total, "0.00000")});
  }
  report.Line = {
      fmt::format("Total weight {} g at {} K", FormatMask(total, "0.000"), run.Propellant.Temperature),
      fmt::format("Density {} lb/cu-in, {} g/cc", FormatMask(run.Propellant.Density, "0.00000"),
                  FormatMask(run.Propellant.DensityGcc, "0.000")),
      fmt::format("Enthalpy {} cal", FormatMask(run.Propellant.Enthalpy, "0.0"))};
  report.Table = {list, elements};
  report.Note = run.Messages;
  return report;
}

Report ChemicalReport(const PepOutcome &run, const PepCase &one, PepMode mode) {
  Report report{CaseTitle("Products", one) + ", " + ModeName(mode), {}, {}, {}};
  const std::pair<PepStation, const char *> stations[] = {
      {Chamber, "Chamber"}, {Throat, "Throat"}, {Exit1, "Exit at 14.7 psi"}, {Exit2, "Exit at 0.0147 psi"}};
  for (const auto &[station, name] : stations) {
    const PepPoint &point = one.Point[mode][station];
    if (!point.Stands || point.Moles.empty()) continue;
    ReportTable table{fmt::format("{}: {} K", name, FormatMask(point.Temperature, "0.0")),
                      {"Species", "Moles/100 g", "Mole fraction", "Mass fraction", "Phase", ""},
                      {}};
    for (const SpeciesAmount &amount : SpeciesOf(run, point))
      table.Row.push_back(
          {amount.Name, FormatMask(amount.Moles, "0.000000"), FormatMask(amount.MoleFraction, "0.000000"),
           FormatMask(amount.MassFraction, "0.000000"), amount.Condensed ? "condensed" : "gas",
           amount.MoleFraction >= MajorFraction ? "major" : ""});
    report.Table.push_back(std::move(table));
  }
  AppendNotes(report, one);
  return report;
}

Report StateReport(const PepOutcome &run, const PepCase &one) {
  Report report{CaseTitle("State of the flow", one), {}, {}, {}};
  ReportTable table{"",
                    {"Figure", "Chamber", "Throat", "Exit 14.7 psi", "Exit 0.0147 psi", "Throat, frozen",
                     "Exit 14.7 psi, frozen", "Exit 0.0147 psi, frozen"},
                    {}};
  const PepPoint *const points[] = {&one.Point[Shifting][Chamber], &one.Point[Shifting][Throat],
                                    &one.Point[Shifting][Exit1],   &one.Point[Shifting][Exit2],
                                    &one.Point[Frozen][Throat],    &one.Point[Frozen][Exit1],
                                    &one.Point[Frozen][Exit2]};
  const auto row = [&](const char *name, const char *mask, const auto &of) {
    std::vector<std::string> cells{name};
    for (const PepPoint *const point : points) cells.push_back(Cell(point->Stands, of(*point), mask));
    table.Row.push_back(std::move(cells));
  };
  // What is known of a flow alone: not of the chamber, where nothing moves.
  const auto flowing = [&](const char *name, const char *mask, const auto &of) {
    row(name, mask, [&](const PepPoint &p) { return &p == points[0] ? NAN : of(p); });
  };
  const double weight = run.Propellant.TotalWeight;
  row("Temperature K", "0.0", [](const PepPoint &p) { return p.Temperature; });
  row("Temperature F", "0.0", [](const PepPoint &p) { return 1.8 * p.Temperature - 459.4; });
  row("Pressure atm", "0.00000", [](const PepPoint &p) { return p.Pressure; });
  row("Pressure psi", "0.0000", [](const PepPoint &p) { return PsiPerAtm * p.Pressure; });
  row("Enthalpy J", "0.0", [](const PepPoint &p) { return p.Enthalpy; });
  row("Entropy kcal/K", "0.00000", [](const PepPoint &p) { return p.Entropy; });
  row("Cp/Cv, composition held", "0.0000", [](const PepPoint &p) { return p.Gamma; });
  row("Specific heat (molar) of gas", "0.000",
      [](const PepPoint &p) { return p.GasMoles > 0 ? p.GasCp / p.GasMoles : NAN; });
  row("Specific heat (molar) of total", "0.000", [](const PepPoint &p) {
    const double moles = p.GasMoles + p.CondensedMoles;
    return moles > 0 ? p.Cp / moles : NAN;
  });
  row("Number mols gas", "0.00000", [](const PepPoint &p) { return p.GasMoles; });
  row("Number mols condensed", "0.00000", [](const PepPoint &p) { return p.CondensedMoles; });
  row("Condensed mass %", "0.00", [&](const PepPoint &p) { return 100 * p.CondensedWeight / weight; });
  row("Mean weight of the gas g/mol", "0.000", [](const PepPoint &p) { return p.MeanGasWeight; });
  row("Mean weight of all g/mol", "0.000", [](const PepPoint &p) { return p.MeanWeight; });
  row("Sound speed m/s", "0.0", [](const PepPoint &p) { return p.SoundSpeed; });
  row("Density g/l", "0.00000", [](const PepPoint &p) { return p.Density; });
  flowing("Velocity m/s", "0.0", [](const PepPoint &p) { return p.Velocity; });
  flowing("Area ratio", "0.000", [](const PepPoint &p) { return p.AreaRatio; });
  flowing("Optimum impulse s", "0.0", [](const PepPoint &p) { return p.Impulse; });
  flowing("Vacuum impulse s", "0.0", [](const PepPoint &p) { return p.VacuumImpulse; });
  // Flow against the air at sea level into a near vacuum means nothing.
  flowing("Sea level impulse s", "0.0",
          [](const PepPoint &p) { return p.SeaLevelImpulse > 0 ? p.SeaLevelImpulse : NAN; });
  flowing("c* m/s", "0.0", [](const PepPoint &p) { return p.CStar > 0 ? p.CStar : NAN; });
  report.Table = {table};
  const PepPoint &chamber = *points[0];
  if (chamber.Stands)
    report.Line = {"The molecular weight of the mixture is " +
                   FormatMask((chamber.GasMoles + chamber.CondensedMoles) / weight, "0.00E+00") + " mol/g"};
  AppendNotes(report, one);
  return report;
}

Report ExpansionReport(const PepOutcome &run, const PepCase &one, PepMode mode) {
  Report report{CaseTitle("Expansion", one) + ", " + ModeName(mode), {}, {}, {}};
  ReportTable table{"",
                    {"Ratio", "Pe atm", "Pe kPa", "Te K", "Opt s", "Opt m/s", "Vac s", "Vac m/s", "S.L. s",
                     "S.L. m/s", "He J"},
                    {}};
  int number = 0;
  for (const ExpansionRow &row : one.Expansion[mode]) {
    ++number;
    if (std::find(std::begin(HeadedRows), std::end(HeadedRows), number) != std::end(HeadedRows)) {
      table.Row.emplace_back();
      table.Row.push_back(table.Column);
    }
    const bool atSeaLevel = row.Stands && row.SeaLevel > 0;
    table.Row.push_back({FormatMask(row.Ratio, "###."), Cell(row.Stands, row.Pressure, "0.000"),
                         Cell(row.Stands, row.PressureKpa, "###.0"),
                         Cell(row.Stands, row.Temperature, "####."), Cell(row.Stands, row.Optimum, "##.0"),
                         Cell(row.Stands, row.OptimumMs, "####."), Cell(row.Stands, row.Vacuum, "###.0"),
                         Cell(row.Stands, row.VacuumMs, "####."), Cell(atSeaLevel, row.SeaLevel, "###.0"),
                         Cell(atSeaLevel, row.SeaLevelMs, "####."), Cell(row.Stands, row.Enthalpy, "###.0")});
  }
  report.Table = {table};
  report.Line = {"Propellant density " + FormatMask(run.Propellant.DensityGcc, "0.000") + " g/cc"};
  AppendNotes(report, one);
  return report;
}

Report PerformanceReport(const PepOutcome &run, const DataFiles &files, PepMode mode) {
  Report report{fmt::format("Performance, {}", ModeName(mode)), {}, {}, PepWarnings(run, files)};
  for (int i = 1; i <= run.Ingredients.IngredientCount; ++i)
    report.Line.push_back(FormatMask(run.Ingredients.Row[i].Weight, "0.000") + " g  " +
                          run.Ingredients.Row[i].Name);
  report.Line.push_back("Density " + FormatMask(run.Propellant.DensityGcc, "0.000") + " g/cc");
  ReportTable table{"",
                    {"Pc MPa", "T K", "c* m/s", "Gamma", "M gas", "Gas mol/100 g", "Condensed %",
                     "Isp 14.7 psi s", "T exit K", "Density Isp", "Isp 0.0147 psi s", "T exit K", ""},
                    {}};
  for (const PepCase &one : run.Case) {
    const PepFigures f = FiguresOf(run, one);
    table.Row.push_back(
        {FormatMask(f.ChamberPressure, "0.000"), Cell(f.ChamberTemperature, "0.0"),
         Cell(f.CStar[mode], "0.0"), Cell(f.Gamma, "0.0000"), Cell(f.MeanGasWeight, "0.000"),
         Cell(f.GasMoles, "0.0000"),
         Cell(f.CondensedPart ? PepFigures::Figure(100 * *f.CondensedPart) : std::nullopt, "0.0"),
         Cell(f.Isp[mode], "0.0"), Cell(f.ExitTemperature[mode], "0.0"), Cell(f.DensityIsp[mode], "0.0"),
         Cell(f.VacIsp[mode], "0.0"), Cell(f.VacTemperature[mode], "0.0"),
         f.Converged ? "" : "not converged"});
  }
  report.Table = {table};
  return report;
}
