// The source tables, the two data files made of them, and how these are read.
#include "rounds.h"
#include "thermochem/composition.h"
#include "thermochem/data_check.h"
#include "thermochem/shipped_data.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <set>

namespace {

TEST(Data, WhatIsCompiledIsReadBack) {
  const Sources s = ReadSources();
  const std::string ingredients = IngredientFileBytes(s.Ingredients), species = SpeciesFileBytes(s.Species);
  EXPECT_EQ(ingredients.substr(29 * 83, 83),
            "        AAMMONIUM PERCHLORATE            1N   4H   1Cl  4O           -602 .07045   ");
  ASSERT_EQ(species.size(), 556u * 152);
  const auto word = [&](std::size_t at) {
    std::int32_t value = 0;
    std::memcpy(&value, species.data() + at, 4);
    return value;
  };
  EXPECT_EQ(word(0), 556);
  const std::size_t water = 3 * 152; // record 4
  EXPECT_EQ(species.substr(water + 4, 8), "H2O     ");
  EXPECT_EQ(std::vector<std::int32_t>({word(water), word(water + 16), word(water + 20), word(water + 24),
                                       word(water + 28), word(water + 32)}),
            std::vector<std::int32_t>({1, 1, 2, 8, 1, 0}));

  OnDisk disk;
  disk.Write(ingredients, species);
  DataFiles files;
  ASSERT_EQ(ReadDataFiles(disk.Places, files), "");
  ASSERT_EQ(files.Ingredient.size(), s.Ingredients.size());
  ASSERT_EQ(files.Species.size(), s.Species.size());
  for (std::size_t i = 0; i < s.Species.size(); ++i) {
    EXPECT_EQ(files.Species[i].Name, s.Species[i].Name);
    EXPECT_EQ(files.Species[i].Mark, s.Species[i].Mark);
    EXPECT_EQ(files.Species[i].AtomicNumber, s.Species[i].AtomicNumber);
    EXPECT_EQ(files.Species[i].Atoms, s.Species[i].Atoms);
    EXPECT_EQ(files.Species[i].C, s.Species[i].C);
    EXPECT_EQ(files.Species[i].Lo, s.Species[i].Lo);
    EXPECT_EQ(files.Species[i].Hi, s.Species[i].Hi);
  }
  const DataCheck check = CheckData(disk.Places);
  EXPECT_EQ(check.IngredientFaults.size() + check.SpeciesFaults.size(), 0u);
  EXPECT_EQ(check.Gases, 295);

  std::string asFloats = species; // counts as 32-bit floats
  for (std::size_t r = 152; r < asFloats.size(); r += 152)
    for (std::size_t k = 16; k < 72; k += 4) {
      const float value = static_cast<float>(word(r + k));
      std::memcpy(asFloats.data() + r + k, &value, 4);
    }
  disk.Write(ingredients, asFloats);
  DataFiles same;
  ASSERT_EQ(ReadDataFiles(disk.Places, same), "");
  for (std::size_t i = 0; i < s.Species.size(); ++i) {
    EXPECT_EQ(same.Species[i].AtomicNumber, files.Species[i].AtomicNumber);
    EXPECT_EQ(same.Species[i].Atoms, files.Species[i].Atoms);
  }
}

TEST(Data, BadFilesAreRefusedByNameAndRecord) {
  const Sources s = ReadSources();
  const std::string ingredients = IngredientFileBytes(s.Ingredients), species = SpeciesFileBytes(s.Species);
  const auto with = [](std::string bytes, std::size_t at, std::string_view patch) {
    return bytes.replace(at, patch.size(), patch);
  };
  const std::string nan("\0\0\xC0\x7F", 4), huge("\xFF\xFF\xFF\x2F", 4), zero(4, '\0');
  const struct {
    std::string Ingredients, Species, Words;
  } table[] = {
      {"", species, "pepcoded.daf: holds 0 records"},
      {ingredients.substr(0, 29 * 83), species, "pepcoded.daf: holds 29 records"},
      {ingredients.substr(0, 45 * 83 + 7), species, "pepcoded.daf: record 46: cut off: 7 bytes"},
      {with(ingredients, 40 * 83 + 12, "\x01"), species, "pepcoded.daf: record 41: holds what is no text"},
      {with(ingredients, 40 * 83 + 39, "9E9C "), species, "pepcoded.daf: record 41: composition field 1"},
      {with(ingredients, 40 * 83 + 69, "1E300"), species, "pepcoded.daf: record 41: the heat of formation"},
      {ingredients, "", "jannaf.daf: holds 0 records"},
      {ingredients, "#!/bin/sh\n" + std::string(800, 'x'), "jannaf.daf: record 6: cut off"},
      {ingredients, std::string(152 * 9, 'x'), "jannaf.daf: record 1: tells"},
      {ingredients, with(species, 0, zero), "jannaf.daf: record 1: tells 0"},
      {ingredients, species.substr(0, 300 * 152),
       "jannaf.daf: record 1: tells 556 as the last record, but the file ends with record 300"},
      {ingredients, with(species, 3 * 152 + 72 + 8, nan),
       "jannaf.daf: record 4 (H2O): coefficient c3 of range 1 is not a finite number"},
      {ingredients, with(species, 3 * 152 + 148, nan), "jannaf.daf: record 4 (H2O): a temperature limit"},
      {ingredients, with(species, 3 * 152 + 16, huge), "jannaf.daf: record 4 (H2O): element 1"},
      {ingredients, with(species, 3 * 152 + 20, huge), "jannaf.daf: record 4 (H2O): element 1"},
  };
  for (const auto &t : table) {
    OnDisk disk;
    disk.Write(t.Ingredients, t.Species);
    DataFiles files;
    files.Ingredient.resize(3);
    EXPECT_NE(ReadDataFiles(disk.Places, files).find(t.Words), std::string::npos)
        << t.Words << " in " << ReadDataFiles(disk.Places, files);
    EXPECT_EQ(files.Ingredient.size(), 3u) << t.Words;
    const DataCheck check = CheckData(disk.Places);
    EXPECT_GT(check.IngredientFaults.size() + check.SpeciesFaults.size(), 0u) << t.Words;
  }
  OnDisk none;
  DataFiles files;
  EXPECT_NE(ReadDataFiles(none.Places, files).find("pepcoded.daf"), std::string::npos);
}

TEST(Data, AnyBytesAreReadOrRefused) {
  const Sources s = ReadSources();
  const std::string bytes[] = {IngredientFileBytes(s.Ingredients), SpeciesFileBytes(s.Species)};
  std::mt19937_64 random(Seed());
  const auto below = [&](std::size_t n) { return static_cast<std::size_t>(random() % n); };
  int refused = 0;
  for (int round = 0; round < 80 * Rounds(); ++round) {
    std::string file[] = {bytes[0], bytes[1]};
    std::string &hit = file[below(2)];
    for (std::size_t n = 1 + below(6); n > 0; --n) hit[below(hit.size())] = static_cast<char>(random());
    if (below(4) == 0) hit.resize(below(hit.size()));
    OnDisk disk;
    disk.Write(file[0], file[1]);
    CheckData(disk.Places);
    DataFiles files;
    if (!ReadDataFiles(disk.Places, files).empty()) {
      ++refused;
      continue;
    }
    PepInputs inputs;
    for (std::size_t n = 1 + below(12); n > 0; --n)
      inputs.Ingredient.push_back({static_cast<int>(below(210)), static_cast<double>(below(50))});
    IngredientTable ingredients;
    ElementTable elements;
    std::vector<std::string> messages;
    std::string trouble;
    SpeciesTable species;
    if (!ReadIngredients(inputs, files, ingredients, elements, messages, trouble)) {
      EXPECT_FALSE(trouble.empty());
      continue;
    }
    if (LoadSpecies(files, elements, species, messages, trouble)) ComposeMix(ingredients, elements, 25);
  }
  EXPECT_GT(refused, 0);
}

TEST(Data, SourceTablesTellWhatIsWrong) {
  const std::string head =
      "# comment\n\nname,formula,hf_cal_per_g,density_lb_in3,density_g_cc,formula_weight,"
      "confidence\n";
  std::vector<IngredientFields> made;
  EXPECT_EQ(ReadIngredientTable(head + "MY FUEL,C:7 H:12,-123.456,,1.05,96.173,C\r\n", "t", made), "");
  ASSERT_EQ(made.size(), 1u);
  EXPECT_EQ(WriteIngredient(made[0]),
            "        CMY FUEL                         7C  12H                     -123 .03793   ");
  const struct {
    const char *Line, *Words;
  } refused[] = {
      {"A,C:0,1,.05,,,", "line 4: formula"},
      {"A,C:1.5,1,.05,,,", "line 4: formula"},
      {"A,C:1000,1,.05,,,", "line 4: formula"},
      {"A,Xx:1,1,.05,,,", "line 4: formula"},
      {"A,C:1 C:2,1,.05,,,", "named twice"},
      {"A,,1,.05,,,", "expected 1 to 6 elements"},
      {"A,C:1,x,.05,,,", "hf_cal_per_g"},
      {"A,C:1,1,,,,", "density_g_cc"},
      {"A,C:1,1,-1,,,", "density_lb_in3"},
      {"A,C:1,1,.05,,13,", "12.0110 by the formula"},
      {",C:1,1,.05,,,", "name"},
      {"A,C:1,1,.05,,,\nA,C:1,1,.05,,,", "line 5: name"},
      {"A,C:1,123456,.05,,,", "does not fit"},
      {"A,C:1,1,.05,,,AB", "confidence"},
      {"A,C:1 H:1 O:1 N:1 S:1 K:1 Na:1,1,.05,,,", "found 7"},
      {"", "holds no ingredient"},
  };
  for (const auto &t : refused)
    EXPECT_NE(ReadIngredientTable(head + t.Line, "t", made).find(t.Words), std::string::npos)
        << t.Line << ": " << ReadIngredientTable(head + t.Line, "t", made);
}

TEST(Data, CheckFindsWhatWasSpoilt) {
  Sources s = ReadSources();
  s.Ingredients[4].Name = s.Ingredients[2].Name;
  s.Ingredients[5].Heat = "-12x";
  s.Ingredients[6].Composition[1] = "     ";
  s.Ingredients[7].Composition[0] = "  1Zz";
  s.Species[10].C[1][5] += 1;
  s.Species[20].Mark = 0;
  s.Species[30].Hi[0] = s.Species[30].Lo[0] - 1;
  s.Species[297].C[0][0] = -60;
  OnDisk disk;
  disk.Write(IngredientFileBytes(s.Ingredients), SpeciesFileBytes(s.Species));
  const DataCheck check = CheckData(disk.Places);
  const auto records = [](const std::vector<DataFault> &faults) {
    std::set<int> numbers;
    for (const DataFault &f : faults) numbers.insert(f.Record);
    return numbers;
  };
  EXPECT_EQ(records(check.IngredientFaults), std::set<int>({34, 35, 36, 37}));
  EXPECT_EQ(records(check.SpeciesFaults), std::set<int>({12, 22, 32, 299}));
}

} // namespace
