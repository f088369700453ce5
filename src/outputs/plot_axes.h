#pragma once
#include "outputs/paint_surface.h"

// The axes of a chart on a page.

struct PlotAxis {
  double From = 0, To = 1, Step = 1;
};
PlotAxis AxisOf(double least, double most, double steps); // round ends around the values, 0 among them

struct PlotFrame {
  PageBox Box;
  PlotAxis X, Y;
  double AtX(double x) const { return Box.Left + (x - X.From) / (X.To - X.From) * Box.Width; }
  double AtY(double y) const { return Box.Top + Box.Height * (1 - (y - Y.From) / (Y.To - Y.From)); }
};

// Lines across the frame and the numbers at its left and below it, at each step within its axes.
void PaintAxes(cairo_t *, const PlotFrame &, double textSize);
