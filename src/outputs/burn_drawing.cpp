#include "outputs/burn_drawing.h"

#include "geometry/closed_outline.h"
#include "outputs/canvas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace {

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

} // namespace

double BurnEnd(const BurnRun &run) {
  return run.StepDist.empty() ? run.LastLiveDist : std::max(run.LastLiveDist, run.StepDist.back());
}

void PaintBurn(cairo_t *cr, const Design &design, const BurnRun &run, const PageBox &box, double pen) {
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
  const bool close = pixels < 6 * pen;
  if (close) PaintItems(cr, band, box, 2 * pixels / ContourPen);
  PaintItems(cr, fine, box, std::clamp(pixels / 4, 0.35 * pen, 1.2 * pen) / ContourPen);
  if (close) PaintItems(cr, strong, box, 1.7 * pen / ContourPen);
  PaintItems(cr, start, box, pen); // what lies outside the wall does not burn
  cairo_restore(cr);
  PaintItems(cr, wall, box, pen);
}
