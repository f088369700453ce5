#pragma once
#include "drafting/command_table.h"

// Commands that pick entities and solve: tangents, fillets, trims, breaks, the section cut. Each applies its
// solution with the rotation-draw images as one change.

bool StartFillet(Drafting &);  // 55, 56
bool StartChamfer(Drafting &); // 57

void ClickTangentPoint(Drafting &, Point); // 10
void ClickTwo(Drafting &, Point);          // 11, 12, 26, 36, 55, 56, 57
void ClickThreeLines(Drafting &, Point);   // 25, 35, 58
void ClickTrim(Drafting &, Point);         // 60..63, 65..67
void ClickMulti(Drafting &, Point);        // 64, 68
void ClickSection(Drafting &, Point);      // 69

void BackPicks(Drafting &);                  // the last pick's mark goes; 25, 35, 26, 36, 10, 11, 12, 60..68
void BackFillet(Drafting &);                 // 55, 56: at depth the radius is asked again
void TypedTangentRadius(Drafting &, double); // 26, 36

const char *StemPicks(const Drafting &); // 10, 11, 12, 25, 26, 35, 36, 55..58
void PreviewSection(Drafting &, Point);
