#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// The records of the two data files. A file is records of one length, one behind the other; records count
// from 1.

constexpr std::size_t IngredientBytes = 83, SpeciesBytes = 152;
constexpr int FirstIngredient = 30; // records before it are never an ingredient
constexpr int CompositionFields = 6, SpeciesPairs = 7;

// A record of pepcoded.daf: text throughout.
struct IngredientRecord {
  std::string Lead;       // 3, not used
  std::string Group;      // 5, not used
  std::string Confidence; // 1: how far the heat of formation is to be trusted, A, B or C; nothing is worked
                          // out from it
  std::string Name;       // 30
  std::array<std::string, CompositionFields> Composition; // 5 each: atoms in 3, symbol in 2
  std::string Heat;                                       // 5: heat of formation, cal/g
  std::string Density;                                    // 6: lb/cu-in
  std::string Tail;                                       // 3, not used
};

struct SpeciesElement {
  int Number = 0; // atomic number; 0 ends the list
  float Atoms = 0;
};
struct FitRange {
  std::array<float, 8> C{};
  float Low = 0, High = 0; // K
};

// A record of jannaf.daf from 2 on: binary, little-endian.
struct SpeciesRecord {
  std::int32_t Mark = 0; // 1: a gas
  std::string Name;      // 8
  std::int32_t Spare = 0;
  std::array<SpeciesElement, SpeciesPairs> Pair{};
  std::array<FitRange, 2> Range{};
};

// Texts are cut or filled with blanks to their field's length.
std::string WriteIngredient(const IngredientRecord &);
// Atom counts are written as integers.
std::string WriteSpecies(const SpeciesRecord &);
std::string WriteSpeciesCount(std::int32_t lastRecord); // record 1

// `bytes` holds the record; fields lose the blanks behind them (composition fields keep all five characters).
IngredientRecord ReadIngredient(std::string_view bytes);
// Pairs may be integers or 32-bit floats.
SpeciesRecord ReadSpecies(std::string_view bytes);
std::int32_t ReadSpeciesCount(std::string_view bytes);

std::string_view Trimmed(std::string_view); // without the blanks at both ends
