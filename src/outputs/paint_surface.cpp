#include "outputs/paint_surface.h"

#include "base/number_text.h"
#include "outputs/canvas.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr double WholeTurn = 2 * 3.14159265358979;
constexpr std::uint32_t Propellant = Hex(0xF2E2C4), CoreFill = Hex(0xFFFFFF), Text = Hex(0x33414E);

std::uint32_t ColourOf(const DrawItem &item) {
  switch (item.Role) {
  case Ink::Own:
  case Ink::Contour: return item.Colour;
  case Ink::Grid: return Hex(0xDDE3E8);
  case Ink::GridFifth: return Hex(0xC6CFD7);
  case Ink::GrainCircle: return Hex(0x33414E);
  case Ink::Geometry: return Hex(0x1B4F8F);
  case Ink::Picked: return Hex(0xD9480F);
  case Ink::Propellant: return Propellant;
  case Ink::Core: return CoreFill;
  case Ink::Fault: return Hex(0xE03131);
  case Ink::WillBe: return Hex(0x2B8A3E);
  case Ink::WillGo: return Hex(0xE03131);
  case Ink::Guide:
  case Ink::Note: break;
  }
  return Hex(0x0B7285);
}

double PenOf(const DrawItem &item) {
  switch (item.Role) {
  case Ink::Grid: return 0.5;
  case Ink::GridFifth: return 0.7;
  case Ink::Contour: return ContourPen;
  case Ink::GrainCircle: return 1.8;
  default: return 1.6;
  }
}

// Millimetres to page units; Y turns over.
struct View {
  double Scale = 1, OriginX = 0, OriginY = 0;
  double X(double x) const { return OriginX + x * Scale; }
  double Y(double y) const { return OriginY - y * Scale; }
};

View FitView(const DrawSurface &s, const PageBox &box) {
  const double width = std::abs(s.Width), height = std::abs(s.Height);
  View view;
  if (width > 0 && height > 0) view.Scale = std::min(box.Width / width, box.Height / height);
  view.OriginX = box.Left + box.Width / 2 - (s.Left + s.Width / 2) * view.Scale;
  view.OriginY = box.Top + box.Height / 2 + (s.Top + s.Height / 2) * view.Scale;
  return view;
}

void AddArc(cairo_t *cr, const View &view, double cx, double cy, double radius, double start, double sweep) {
  if (sweep >= 0)
    cairo_arc_negative(cr, view.X(cx), view.Y(cy), radius * view.Scale, -start, -start - sweep);
  else
    cairo_arc(cr, view.X(cx), view.Y(cy), radius * view.Scale, -start, -start - sweep);
}

void FillGrain(cairo_t *cr, const DrawSurface &s, const View &view) {
  if (s.Ground || s.Core.empty() || !(s.GrainRadius > 0)) return;
  cairo_save(cr);
  cairo_arc(cr, view.X(0), view.Y(0), s.GrainRadius * view.Scale, 0, WholeTurn);
  cairo_clip_preserve(cr);
  SetInk(cr, Propellant);
  cairo_fill(cr);
  for (const OutlinePiece &p : s.Core) {
    cairo_line_to(cr, view.X(p.X1), view.Y(p.Y1));
    if (p.Radius > 0)
      AddArc(cr, view, p.CenterX, p.CenterY, p.Radius, std::atan2(p.Y1 - p.CenterY, p.X1 - p.CenterX),
             p.Sweep);
    else
      cairo_line_to(cr, view.X(p.X2), view.Y(p.Y2));
  }
  cairo_close_path(cr);
  cairo_set_fill_rule(cr, CAIRO_FILL_RULE_EVEN_ODD);
  SetInk(cr, CoreFill);
  cairo_fill(cr);
  cairo_restore(cr);
}

void AddItem(cairo_t *cr, const DrawItem &item, const View &view) {
  const auto &at = item.At;
  const double x = view.X(at[0]), y = view.Y(at[1]);
  switch (item.What) {
  case DrawItem::Kind::Line:
    cairo_move_to(cr, x, y);
    cairo_line_to(cr, view.X(at[2]), view.Y(at[3]));
    break;
  case DrawItem::Kind::Circle:
    cairo_new_sub_path(cr);
    cairo_arc(cr, x, y, at[2] * view.Scale, 0, WholeTurn);
    cairo_close_path(cr);
    break;
  case DrawItem::Kind::Arc: {
    const double sweep = at[4] - at[3];
    cairo_new_sub_path(cr);
    AddArc(cr, view, at[0], at[1], at[2], at[3], sweep > 0 ? sweep : sweep + WholeTurn);
    break;
  }
  case DrawItem::Kind::Mark: {
    const double half = at[2] * view.Scale;
    cairo_move_to(cr, x - half, y - half);
    cairo_line_to(cr, x + half, y + half);
    cairo_move_to(cr, x - half, y + half);
    cairo_line_to(cr, x + half, y - half);
    break;
  }
  case DrawItem::Kind::Dot:
    cairo_move_to(cr, x, y);
    cairo_close_path(cr);
    break;
  case DrawItem::Kind::Label: break;
  }
}

bool SameStroke(const DrawItem &a, const DrawItem &b) {
  return ColourOf(a) == ColourOf(b) && PenOf(a) == PenOf(b) && a.Style == b.Style;
}

void Stroke(cairo_t *cr, const DrawItem &item, double pen) {
  const double width = PenOf(item) * pen;
  const double dash[] = {6 * pen, 4 * pen}, dots[] = {pen, 3 * pen};
  cairo_set_dash(cr, item.Style == 1 ? dash : dots, item.Style == 0 ? 0 : 2, 0);
  cairo_set_line_width(cr, width);
  cairo_set_line_cap(cr, item.Style == 0 ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
  cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
  SetInk(cr, ColourOf(item));
  cairo_stroke(cr);
}

} // namespace

void PaintGround(cairo_t *cr, const DrawSurface &s, const PageBox &box) {
  cairo_save(cr);
  cairo_rectangle(cr, box.Left, box.Top, box.Width, box.Height);
  cairo_clip_preserve(cr);
  SetInk(cr, s.Ground.value_or(Hex(0xFFFFFF)));
  cairo_fill(cr);
  FillGrain(cr, s, FitView(s, box));
  cairo_restore(cr);
}

void PaintItems(cairo_t *cr, const DrawSurface &s, const PageBox &box, double pen) {
  const View view = FitView(s, box);
  cairo_save(cr);
  cairo_rectangle(cr, box.Left, box.Top, box.Width, box.Height);
  cairo_clip(cr);
  const DrawItem *ink = nullptr; // of the path that is open
  for (const DrawItem &item : s.Item) {
    if (ink && !SameStroke(*ink, item)) Stroke(cr, *ink, pen);
    ink = &item;
    if (item.What == DrawItem::Kind::Label) {
      Stroke(cr, item, pen);
      DrawText(cr, Printable(item.Text), view.X(item.At[0]) + 6 * pen, view.Y(item.At[1]) - 6 * pen,
               {.Size = 12 * pen, .Colour = ColourOf(item)});
      cairo_new_path(cr);
    } else {
      AddItem(cr, item, view);
    }
  }
  if (ink) Stroke(cr, *ink, pen);
  cairo_restore(cr);
}

void PaintSurface(cairo_t *cr, const DrawSurface &s, const PageBox &box, double pen) {
  PaintGround(cr, s, box);
  PaintItems(cr, s, box, pen);
}

double RoundStep(double span, double most) {
  const double ten = std::pow(10, std::floor(std::log10(span / most)));
  for (const double factor : {1.0, 2.0, 5.0})
    if (span / (ten * factor) <= most) return ten * factor;
  return ten * 10;
}

std::string TickText(double value, double step) {
  const int places = std::clamp(static_cast<int>(std::ceil(-std::log10(step) - 1e-9)), 0, 12);
  return FormatMask(value,
                    places == 0 ? "##,##0" : "0." + std::string(static_cast<std::size_t>(places), '0'));
}

void PaintLegend(cairo_t *cr, double from, double to, const PageBox &box, double textSize) {
  const double barTop = box.Top + 2 * textSize, barHeight = box.Height - 2.5 * textSize,
               barWidth = 1.4 * textSize;
  DrawText(cr, "Burn distance, mm", box.Left, box.Top + textSize, {.Size = textSize, .Colour = Text});

  cairo_pattern_t *ramp = cairo_pattern_create_linear(0, barTop + barHeight, 0, barTop);
  for (int i = 0; i <= 32; ++i) {
    const std::uint32_t c = Viridis(i / 32.0);
    cairo_pattern_add_color_stop_rgb(ramp, i / 32.0, (c & 0xff) / 255.0, (c >> 8 & 0xff) / 255.0,
                                     (c >> 16 & 0xff) / 255.0);
  }
  cairo_rectangle(cr, box.Left, barTop, barWidth, barHeight);
  cairo_set_source(cr, ramp);
  cairo_fill(cr);
  cairo_pattern_destroy(ramp);

  const double span = to - from, step = RoundStep(span, std::clamp(barHeight / (2.5 * textSize), 2.0, 8.0));
  cairo_set_dash(cr, nullptr, 0, 0);
  cairo_set_line_width(cr, 0.07 * textSize);
  for (double k = std::ceil(from / step - 1e-9); k * step <= to + span * 1e-9; ++k) {
    const double y = barTop + barHeight * (1 - (k * step - from) / span);
    SetInk(cr, Text);
    cairo_move_to(cr, box.Left + barWidth, y);
    cairo_line_to(cr, box.Left + barWidth + 0.4 * textSize, y);
    cairo_stroke(cr);
    DrawText(cr, TickText(k * step, step), box.Left + barWidth + 0.8 * textSize, y + 0.36 * textSize,
             {.Size = textSize, .Colour = Text});
  }
}
