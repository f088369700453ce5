#include "base/decimal.h"
#include "base/number_text.h"

#include <algorithm>
#include <cstdlib>

namespace {

// What a mask asks for.
struct Mask {
  int LeastUnits = 0; // places before the point that are shown even when zero
  int MostUnits = 0;  // only an exponent form looks at it
  int LeastPlaces = 0, MostPlaces = 0;
  bool Point = false, Thousands = false, Percent = false, Exponent = false;
  bool PlusInExponent = false;
  int ExponentDigits = 0;
};

Mask ReadMask(std::string_view text) {
  Mask mask;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '.') {
      mask.Point = true;
    } else if (c == ',') {
      mask.Thousands = true;
    } else if (c == '%') {
      mask.Percent = true;
    } else if (c == 'E') {
      mask.Exponent = true;
      mask.PlusInExponent = i + 1 < text.size() && text[i + 1] == '+';
      mask.ExponentDigits =
          static_cast<int>(std::count(text.begin() + static_cast<std::ptrdiff_t>(i), text.end(), '0'));
      break;
    } else if (mask.Point) {
      ++mask.MostPlaces;
      if (c == '0') mask.LeastPlaces = mask.MostPlaces;
    } else {
      ++mask.MostUnits;
      if (c == '0' || mask.LeastUnits > 0) ++mask.LeastUnits;
    }
  }
  return mask;
}

// Digits d[0], d[1], ... with the point before d[Point]; Point may be below 0 or past the end.
struct DigitRow {
  std::string Digit;
  int Point = 0;
};

DigitRow RowOf(const Decimal &number, int digits) {
  char text[15];
  WriteDigits15(text, number.Digits);
  if (number.Digits == 0) return {};
  return {std::string(text + 15 - digits, text + 15), number.Exponent + 1};
}

enum class Tie { Away, Even };

void RoundRow(DigitRow &row, int places, Tie tie) {
  const int keep = row.Point + places;
  if (keep >= static_cast<int>(row.Digit.size())) return;
  if (keep < 0) {
    row = {};
    return;
  }
  const char first = row.Digit[static_cast<std::size_t>(keep)];
  bool up = first >= '5';
  if (first == '5' && tie == Tie::Even) {
    const bool beyond =
        row.Digit.find_first_not_of('0', static_cast<std::size_t>(keep) + 1) != std::string::npos;
    up = beyond || (keep > 0 && (row.Digit[static_cast<std::size_t>(keep) - 1] - '0') % 2 == 1);
  }
  row.Digit.resize(static_cast<std::size_t>(keep));
  if (up) {
    int i = keep - 1;
    while (i >= 0 && row.Digit[static_cast<std::size_t>(i)] == '9')
      row.Digit[static_cast<std::size_t>(i--)] = '0';
    if (i >= 0) {
      ++row.Digit[static_cast<std::size_t>(i)];
    } else {
      row.Digit.insert(0, 1, '1');
      ++row.Point;
    }
  }
  if (row.Digit.find_first_not_of('0') == std::string::npos) row = {};
}

char DigitAt(const DigitRow &row, int i) { // i counts from the first digit of the row
  return i >= 0 && i < static_cast<int>(row.Digit.size()) ? row.Digit[static_cast<std::size_t>(i)] : '0';
}

std::string ShowRow(const DigitRow &row, const Mask &mask) {
  std::string units;
  const int shown = std::max({mask.LeastUnits, row.Point, 0});
  for (int i = 0; i < shown; ++i) {
    const int left = shown - i; // places still to come, this one included
    units += DigitAt(row, row.Point - left);
    if (mask.Thousands && left > 1 && left % 3 == 1) units += ',';
  }
  std::string places;
  for (int i = 0; i < mask.MostPlaces; ++i) places += DigitAt(row, row.Point + i);
  while (static_cast<int>(places.size()) > mask.LeastPlaces && places.back() == '0') places.pop_back();
  if (mask.Point) units += '.';
  return units + places;
}

std::string Show(const Decimal &number, int digits, std::string_view text) {
  const Mask mask = ReadMask(text);
  DigitRow row = RowOf(number, digits);
  if (mask.Percent && !row.Digit.empty()) row.Point += 2;
  std::string tail;
  if (mask.Exponent) {
    const int units = std::max(mask.MostUnits, 1);
    int power = row.Digit.empty() ? 0 : row.Point - units;
    if (!row.Digit.empty()) row.Point = units;
    RoundRow(row, mask.MostPlaces, Tie::Away);
    if (row.Point > units) {
      --row.Point;
      ++power;
    }
    std::string size = std::to_string(std::abs(power));
    while (static_cast<int>(size.size()) < mask.ExponentDigits) size.insert(0, 1, '0');
    tail = 'E';
    if (power < 0)
      tail += '-';
    else if (mask.PlusInExponent)
      tail += '+';
    tail += size;
  } else {
    RoundRow(row, mask.MostPlaces, Tie::Away);
  }
  if (mask.Percent) tail += '%';
  std::string shown;
  if (number.Negative && !row.Digit.empty()) shown = '-';
  return shown + ShowRow(row, mask) + tail;
}

} // namespace

std::string FormatMask(double value, std::string_view mask) {
  return Show(DecimalOf(value), DoubleDigits, mask);
}
std::string FormatMask(float value, std::string_view mask) {
  return Show(DecimalOf(value), FloatDigits, mask);
}

double RoundPlaces(double value, int places) {
  const Decimal number = DecimalOf(value);
  DigitRow row = RowOf(number, DoubleDigits);
  if (places >= DoubleDigits - row.Point) return value;
  RoundRow(row, places, Tie::Even);
  if (row.Digit.empty()) return 0;
  std::string text;
  if (number.Negative) text = '-';
  text += row.Digit;
  text += 'E';
  text += std::to_string(row.Point - static_cast<int>(row.Digit.size()));
  return Val(text);
}
