#include "drafting/view.h"

#include "base/number_text.h"
#include "geometry/closed_outline.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double GridPixels = 6;
constexpr double MostDots = 4000, MostLines = 2000;

Point CentreOf(const DrawSurface &s) { return {s.Left + s.Width / 2, s.Top + s.Height / 2}; }

// The window about a centre whose shorter side is 2 * half.
void SetWindow(DrawSurface &s, Point centre, double half) {
  const double diameter = s.GrainRadius > 0 ? 2 * s.GrainRadius : 1;
  const double aspect = s.PixelWidth > 0 && s.PixelHeight > 0 ? s.PixelWidth / s.PixelHeight : 1;
  half = std::clamp(half, diameter * 0.5e-6, diameter * 50);
  const double halfWidth = aspect > 1 ? half * aspect : half, halfHeight = aspect > 1 ? half : half / aspect;
  const double x = std::clamp(centre.X, -50 * diameter, 50 * diameter);
  const double y = std::clamp(centre.Y, -50 * diameter, 50 * diameter);
  s.Left = x - halfWidth;
  s.Top = y + halfHeight;
  s.Width = 2 * halfWidth;
  s.Height = -2 * halfHeight;
}

double HalfOf(const DrawSurface &s) { return std::min(std::abs(s.Width), std::abs(s.Height)) / 2; }

struct Paint {
  bool Own = false;
  std::uint32_t Colour = 0;
};

void Add(DrawSurface &s, const Paint &paint, Ink role, DrawItem::Kind what, std::array<double, 5> at,
         std::uint8_t style = 0) {
  DrawItem item;
  item.What = what;
  item.Style = style;
  item.Colour = paint.Colour;
  item.Role = paint.Own ? Ink::Own : role;
  item.At = at;
  s.Item.push_back(std::move(item));
}

struct GridRun {
  double First = 0, Last = -1; // in grid steps from the origin
};

GridRun Visible(double from, double to, double step) {
  return {std::ceil(from / step), std::floor(to / step)};
}

double Count(const GridRun &run) { return std::max(0.0, run.Last - run.First + 1); }

void AddGrid(DrawSurface &s, const GrainDoc &doc, bool own) {
  const double spacing = doc.GridSpacing;
  if (!(spacing > 0) || !std::isfinite(spacing)) return;
  const bool dots = doc.GridLineType == 99;
  const double left = s.Left, right = s.Left + s.Width, low = s.Top + s.Height, high = s.Top;
  const double pixel =
      std::max(s.Width / std::max(s.PixelWidth, 1.0), -s.Height / std::max(s.PixelHeight, 1.0));
  double step = spacing;
  GridRun across, upward;
  const auto tooMany = [&] {
    across = Visible(left, right, step);
    upward = Visible(low, high, step);
    return step < GridPixels * pixel || Count(across) + Count(upward) > MostLines ||
           (dots && Count(across) * Count(upward) > MostDots);
  };
  // 1, 2, 5, 10, 20, 50 ... times the spacing
  for (int i = 0; tooMany(); ++i) {
    if (i >= 200) return;
    step *= i % 3 == 1 ? 2.5 : 2;
  }
  const Paint paint{own, static_cast<std::uint32_t>(ColourOf(doc.GridColor))};
  const auto role = [](double line) { return std::fmod(line, 5) == 0 ? Ink::GridFifth : Ink::Grid; };
  if (dots) {
    for (double i = across.First; i <= across.Last; ++i)
      for (double j = upward.First; j <= upward.Last; ++j)
        Add(s, paint, role(i) == Ink::GridFifth ? role(j) : Ink::Grid, DrawItem::Kind::Dot,
            {i * step, j * step});
    return;
  }
  const auto style = static_cast<std::uint8_t>(doc.GridLineType == 1 ? 1 : doc.GridLineType == 2 ? 2 : 0);
  // The fifth lines last, so that the others do not cross over them.
  for (const Ink pass : {Ink::Grid, Ink::GridFifth}) {
    for (double i = across.First; i <= across.Last; ++i)
      if (role(i) == pass) Add(s, paint, pass, DrawItem::Kind::Line, {i * step, low, i * step, high}, style);
    for (double j = upward.First; j <= upward.Last; ++j)
      if (role(j) == pass)
        Add(s, paint, pass, DrawItem::Kind::Line, {left, j * step, right, j * step}, style);
  }
}

void AddEntity(DrawSurface &s, const Entity &e, const Paint &paint, Ink role) {
  switch (e.EntType) {
  case LineType: Add(s, paint, role, DrawItem::Kind::Line, {e.X1, e.Y1, e.X2, e.Y2}); break;
  case CircleType: Add(s, paint, role, DrawItem::Kind::Circle, {e.CenterX, e.CenterY, e.Radius}); break;
  case ArcType:
    Add(s, paint, role, DrawItem::Kind::Arc, {e.CenterX, e.CenterY, e.Radius, e.StartAngle, e.EndAngle});
    break;
  default: break;
  }
}

} // namespace

void ZoomReset(DrawSurface &s, const GrainDoc &doc) {
  s.GrainRadius = doc.GrainDiam / 2;
  SetWindow(s, {0, 0}, doc.GrainDiam > 0 ? doc.GrainDiam / 50 + doc.GrainDiam / 2 : 1);
}

void Zoom1h(DrawSurface &s) { SetWindow(s, CentreOf(s), HalfOf(s) * 2); }
void Zoomx2(DrawSurface &s) { SetWindow(s, CentreOf(s), HalfOf(s) / 2); }

void ZoomWindow(DrawSurface &s, Point corner, Point opposite) {
  const double width = std::abs(corner.X - opposite.X), height = std::abs(corner.Y - opposite.Y);
  if (!(width > 0) || !(height > 0)) return;
  const double aspect = s.PixelHeight > 0 ? s.PixelWidth / s.PixelHeight : 1;
  const double half =
      aspect > 1 ? std::max(height, width / aspect) / 2 : std::max(width, height * aspect) / 2;
  SetWindow(s, {(corner.X + opposite.X) / 2, (corner.Y + opposite.Y) / 2}, half);
}

void ZoomAbout(DrawSurface &s, Point still, double factor) {
  if (!(factor > 0) || !std::isfinite(factor)) return;
  const double before = HalfOf(s);
  const Point centre = CentreOf(s);
  SetWindow(s, centre, before / factor);
  const double shrink = HalfOf(s) / before;
  SetWindow(s, {still.X + (centre.X - still.X) * shrink, still.Y + (centre.Y - still.Y) * shrink}, HalfOf(s));
}

void Pan(DrawSurface &s, double dx, double dy) {
  const Point centre = CentreOf(s);
  SetWindow(s, {centre.X + dx, centre.Y + dy}, HalfOf(s));
}

void ResizePanel(DrawSurface &s, double pixelWidth, double pixelHeight) {
  if (!(pixelWidth >= 1) || !(pixelHeight >= 1)) return;
  s.PixelWidth = pixelWidth;
  s.PixelHeight = pixelHeight;
  SetWindow(s, CentreOf(s), HalfOf(s));
}

void FoldArcAngles(EntityTable &table) {
  for (int i = 0; i <= table.EntCount; ++i)
    if (Entity &e = RowAt(table, i); e.EntType == ArcType)
      for (double *angle : {&e.StartAngle, &e.EndAngle})
        if (*angle > TwoPi) *angle -= TwoPi;
}

bool HasOwnColours(const GrainDoc &doc) {
  // A colour has gone through seven digits when it comes from a file.
  const GrainDoc builtIn;
  const auto differs = [](float a, float b) { return NumberText(a) != NumberText(b); };
  return differs(doc.BackColor, builtIn.BackColor) || differs(doc.LineColor, builtIn.LineColor) ||
         differs(doc.GridColor, builtIn.GridColor);
}

void Redraw(DrawSurface &s, Design &design, std::span<const Point> marks) {
  if (design.MacroMode == 2) return;
  design.GeomAbort = false;
  const GrainDoc &doc = design.Doc;
  const bool own = HasOwnColours(doc);
  const Paint line{own, static_cast<std::uint32_t>(ColourOf(doc.LineColor))};
  const Paint picked{own, 16777215 - line.Colour};

  s.Item.clear();
  s.GrainRadius = doc.GrainDiam / 2;
  s.Ground.reset();
  if (own) s.Ground = static_cast<std::uint32_t>(ColourOf(doc.BackColor));
  s.ContourFrom = s.ContourTo = 0;
  if (doc.DisplayGrid == 1) AddGrid(s, doc, own);
  if (doc.GrainDiam > 0) Add(s, line, Ink::GrainCircle, DrawItem::Kind::Circle, {0, 0, doc.GrainDiam / 2});
  FoldArcAngles(design.Table);
  for (int i = 0; i <= design.Table.EntCount; ++i) {
    const Entity &e = RowAt(design.Table, i);
    AddEntity(s, e, e.Selected ? picked : line, e.Selected ? Ink::Picked : Ink::Geometry);
  }
  for (const Point &mark : marks)
    Add(s, line, Ink::Note, DrawItem::Kind::Mark, {mark.X, mark.Y, -s.Height / 100});
  s.Core = ClosedOutline(design.Table, doc.JoinTolerance);
}
