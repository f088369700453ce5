#pragma once
#include "base/whole_file.h"
#include "scratch_folder.h"
#include "thermochem/data_files.h"
#include "thermochem/source_tables.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

// The shipped tables, and data files in a folder of a test's own.
struct Sources {
  std::vector<IngredientFields> Ingredients;
  std::vector<SpeciesRecord> Species;
};

inline Sources ReadSources() {
  Sources s;
  std::string text;
  EXPECT_EQ(ReadWhole(TEST_SOURCE "/data/ingredients.csv", text), "");
  EXPECT_EQ(ReadIngredientTable(text, "ingredients.csv", s.Ingredients), "");
  EXPECT_EQ(ReadWhole(TEST_SOURCE "/data/species.csv", text), "");
  EXPECT_EQ(ReadSpeciesTable(text, "species.csv", s.Species), "");
  return s;
}

struct OnDisk {
  ScratchFolder Folder;
  DataPlaces Places{Folder.Path + "pepcoded.daf", Folder.Path + "jannaf.daf"};
  void Write(const std::string &ingredients, const std::string &species) const {
    ASSERT_EQ(WriteWholeSoon(Places.Ingredients, ingredients), "");
    ASSERT_EQ(WriteWholeSoon(Places.Species, species), "");
  }
};

inline DataFiles Shipped() {
  const Sources s = ReadSources();
  OnDisk disk;
  disk.Write(IngredientFileBytes(s.Ingredients), SpeciesFileBytes(s.Species));
  DataFiles files;
  EXPECT_EQ(ReadDataFiles(disk.Places, files), "");
  return files;
}
