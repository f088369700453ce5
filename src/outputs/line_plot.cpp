#include "outputs/line_plot.h"

#include "base/number_text.h"
#include "outputs/burn_figures.h"
#include "outputs/canvas.h"
#include "outputs/plot_axes.h"

#include <algorithm>
#include <cmath>

namespace {

bool Drawable(const LinePlot &plot, const PlotLine &line) {
  const auto finite = [](double v) { return std::isfinite(v); };
  return plot.X.size() > 1 && line.Y.size() == plot.X.size() &&
         std::all_of(line.Y.begin(), line.Y.end(), finite) &&
         std::all_of(plot.X.begin(), plot.X.end(), finite);
}

void TracePath(cairo_t *cr, const PlotFrame &f, const LinePlot &plot, const PlotLine &line) {
  for (std::size_t i = 0; i < plot.X.size(); ++i) cairo_line_to(cr, f.AtX(plot.X[i]), f.AtY(line.Y[i]));
}

void PaintLine(cairo_t *cr, const PlotFrame &f, const LinePlot &plot, const PlotLine &line, double size,
               bool filled) {
  cairo_new_path(cr);
  if (filled) {
    cairo_move_to(cr, f.AtX(plot.X.front()), f.AtY(0));
    TracePath(cr, f, plot, line);
    cairo_line_to(cr, f.AtX(plot.X.back()), f.AtY(0));
    SetInk(cr, line.Colour, 0.1);
    cairo_fill(cr);
  }
  TracePath(cr, f, plot, line);
  SetInk(cr, line.Colour);
  cairo_set_line_width(cr, 0.16 * size);
  cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
  cairo_stroke(cr);
}

// Words on the plot, kept within it.
void Label(cairo_t *cr, const PlotFrame &f, const std::string &text, double x, double y,
           const TextStyle &style) {
  const double half = TextWidth(cr, text, style) / 2, margin = 0.4 * style.Size;
  x = std::clamp(x, f.Box.Left + half + margin,
                 std::max(f.Box.Left + f.Box.Width - half - margin, f.Box.Left + half + margin));
  DrawText(cr, text, x - half, y, style);
}

void PaintDashes(cairo_t *cr, double from, double to, double y, std::uint32_t colour, double size) {
  const double dash[] = {0.5 * size, 0.35 * size};
  cairo_set_dash(cr, dash, 2, 0);
  cairo_set_line_width(cr, 0.1 * size);
  SetInk(cr, colour, 0.8);
  cairo_move_to(cr, from, y);
  cairo_line_to(cr, to, y);
  cairo_stroke(cr);
  cairo_set_dash(cr, nullptr, 0, 0);
}

void PaintPeak(cairo_t *cr, const PlotFrame &f, const LinePlot &plot, double size) {
  const PlotLine &line = plot.Line.front();
  const auto peak = std::max_element(line.Y.begin(), line.Y.end());
  const double x = f.AtX(plot.X[static_cast<std::size_t>(peak - line.Y.begin())]), y = f.AtY(*peak);
  SetInk(cr, line.Colour);
  cairo_new_path(cr); // the words drawn before left a point behind
  cairo_arc(cr, x, y, 0.26 * size, 0, 6.3);
  cairo_fill(cr);
  Label(cr, f, ShortFigure(*peak), x, y - 0.6 * size, {.Size = size, .Bold = true, .Colour = StrongInk});
}

void PaintHead(cairo_t *cr, const LinePlot &plot, const PageBox &box, double size) {
  const TextStyle title{.Size = 1.2 * size, .Bold = true, .Colour = StrongInk};
  DrawText(cr, plot.Title, box.Left, box.Top + 1.2 * size, title);
  DrawText(cr, plot.Unit, box.Left + TextWidth(cr, plot.Title, title) + 0.7 * size, box.Top + 1.2 * size,
           {.Size = 1.1 * size, .Colour = QuietInk});
  if (plot.Mean > 0) {
    const TextStyle style{.Size = size, .Colour = QuietInk, .Anchor = TextAnchor::Right};
    const std::string text = "mean " + ShortFigure(plot.Mean);
    const double right = box.Left + box.Width - size, left = right - TextWidth(cr, text, style);
    DrawText(cr, text, right, box.Top + 1.2 * size, style);
    PaintDashes(cr, left - 2.6 * size, left - 0.5 * size, box.Top + 0.86 * size, plot.Line.front().Colour,
                size);
  }
  if (plot.Line.size() < 2) return;
  double right = box.Left + box.Width;
  for (auto line = plot.Line.rbegin(); line != plot.Line.rend(); ++line) {
    const TextStyle name{.Size = size, .Colour = QuietInk, .Anchor = TextAnchor::Right};
    DrawText(cr, line->Name, right, box.Top + 1.2 * size, name);
    right -= TextWidth(cr, line->Name, name) + 0.5 * size;
    SetInk(cr, line->Colour);
    cairo_rectangle(cr, right - 1.2 * size, box.Top + 0.75 * size, 1.2 * size, 0.22 * size);
    cairo_fill(cr);
    right -= 2.2 * size;
  }
}

} // namespace

void PaintPlot(cairo_t *cr, const LinePlot &plot, const PageBox &box, double size) {
  PaintHead(cr, plot, box, size);
  double least = 0, most = 0;
  bool any = false;
  for (const PlotLine &line : plot.Line)
    if (Drawable(plot, line)) {
      any = true;
      least = std::min(least, *std::min_element(line.Y.begin(), line.Y.end()));
      most = std::max(most, *std::max_element(line.Y.begin(), line.Y.end()));
    }
  if (!any) return;
  PlotFrame f;
  const double top = box.Top + 2.8 * size, bottom = box.Top + box.Height - 3 * size;
  if (plot.MarkPeak) most *= 1.08; // room for the words
  f.Y = AxisOf(least, most, std::clamp((bottom - top) / (2.4 * size), 2.0, 6.0));
  double labels = 0;
  for (const double end : {f.Y.From, f.Y.To, f.Y.To - f.Y.Step})
    labels = std::max(labels, TextWidth(cr, TickText(end, f.Y.Step), {.Size = size}));
  f.Box = {box.Left + labels + 0.5 * size, top, box.Width - labels - 1.5 * size, bottom - top};
  f.X = {0, plot.X.back() > 0 ? plot.X.back() : 1, 1};
  f.X.Step = RoundStep(f.X.To, std::clamp(f.Box.Width / (4 * size), 2.0, 8.0));
  PaintAxes(cr, f, size);
  for (const PlotLine &line : plot.Line)
    if (Drawable(plot, line)) PaintLine(cr, f, plot, line, size, plot.Line.size() == 1);
  const PlotLine &first = plot.Line.front();
  if (plot.Mean > 0)
    PaintDashes(cr, f.AtX(plot.X.front()), f.AtX(plot.X.back()), f.AtY(plot.Mean), first.Colour, size);
  if (plot.MarkPeak && Drawable(plot, first)) PaintPeak(cr, f, plot, size);
  DrawText(cr, plot.XTitle, f.Box.Left + f.Box.Width, box.Top + box.Height - 0.3 * size,
           {.Size = size, .Colour = QuietInk, .Anchor = TextAnchor::Right});
}
