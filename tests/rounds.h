#pragma once
#include <cstdint>
#include <cstdlib>

// Random tests: rounds are multiplied when MORVANDEL_LONG is set, and MORVANDEL_SEED chooses another stream.
inline int Rounds() { return std::getenv("MORVANDEL_LONG") ? 50 : 1; }
inline std::uint64_t Seed() {
  const char *seed = std::getenv("MORVANDEL_SEED");
  return seed ? std::strtoull(seed, nullptr, 10) : 20240517;
}
