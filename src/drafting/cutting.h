#pragma once
#include "drafting/command_table.h"

// Commands that pick entities and solve: tangents, fillets, trims, breaks, the section cut. Each applies its
// solution with the rotation-draw images as one change; the multiple trim and break (64, 68) cut the picked
// entity alone. After a failure the picks before it stay, save that three lines and corners (25, 35, 58, 26,
// 36, 55..57) begin again.

bool StartFillet(Drafting &);  // 55, 56
bool StartChamfer(Drafting &); // 57

void ClickTangentPoint(Drafting &, Point); // 10
void ClickTangentLine(Drafting &, Point);  // 11, 12
void ClickCorner(Drafting &, Point);       // 26, 36, 55, 56, 57
void ClickThreeLines(Drafting &, Point);   // 25, 35, 58
void ClickTrim(Drafting &, Point);         // 60..63, 65..67
void ClickMulti(Drafting &, Point);        // 64, 68
void ClickSection(Drafting &, Point);      // 69

void BackFillet(Drafting &);                 // 55, 56: at depth the radius is asked again
void BackTypedRadius(Drafting &);            // 26, 36: a radius typed is forgotten
void TypedTangentRadius(Drafting &, double); // 26, 36
