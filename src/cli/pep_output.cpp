#include "cli/pep_output.h"

#include "thermochem/ingredient_names.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <set>

namespace {

using Figure = PepFigures::Figure;

std::string NumberOr(const Figure &figure, const char *otherwise) {
  return figure && std::isfinite(*figure) ? fmt::format("{:.8g}", *figure) : otherwise;
}

std::string Quoted(const std::string &text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + '"';
}

// The figures of a case by their names, in order.
std::vector<std::pair<const char *, Figure>> Named(const PepFigures &f) {
  return {{"pc_mpa", f.ChamberPressure},
          {"t_chamber_k", f.ChamberTemperature},
          {"cstar_ms", f.CStar[Shifting]},
          {"gas_moles_per_100g", f.GasMoles},
          {"mean_mw_gas", f.MeanGasWeight},
          {"gamma", f.Gamma},
          {"isp_1atm_shifting_s", f.Isp[Shifting]},
          {"isp_1atm_frozen_s", f.Isp[Frozen]},
          {"t_exit_shifting_k", f.ExitTemperature[Shifting]},
          {"t_exit_frozen_k", f.ExitTemperature[Frozen]},
          {"isp_vac_exit_shifting_s", f.VacIsp[Shifting]},
          {"isp_vac_exit_frozen_s", f.VacIsp[Frozen]},
          {"t_vac_exit_shifting_k", f.VacTemperature[Shifting]}};
}

std::vector<std::pair<const char *, Figure>> NamedExpansion(const PepRow &row) {
  const auto figure = [&](double ExpansionRow::*member) {
    return row.At ? Figure((*row.At).*member) : std::nullopt;
  };
  return {{"expansion_exit_atm", figure(&ExpansionRow::Pressure)},
          {"expansion_exit_k", figure(&ExpansionRow::Temperature)},
          {"expansion_isp_s", figure(&ExpansionRow::Optimum)},
          {"expansion_isp_vacuum_s", figure(&ExpansionRow::Vacuum)},
          {"expansion_isp_sea_level_s", figure(&ExpansionRow::SeaLevel)}};
}

std::string SpeciesJson(const PepFigures &figures) {
  std::string text;
  for (const SpeciesAmount &amount : figures.Species)
    text += fmt::format("{}{}: {:.6g}", text.empty() ? "" : ", ", Quoted(amount.Name), amount.Moles);
  return "{" + text + "}";
}

struct Column {
  const char *Title;
  int Width, Places;
  Figure (*Of)(const PepRow &, PepMode);
};

// Impulses and temperatures behind the throat are of the mode shown.
constexpr Column Columns[] = {
    {"Pc MPa", 8, 3, [](const PepRow &r, PepMode) { return Figure(r.Figures.ChamberPressure); }},
    {"T K", 8, 1, [](const PepRow &r, PepMode) { return r.Figures.ChamberTemperature; }},
    {"c* m/s", 8, 1, [](const PepRow &r, PepMode m) { return r.Figures.CStar[m]; }},
    {"gamma", 7, 4, [](const PepRow &r, PepMode) { return r.Figures.Gamma; }},
    {"M gas", 7, 3, [](const PepRow &r, PepMode) { return r.Figures.MeanGasWeight; }},
    {"gas mol", 8, 4, [](const PepRow &r, PepMode) { return r.Figures.GasMoles; }},
    {"cond %", 7, 1,
     [](const PepRow &r, PepMode) {
       return r.Figures.CondensedPart ? Figure(100 * *r.Figures.CondensedPart) : std::nullopt;
     }},
    {"Isp s", 7, 1, [](const PepRow &r, PepMode m) { return r.Figures.Isp[m]; }},
    {"T exit", 8, 1, [](const PepRow &r, PepMode m) { return r.Figures.ExitTemperature[m]; }},
    {"Isp*d", 7, 1, [](const PepRow &r, PepMode m) { return r.Figures.DensityIsp[m]; }},
    {"Isp vac", 8, 1, [](const PepRow &r, PepMode m) { return r.Figures.VacIsp[m]; }},
    {"T vac", 7, 1, [](const PepRow &r, PepMode m) { return r.Figures.VacTemperature[m]; }},
};
constexpr Column ExpansionColumns[] = {
    {"Pe atm", 9, 4, [](const PepRow &r, PepMode) { return r.At ? Figure(r.At->Pressure) : std::nullopt; }},
    {"Te K", 8, 1, [](const PepRow &r, PepMode) { return r.At ? Figure(r.At->Temperature) : std::nullopt; }},
    {"Iopt s", 8, 1, [](const PepRow &r, PepMode) { return r.At ? Figure(r.At->Optimum) : std::nullopt; }},
    {"Ivac s", 8, 1, [](const PepRow &r, PepMode) { return r.At ? Figure(r.At->Vacuum) : std::nullopt; }},
};

void AppendCells(std::string &text, const Column &column, const PepRow &row, PepMode mode) {
  const Figure figure = column.Of(row, mode);
  text += figure ? fmt::format("{:>{}.{}f}", *figure, column.Width, column.Places)
                 : fmt::format("{:>{}}", "-", column.Width);
}

double WeightIn(const SweepStep &step, int position) {
  double weight = 0;
  for (const PepIngredient &i : step.Inputs.Ingredient)
    if (i.ListPosition == position) weight += i.Weight;
  return weight;
}

std::string MixText(const DataFiles &files, const PepOutcome &run, const PepRequest &request) {
  std::string text;
  const SweepStep &first = request.Step.front(), &last = request.Step.back();
  std::size_t width = 10;
  for (const PepIngredient &i : first.Inputs.Ingredient)
    width = std::max(width, files.Ingredient.at(i.ListPosition - 1).Name.size());
  for (const PepIngredient &i : first.Inputs.Ingredient) {
    const IngredientRecord &record = files.Ingredient.at(i.ListPosition - 1);
    const bool swept = request.Sweeping &&
                       (i.ListPosition == request.Sweep.Raised || i.ListPosition == request.Sweep.Lowered);
    text += fmt::format("  {:<{}} {:>10}  {:>8.1f} cal/g  {:1}  {}\n", record.Name, width,
                        swept ? fmt::format("{:.4g} to {:.4g}", WeightIn(first, i.ListPosition),
                                            WeightIn(last, i.ListPosition))
                              : fmt::format("{:.6g}", i.Weight),
                        record.HeatOfFormation, record.Confidence, FormulaText(record));
  }
  text += fmt::format("  {:.6g} in all, ", run.Propellant.TotalWeight);
  if (!request.Sweeping) text += fmt::format("{:.3f} g/cc, ", run.Propellant.DensityGcc);
  return text + fmt::format("{:g} degrees Celsius\n", request.Inputs.Temperature);
}

std::string FractionsText(const PepOutcome &run, PepMode mode) {
  const PepCase &one = run.Case.back();
  std::string text = fmt::format("\nProducts at {:.4g} MPa, moles per 100 g and mole fraction\n  {:<8}",
                                 one.ChamberPressure, "");
  constexpr const char *Stations[] = {"chamber", "throat", "exit 1 atm"};
  std::vector<SpeciesAmount> lists[3];
  std::vector<std::string> names;
  for (const PepStation station : {Chamber, Throat, Exit1}) {
    text += fmt::format("{:>20}", Stations[station]);
    lists[station] = SpeciesOf(run, one.Point[mode][station]);
    for (const SpeciesAmount &amount : lists[station])
      if (std::find(names.begin(), names.end(), amount.Name) == names.end()) names.push_back(amount.Name);
  }
  text += '\n';
  for (const std::string &name : names) {
    text += fmt::format("  {:<8}", name);
    for (const auto &list : lists) {
      const auto at = std::find_if(list.begin(), list.end(),
                                   [&](const SpeciesAmount &amount) { return amount.Name == name; });
      text += at == list.end() ? fmt::format("{:>20}", "-")
                               : fmt::format("{:>11.6f}{:>9.6f}", at->Moles, at->MoleFraction);
    }
    text += '\n';
  }
  return text;
}

} // namespace

std::string PepJson(const PepRequest &request, const PepArguments &a, const std::vector<PepRow> &rows) {
  std::string text = "{\"cases\": [";
  for (const PepRow &row : rows) {
    text += &row == rows.data() ? "\n  {" : ",\n  {";
    if (request.Sweeping) text += fmt::format("\"sweep_weight\": {:.10g}, ", row.SweepWeight);
    for (const auto &[name, figure] : Named(row.Figures))
      text += fmt::format("\"{}\": {}, ", name, NumberOr(figure, "null"));
    if (request.Expansion > 0)
      for (const auto &[name, figure] : NamedExpansion(row))
        text += fmt::format("\"{}\": {}, ", name, NumberOr(figure, "null"));
    if (a.Species) text += "\"species\": " + SpeciesJson(row.Figures) + ", ";
    text += fmt::format("\"converged\": {}}}", row.Figures.Converged);
  }
  return text + "\n]}\n";
}

std::string PepCsv(const PepRequest &request, const PepArguments &a, const std::vector<PepRow> &rows) {
  std::vector<std::string> species; // in the order of their first appearance
  std::set<std::string> seen;
  if (a.Species)
    for (const PepRow &row : rows)
      for (const SpeciesAmount &amount : row.Figures.Species)
        if (seen.insert(amount.Name).second) species.push_back(amount.Name);

  std::string text;
  if (rows.empty()) return text;
  if (request.Sweeping) text += "sweep_weight,";
  for (const auto &[name, figure] : Named(rows.front().Figures)) text += std::string(name) + ',';
  if (request.Expansion > 0)
    for (const auto &[name, figure] : NamedExpansion(rows.front())) text += std::string(name) + ',';
  text += "condensed_mass_fraction,density_isp_1atm_shifting_s_g_cc,";
  for (const std::string &name : species) text += "mol_" + name + ',';
  text += "converged\n";
  for (const PepRow &row : rows) {
    if (request.Sweeping) text += fmt::format("{:.10g},", row.SweepWeight);
    for (const auto &[name, figure] : Named(row.Figures)) text += NumberOr(figure, "") + ',';
    if (request.Expansion > 0)
      for (const auto &[name, figure] : NamedExpansion(row)) text += NumberOr(figure, "") + ',';
    text +=
        NumberOr(row.Figures.CondensedPart, "") + ',' + NumberOr(row.Figures.DensityIsp[Shifting], "") + ',';
    for (const std::string &name : species) {
      const auto &list = row.Figures.Species;
      const auto at = std::find_if(list.begin(), list.end(),
                                   [&](const SpeciesAmount &amount) { return amount.Name == name; });
      text += at == list.end() ? "0," : fmt::format("{:.6g},", at->Moles);
    }
    text += row.Figures.Converged ? "true\n" : "false\n";
  }
  return text;
}

std::string PepText(const PepRequest &request, const PepArguments &a, const DataFiles &files,
                    const PepOutcome &last, const std::vector<PepRow> &rows) {
  const PepMode mode = a.Frozen ? Frozen : Shifting;
  std::string text = MixText(files, last, request) + '\n';
  text += a.Frozen ? "Frozen composition; " : "Shifting equilibrium; ";
  text += "Isp expanded to 14.7 psi, Isp*d times the density in g/cc, Isp vac expanded to 0.0147 psi\n";
  if (request.Sweeping)
    text += fmt::format("{} is stepped, taken from {}\n", files.Ingredient[request.Sweep.Raised - 1].Name,
                        files.Ingredient[request.Sweep.Lowered - 1].Name);
  if (request.Expansion > 0) text += fmt::format("Pe to Ivac: at an area ratio of {:g}\n", request.Expansion);
  text += '\n';
  if (request.Sweeping) text += fmt::format("{:>8}", "weight");
  for (const Column &column : Columns) text += fmt::format("{:>{}}", column.Title, column.Width);
  if (request.Expansion > 0)
    for (const Column &column : ExpansionColumns) text += fmt::format("{:>{}}", column.Title, column.Width);
  text += '\n';
  for (std::size_t i = 0; i < rows.size(); i += Repeats(request)) {
    const PepRow &row = rows[i];
    if (request.Sweeping) text += fmt::format("{:>8.6g}", row.SweepWeight);
    for (const Column &column : Columns) AppendCells(text, column, row, mode);
    if (request.Expansion > 0)
      for (const Column &column : ExpansionColumns) AppendCells(text, column, row, mode);
    text += row.Figures.Converged ? "\n" : "  not converged\n";
  }
  if (a.Species) text += FractionsText(last, mode);
  return text;
}
