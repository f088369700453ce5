#pragma once
#include "base/whole_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

struct JourneyScript {
  std::string Path, Text;
};

// Of tests/scripts, each with its table beside it.
inline std::vector<JourneyScript> JourneyScripts() {
  std::vector<JourneyScript> all;
  for (const auto &file : std::filesystem::directory_iterator(TEST_SOURCE "/tests/scripts")) {
    if (file.path().extension() != ".txt") continue;
    JourneyScript script{file.path().string(), ""};
    EXPECT_EQ(ReadWhole(script.Path, script.Text), "");
    all.push_back(std::move(script));
  }
  EXPECT_GT(all.size(), 9u);
  return all;
}
