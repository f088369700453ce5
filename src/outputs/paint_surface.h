#pragma once
#include "platform/draw_surface.h"

#include <cairo.h>
#include <string>

// A rectangle of the page, Y downward.
struct PageBox {
  double Left = 0, Top = 0, Width = 0, Height = 0;
};

constexpr double ContourPen = 0.9; // page units, of contours at pen 1

// The two halves of PaintSurface.
void PaintGround(cairo_t *, const DrawSurface &, const PageBox &);
void PaintItems(cairo_t *, const DrawSurface &, const PageBox &, double pen);

// Paints the surface's window into the box, the smaller of both scales ruling, on white: propellant and core
// of a closed outline, then the items in the light theme's colours. `pen` multiplies all line widths.
void PaintSurface(cairo_t *, const DrawSurface &, const PageBox &, double pen = 1);

// The round step of 1, 2 or 5 times a power of ten that parts a span into at most this many; span above 0.
double RoundStep(double span, double most);
std::string TickText(double value, double step); // with the decimals its step needs

// A colour bar with round values beside it and its title above it; the box holds all of it.
void PaintLegend(cairo_t *, double from, double to, const PageBox &, double textSize);
