#include "platform/contour_scale.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {
std::uint32_t RedLow(std::uint32_t hex) { return (hex & 0xff) << 16 | (hex & 0xff00) | hex >> 16; }
} // namespace

std::uint32_t Viridis(double part) {
  constexpr std::array<std::uint32_t, 17> at{0x440154, 0x481769, 0x472A7A, 0x433D84, 0x3D4E8A, 0x355E8D,
                                             0x2E6D8E, 0x297B8E, 0x23898E, 0x1F978B, 0x21A585, 0x2EB37C,
                                             0x46C06F, 0x65CB5E, 0x89D548, 0xB0DD2F, 0xFDE725};
  if (!(part > 0)) return RedLow(at.front());
  const double place = std::min(part, 1.0) * (at.size() - 1);
  const auto low = std::min(static_cast<std::size_t>(place), at.size() - 2);
  const double rest = place - static_cast<double>(low);
  std::uint32_t colour = 0;
  for (const int shift : {16, 8, 0}) {
    const double a = at[low] >> shift & 0xff, b = at[low + 1] >> shift & 0xff;
    colour = colour << 8 | static_cast<std::uint32_t>(a + (b - a) * rest + 0.5);
  }
  return RedLow(colour);
}
