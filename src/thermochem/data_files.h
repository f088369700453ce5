#pragma once
#include "thermochem/data_records.h"

#include <string>
#include <vector>

// The two data files by their full paths.
struct DataPlaces {
  std::string Ingredients, Species; // pepcoded.daf, jannaf.daf
};
// Each from the first of the folders (with their last separator) that holds it; where none does, the path in
// the first folder.
DataPlaces FindDataFiles(const std::vector<std::string> &folders);

// Both files, read whole and judged record by record. An empty text when all went well, else one sentence
// that names file and record; the target is then as it was. Refused are: a file that cannot be read, is cut
// off, is too short or holds something else; texts that are no text; counts and numbers out of all range; a
// coefficient that is not finite.
std::string ReadDataFiles(const DataPlaces &, DataFiles &);

// Step by step, for a check that lists more than the first fault. The records as they stand, from record 1
// on.
std::string ReadIngredientFields(const std::string &path, std::vector<IngredientFields> &);
std::string ReadSpeciesRecords(const std::string &path, std::vector<SpeciesRecord> &); // from record 2 on
// One record's fault in words, or empty.
std::string IngredientFault(const IngredientFields &, IngredientRecord &);
std::string SpeciesFault(const SpeciesRecord &);
