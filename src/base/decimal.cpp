#include "base/decimal.h"

#include "base/fault.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>

namespace {

__extension__ typedef unsigned __int128 U128;

// 10^p = Mantissa * 2^Exponent, the mantissa cut to 64 bits, its top bit set.
struct PowerOfTen {
  std::uint64_t Mantissa;
  int Exponent;
};
constexpr int LeastPower = -310, GreatestPower = 340;

constexpr auto PowersOfTen = [] {
  std::array<PowerOfTen, GreatestPower - LeastPower + 1> table{};
  const auto keep = [&](int p, U128 mantissa, int exponent) {
    table[p - LeastPower] = {static_cast<std::uint64_t>(mantissa >> 64), exponent + 64};
  };
  constexpr U128 top = U128{1} << 127;
  U128 mantissa = top;
  int exponent = -127;
  for (int p = 0; p <= GreatestPower; ++p) {
    keep(p, mantissa, exponent);
    const U128 more = mantissa + mantissa / 4; // times 10 is times 5/4 and 2^3
    const bool wrapped = more < mantissa;
    mantissa = wrapped ? mantissa / 2 + mantissa / 8 : more;
    exponent += wrapped ? 4 : 3;
  }
  mantissa = top;
  exponent = -127;
  for (int p = -1; p >= LeastPower; --p) {
    mantissa -= mantissa / 5;
    exponent -= 3;
    if (mantissa < top) {
      mantissa *= 2;
      --exponent;
    }
    keep(p, mantissa, exponent);
  }
  return table;
}();

constexpr std::uint64_t WholePower(int p) { return p == 0 ? 1 : 10 * WholePower(p - 1); }

// mantissa * 2^exponent * 10^power as a whole number and a fraction in units of 2^-64. Never above the true
// value, and below it by less than 2^-63 of it.
struct Scaled {
  std::uint64_t Whole, Part;
};
Scaled Scale(std::uint64_t mantissa, int exponent, int power) {
  const PowerOfTen &ten = PowersOfTen[power - LeastPower];
  const U128 product = static_cast<U128>(mantissa) * ten.Mantissa;
  const int drop = -(exponent + ten.Exponent) - 64;
  const auto high = static_cast<std::uint64_t>(product >> 64), low = static_cast<std::uint64_t>(product);
  return {high >> drop, high << (64 - drop) | low >> drop};
}

template <int Count>
Decimal Shortened(double value) {
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const int field = static_cast<int>(bits >> 52 & 0x7ff);
  if (field == 0x7ff) throw Fault{6, "Overflow"};
  std::uint64_t mantissa = bits & 0xfffffffffffffu;
  if (field == 0 && mantissa == 0) return {};
  if (field != 0) mantissa |= 1ull << 52;
  const int zeros = std::countl_zero(mantissa);
  mantissa <<= zeros;
  const int exponent = (field != 0 ? field : 1) - 1075 - zeros;

  int tens = (exponent + 63) * 78913 >> 18; // the power of ten at or below the highest bit
  Scaled scaled = Scale(mantissa, exponent, Count - 1 - tens);
  if (scaled.Whole >= WholePower(Count)) {
    ++tens;
    scaled = Scale(mantissa, exponent, Count - 1 - tens);
  }
  // The error is below 2^52 units of the fraction: within twice that of a half only the exact road can tell.
  constexpr std::uint64_t half = 1ull << 63, margin = 1ull << 53;
  if (scaled.Part - (half - margin) < 2 * margin) return ExactDecimalOf(value, Count);
  std::uint64_t digits = scaled.Whole + (scaled.Part >> 63);
  if (digits == WholePower(Count)) {
    digits = WholePower(Count - 1);
    ++tens;
  }
  return {digits, tens, (bits >> 63) != 0};
}

} // namespace

Decimal DecimalOf(double value) { return Shortened<DoubleDigits>(value); }
Decimal DecimalOf(float value) { return Shortened<FloatDigits>(static_cast<double>(value)); }

Decimal ExactDecimalOf(double value, int digits) {
  if (!std::isfinite(value)) throw Fault{6, "Overflow"};
  if (value == 0) return {};
  char text[40];
  const auto end =
      std::to_chars(text, text + sizeof text, std::fabs(value), std::chars_format::scientific, digits - 1)
          .ptr;
  Decimal made{0, 0, value < 0};
  const char *at = text;
  for (; *at != 'e'; ++at)
    if (*at != '.') made.Digits = made.Digits * 10 + static_cast<std::uint64_t>(*at - '0');
  ++at;
  if (*at == '+') ++at;
  std::from_chars(at, end, made.Exponent);
  return made;
}

char *WriteDigits15(char *to, std::uint64_t digits) {
  static constexpr auto pairs = [] {
    std::array<char, 200> table{};
    for (int i = 0; i < 100; ++i) {
      table[2 * i] = static_cast<char>('0' + i / 10);
      table[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return table;
  }();
  const auto put = [](char *at, std::uint32_t four) {
    std::memcpy(at, &pairs[2 * (four / 100)], 2);
    std::memcpy(at + 2, &pairs[2 * (four % 100)], 2);
  };
  const auto high = static_cast<std::uint32_t>(digits / 100000000),
             low = static_cast<std::uint32_t>(digits % 100000000);
  const std::uint32_t first = high / 10000; // three digits
  to[0] = static_cast<char>('0' + first / 100);
  std::memcpy(to + 1, &pairs[2 * (first % 100)], 2);
  put(to + 3, high % 10000);
  put(to + 7, low / 10000);
  put(to + 11, low % 10000);
  return to + 15;
}
