#include "base/whole_file.h"
#include "thermochem/source_tables.h"

#include <fmt/format.h>

// Makes pepcoded.daf and jannaf.daf from ingredients.csv and species.csv.
int main(int argc, char **argv) {
  if (argc != 3) {
    fmt::print(stderr, "usage: morvandel-data SOURCE_FOLDER TARGET_FOLDER\n"
                       "  compiles SOURCE_FOLDER/ingredients.csv and species.csv into\n"
                       "  TARGET_FOLDER/pepcoded.daf and jannaf.daf\n");
    return 2;
  }
  const std::string source = std::string(argv[1]) + "/", target = std::string(argv[2]) + "/";
  const std::string ingredientsPath = source + "ingredients.csv", speciesPath = source + "species.csv";
  std::string ingredientText, speciesText;
  std::vector<IngredientFields> ingredients;
  std::vector<SpeciesRecord> species;
  std::string trouble = ReadWhole(ingredientsPath, ingredientText);
  if (trouble.empty()) trouble = ReadWhole(speciesPath, speciesText);
  if (trouble.empty()) trouble = ReadIngredientTable(ingredientText, ingredientsPath, ingredients);
  if (trouble.empty()) trouble = ReadSpeciesTable(speciesText, speciesPath, species);
  if (trouble.empty()) trouble = WriteWhole(target + "pepcoded.daf", IngredientFileBytes(ingredients));
  if (trouble.empty()) trouble = WriteWhole(target + "jannaf.daf", SpeciesFileBytes(species));
  if (trouble.empty()) return 0;
  fmt::print(stderr, "{}\n", trouble);
  return 2;
}
