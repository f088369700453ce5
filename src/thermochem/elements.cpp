#include "thermochem/elements.h"

#include <array>

namespace {

constexpr std::array<std::string_view, NamedElements> Symbols = {
    "H",  "He", "Li", "Be", "B",  "C",  "N",  "O",  "F",  "Ne", "Na", "Mg", "Al", "Si", "P",  "S",  "Cl",
    "Ar", "K",  "Ca", "Sc", "Ti", "V",  "Cr", "Mn", "Fe", "Co", "Ni", "Cu", "Zn", "Ga", "Ge", "As", "Se",
    "Br", "Kr", "Rb", "Sr", "Y",  "Zr", "Nb", "Mo", "Tc", "Ru", "Rh", "Pd", "Ag", "Cd", "In", "Sn"};

constexpr std::array<float, WeightedElements> Weights = {
    1.008F,  4.003F,  6.94F,   9.013F,  10.82F,  12.011F, 14.008F, 16.0F,   19.0F,   20.183F,
    22.991F, 24.32F,  26.98F,  28.09F,  30.975F, 32.066F, 35.457F, 39.944F, 39.1F,   40.08F,
    44.96F,  47.9F,   50.95F,  52.01F,  54.94F,  55.85F,  58.94F,  58.71F,  63.54F,  65.38F,
    69.72F,  72.6F,   74.92F,  78.96F,  79.916F, 83.8F,   85.48F,  87.63F,  88.91F,  91.22F,
    92.91F,  95.95F,  99.0F,   101.1F,  102.91F, 106.4F,  107.88F, 112.41F, 114.82F, 118.7F,
    121.76F, 127.61F, 126.91F, 131.3F,  132.91F, 137.36F, 138.92F, 140.13F, 140.91F, 144.27F,
    147.0F,  150.35F, 152.0F,  157.26F, 158.93F, 162.51F, 164.94F, 167.27F, 168.94F, 173.04F,
    174.99F, 178.5F,  180.95F, 183.86F, 186.22F, 190.2F,  192.2F,  195.09F, 197.0F,  220.61F,
    204.39F, 207.21F, 208.99F, 210.0F,  210.0F,  222.0F,  2.014F,  226.0F,  92.906F, 232.0F,
    231.0F,  238.0F,  237.0F,  237.0F,  12.011F, 9.013F,  10.82F,  24.32F,  26.98F,  253.0F};

char Capital(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool SameSymbol(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (Capital(a[i]) != Capital(b[i])) return false;
  return true;
}

} // namespace

int ElementOf(std::string_view symbol) {
  while (!symbol.empty() && symbol.front() == ' ') symbol.remove_prefix(1);
  while (!symbol.empty() && symbol.back() == ' ') symbol.remove_suffix(1);
  for (int number = 1; number <= NamedElements; ++number)
    if (SameSymbol(symbol, ElementSymbol(number))) return number;
  return 0;
}

std::string_view ElementSymbol(int number) {
  return number >= 1 && number <= NamedElements ? Symbols[number - 1] : std::string_view();
}

float AtomicWeight(int number) { return number >= 1 && number <= WeightedElements ? Weights[number - 1] : 0; }
