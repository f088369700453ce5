#include "base/numeral.h"

#include <charconv>

namespace {

constexpr std::size_t LongestNumeral = 400;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsExponentMark(char c) { return c == 'E' || c == 'e' || c == 'D' || c == 'd'; }

// Whether an unsigned numeral that no float can hold is too small, not too large.
bool TooSmall(std::string_view numeral) {
  const std::size_t mark = numeral.find('e');
  int power = 0;
  if (mark != numeral.npos) {
    std::string_view exponent = numeral.substr(mark + 1);
    const bool negative = exponent.front() == '-';
    if (negative || exponent.front() == '+') exponent.remove_prefix(1);
    for (char c : exponent)
      if (power < 100000) power = power * 10 + (c - '0');
    if (negative) power = -power;
  }
  const std::string_view digits = numeral.substr(0, mark);
  const std::size_t point = digits.find('.'), first = digits.find_first_of("123456789");
  const std::size_t units = point == digits.npos ? digits.size() : point;
  return power + static_cast<int>(units) - static_cast<int>(first) < 0;
}

template <class Number>
bool ValueOf(std::string_view numeral, Number &value) {
  if (numeral.empty() || numeral.size() > LongestNumeral) return false;
  char text[LongestNumeral];
  char *end = text;
  const bool negative = numeral.front() == '-';
  if (negative || numeral.front() == '+') numeral.remove_prefix(1);
  for (char c : numeral) *end++ = IsExponentMark(c) ? 'e' : c;
  Number read = 0;
  const auto [stop, error] = std::from_chars(text, end, read);
  if (error == std::errc::result_out_of_range) {
    if (!TooSmall({text, static_cast<std::size_t>(end - text)})) return false;
    read = 0;
  } else if (error != std::errc{} || stop != end) {
    return false;
  }
  value = negative ? -read : read;
  return true;
}

} // namespace

std::size_t NumeralLength(std::string_view text) {
  std::size_t at = 0, digits = 0;
  const auto walk = [&] {
    const std::size_t from = at;
    while (at < text.size() && IsDigit(text[at])) ++at;
    return at - from;
  };
  if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
  digits = walk();
  if (at < text.size() && text[at] == '.') {
    ++at;
    digits += walk();
  }
  if (digits == 0) return 0;
  const std::size_t mantissa = at;
  if (at < text.size() && IsExponentMark(text[at])) {
    ++at;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
    if (walk() == 0) return mantissa;
  }
  return at;
}

bool NumeralValue(std::string_view numeral, double &value) { return ValueOf(numeral, value); }
bool NumeralValue(std::string_view numeral, float &value) { return ValueOf(numeral, value); }
