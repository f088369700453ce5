#pragma once
#include <cstdint>

// A finite number as its first 15 (of a float: 7) significant decimal digits, correctly rounded, exact ties
// of the binary value to even. Value = Digits * 10^(Exponent - 14), or - 6; Digits is 0 or has just that many
// digits.
struct Decimal {
  std::uint64_t Digits = 0;
  int Exponent = 0;
  bool Negative = false; // never for 0
};
constexpr int DoubleDigits = 15, FloatDigits = 7;
Decimal DecimalOf(double); // Fault 6 when the value is not finite
Decimal DecimalOf(float);
Decimal ExactDecimalOf(double, int digits); // the slow road, by std::to_chars alone; digits 2 to 17

char *WriteDigits15(char *to, std::uint64_t digits); // 15 digits, leading zeros shown
