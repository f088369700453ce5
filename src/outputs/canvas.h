#pragma once
#include "outputs/picture.h"

#include <cairo.h>
#include <functional>
#include <string>

// A page drawn once and written in any form. Page units are points of SVG and PDF; PNG and BMP have
// `density` pixels for each.
struct PageSize {
  double Width = 0, Height = 0, Density = 1;
};
// Returns the trouble, or an empty text; the file is written atomically and only when all was drawn.
std::string RenderPage(PictureForm, const PageSize &, const std::function<void(cairo_t *)> &draw,
                       const std::string &path);

void SetInk(cairo_t *, std::uint32_t colour, double alpha = 1); // red in the low byte
constexpr std::uint32_t Hex(std::uint32_t rgb) {                // from the web's order, red in the high byte
  return (rgb & 0xff) << 16 | (rgb & 0xff00) | rgb >> 16;
}

enum class TextAnchor { Left, Middle, Right };
struct TextStyle {
  double Size = 12;
  bool Bold = false;
  std::uint32_t Colour = 0;
  TextAnchor Anchor = TextAnchor::Left;
};
std::string Printable(std::string); // as UTF-8 without control characters, as the two below need it
double TextWidth(cairo_t *, const std::string &, const TextStyle &);
void DrawText(cairo_t *, const std::string &, double x, double baseline, const TextStyle &);
// Shrinks the style to two thirds and then cuts with an ellipsis until the text fits the width.
std::string FitText(cairo_t *, std::string, double width, TextStyle &);
