#include "thermochem/data_check.h"

#include "base/numeral.h"
#include "thermochem/elements.h"

#include <cmath>
#include <fmt/format.h>
#include <map>
#include <set>

namespace {

constexpr double LowestHeat = -10000, HighestHeat = 6000; // cal/g
constexpr double HighestDensity = 0.83;                   // lb/cu-in: osmium's
constexpr double MostHGap = 0.01, MostSGap = 0.01;        // kcal/mol, cal/mol/K
constexpr double MostCpGap = 0.30;                        // relative
constexpr double WidestJoin = 1;                          // K
constexpr double CpFrom = 298.15;                         // K; fits below it serve as an extrapolation
constexpr int CpSamples = 40;

struct FitValues {
  double Cp = 0, H = 0, S = 0; // cal/mol/K, kcal/mol, cal/mol/K
};

FitValues FitAt(const std::array<float, 8> &c, double kelvin) {
  const double x = kelvin / 1000;
  return {c[0] + c[1] * x + c[2] * x * x + c[3] * x * x * x + c[4] / (x * x),
          c[5] + c[0] * x + c[1] / 2 * x * x + c[2] / 3 * x * x * x + c[3] / 4 * x * x * x * x - c[4] / x,
          c[6] + c[0] * std::log(x) + c[1] * x + c[2] / 2 * x * x + c[3] / 3 * x * x * x -
              c[4] / 2 / (x * x)};
}

bool IsNumber(std::string_view text, double &value) {
  text = Trimmed(text);
  return !text.empty() && NumeralLength(text) == text.size() && NumeralValue(text, value);
}

// Collects faults of one record after the other and watches the names.
struct Faults {
  std::vector<DataFault> &List;
  std::map<std::string, int> First{};
  int Record = 0;
  std::string Name{};
  void At(int record, const std::string &name) {
    Record = record;
    Name = name;
    if (name.empty())
      Add("has no name");
    else if (const auto [earlier, fresh] = First.emplace(name, record); !fresh)
      Add(fmt::format("record {} has the same name", earlier->second));
  }
  void Add(const std::string &words) { List.push_back({Record, Name, words}); }
};

void CheckFormula(const IngredientFields &fields, const std::set<int> &formed, Faults &faults) {
  bool ended = false;
  double atoms = 0;
  for (std::size_t k = 0; k < CompositionFields; ++k) {
    const std::string &field = fields.Composition[k];
    const std::string_view count = Trimmed(std::string_view(field).substr(0, 3)),
                           symbol = Trimmed(std::string_view(field).substr(3));
    if (count.empty() && symbol.empty()) {
      ended = true;
      continue;
    }
    double value = 0;
    const int element = ElementOf(symbol);
    if (ended)
      faults.Add(
          fmt::format("composition field {} (\"{}\") stands behind the end and is not read", k + 1, field));
    else if (!IsNumber(count, value) || value < 1 || value != std::floor(value))
      faults.Add(fmt::format("composition field {} (\"{}\") holds no whole count above 0", k + 1, field));
    else if (element == 0)
      faults.Add(fmt::format("composition field {} (\"{}\") holds no element from H to Sn", k + 1, field));
    else if (!formed.contains(element))
      faults.Add(fmt::format("no species holds {}", ElementSymbol(element)));
    ended = ended || value == 0;
    atoms += value;
  }
  if (!(atoms > 0)) faults.Add("has no formula");
}

void CheckIngredients(const std::vector<IngredientFields> &records, const std::set<int> &formed,
                      DataCheck &check) {
  Faults faults{check.IngredientFaults};
  for (std::size_t r = FillerRecords; r < records.size(); ++r) {
    const IngredientFields &fields = records[r];
    faults.At(static_cast<int>(r) + 1, std::string(Trimmed(fields.Name)));
    IngredientRecord ignored;
    if (const std::string fault = IngredientFault(fields, ignored); !fault.empty()) {
      faults.Name.clear();
      faults.Add(fault);
      continue;
    }
    CheckFormula(fields, formed, faults);
    double heat = 0, density = 0;
    if (!IsNumber(fields.Heat, heat))
      faults.Add(fmt::format("the heat of formation is no number: \"{}\"", fields.Heat));
    else if (heat < LowestHeat || heat > HighestHeat)
      faults.Add(fmt::format("the heat of formation is not within {} to {} cal/g: {}", LowestHeat,
                             HighestHeat, heat));
    if (!IsNumber(fields.Density, density))
      faults.Add(fmt::format("the density is no number: \"{}\"", fields.Density));
    else if (!(density > 0 && density <= HighestDensity))
      faults.Add(
          fmt::format("the density is not above 0 and at most {} lb/cu-in: {}", HighestDensity, density));
    ++check.Ingredients;
  }
}

void CheckFits(const SpeciesRecord &record, Faults &faults) {
  const double limits[] = {record.Lo[0], record.Hi[0], record.Lo[1], record.Hi[1]};
  for (int i = 1; i < 4; ++i)
    if (limits[i] < limits[i - 1]) {
      faults.Add(fmt::format("the temperature limits do not rise: {:g}, {:g}, {:g}, {:g} K", limits[0],
                             limits[1], limits[2], limits[3]));
      return;
    }
  for (int range = 0; range < 2; ++range) {
    const double from = std::max<double>(record.Lo[range], CpFrom), to = record.Hi[range];
    for (int i = 0; i <= CpSamples && from <= to; ++i) {
      const double kelvin = from + (to - from) * i / CpSamples;
      if (FitAt(record.C[range], kelvin).Cp > 0) continue;
      faults.Add(fmt::format("cp is not above 0 at {:.0f} K (range {})", kelvin, range + 1));
      break;
    }
  }
  // A second range of no width only holds the values outside the limits.
  if (record.Lo[1] == record.Hi[1]) return;
  if (record.Lo[1] - record.Hi[0] > WidestJoin) {
    faults.Add(fmt::format("no range holds from {:g} to {:g} K", record.Hi[0], record.Lo[1]));
    return;
  }
  const FitValues a = FitAt(record.C[0], record.Hi[0]), b = FitAt(record.C[1], record.Hi[0]);
  if (!(std::abs(b.H - a.H) <= MostHGap))
    faults.Add(fmt::format("H jumps by {:.4g} kcal/mol at {:g} K", b.H - a.H, record.Hi[0]));
  if (!(std::abs(b.S - a.S) <= MostSGap))
    faults.Add(fmt::format("S jumps by {:.4g} cal/mol/K at {:g} K", b.S - a.S, record.Hi[0]));
  if (!(std::abs(b.Cp - a.Cp) <= MostCpGap * std::abs(a.Cp)))
    faults.Add(fmt::format("cp jumps from {:.4g} to {:.4g} cal/mol/K at {:g} K", a.Cp, b.Cp, record.Hi[0]));
}

void CheckSpecies(const std::vector<SpeciesRecord> &records, DataCheck &check) {
  Faults faults{check.SpeciesFaults};
  int lastMark = 0;
  for (std::size_t i = 0; i < records.size(); ++i)
    if (records[i].Mark == 1) lastMark = static_cast<int>(i) + 1;
  if (lastMark == 0) check.SpeciesFaults.push_back({0, "", "no species is marked as a gas"});
  for (std::size_t i = 0; i < records.size(); ++i) {
    const SpeciesRecord &record = records[i];
    const int number = static_cast<int>(i) + 2;
    if (const std::string fault = SpeciesFault(record); !fault.empty()) {
      faults.Record = number;
      faults.Name = fault.starts_with("the name") ? "" : record.Name;
      faults.Add(fault);
      continue;
    }
    faults.At(number, record.Name);
    if (record.AtomicNumber[0] == 0) faults.Add("has no formula and is never used");
    const bool gas = record.Mark == 1;
    if (!gas && static_cast<int>(i) < lastMark) faults.Add("is not marked as a gas but stands before one");
    ++(gas ? check.Gases : check.Condensed);
    CheckFits(record, faults);
  }
}

} // namespace

DataCheck CheckData(const DataPlaces &places) {
  DataCheck check;
  std::vector<SpeciesRecord> species;
  if (const std::string trouble = ReadSpeciesRecords(places.Species, species); !trouble.empty())
    check.SpeciesFaults.push_back({0, "", trouble});
  else
    CheckSpecies(species, check);
  std::set<int> formed;
  for (const SpeciesRecord &record : species)
    for (std::size_t k = 0; k < SpeciesPairs && record.AtomicNumber[k] != 0; ++k)
      formed.insert(record.AtomicNumber[k]);
  if (formed.empty()) // the species file is told of already
    for (int number = 1; number <= NamedElements; ++number) formed.insert(number);
  std::vector<IngredientFields> ingredients;
  if (const std::string trouble = ReadIngredientFields(places.Ingredients, ingredients); !trouble.empty())
    check.IngredientFaults.push_back({0, "", trouble});
  else
    CheckIngredients(ingredients, formed, check);
  return check;
}
