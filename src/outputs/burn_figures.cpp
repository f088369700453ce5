#include "outputs/burn_figures.h"

#include "base/number_text.h"
#include "outputs/burn_drawing.h"
#include "outputs/canvas.h"

#include <algorithm>
#include <array>
#include <cmath>

std::string DesignName(const Design &design) {
  std::string name = design.CurrentFile;
  if (const auto slash = name.find_last_of("/\\"); slash != std::string::npos) name.erase(0, slash + 1);
  if (const auto dot = name.find_last_of('.'); dot != std::string::npos && dot > 0) name.erase(dot);
  return name.empty() ? "Unnamed design" : Printable(name);
}

std::string ShortFigure(double value) {
  std::string text = FormatMask(value, std::abs(value) < 10    ? "0.###"
                                       : std::abs(value) < 100 ? "0.##"
                                                               : "0.#");
  if (text.ends_with('.')) text.pop_back();
  return text;
}

std::vector<std::string> DimensionLines(const GrainDoc &doc) {
  std::vector<std::string> line;
  line.push_back("\u2300 " + ShortFigure(doc.GrainDiam) + " \u00d7 " + ShortFigure(doc.GrainLength) + " mm");
  if (doc.ThroatDiam > 0) line.push_back("throat \u2300 " + ShortFigure(doc.ThroatDiam) + " mm");
  constexpr std::array<const char *, 4> ends{"ends inhibited", "end A burns", "end B burns",
                                             "both ends burn"};
  line.push_back(ends[static_cast<std::size_t>(doc.EndsExposed & 3)]);
  return line;
}

std::vector<Figure> BurnFigures(const BurnRun &run) {
  std::vector<Figure> figure;
  figure.push_back({"Max burn area", FormatMask(run.MaxBurnArea / 100, "##,##0.0"), "cm\u00b2"});
  if (run.HasThroat) figure.push_back({"Max Kn", FormatMask(run.MaxKn, "0.0"), ""});
  if (run.HasThroat) figure.push_back({"Port / throat", FormatMask(run.ApAt, "0.00"), ""});
  figure.push_back({"Volume loading", FormatMask(run.VolumeLoading * 100, "0.0"), "%"});
  if (run.HasSliver) figure.push_back({"Sliver fraction", FormatMask(run.SliverFraction * 100, "0.0"), "%"});
  figure.push_back({"Neutrality", FormatMask(run.Neutrality * 100, "0.0"), "%"});
  if (run.TouchDist >= 0) figure.push_back({"Web", ShortFigure(run.TouchDist), "mm"});
  figure.push_back({"Burnt out at", ShortFigure(BurnEnd(run)), "mm"});
  return figure;
}

void PaintFigures(cairo_t *cr, const std::vector<Figure> &figures, const PageBox &box, double size) {
  const double row = box.Height / static_cast<double>(figures.size());
  double unit = 2.5 * size;
  for (const Figure &f : figures)
    unit = std::max(unit, TextWidth(cr, f.Unit, {.Size = 0.92 * size}) + 0.5 * size);
  double y = box.Top;
  for (const Figure &f : figures) {
    SetInk(cr, HairlineInk);
    cairo_set_line_width(cr, 0.06 * size);
    cairo_move_to(cr, box.Left, y + 0.5);
    cairo_line_to(cr, box.Left + box.Width, y + 0.5);
    cairo_stroke(cr);
    const double baseline = y + row / 2 + 0.38 * size;
    DrawText(cr, f.Name, box.Left, baseline, {.Size = size, .Colour = QuietInk});
    TextStyle value{.Size = 1.1 * size, .Colour = StrongInk, .Anchor = TextAnchor::Right};
    const double nameWidth = TextWidth(cr, f.Name, {.Size = size});
    const std::string text = FitText(cr, f.Value, box.Width - nameWidth - unit - 1.2 * size, value);
    DrawText(cr, text, box.Left + box.Width - unit, baseline, value);
    DrawText(cr, f.Unit, box.Left + box.Width - unit + 0.45 * size, baseline,
             {.Size = 0.92 * size, .Colour = QuietInk});
    y += row;
  }
}
