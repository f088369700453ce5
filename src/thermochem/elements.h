#pragma once
#include <string_view>

constexpr int NamedElements = 50;     // by symbol: up to tin
constexpr int WeightedElements = 100; // by atomic weight

// Atomic number of a symbol, blind to case and to blanks around it; 0 when it is none of the first 50.
int ElementOf(std::string_view symbol);
std::string_view ElementSymbol(int number); // empty past the first 50
// g/mol, of atomic numbers 1 to 100, 0 outside. Slots 80 and from 87 on are not all their element's; no
// ingredient reaches them.
float AtomicWeight(int number);
