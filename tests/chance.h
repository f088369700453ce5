#pragma once
#include <random>
#include <vector>

struct Chance {
  std::mt19937 Source;
  int Below(int n) { return static_cast<int>(Source() % static_cast<unsigned>(n)); }
  template <class T>
  const T &Of(const std::vector<T> &choice) {
    return choice[static_cast<std::size_t>(Below(static_cast<int>(choice.size())))];
  }
};
