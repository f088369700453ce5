#pragma once
#include "macros/mac_file.h"
#include "same_rows.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

// Bit for bit, by what a type uses; empty when all rows are the same.
inline std::string Difference(const std::vector<Entity> &a, const std::vector<Entity> &b) {
  const auto values = [](const Entity &e) -> std::vector<double> {
    if (e.EntType == LineType) return {e.X1, e.Y1, e.X2, e.Y2, e.Slope, e.Intercept};
    if (e.EntType == CircleType) return {e.CenterX, e.CenterY, e.Radius};
    return {e.CenterX, e.CenterY, e.Radius, e.StartAngle, e.EndAngle, e.X1, e.Y1, e.X2, e.Y2};
  };
  if (a.size() != b.size()) return std::to_string(a.size()) + " rows against " + std::to_string(b.size());
  for (std::size_t i = 0; i < a.size(); ++i)
    if (a[i].EntType != b[i].EntType || values(a[i]) != values(b[i]))
      return "row " + std::to_string(i) + ": " + testing::PrintToString(values(a[i])) + " against " +
             testing::PrintToString(values(b[i]));
  return {};
}

inline std::string LogText(const std::vector<Instruction> &log) {
  std::string text;
  for (std::size_t i = 0; i < log.size(); ++i)
    text += std::to_string(i) + ": " + std::to_string(log[i].PointArea) + " " +
            std::to_string(log[i].Value1) + " " + std::to_string(log[i].Value2) + " " +
            std::to_string(log[i].Value3) + " \"" + log[i].Value4 + "\"\n";
  return text;
}
