#pragma once
#include "drafting/drafting.h"

#include <span>
#include <string>

// Words and marks beside the pointer, into Panel.Overlay. Their size in pixels is the same at every zoom.

double PixelSize(const DrawSurface &); // mm

// Above and right of the position; left of it where the panel ends.
void ShowReading(Drafting &, Point at, std::string text);
// Above the upper left corner of a window.
void ShowRule(Drafting &, Point corner, std::string text);
// A length in mm to a thousandth, an angle given in radians in degrees to a hundredth, no zeros at the end.
std::string LengthText(double);
std::string AngleText(double);
std::string RowReading(const Entity &);   // a line: length and angle; a circle: radius; an arc: its sweep too
std::string SizeText(double x, double y); // of a box
std::string OffsetText(double dx, double dy);

// What the tracker holds the position by: a mark of one shape for its kind, and its name below.
void ShowSnap(Drafting &, Point at);
