#include "outputs/canvas.h"

#include "base/whole_file.h"
#include "outputs/bitmap.h"

#include <algorithm>
#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <memory>
#include <new>

namespace {

struct SurfaceEnd {
  void operator()(cairo_surface_t *s) const { cairo_surface_destroy(s); }
};
struct ContextEnd {
  void operator()(cairo_t *c) const { cairo_destroy(c); }
};
using Surface = std::unique_ptr<cairo_surface_t, SurfaceEnd>;
using Context = std::unique_ptr<cairo_t, ContextEnd>;

cairo_status_t Collect(void *closure, const unsigned char *bytes, unsigned int count) {
  try {
    static_cast<std::string *>(closure)->append(reinterpret_cast<const char *>(bytes), count);
  } catch (const std::bad_alloc &) {
    return CAIRO_STATUS_NO_MEMORY;
  }
  return CAIRO_STATUS_SUCCESS;
}

cairo_surface_t *Open(PictureForm form, const PageSize &page, std::string &bytes) {
  switch (form) {
  case PictureForm::Svg: return cairo_svg_surface_create_for_stream(Collect, &bytes, page.Width, page.Height);
  case PictureForm::Pdf: return cairo_pdf_surface_create_for_stream(Collect, &bytes, page.Width, page.Height);
  case PictureForm::Png:
  case PictureForm::Bmp: break;
  }
  return cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(page.Width * page.Density + 0.5),
                                    static_cast<int>(page.Height * page.Density + 0.5));
}

void SetFont(cairo_t *cr, const TextStyle &style) {
  cairo_select_font_face(cr, "DejaVu Sans", CAIRO_FONT_SLANT_NORMAL,
                         style.Bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(cr, style.Size);
}

bool IsUtf8(const std::string &text) {
  for (std::size_t i = 0; i < text.size();) {
    const auto lead = static_cast<unsigned char>(text[i++]);
    const int more = lead < 0x80                   ? 0
                     : lead >= 0xC2 && lead < 0xE0 ? 1
                     : lead >= 0xE0 && lead < 0xF0 ? 2
                     : lead >= 0xF0 && lead < 0xF5 ? 3
                                                   : -1;
    if (more < 0) return false;
    const auto second = i < text.size() ? static_cast<unsigned char>(text[i]) : 0u;
    if ((lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
        (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F))
      return false;
    for (int k = 0; k < more; ++k, ++i)
      if (i >= text.size() || (static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) return false;
  }
  return true;
}

} // namespace

std::string RenderPage(PictureForm form, const PageSize &page, const std::function<void(cairo_t *)> &draw,
                       const std::string &path) {
  const double largest = std::max(page.Width, page.Height) * page.Density;
  if (!(std::min(page.Width, page.Height) >= 1) || !(largest <= 32767))
    return path + ": a picture is 1 to 32767 pixels wide and high";
  std::string bytes;
  Surface surface{Open(form, page, bytes)};
  Context cr{cairo_create(surface.get())};
  const bool pixels = form == PictureForm::Png || form == PictureForm::Bmp;
  if (pixels) cairo_scale(cr.get(), page.Density, page.Density);
  if (form == PictureForm::Svg) cairo_svg_surface_set_document_unit(surface.get(), CAIRO_SVG_UNIT_PX);
  draw(cr.get());
  cairo_status_t status = cairo_status(cr.get());
  cr.reset();
  if (status == CAIRO_STATUS_SUCCESS && form == PictureForm::Png)
    status = cairo_surface_write_to_png_stream(surface.get(), Collect, &bytes);
  if (status == CAIRO_STATUS_SUCCESS && form == PictureForm::Bmp) bytes = BitmapBytes(surface.get());
  cairo_surface_finish(surface.get());
  if (status == CAIRO_STATUS_SUCCESS) status = cairo_surface_status(surface.get());
  if (status != CAIRO_STATUS_SUCCESS)
    return path + ": the picture could not be drawn: " + cairo_status_to_string(status);
  return WriteWhole(path, bytes);
}

void SetInk(cairo_t *cr, std::uint32_t colour, double alpha) {
  cairo_set_source_rgba(cr, (colour & 0xff) / 255.0, (colour >> 8 & 0xff) / 255.0,
                        (colour >> 16 & 0xff) / 255.0, alpha);
}

double TextWidth(cairo_t *cr, const std::string &text, const TextStyle &style) {
  SetFont(cr, style);
  cairo_text_extents_t extents;
  cairo_text_extents(cr, text.c_str(), &extents);
  return extents.x_advance;
}

void DrawText(cairo_t *cr, const std::string &text, double x, double baseline, const TextStyle &style) {
  if (style.Anchor != TextAnchor::Left)
    x -= TextWidth(cr, text, style) * (style.Anchor == TextAnchor::Right ? 1 : 0.5);
  SetFont(cr, style);
  SetInk(cr, style.Colour);
  cairo_move_to(cr, x, baseline);
  cairo_show_text(cr, text.c_str());
}

// cairo refuses a page whose text is no UTF-8, and file names may hold any bytes.
std::string Printable(std::string text) {
  std::erase_if(text, [](char c) { return static_cast<unsigned char>(c) < 32; });
  if (!IsUtf8(text))
    for (char &c : text)
      if (static_cast<unsigned char>(c) > 126) c = '?';
  return text;
}

std::string FitText(cairo_t *cr, std::string text, double width, TextStyle &style) {
  const double smallest = style.Size * 2 / 3;
  while (TextWidth(cr, text, style) > width && style.Size > smallest)
    style.Size = std::max(style.Size - 0.5, smallest);
  if (TextWidth(cr, text, style) <= width) return text;
  while (!text.empty() && TextWidth(cr, text + "\u2026", style) > width) {
    while (!text.empty() && (static_cast<unsigned char>(text.back()) & 0xC0) == 0x80) text.pop_back();
    if (!text.empty()) text.pop_back();
  }
  return text + "\u2026";
}
