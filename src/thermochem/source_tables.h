#pragma once
#include "thermochem/data_records.h"

#include <string>
#include <string_view>
#include <vector>

// The source tables, CSV files that a person edits, and what they become.
//
// The first line that is neither blank nor begins with # names the columns; their order is free and columns
// that are not known are passed over. A field may stand in double quotes.
//
// Ingredients: name, formula ("C:4 H:6", whole counts of 1 to 999, six elements at most), hf_cal_per_g (kept
// to five characters), density_lb_in3 or density_g_cc (one of the two; kept to six characters);
// formula_weight (g/mol, held against the formula) and confidence (A, B or C) may be left empty. Species:
// name, formula (seven elements at most), phase (gas or condensed; all gases first), and of each of the
// ranges r1 and r2 the limits r1_Tlo, r1_Thi (K) and r1_c1 to r1_c8.
//
// Each returns an empty text when all went well, else one sentence that names the table, the line and the
// column.
std::string ReadIngredientTable(std::string_view text, const std::string &name,
                                std::vector<IngredientFields> &);
std::string ReadSpeciesTable(std::string_view text, const std::string &name, std::vector<SpeciesRecord> &);

// The bytes of the two data files: fillers before the first ingredient, the count before the first species.
std::string IngredientFileBytes(const std::vector<IngredientFields> &);
std::string SpeciesFileBytes(const std::vector<SpeciesRecord> &);

// A number as at most `width` characters, as many digits as fit; empty when it cannot be held.
std::string FittedNumber(double, std::size_t width);
