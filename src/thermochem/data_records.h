#pragma once
#include "thermochem/tables.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// The records of the two data files. A file is records of one length, one behind the other; records count
// from 1.

inline constexpr std::size_t IngredientBytes = 83, SpeciesBytes = 152;
inline constexpr int CompositionFields = 6, SpeciesPairs = 7;

// A record of pepcoded.daf as it stands: text throughout, with its length.
struct IngredientFields {
  std::string Lead;       // 3, not used
  std::string Group;      // 5, not used
  std::string Confidence; // 1, in the heat of formation: A, B or C; nothing is worked out from it
  std::string Name;       // 30
  std::array<std::string, CompositionFields> Composition; // 5 each: atoms in 3, symbol in 2
  std::string Heat;                                       // 5, cal/g
  std::string Density;                                    // 6, lb/cu-in
  std::string Tail;                                       // 3, not used
};

// Texts are cut or filled with blanks to their field's length.
std::string WriteIngredient(const IngredientFields &);
// Atom counts are written as integers.
std::string WriteSpecies(const SpeciesRecord &);
std::string WriteSpeciesCount(std::int32_t lastRecord); // record 1

// `bytes` holds the record; fields lose the blanks behind them (composition fields keep all five characters).
IngredientFields ReadIngredient(std::string_view bytes);
// A record of jannaf.daf from 2 on. Pairs may be integers or 32-bit floats; -1 stands for what is no whole
// number.
SpeciesRecord ReadSpecies(std::string_view bytes);
std::int32_t ReadSpeciesCount(std::string_view bytes);

std::string_view Trimmed(std::string_view); // without the blanks at both ends
