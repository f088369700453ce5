#include "outputs/plot_axes.h"

#include "outputs/burn_figures.h"
#include "outputs/canvas.h"

#include <algorithm>
#include <cmath>

PlotAxis AxisOf(double least, double most, double steps) {
  const double from = std::min(0.0, least), to = most > from ? most : from + 1;
  PlotAxis axis;
  axis.Step = RoundStep(to - from, steps);
  axis.From = std::floor(from / axis.Step + 1e-9) * axis.Step;
  axis.To = std::ceil(to / axis.Step - 1e-9) * axis.Step;
  return axis;
}

void PaintAxes(cairo_t *cr, const PlotFrame &f, double size) {
  cairo_set_dash(cr, nullptr, 0, 0);
  cairo_set_line_cap(cr, CAIRO_LINE_CAP_BUTT);
  cairo_set_line_width(cr, 0.06 * size);
  const auto rule = [&](double x1, double y1, double x2, double y2) {
    SetInk(cr, HairlineInk);
    cairo_move_to(cr, x1, y1);
    cairo_line_to(cr, x2, y2);
    cairo_stroke(cr);
  };
  const double right = f.Box.Left + f.Box.Width, bottom = f.Box.Top + f.Box.Height;
  for (double k = std::ceil(f.Y.From / f.Y.Step - 1e-9); k * f.Y.Step <= f.Y.To + 1e-9 * f.Y.Step; ++k) {
    const double y = f.AtY(k * f.Y.Step);
    rule(f.Box.Left, y, right, y);
    DrawText(cr, TickText(k * f.Y.Step, f.Y.Step), f.Box.Left - 0.5 * size, y + 0.36 * size,
             {.Size = size, .Colour = QuietInk, .Anchor = TextAnchor::Right});
  }
  for (double k = std::ceil(f.X.From / f.X.Step - 1e-9); k * f.X.Step <= f.X.To + 1e-9 * f.X.Step; ++k) {
    const double x = f.AtX(k * f.X.Step);
    rule(x, f.Box.Top, x, bottom);
    DrawText(cr, TickText(k * f.X.Step, f.X.Step), x, bottom + 1.3 * size,
             {.Size = size, .Colour = QuietInk, .Anchor = TextAnchor::Middle});
  }
}
