#include "dxf/dxf_units.h"

namespace {
constexpr LengthUnit All[] = {{1, "inches", "in", 25.4},
                              {2, "feet", "ft", 304.8},
                              {3, "miles", "mi", 1609344},
                              {4, "millimetres", "mm", 1},
                              {5, "centimetres", "cm", 10},
                              {6, "metres", "m", 1000},
                              {7, "kilometres", "km", 1e6},
                              {8, "microinches", "uin", 25.4e-6},
                              {9, "mils", "mil", 0.0254},
                              {10, "yards", "yd", 914.4},
                              {11, "angstroms", "A", 1e-7},
                              {12, "nanometres", "nm", 1e-6},
                              {13, "micrometres", "um", 1e-3},
                              {14, "decimetres", "dm", 100},
                              {15, "decametres", "dam", 1e4},
                              {16, "hectometres", "hm", 1e5},
                              {17, "gigametres", "Gm", 1e12},
                              {18, "astronomical units", "au", 149597870700e3},
                              {19, "light years", "ly", 9460730472580800e3},
                              {20, "parsecs", "pc", 3.0856775814913673e19},
                              {21, "US survey feet", "ftUS", 1200e3 / 3937},
                              {22, "US survey inches", "inUS", 1e5 / 3937},
                              {23, "US survey yards", "ydUS", 3600e3 / 3937},
                              {24, "US survey miles", "miUS", 1200e3 / 3937 * 5280}};
} // namespace

std::optional<LengthUnit> UnitOf(int code) {
  for (const LengthUnit &unit : All)
    if (unit.Code == code) return unit;
  return std::nullopt;
}

std::optional<LengthUnit> UnitOf(std::string_view shortName) {
  for (const LengthUnit &unit : All)
    if (shortName == unit.Short) return unit;
  return std::nullopt;
}
