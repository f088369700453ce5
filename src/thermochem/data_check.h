#pragma once
#include "thermochem/data_files.h"

#include <string>
#include <vector>

struct DataFault {
  int Record = 0; // from 1; 0: of the file as a whole
  std::string Name, Words;
};

struct DataCheck {
  int Ingredients = 0, Gases = 0, Condensed = 0;
  std::vector<DataFault> IngredientFaults, SpeciesFaults; // by record
};

// Both files, held against themselves, as far as they can be read:
// ingredients: names missing or doubled, formulas that break off, hold an unknown element or one that no
// species holds, heats and densities that are no numbers or out of range;
// species: names missing or doubled, a gas behind a condensed species, limits that do not rise, a cp below
// zero within the limits (from 298.15 K), ranges that do not meet: H by more than 0.01 kcal/mol, S by more
// than 0.01 cal/mol/K, cp by more than 30 % (a transition may make it jump), and joins apart by more than 1
// K.
DataCheck CheckData(const DataPlaces &);
