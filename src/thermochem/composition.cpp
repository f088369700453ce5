#include "thermochem/composition.h"

#include "base/rounding.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace {

constexpr double LeastDensity = 1e-5;          // lb/cu-in
constexpr double GramsPerCc = 27.6799;         // of a pound per cubic inch
constexpr double HeatCapacity[] = {0.3, 0, 0}; // of the propellant, cal/g/K, by powers of T
constexpr double HeatFactor = 100;
constexpr double Celsius0 = 273.15, Reference = 298; // K
constexpr double MostWeight = 1e9;                   // g

using Presence = std::array<bool, WeightedElements + 1>;

std::string Describe(const IngredientRow &row) {
  return row.Name.empty() ? fmt::format("Ingredient record {}", row.CodeNumber) : row.Name;
}

// The composition of one ingredient. Ends at the first zero count. False: `trouble` says why.
bool MatchElements(const IngredientRecord &record, IngredientRow &row, Presence &present,
                   std::string &trouble) {
  for (std::size_t k = 0; k < record.Count.size() && record.Count[k] != 0; ++k) {
    if (record.Count[k] < 0) {
      trouble = fmt::format("{}: its formula tells {} atoms of {}", Describe(row), record.Count[k],
                            record.Symbol[k]);
      return false;
    }
    const int number = ElementOf(record.Symbol[k]);
    if (number == 0) {
      trouble = fmt::format("{}: \"{}\" in its formula is no element that is known", Describe(row),
                            record.Symbol[k]);
      return false;
    }
    present[number] = true;
    row.Count[k] = Narrow16(record.Count[k]);
    row.Symbol[k] = record.Symbol[k];
    row.AtomicNumber[k] = static_cast<std::int16_t>(number);
  }
  return true;
}

bool ListElements(const Presence &present, ElementTable &elements, std::string &trouble) {
  elements = {};
  for (int number = 1; number <= WeightedElements; ++number) {
    if (!present[number]) continue;
    if (elements.ElementCount == MaxElements) {
      trouble = fmt::format("The propellant holds more than {} elements", MaxElements);
      return false;
    }
    const int e = ++elements.ElementCount;
    elements.Symbol[e] = ElementSymbol(number);
    elements.AtomicNumber[e] = static_cast<std::int16_t>(number);
  }
  if (elements.ElementCount == 0) trouble = "No ingredient of the propellant holds an element";
  return elements.ElementCount > 0;
}

double Atoms(const IngredientRow &row, int atomicNumber) {
  double sum = 0;
  for (std::size_t k = 0; k < row.Count.size(); ++k)
    if (row.AtomicNumber[k] == atomicNumber) sum += row.Count[k];
  return sum;
}

int SlotOf(const ElementTable &elements, int atomicNumber) {
  for (int e = 1; e <= elements.ElementCount; ++e)
    if (elements.AtomicNumber[e] == atomicNumber) return e;
  return 0;
}

// Whether the species can form from the elements; its atoms by element slot.
bool Accept(const SpeciesRecord &record, const ElementTable &elements, ElementRow &atoms) {
  atoms = {};
  if (record.AtomicNumber[0] == 0) return false;
  for (std::size_t k = 0; k < record.AtomicNumber.size() && record.AtomicNumber[k] != 0; ++k) {
    const int e = SlotOf(elements, record.AtomicNumber[k]);
    if (e == 0) return false;
    atoms[e] += static_cast<float>(record.Atoms[k]);
  }
  return true;
}

} // namespace

bool ReadIngredients(const PepInputs &inputs, const DataFiles &files, IngredientTable &ingredients,
                     ElementTable &elements, std::vector<std::string> &messages, std::string &trouble) {
  ingredients = {};
  Presence present{};
  for (const PepIngredient &chosen : inputs.Ingredient) {
    if (chosen.ListPosition <= 0) continue;
    IngredientRow row;
    row.CodeNumber = chosen.ListPosition + FillerRecords;
    // A place behind the last record reads as blanks: an ingredient of weight alone.
    const bool held = static_cast<std::size_t>(chosen.ListPosition) <= files.Ingredient.size();
    const IngredientRecord record = held ? files.Ingredient[chosen.ListPosition - 1] : IngredientRecord{};
    row.Name = record.Name;
    row.HeatOfFormation = record.HeatOfFormation;
    row.Density = std::max(record.Density, LeastDensity);
    row.Weight = chosen.Weight;
    if (!(chosen.Weight >= 0 && chosen.Weight <= MostWeight)) {
      trouble = fmt::format("{}: its weight must be a number from 0 to {:.0f}", Describe(row), MostWeight);
      return false;
    }
    if (chosen.Weight == 0) continue;
    if (ingredients.IngredientCount == MaxIngredients) {
      trouble = fmt::format("A propellant has at most {} ingredients", MaxIngredients);
      return false;
    }
    if (!MatchElements(record, row, present, trouble)) return false;
    double weight = 0;
    for (std::size_t k = 0; k < row.Count.size(); ++k)
      weight += double{AtomicWeight(row.AtomicNumber[k])} * row.Count[k];
    row.MolecularWeight = static_cast<float>(weight);
    if (weight == 0) messages.push_back(Describe(row) + " holds no element: it adds weight alone");
    ingredients.Row[++ingredients.IngredientCount] = row;
  }
  if (ingredients.IngredientCount == 0) {
    trouble = "Nothing is chosen: an ingredient and a weight above zero are needed";
    return false;
  }
  return ListElements(present, elements, trouble);
}

bool LoadSpecies(const DataFiles &files, const ElementTable &elements, SpeciesTable &species,
                 std::vector<std::string> &messages, std::string &trouble) {
  species.SpeciesCount = species.GasCount = 0;
  ElementRow sum{}, atoms{};
  for (const SpeciesRecord &record : files.Species) {
    if (!Accept(record, elements, atoms)) continue;
    if (species.SpeciesCount == MaxSpecies) {
      trouble = fmt::format("no. of combus. species exceeds prog. limit of {}", MaxSpecies);
      return false;
    }
    const int s = ++species.SpeciesCount;
    species.Name[s] = record.Name;
    species.AtomMatrix[s] = atoms;
    species.C[s] = record.C;
    species.Lo[s] = record.Lo;
    species.Hi[s] = record.Hi;
    double weight = 0;
    for (int e = 1; e <= elements.ElementCount; ++e) {
      weight += double{AtomicWeight(elements.AtomicNumber[e])} * atoms[e];
      sum[e] += std::abs(atoms[e]);
    }
    species.MolecularWeight[s] = static_cast<float>(weight);
    if (record.Mark == 1) species.GasCount = s;
    if (s == MaxSpecies)
      messages.push_back(fmt::format("no. of combus. species exceeds prog. limit of {}", MaxSpecies));
  }
  for (int e = 1; e <= elements.ElementCount; ++e)
    if (!(sum[e] > 0))
      messages.push_back("NO COMBUSTION SPECIES FOR " + elements.Symbol[e] + " REVISE JANNAF..DAT");
  return true;
}

Mix ComposeMix(const IngredientTable &ingredients, ElementTable &elements, double celsius) {
  Mix mix;
  double volume = 0;
  std::array<double, MaxElements + 1> total{};
  for (int i = 1; i <= ingredients.IngredientCount; ++i) {
    const IngredientRow &row = ingredients.Row[i];
    mix.TotalWeight += row.Weight;
    mix.Enthalpy += row.Weight * row.HeatOfFormation;
    if (row.Density > 0) volume += row.Weight / row.Density;
    if (row.MolecularWeight > 0)
      for (int e = 1; e <= elements.ElementCount; ++e)
        total[e] += Atoms(row, elements.AtomicNumber[e]) * row.Weight / row.MolecularWeight;
  }
  for (int e = 1; e <= elements.ElementCount; ++e) elements.ElementTotal[e] = static_cast<float>(total[e]);
  if (volume > 0) mix.Density = mix.TotalWeight / volume;
  mix.DensityGcc = mix.Density * GramsPerCc;
  mix.Temperature = static_cast<int>(RoundEven(celsius + Celsius0));
  const double t = mix.Temperature;
  mix.Enthalpy += HeatFactor *
                  (HeatCapacity[0] * (t - Reference) + HeatCapacity[1] / 2 * (t * t - Reference * Reference) +
                   HeatCapacity[2] / 3 * (t * t * t - Reference * Reference * Reference));
  return mix;
}
