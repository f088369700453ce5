#include "outputs/chart_picture.h"

#include "outputs/burn_figures.h"
#include "outputs/canvas.h"
#include "outputs/paint_surface.h"

namespace {

constexpr PageSize Page{960, 600, 2};
constexpr PageBox Plot{84, 56, 846, 484};
constexpr double LabelSize = 12;

void PaintGrid(cairo_t *cr) {
  SetInk(cr, HairlineInk);
  cairo_set_line_width(cr, 0.75);
  for (int k = 1; k <= YLabels; ++k) {
    const double y = YLabelTop(k, Plot.Top, Plot.Height, 0);
    cairo_move_to(cr, Plot.Left, y);
    cairo_line_to(cr, Plot.Left + Plot.Width, y);
  }
  for (int k = 0; k <= TimeLabels; ++k) {
    const double x = TimeLabelLeft(k, Plot.Left, Plot.Width, 0);
    cairo_move_to(cr, x, Plot.Top);
    cairo_line_to(cr, x, Plot.Top + Plot.Height);
  }
  cairo_stroke(cr);
}

// Columns, grid over them, and the top points over both.
void PaintColumns(cairo_t *cr, const PerformanceChart &chart) {
  const int width = static_cast<int>(Plot.Width);
  const std::vector<double> column = ChartColumns(chart, width);
  const double bottom = Plot.Top + Plot.Height;
  const auto trace = [&] {
    for (int x = 1; x <= width; ++x)
      cairo_line_to(cr, Plot.Left + x, bottom - column[x - 1] / chart.FullHeight * Plot.Height);
  };
  cairo_new_path(cr);
  cairo_move_to(cr, Plot.Left, bottom);
  cairo_line_to(cr, Plot.Left, bottom - chart.Value[0] / chart.FullHeight * Plot.Height);
  trace();
  cairo_line_to(cr, Plot.Left + width, bottom);
  cairo_close_path(cr);
  SetInk(cr, chart.Fill);
  cairo_fill(cr);
  PaintGrid(cr);
  cairo_move_to(cr, Plot.Left, bottom - chart.Value[0] / chart.FullHeight * Plot.Height);
  trace();
  SetInk(cr, chart.TopColour);
  cairo_set_line_width(cr, 1.5);
  cairo_stroke(cr);
}

void PaintLabels(cairo_t *cr, const PerformanceChart &chart) {
  TextStyle label{.Size = LabelSize, .Colour = QuietInk, .Anchor = TextAnchor::Right};
  for (int k = 1; k <= YLabels; ++k)
    DrawText(cr, chart.Y_Axis[k - 1], Plot.Left - 8,
             YLabelTop(k, Plot.Top, Plot.Height, LabelSize) + 0.8 * LabelSize, label);
  label.Anchor = TextAnchor::Middle;
  const double below = Plot.Top + Plot.Height + 18;
  DrawText(cr, chart.Time_Axis[TimeLabels], Plot.Left, below, label);
  for (int k = 1; k <= TimeLabels; ++k)
    DrawText(cr, chart.Time_Axis[k - 1], TimeLabelLeft(k, Plot.Left, Plot.Width, 0), below, label);
  DrawText(cr, chart.OverDistance ? "Burn distance, mm" : "Time, s", Plot.Left + Plot.Width / 2, below + 22,
           label);
  TextStyle title{.Size = 16, .Bold = true, .Colour = StrongInk};
  DrawText(cr, FitText(cr, chart.Title, Plot.Width, title), Plot.Left, 34, title);
}

} // namespace

std::string WriteChartPicture(const PerformanceChart &chart, PictureForm form, const std::string &path) {
  return RenderPage(
      form, Page,
      [&](cairo_t *cr) {
        SetInk(cr, Hex(0xFFFFFF));
        cairo_paint(cr);
        PaintColumns(cr, chart);
        PaintLabels(cr, chart);
      },
      path);
}
