#pragma once
#include <cstdint>
#include <string>
#include <vector>

struct ChartSeries {
  std::string Name;
  std::uint32_t Fill = 0; // red in the low byte
  std::vector<float> Value;
  bool operator==(const ChartSeries &) const = default;
};

// Columns over steps 1..N: what a chart control shows. X is the step's burn distance in mm (or time in s).
struct Chart {
  std::string Title, XTitle, YTitle;
  bool Stacked = false;
  std::vector<float> X;
  std::vector<ChartSeries> Series;
  int CursorStep = 0;     // 0: none; else the step under the pointer, shown as a line
  std::string CursorText; // the value read there
  bool operator==(const Chart &) const = default;
};
