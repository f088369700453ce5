#include "outputs/picture.h"

#include "outputs/burn_drawing.h"
#include "outputs/burn_figures.h"

#include <algorithm>

namespace {

// One line, or up to three smaller ones broken behind blanks and the marks that stand for them in file names.
std::vector<std::string> TitleLines(cairo_t *cr, const std::string &name, double width, TextStyle &style) {
  if (TextWidth(cr, name, style) <= width) return {name};
  style.Size *= 0.75;
  std::vector<std::string> line{""};
  for (std::size_t at = 0; at < name.size();) {
    const std::size_t end = std::min(name.find_first_of(" _-", at), name.size() - 1) + 1;
    const std::string word = name.substr(at, end - at);
    if (!line.back().empty() && line.size() < 3 && TextWidth(cr, line.back() + word, style) > width)
      line.emplace_back();
    line.back() += word;
    at = end;
  }
  return line;
}

} // namespace

std::string WritePicture(const DrawSurface &surface, PictureForm form, int width, int height,
                         const std::string &path) {
  const double w = width, h = height, pen = std::max(0.5, std::min(w, h) / 800);
  return RenderPage(
      form, {w, h},
      [&](cairo_t *cr) {
        PaintSurface(cr, surface, {0, 0, w, h}, pen);
        if (surface.ContourTo > surface.ContourFrom)
          PaintLegend(cr, surface.ContourFrom, surface.ContourTo, {16 * pen, h * 0.55, w, h * 0.45 - 8 * pen},
                      12 * pen);
      },
      path);
}

std::string WriteBurnPicture(const Design &design, const BurnRun &run, PictureForm form,
                             const std::string &path) {
  constexpr double width = 1180, height = 840, margin = 40, side = height - 2 * margin;
  constexpr double column = margin + side + 56, columnWidth = width - margin - column;
  return RenderPage(
      form, {width, height, 1.5},
      [&](cairo_t *cr) {
        SetInk(cr, Hex(0xFFFFFF));
        cairo_paint(cr);
        PaintBurn(cr, design, run, {margin, margin, side, side});
        TextStyle title{.Size = 24, .Bold = true, .Colour = StrongInk};
        double y = margin - 4;
        for (const std::string &line : TitleLines(cr, DesignName(design), columnWidth, title)) {
          TextStyle style = title;
          const std::string text = FitText(cr, line, columnWidth, style);
          DrawText(cr, text, column, y += 1.25 * title.Size, style);
        }
        y += 8;
        for (const std::string &line : DimensionLines(design.Doc)) {
          TextStyle style{.Size = 14, .Colour = QuietInk};
          const std::string text = FitText(cr, line, columnWidth, style);
          DrawText(cr, text, column, y += 22, style);
        }
        const std::vector<Figure> figures = BurnFigures(run);
        const double rows = 34 * static_cast<double>(figures.size()), figureTop = height - margin - rows;
        const double legendTop = y + 36;
        PaintLegend(cr, 0, BurnEnd(run), {column, legendTop, columnWidth, figureTop - legendTop - 28}, 13);
        PaintFigures(cr, figures, {column, figureTop, columnWidth, rows}, 13);
      },
      path);
}
