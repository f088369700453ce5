#include "drafting/pointer_notes.h"

#include "base/number_text.h"
#include "drafting/point_preview.h"
#include "geometry/carrier.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr double LetterPixels = 7, ReadingPixels = 14, NameRight = 10, NameBelow = 20, RuleAbove = 6,
                 MarkPixels = 5;

std::string Rounded(double value, double parts) { return PlainText(std::round(value * parts) / parts + 0.0); }

void ShowText(Drafting &d, Point at, double right, double up, Ink role, std::string text) {
  const DrawSurface &panel = d.Out.Panel;
  const double pixel = PixelSize(panel), width = LetterPixels * static_cast<double>(text.size());
  if (at.X + (right + width) * pixel > panel.Left + panel.Width) right = -right - width;
  DrawItem label;
  label.What = DrawItem::Kind::Label;
  label.Role = role;
  label.At = {at.X + right * pixel, at.Y + up * pixel};
  label.Text = std::move(text);
  d.Out.Panel.Overlay.push_back(std::move(label));
}

// Corners as parts of the mark's half size, joined in turn and closed.
void ShowCorners(Drafting &d, Point at, std::span<const Point> corner) {
  const double size = MarkPixels * PixelSize(d.Out.Panel);
  for (std::size_t i = 0; i < corner.size(); ++i) {
    const Point a = corner[i], b = corner[(i + 1) % corner.size()];
    DrawItem side;
    side.Role = Ink::Guide;
    side.At = {at.X + a.X * size, at.Y + a.Y * size, at.X + b.X * size, at.Y + b.Y * size};
    d.Out.Panel.Overlay.push_back(std::move(side));
  }
}

void ShowItem(Drafting &d, Point at, DrawItem::Kind what, double pixels) {
  DrawItem item;
  item.What = what;
  item.Role = Ink::Guide;
  item.At = {at.X, at.Y, pixels * PixelSize(d.Out.Panel)};
  d.Out.Panel.Overlay.push_back(std::move(item));
}

const char *ShowMark(Drafting &d, Point at, int kind, int type) {
  constexpr Point square[] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
  constexpr Point triangle[] = {{-1, -0.7}, {1, -0.7}, {0, 1.1}};
  constexpr Point diamond[] = {{0, -1.2}, {1.2, 0}, {0, 1.2}, {-1.2, 0}};
  if (kind == CentreSnap) {
    if (type == LineType) {
      ShowCorners(d, at, triangle);
      return "Mid point";
    }
    ShowItem(d, at, DrawItem::Kind::Circle, MarkPixels);
    constexpr Point across[] = {{-1.5, 0}, {1.5, 0}}, upright[] = {{0, -1.5}, {0, 1.5}};
    ShowCorners(d, at, across);
    ShowCorners(d, at, upright);
    return "Center point";
  }
  if (kind == EdgeSnap || type == CircleType) { // a circle has no ends
    ShowCorners(d, at, diamond);
    return type == CircleType ? "On circle" : "On arc";
  }
  ShowCorners(d, at, square);
  return "End point";
}
} // namespace

double PixelSize(const DrawSurface &panel) {
  return std::abs(panel.Height) / std::max(panel.PixelHeight, 1.0);
}

void ShowReading(Drafting &d, Point at, std::string text) {
  ShowText(d, at, ReadingPixels, ReadingPixels, Ink::Note, std::move(text));
}

void ShowRule(Drafting &d, Point corner, std::string text) {
  ShowText(d, corner, 0, RuleAbove, Ink::Note, std::move(text));
}

std::string LengthText(double mm) { return Rounded(mm, 1000); }
std::string AngleText(double radians) { return Rounded(radians * 180 / Pi, 100) + "°"; }

std::string RowReading(const Entity &e) {
  if (e.EntType == LineType)
    return LengthText(GetLineLength(e)) + "  " + AngleText(Bearing({e.X1, e.Y1}, {e.X2, e.Y2}));
  const std::string radius = "R " + LengthText(e.Radius);
  return e.EntType == ArcType ? radius + "  " + AngleText(ArcSweep(e)) : radius;
}

std::string SizeText(double x, double y) { return LengthText(std::abs(x)) + " x " + LengthText(std::abs(y)); }

std::string OffsetText(double dx, double dy) { return "X " + LengthText(dx) + "  Y " + LengthText(dy); }

void ShowSnap(Drafting &d, Point at) {
  const Tracker &t = d.Track;
  const char *name = "Guide line";
  if (t.Target.SnapActive)
    name = ShowMark(d, at, t.Target.SnapKind, RowAt(d.Grain.Table, t.Target.SnapEntity).EntType);
  else if (std::find(t.Guide.begin(), t.Guide.end(), true) != t.Guide.end())
    ShowItem(d, at, DrawItem::Kind::Mark, MarkPixels - 1);
  else
    return;
  ShowText(d, at, NameRight, -NameBelow, Ink::Guide, name);
}
