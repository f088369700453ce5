#pragma once
#include "thermochem/tables.h"

#include <string>
#include <string_view>
#include <vector>

// The list position of an ingredient by its name, blind to case and to surplus blanks; 0 when there is none.
int FindIngredient(const DataFiles &, std::string_view name);

// List positions of the ingredients that what was typed may mean, the likeliest first: by the begin of the
// name or of a word of it, a part of it, the first letters of its words, or a slip of a few letters. Of an
// empty text: all, as they stand.
std::vector<int> NearIngredients(const DataFiles &, std::string_view typed, std::size_t most);

// One sentence on a name that is not found, with the nearest ones.
std::string NoSuchIngredient(const DataFiles &, std::string_view name);

// "C3 H6 N6 O6", as the composition of a record counts.
std::string FormulaText(const IngredientRecord &);
