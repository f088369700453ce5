#pragma once
#include <string_view>

constexpr int NamedElements = 50;     // by symbol: up to tin
constexpr int WeightedElements = 100; // by atomic weight

// Atomic number of a symbol, blind to case and to blanks around it; 0 when it is none of the first 50.
int ElementOf(std::string_view symbol);
std::string_view ElementSymbol(int number); // empty past the first 50
// Grams per mole of atoms, of atomic numbers 1 to 100. Slots 80 and 87 to 99 do not hold the elements of
// those numbers; no ingredient reaches them.
float AtomicWeight(int number);
