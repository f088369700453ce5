#pragma once
#include "base/whole_file.h"
#include "thermochem/data_files.h"
#include "thermochem/pep_run.h"
#include "thermochem/source_tables.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>
#include <vector>

// The data files as the build compiled them.
inline const DataFiles &ShippedFiles() {
  static const DataFiles files = [] {
    DataFiles read;
    EXPECT_EQ(ReadDataFiles(FindDataFiles({TEST_BIN "/"}), read), "");
    return read;
  }();
  return files;
}

using Weights = std::vector<std::pair<std::string, double>>;

inline PepInputs MixInputs(const Weights &mix, double low = 6.895, double high = 6.895, int cases = 1) {
  PepInputs in;
  for (const auto &[name, weight] : mix) {
    int found = 0;
    for (std::size_t k = 0; k < ShippedFiles().Ingredient.size(); ++k)
      if (ShippedFiles().Ingredient[k].Name == name) found = static_cast<int>(k) + 1;
    EXPECT_GT(found, 0) << name;
    in.Ingredient.push_back({found, weight});
  }
  in.LowerPressure = low;
  in.UpperPressure = high;
  in.CaseCount = cases;
  return in;
}

inline const Weights Metallised = {{"AMMONIUM PERCHLORATE", 68}, {"HTPB R-45M", 14}, {"ALUMINUM", 18}};
inline const Weights Sugar = {{"POTASSIUM NITRATE", 65}, {"SUCROSE", 35}};

// 1 to 10 ingredients of 0.1 to 100 g at 1 and 10 MPa.
inline PepInputs RandomMix(std::mt19937_64 &stream) {
  PepInputs in;
  const auto below = [&](std::size_t n) { return static_cast<int>(stream() % n); };
  for (int left = 1 + below(10); left > 0; --left)
    in.Ingredient.push_back({1 + below(ShippedFiles().Ingredient.size()), 1 + below(1000) / 10.0});
  in.LowerPressure = 1;
  in.CaseCount = 2;
  return in;
}
