#include "base/number_text.h"

#include "base/decimal.h"
#include "base/numeral.h"

#include <charconv>
#include <cstring>

namespace {

// Digits 15 wide whatever the type, as if a float's were followed by zeros; places: of the type.
char *WriteForm(char *to, const Decimal &number, int places, bool zeroBeforePoint) {
  if (number.Digits == 0) {
    *to = '0';
    return to + 1;
  }
  char digits[32] = {}; // copies below are of fixed length and run past the 15
  WriteDigits15(digits, number.Digits);
  int count = DoubleDigits;
  while (digits[count - 1] == '0') --count;
  const int exponent = number.Exponent;
  if (number.Negative) *to++ = '-';
  if (exponent >= 0 && exponent < places) {
    std::memcpy(to, digits, 15);
    const int units = exponent + 1;
    if (count <= units) return to + units;
    to[units] = '.';
    std::memcpy(to + units + 1, digits + units, 15);
    return to + count + 1;
  }
  if (exponent < 0 && count - 1 - exponent <= places) {
    if (zeroBeforePoint) *to++ = '0';
    *to++ = '.';
    std::memcpy(to, "000000000000000", 15);
    to += -exponent - 1;
    std::memcpy(to, digits, 15);
    return to + count;
  }
  *to++ = digits[0];
  if (count > 1) {
    *to = '.';
    std::memcpy(to + 1, digits + 1, 15);
    to += count;
  }
  *to++ = 'E';
  *to++ = exponent < 0 ? '-' : '+';
  const int size = exponent < 0 ? -exponent : exponent;
  if (size < 10) *to++ = '0';
  return std::to_chars(to, to + 4, size).ptr;
}

char *WriteAs(char *to, double value, bool zeroBeforePoint) {
  return WriteForm(to, DecimalOf(value), DoubleDigits, zeroBeforePoint);
}

char *WriteAs(char *to, float value, bool zeroBeforePoint) {
  Decimal number = DecimalOf(value);
  number.Digits *= 100000000;
  return WriteForm(to, number, FloatDigits, zeroBeforePoint);
}

template <class Number>
std::string Text(Number value, bool zeroBeforePoint) {
  char text[32];
  return {text, WriteAs(text, value, zeroBeforePoint)};
}

} // namespace

char *WriteNumber(char *to, double value) { return WriteAs(to, value, false); }
char *WriteNumber(char *to, float value) { return WriteAs(to, value, false); }
std::string NumberText(double value) { return Text(value, false); }
std::string NumberText(float value) { return Text(value, false); }
std::string PlainText(double value) { return Text(value, true); }
std::string PlainText(float value) { return Text(value, true); }

double Val(std::string_view text) {
  std::string packed;
  for (char c : text)
    if (c != ' ' && c != '\t' && c != '\r' && c != '\n') packed += c;
  double value = 0;
  const bool good = NumeralValue(std::string_view(packed).substr(0, NumeralLength(packed)), value);
  return good ? value + 0.0 : 0; // "-0" is 0
}

int ColourOf(float stored) {
  if (!(stored > 0)) return 0;
  return stored >= 16777215.0f ? 16777215 : static_cast<int>(stored + 0.5f);
}
