#pragma once
#include <cstdint>

double RoundEven(double);      // to a whole number, halves to even
long long RoundInt(double);    // the same as an integer; Fault 6 "Overflow" past 64 bits
std::int16_t Narrow16(double); // rounded, halves to even; Fault 6 out of -32768..32767
float NarrowFloat(double);     // nearest 32-bit float; Fault 6 when it is not finite
// Nearest multiple of the spacing, the quotient half to even; the value itself at spacing 0.
double GridSnap(double value, double spacing);
