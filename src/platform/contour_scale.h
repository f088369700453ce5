#pragma once
#include <cstdint>

std::uint32_t Viridis(double part); // dark violet, teal, yellow over 0..1; red in the low byte
