#pragma once
#include "drafting/drafting.h"

#include <optional>
#include <string>

// X_Input and Y_Input: what they mean to the running command, and what is typed there.

enum class FieldUse : std::uint8_t {
  None,
  Position, // X and Y of the next point
  Polar,    // length, and angle in degrees, from the last point
  Size,     // width and height from the last point
  Diameter, // diameter, or radius, of a circle about the last point
  Value     // values of the command itself, no position
};
FieldUse FieldsOf(const Drafting &);

// The position that the fields tell; an empty field, and one that is no number, follows the pointer.
Point FieldPoint(const Drafting &, Point pointer);

// The number, or formula, typed in it. None: it is none, or beyond MostLength, which was told.
std::optional<double> FieldNumber(Drafting &, Ctl field);

// What stands in a value's field before anything is typed.
std::string OfferedValue(const Drafting &);

void FieldText(Drafting &, const Event &);
// Enter, Tab and Escape in a field. Enter in X_Input: the command's own value, else on to Y_Input; Enter in
// Y_Input: the point, as a click of RefType 7.
void FieldKey(Drafting &, const Event &);
void LogTypedPoint(Drafting &, Point); // 147, or 201 and 202 when the fields are no coordinates
void RefreshFields(Drafting &);        // labels, what is visible, height of End_Frame; texts of no use go
