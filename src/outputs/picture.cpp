#include "outputs/picture.h"

#include "base/number_text.h"
#include "geometry/closed_outline.h"
#include "outputs/canvas.h"
#include "outputs/paint_surface.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace {

constexpr std::uint32_t Strong = Hex(0x1E2730), Quiet = Hex(0x6B7884), Hairline = Hex(0xD5DCE2);

DrawItem ItemOf(DrawItem::Kind what, Ink role, std::array<double, 5> at, std::uint32_t colour = 0) {
  DrawItem item;
  item.What = what;
  item.Role = role;
  item.Colour = colour;
  item.At = at;
  return item;
}

void AddContour(DrawSurface &s, const OutlineRow &row, std::uint32_t colour) {
  if (row.EntType == LineType)
    s.Item.push_back(ItemOf(DrawItem::Kind::Line, Ink::Contour, {row.X1, row.Y1, row.X2, row.Y2}, colour));
  else if (row.EntType == CircleType)
    s.Item.push_back(
        ItemOf(DrawItem::Kind::Circle, Ink::Contour, {row.CenterX, row.CenterY, row.Radius}, colour));
  // An arc of no sweep has equal angles but for the last bit of a 32-bit float; it is no whole turn.
  else if (row.EntType == ArcType && std::abs(row.EndAngle - row.StartAngle) > 2e-6f)
    s.Item.push_back(ItemOf(DrawItem::Kind::Arc, Ink::Contour,
                            {row.CenterX, row.CenterY, row.Radius, row.StartAngle, row.EndAngle}, colour));
}

void AddStart(DrawSurface &s, const EntityTable &table) {
  for (int i = 0; i <= table.EntCount; ++i) {
    const Entity &e = RowAt(table, i);
    if (e.EntType == LineType)
      s.Item.push_back(ItemOf(DrawItem::Kind::Line, Ink::Geometry, {e.X1, e.Y1, e.X2, e.Y2}));
    else if (e.EntType == CircleType)
      s.Item.push_back(ItemOf(DrawItem::Kind::Circle, Ink::Geometry, {e.CenterX, e.CenterY, e.Radius}));
    else
      s.Item.push_back(ItemOf(DrawItem::Kind::Arc, Ink::Geometry,
                              {e.CenterX, e.CenterY, e.Radius, e.StartAngle, e.EndAngle}));
  }
}

double BurnEnd(const BurnRun &run) {
  return run.StepDist.empty() ? run.LastLiveDist : std::max(run.LastLiveDist, run.StepDist.back());
}

std::uint32_t Towards(std::uint32_t colour, double level, double part) {
  std::uint32_t mixed = 0;
  for (const int shift : {16, 8, 0}) {
    const double c = colour >> shift & 0xff;
    mixed = mixed << 8 | static_cast<std::uint32_t>(c + (level - c) * part + 0.5);
  }
  return mixed;
}

// Every SimIncrementDisplay-th outline.
std::vector<std::size_t> ShownSteps(const Design &design, const BurnRun &run) {
  const double every = std::max(design.Doc.SimIncrementDisplay, 1.0);
  const std::size_t steps = std::min(run.Steps.Start.size() - 1, run.StepDist.size());
  std::vector<std::size_t> shown;
  for (std::size_t step = 1; step <= steps; ++step)
    if (const double quotient = static_cast<double>(step) / every; quotient == std::round(quotient))
      shown.push_back(step);
  return shown;
}

void AddOutline(DrawSurface &s, const BurnRun &run, std::size_t step, std::uint32_t colour) {
  for (std::size_t i = run.Steps.Start[step - 1]; i < run.Steps.Start[step]; ++i)
    AddContour(s, run.Steps.Row[i], colour);
}

// The grain fills a square window but for a hair's breadth.
DrawSurface GrainWindow(const Design &design) {
  DrawSurface s;
  const double half = design.Doc.GrainDiam / 2 * 1.01;
  s.GrainRadius = design.Doc.GrainDiam / 2;
  s.Left = -half;
  s.Top = half;
  s.Width = 2 * half;
  s.Height = -2 * half;
  return s;
}

// Close outlines are laid on a pale band of their own colour each, which join to an even ground; those
// nearest to the legend's values stand out.
void PaintBurn(cairo_t *cr, const Design &design, const BurnRun &run, const PageBox &box) {
  DrawSurface ground = GrainWindow(design), band = ground, fine = ground, strong = ground, start = ground,
              wall = ground;
  ground.Core = ClosedOutline(design.Table, design.Doc.JoinTolerance);
  const double end = BurnEnd(run), mark = RoundStep(end, 8);
  double spacing = 0, before = 0; // mm; the distance last shown
  for (const std::size_t step : ShownSteps(design, run)) {
    const double distance = run.StepDist[step - 1];
    const std::uint32_t colour = Viridis(distance / end);
    spacing = distance - before;
    AddOutline(band, run, step, Towards(colour, 255, 0.45));
    AddOutline(fine, run, step, colour);
    const double tick = std::round(distance / mark) * mark;
    if (tick > 0 && std::abs(distance - tick) <= spacing / 2)
      AddOutline(strong, run, step, Towards(colour, 0, 0.2));
    before = distance;
  }
  AddStart(start, design.Table);
  wall.Item.push_back(ItemOf(DrawItem::Kind::Circle, Ink::GrainCircle, {0, 0, ground.GrainRadius}));

  PaintGround(cr, ground, box);
  const double pixels = spacing * box.Width / ground.Width;
  cairo_save(cr);
  cairo_arc(cr, box.Left + box.Width / 2, box.Top + box.Height / 2,
            ground.GrainRadius * box.Width / ground.Width, 0, 2 * Pi);
  cairo_clip(cr);
  if (pixels < 6) PaintItems(cr, band, box, 2 * pixels / ContourPen);
  PaintItems(cr, fine, box, std::clamp(pixels / 4, 0.35, 1.2) / ContourPen);
  if (pixels < 6) PaintItems(cr, strong, box, 1.7 / ContourPen);
  PaintItems(cr, start, box, 1); // what lies outside the wall does not burn
  cairo_restore(cr);
  PaintItems(cr, wall, box, 1);
}

std::string NameOf(const Design &design) {
  std::string name = design.CurrentFile;
  if (const auto slash = name.find_last_of("/\\"); slash != std::string::npos) name.erase(0, slash + 1);
  if (const auto dot = name.find_last_of('.'); dot != std::string::npos && dot > 0) name.erase(dot);
  return name.empty() ? "Unnamed design" : Printable(name);
}

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

// At most four figures that say something, without zeros behind the point.
std::string Short(double value) {
  std::string text = FormatMask(value, std::abs(value) < 10    ? "0.###"
                                       : std::abs(value) < 100 ? "0.##"
                                                               : "0.#");
  if (text.ends_with('.')) text.pop_back();
  return text;
}

std::vector<std::string> Dimensions(const GrainDoc &doc) {
  std::vector<std::string> line;
  line.push_back("\u2300 " + Short(doc.GrainDiam) + " \u00d7 " + Short(doc.GrainLength) + " mm");
  if (doc.ThroatDiam > 0) line.push_back("throat \u2300 " + Short(doc.ThroatDiam) + " mm");
  constexpr std::array<const char *, 4> ends{"ends inhibited", "end A burns", "end B burns",
                                             "both ends burn"};
  line.push_back(ends[static_cast<std::size_t>(doc.EndsExposed & 3)]);
  return line;
}

struct Figure {
  std::string Name, Value, Unit;
};

std::vector<Figure> Figures(const BurnRun &run) {
  std::vector<Figure> figure;
  figure.push_back({"Max burn area", FormatMask(run.MaxBurnArea / 100, "##,##0.0"), "cm\u00b2"});
  if (run.HasThroat) figure.push_back({"Max Kn", FormatMask(run.MaxKn, "0.0"), ""});
  if (run.HasThroat) figure.push_back({"Port / throat", FormatMask(run.ApAt, "0.00"), ""});
  figure.push_back({"Volume loading", FormatMask(run.VolumeLoading * 100, "0.0"), "%"});
  if (run.HasSliver) figure.push_back({"Sliver fraction", FormatMask(run.SliverFraction * 100, "0.0"), "%"});
  figure.push_back({"Neutrality", FormatMask(run.Neutrality * 100, "0.0"), "%"});
  if (run.TouchDist >= 0) figure.push_back({"Web", Short(run.TouchDist), "mm"});
  figure.push_back({"Burnt out at", Short(BurnEnd(run)), "mm"});
  return figure;
}

void PaintFigures(cairo_t *cr, const std::vector<Figure> &figures, const PageBox &box) {
  const double row = box.Height / static_cast<double>(figures.size()), unit = 32;
  double y = box.Top;
  for (const Figure &f : figures) {
    SetInk(cr, Hairline);
    cairo_set_line_width(cr, 0.75);
    cairo_move_to(cr, box.Left, y + 0.5);
    cairo_line_to(cr, box.Left + box.Width, y + 0.5);
    cairo_stroke(cr);
    const double baseline = y + row / 2 + 5;
    DrawText(cr, f.Name, box.Left, baseline, {.Size = 13, .Colour = Quiet});
    TextStyle value{.Size = 14.5, .Colour = Strong, .Anchor = TextAnchor::Right};
    const double nameWidth = TextWidth(cr, f.Name, {.Size = 13});
    const std::string text = FitText(cr, f.Value, box.Width - nameWidth - unit - 16, value);
    DrawText(cr, text, box.Left + box.Width - unit, baseline, value);
    DrawText(cr, f.Unit, box.Left + box.Width - unit + 6, baseline, {.Size = 12, .Colour = Quiet});
    y += row;
  }
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
        TextStyle title{.Size = 24, .Bold = true, .Colour = Strong};
        double y = margin - 4;
        for (const std::string &line : TitleLines(cr, NameOf(design), columnWidth, title)) {
          TextStyle style = title;
          const std::string text = FitText(cr, line, columnWidth, style);
          DrawText(cr, text, column, y += 1.25 * title.Size, style);
        }
        y += 8;
        for (const std::string &line : Dimensions(design.Doc)) {
          TextStyle style{.Size = 14, .Colour = Quiet};
          const std::string text = FitText(cr, line, columnWidth, style);
          DrawText(cr, text, column, y += 22, style);
        }
        const std::vector<Figure> figures = Figures(run);
        const double rows = 34 * static_cast<double>(figures.size()), figureTop = height - margin - rows;
        const double legendTop = y + 36;
        PaintLegend(cr, 0, BurnEnd(run), {column, legendTop, columnWidth, figureTop - legendTop - 28}, 13);
        PaintFigures(cr, figures, {column, figureTop, columnWidth, rows});
      },
      path);
}
