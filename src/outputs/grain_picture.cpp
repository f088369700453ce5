#include "outputs/grain_picture.h"

#include "base/number_text.h"
#include "outputs/burn_figures.h"
#include "outputs/canvas.h"
#include "view3d/cut_mesh.h"
#include "view3d/raster.h"
#include "view3d/solids.h"

#include <cstring>

namespace {

enum MaterialIndex : std::uint8_t { Burning, Exposed, Inhibited, Outside, Cut, Liner, LinerCut, Count };
struct Swatch {
  std::uint32_t Colour;
  double Gloss;
  const char *Name; // in the legend; nullptr: not there
};
constexpr Swatch Swatches[Count] = {{0xE8552D, 0.35, "Burning surface"},
                                    {0xF6B03C, 0.25, "Exposed end"},
                                    {0x8E9299, 0.2, "Inhibited end"},
                                    {0xBFA284, 0.15, nullptr},
                                    {0xDCC3A1, 0.05, "Propellant"},
                                    {0x3F5A70, 0.5, "Liner"},
                                    {0x6F8CA3, 0.1, nullptr}};

constexpr std::array<std::uint8_t, SurfaceCount> OfGrain{
    Burning, Exposed, Exposed, Inhibited, Outside, Liner, Liner, LinerCut, LinerCut, LinerCut, Cut};
constexpr std::array<std::uint8_t, SurfaceCount> OfLiner{Liner, Liner,    Liner,    Liner, Liner,   Liner,
                                                         Liner, LinerCut, LinerCut, Liner, LinerCut};

// Adds what the cut leaves. A quarter is left out by putting together the half behind and a quarter.
std::string AddPart(Scene &scene, const Mesh &mesh, const GrainPicture &picture, double at,
                    const std::array<std::uint8_t, SurfaceCount> &materials) {
  const double turn =
      picture.Roll.value_or(picture.Section == GrainPicture::Cut::Quarter ? 5 : 38) * Pi / 180;
  if (picture.Section == GrainPicture::Cut::None) {
    AddToScene(scene, mesh, turn, materials);
    return {};
  }
  Mesh behind, front, below;
  if (std::string trouble = CutMesh(mesh, {-1, 0, 0, -at}, behind); !trouble.empty()) return trouble;
  AddToScene(scene, behind, turn, materials);
  if (picture.Section == GrainPicture::Cut::Half) return {};
  if (std::string trouble = CutMesh(mesh, {1, 0, 0, at}, front); !trouble.empty()) return trouble;
  if (std::string trouble = CutMesh(front, {0, -1, 0, 0}, below); !trouble.empty()) return trouble;
  AddToScene(scene, below, turn, materials);
  return {};
}

void PaintRaster(cairo_t *cr, const Raster &raster) {
  cairo_surface_t *const image = cairo_image_surface_create(CAIRO_FORMAT_RGB24, raster.Width, raster.Height);
  if (cairo_surface_status(image) == CAIRO_STATUS_SUCCESS) {
    cairo_surface_flush(image);
    unsigned char *const to = cairo_image_surface_get_data(image);
    const int stride = cairo_image_surface_get_stride(image);
    for (int y = 0; y < raster.Height; ++y)
      std::memcpy(to + static_cast<std::ptrdiff_t>(y) * stride,
                  raster.Pixel.data() + static_cast<std::ptrdiff_t>(y) * raster.Width,
                  4 * static_cast<std::size_t>(raster.Width));
    cairo_surface_mark_dirty(image);
    cairo_set_source_surface(cr, image, 0, 0);
    cairo_paint(cr);
  }
  cairo_surface_destroy(image);
}

void PaintLegendRow(cairo_t *cr, const Design &design, const Scene &scene, const GrainPicture &picture) {
  const double unit = std::min(picture.Width / 1600.0, picture.Height / 1000.0), margin = 44 * unit,
               line = picture.Height - 40 * unit;
  std::array<bool, Count> used{};
  for (const SceneTriangle &t : scene.Triangle) used[t.Material] = true;
  if (used[Outside]) used[Cut] = true;
  const TextStyle style{.Size = 20 * unit, .Colour = Hex(0x3A4350)};
  double x = margin;
  for (const MaterialIndex i : {Burning, Exposed, Inhibited, Cut, Liner}) {
    if (!used[i]) continue;
    const double side = 18 * unit;
    SetInk(cr, Hex(Swatches[i].Colour));
    cairo_rectangle(cr, x, line - side + 2 * unit, side, side);
    cairo_fill(cr);
    DrawText(cr, Swatches[i].Name, x + 1.5 * side, line, style);
    x += 1.5 * side + TextWidth(cr, Swatches[i].Name, style) + 34 * unit;
  }
  TextStyle title{.Size = 28 * unit, .Bold = true, .Colour = Hex(0x1F2733)};
  const double room = picture.Width - 2 * margin;
  const std::string name = FitText(cr, DesignName(design), room, title);
  DrawText(cr, name, margin, line - 48 * unit, title);
  TextStyle quiet{.Size = 20 * unit, .Colour = Hex(0x5A6573)};
  const std::string burnt = picture.BurnDist > 0 ? PlainText(RoundPlaces(picture.BurnDist, 2)) + " mm burnt"
                                                 : std::string("before the burn");
  const double after = margin + TextWidth(cr, name, title) + 20 * unit;
  DrawText(cr, FitText(cr, burnt, std::max(1.0, picture.Width - margin - after), quiet), after,
           line - 48 * unit, quiet);
}

} // namespace

std::string WriteGrainPicture(const Design &design, const FrontStart &start, const GrainPicture &picture,
                              const std::string &path) {
  if (picture.Width < 16 || picture.Height < 16 || picture.Width > 8192 || picture.Height > 8192)
    return "A picture is 16 to 8192 pixels wide and high";
  const double chord = start.GrainRadius / 3000;
  const GrainEnds ends = EndsOf(design.Doc);
  GrainSection section;
  Mesh grain, liner;
  Scene scene;
  for (const Swatch &s : Swatches) scene.Paint.push_back({s.Colour, s.Gloss});
  if (std::string trouble = SectionAt(start, 0, section); !trouble.empty()) return trouble;
  const double at = CutThroughPort(section, 1, 0);
  if (std::string trouble = SectionAt(start, picture.BurnDist, section); !trouble.empty()) return trouble;
  if (std::string trouble = GrainMesh(section, ends, chord, grain); !trouble.empty()) return trouble;
  if (std::string trouble = AddPart(scene, grain, picture, at, OfGrain); !trouble.empty()) return trouble;
  if (picture.Liner) {
    if (std::string trouble = LinerMesh(section, ends, design.Doc.LinerThickness, chord, liner);
        !trouble.empty())
      return trouble;
    if (std::string trouble = AddPart(scene, liner, picture, at, OfLiner); !trouble.empty()) return trouble;
  }
  SceneView view;
  view.Azimuth = picture.Azimuth, view.Elevation = picture.Elevation;
  view.Perspective = picture.Perspective;
  view.Width = picture.Width, view.Height = picture.Height;
  view.Bottom = picture.Legend ? 0.1 : 0;
  Raster raster;
  DrawScene(scene, view, raster);
  return RenderPage(
      PictureForm::Png, {static_cast<double>(picture.Width), static_cast<double>(picture.Height), 1},
      [&](cairo_t *cr) {
        PaintRaster(cr, raster);
        if (picture.Legend) PaintLegendRow(cr, design, scene, picture);
      },
      path);
}
