#include "outputs/plot_picture.h"

#include "outputs/burn_figures.h"
#include "outputs/canvas.h"
#include "outputs/plot_axes.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr PageSize Page{960, 600, 2};
constexpr double Text = 12, Pen = 2, KeyLine = 28, KeyLead = 18;

// A colour that is for dark and light grounds (Dash below 0), as deep as a line on white wants it.
std::uint32_t OnWhite(std::uint32_t colour) {
  const std::array<double, 3> part{double(colour & 0xff), double(colour >> 8 & 0xff),
                                   double(colour >> 16 & 0xff)};
  const double most = *std::max_element(part.begin(), part.end());
  std::uint32_t deep = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    const double grey = std::max(0.0, most - 2 * (most - part[i])); // twice the saturation
    deep |= static_cast<std::uint32_t>(grey * 11 / 20) << 8 * i;
  }
  return deep;
}

void SetPen(cairo_t *cr, const PlotCurve &curve) {
  SetInk(cr, curve.Points ? StrongInk : curve.Dash < 0 ? OnWhite(curve.Colour) : curve.Colour);
  cairo_set_line_width(cr, Pen);
  std::array<double, 4> dash{};
  const auto pattern = DashPattern(curve.Dash);
  std::transform(pattern.begin(), pattern.end(), dash.begin(), [](double part) { return part * Pen; });
  cairo_set_dash(cr, dash.data(), static_cast<int>(pattern.size()), 0);
}

void Dot(cairo_t *cr, double x, double y) {
  cairo_new_path(cr);
  cairo_arc(cr, x, y, 2.2, 0, 6.3);
  cairo_fill(cr);
}

void PaintCurve(cairo_t *cr, const PlotFrame &f, const PlotCurve &curve) {
  SetPen(cr, curve);
  const std::size_t count = std::min(curve.X.size(), curve.Y.size());
  cairo_new_path(cr);
  bool on = false; // a value that is none parts the line
  for (std::size_t i = 0; i < count; ++i) {
    const double x = f.AtX(curve.X[i]), y = f.AtY(curve.Y[i]);
    const bool good = std::isfinite(x) && std::isfinite(y);
    if (good && curve.Points) Dot(cr, x, y);
    if (good && !curve.Points) on ? cairo_line_to(cr, x, y) : cairo_move_to(cr, x, y);
    on = good;
  }
  cairo_stroke(cr);
  cairo_set_dash(cr, nullptr, 0, 0);
}

void PaintFill(cairo_t *cr, const PlotFrame &f, const Plot &plot) {
  if (!plot.Filled || plot.X.size() < 2) return;
  cairo_new_path(cr);
  cairo_move_to(cr, f.AtX(plot.X.front()), f.AtY(0));
  for (std::size_t i = 0; i < plot.X.size(); ++i) cairo_line_to(cr, f.AtX(plot.X[i]), f.AtY(plot.Y[i]));
  cairo_line_to(cr, f.AtX(plot.X.back()), f.AtY(0));
  cairo_close_path(cr);
  SetInk(cr, plot.Fill);
  cairo_fill(cr);
}

// Rows of names, each behind a stroke of its curve; the height they took.
double PaintKey(cairo_t *cr, const std::vector<PlotCurve> &curves, const PageBox &box) {
  double x = box.Left, y = box.Top;
  for (const PlotCurve &curve : curves) {
    const TextStyle style{.Size = Text, .Colour = StrongInk};
    const double need = KeyLine + 6 + TextWidth(cr, curve.Name, style);
    if (x > box.Left && x + need > box.Left + box.Width) {
      x = box.Left;
      y += KeyLead;
    }
    SetPen(cr, curve);
    if (curve.Points) {
      Dot(cr, x + KeyLine / 2, y + KeyLead / 2);
    } else {
      cairo_move_to(cr, x, y + KeyLead / 2);
      cairo_line_to(cr, x + KeyLine, y + KeyLead / 2);
      cairo_stroke(cr);
    }
    cairo_set_dash(cr, nullptr, 0, 0);
    DrawText(cr, curve.Name, x + KeyLine + 6, y + KeyLead / 2 + 0.36 * Text, style);
    x += need + 18;
  }
  return curves.empty() ? 0 : y + KeyLead - box.Top;
}

} // namespace

std::span<const double> DashPattern(int dash) {
  static constexpr std::array<double, 4> one{6, 3}, two{1.5, 2.5}, three{7, 3, 1.5, 3}, four{11, 3},
      five{3, 2};
  switch (std::max(dash, 0) % 6) {
  case 1: return std::span(one).first(2);
  case 2: return std::span(two).first(2);
  case 3: return three;
  case 4: return std::span(four).first(2);
  case 5: return std::span(five).first(2);
  default: return {};
  }
}

std::string WritePlotPicture(const Plot &plot, const std::string &title, const std::string &fillName,
                             PictureForm form, const std::string &path) {
  const auto draw = [&](cairo_t *cr) {
    SetInk(cr, Hex(0xFFFFFF));
    cairo_paint(cr);
    std::vector<PlotCurve> key;
    if (plot.Filled && !fillName.empty()) {
      key.emplace_back();
      key.back().Name = fillName;
      key.back().Colour = plot.Fill;
    }
    key.insert(key.end(), plot.Curve.begin(), plot.Curve.end());
    TextStyle head{.Size = 16, .Bold = true, .Colour = StrongInk};
    DrawText(cr, FitText(cr, title, Page.Width - 60, head), 30, 34, head);
    const double keyHeight = PaintKey(cr, key, {30, 46, Page.Width - 60, 0});
    PlotFrame f;
    const double top = 46 + keyHeight + 14, bottom = Page.Height - 60;
    const double rows = std::clamp((bottom - top) / 40, 2.0, 10.0);
    f.Y = {plot.YBegin, plot.YTop, RoundStep(plot.YTop - plot.YBegin, rows)};
    double labels = 0;
    for (double k = std::ceil(f.Y.From / f.Y.Step); k * f.Y.Step <= f.Y.To; ++k)
      labels = std::max(labels, TextWidth(cr, TickText(k * f.Y.Step, f.Y.Step), {.Size = Text}));
    f.Box = {30 + labels + 8, top, Page.Width - 60 - labels - 8, bottom - top};
    f.X = {plot.XBegin, plot.XEnd, RoundStep(plot.XEnd - plot.XBegin, 10)};
    PaintFill(cr, f, plot);
    PaintAxes(cr, f, Text);
    for (const PlotCurve &curve : plot.Curve) PaintCurve(cr, f, curve);
    DrawText(cr, plot.XTitle, f.Box.Left + f.Box.Width / 2, bottom + 40,
             {.Size = Text, .Colour = QuietInk, .Anchor = TextAnchor::Middle});
  };
  return RenderPage(form, Page, draw, path);
}
