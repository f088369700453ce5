#include "base/rounding.h"

#include "base/fault.h"

#include <cmath>

namespace {
[[noreturn]] void Overflow() { throw Fault{6, "Overflow"}; }
} // namespace

double RoundEven(double x) {
  const double whole = std::round(x);
  return std::fabs(x - std::trunc(x)) == 0.5 ? 2 * std::round(x / 2) : whole;
}

long long RoundInt(double x) {
  const double whole = RoundEven(x);
  constexpr double limit = 9223372036854775808.0;
  if (!(whole >= -limit && whole < limit)) Overflow();
  return static_cast<long long>(whole);
}

std::int16_t Narrow16(double x) {
  const double whole = RoundEven(x);
  if (!(whole >= -32768 && whole <= 32767)) Overflow();
  return static_cast<std::int16_t>(whole);
}

float NarrowFloat(double x) {
  constexpr double limit =
      0x1.ffffffp127; // half a step above the greatest float: from here the nearest is infinite
  if (!(std::fabs(x) < limit)) Overflow();
  return static_cast<float>(x);
}

double GridSnap(double value, double spacing) {
  return spacing == 0 ? value : RoundEven(value / spacing) * spacing;
}
