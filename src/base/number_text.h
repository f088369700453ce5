#pragma once
#include <string>
#include <string_view>

// Longest numeric prefix, else 0. Blanks, tabs and line ends are skipped everywhere; D reads as E;
// no hexadecimal, no inf, no nan; an overflow counts as no number.
double Val(std::string_view);

// The file form: 15 (7) significant digits, no zero before the point, exponent form when more than 15 (7)
// decimal places would be needed. Fault when the value is not finite.
std::string NumberText(double);
std::string NumberText(float);
// The same into a buffer of at least 32 bytes; the end of the text. Nothing is allocated.
char *WriteNumber(char *to, double);
char *WriteNumber(char *to, float);

// The screen form: as the file form, but the zero before the point stays.
std::string PlainText(double);
std::string PlainText(float);

// Masks "0.000", "#####.##", "##,##0", "0.0%", "0.00E+00", "0.##", ...: ties go away from zero and are judged
// on the 15-digit decimal (a float goes through its 7 digits); no minus when only zeros show.
std::string FormatMask(double, std::string_view mask);
std::string FormatMask(float, std::string_view mask);

double RoundPlaces(double, int places); // half to even, judged on the decimal text
int ColourOf(float stored); // RGB integer of a stored colour, clamped to 0..16777215 (red in the low byte)
