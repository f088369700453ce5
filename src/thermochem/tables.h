#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <vector>

// Slot 0 of every table is not used, so that slots are the numbers that the reports print.
inline constexpr int MaxElements = 12, MaxSpecies = 400, MaxIngredients = 10, MaxCases = 15;
inline constexpr int FillerRecords = 29; // list position p is record p + FillerRecords

inline constexpr double GasCalories = 1.9871;  // cal/mol/K
inline constexpr double GasLitreAtm = 0.08205; // l atm/mol/K

// One ingredient as its record tells it.
struct IngredientRecord {
  std::string Name;                    // without trailing blanks
  std::array<int, 6> Count{};          // a zero ends the formula
  std::array<std::string, 6> Symbol{}; // as written, any case
  double HeatOfFormation = 0;          // cal/g
  double Density = 0;                  // lb/cu-in
  std::string Confidence;              // in the heat: A, B, C (estimated) or nothing
};

// One species as its record tells it: two ranges of fit constants, c1..c8 in [0]..[7].
struct SpeciesRecord {
  std::string Name;      // 8 characters at most, without trailing blanks
  std::int32_t Mark = 0; // 1 on gases
  std::array<std::int32_t, 7> AtomicNumber{}, Atoms{};
  std::array<std::array<float, 8>, 2> C{};
  std::array<float, 2> Lo{}, Hi{}; // kelvin
};

// Both data files, read whole.
struct DataFiles {
  std::vector<IngredientRecord> Ingredient; // [0] is list position 1
  std::vector<SpeciesRecord> Species;       // [0] is record 2; all gases first
  std::vector<int> SpeciesNumber;           // record number of each
};

struct ElementTable { // ascending atomic number
  int ElementCount = 0;
  std::array<std::string, MaxElements + 1> Symbol{};
  std::array<std::int16_t, MaxElements + 1> AtomicNumber{};
  std::array<float, MaxElements + 1> ElementTotal{}; // gram atoms in the mix
};

using ElementRow = std::array<float, MaxElements + 1>;

struct SpeciesTable {
  int SpeciesCount = 0, GasCount = 0; // gases are 1..GasCount
  std::array<std::string, MaxSpecies + 1> Name{};
  std::array<ElementRow, MaxSpecies + 1> AtomMatrix{};                 // atoms of an element in a species
  std::array<std::array<std::array<float, 8>, 2>, MaxSpecies + 1> C{}; // by species, range
  std::array<std::array<float, 2>, MaxSpecies + 1> Lo{}, Hi{};         // kelvin
  std::array<float, MaxSpecies + 1> MolecularWeight{};                 // g/mol
};

struct IngredientRow {
  int CodeNumber = 0; // record number
  std::string Name;
  std::array<std::int16_t, 6> Count{}, AtomicNumber{};
  std::array<std::string, 6> Symbol{};
  double HeatOfFormation = 0; // cal/g
  double Density = 0;         // lb/cu-in, 1e-05 at least
  float MolecularWeight = 0;
  double Weight = 0; // g
};

struct IngredientTable {
  int IngredientCount = 0;
  std::array<IngredientRow, MaxIngredients + 1> Row{};
};

// The propellant of a case.
struct Mix {
  double TotalWeight = 0; // g
  double Density = 0;     // lb/cu-in
  double DensityGcc = 0;  // g/cc
  double Enthalpy = 0;    // cal, at the propellant's temperature
  int Temperature = 298;  // K
};
