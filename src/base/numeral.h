#pragma once
#include <cstddef>
#include <string_view>

// A numeral: sign, digits with at most one point, exponent behind E or D; at least one digit before the
// exponent.
std::size_t NumeralLength(std::string_view); // of the longest numeral the text begins with, else 0
bool NumeralValue(std::string_view,
                  double &); // false at an overflow or more than 400 characters; an underflow is 0
bool NumeralValue(std::string_view, float &);
