#include "geometry/section.h"

#include "geometry/carrier.h"
#include "geometry/cut_core.h"
#include "geometry/trim.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

constexpr double OwnEnd = 1e-3;
constexpr double OtherEndProduct = 0.01; // mm2

// What the 32-bit inverse cosine may have cost at an angle, radians.
double AngleBlur(double angle) {
  return std::min(3.5e-4, 2.6e-7 / std::max(std::abs(std::sin(angle)), 1e-9));
}

bool Lies(const Entity &on, Point p) {
  if (on.EntType == CircleType) return true;
  if (on.EntType == LineType) {
    const double along = AlongOf(CarrierOf(on), p);
    return along * (GetLineLength(on) - along) >= -OtherEndProduct;
  }
  const double angle = Bearing(CentreOf(on), p);
  return AngleInArc(angle, on, ArcEnds::Closed, 1e-9 + AngleBlur(angle));
}

bool SameCarrier(const Entity &a, const Entity &b) {
  return a.EntType != LineType && b.EntType != LineType && Distance(CentreOf(a), CentreOf(b)) < 1e-9 &&
         std::abs(a.Radius - b.Radius) < 1e-9;
}

// Places on the entity by one number: mm along a line, radians from an arc's start, radians from the pointer
// about a circle.
struct Scale {
  Entity Row;
  double From = 0, Length = 0;
};
double PlaceOf(const Scale &s, Point p) {
  if (s.Row.EntType == LineType) return AlongOf(CarrierOf(s.Row), p);
  return NormalAngle(Bearing(CentreOf(s.Row), p) - s.From);
}
Point PointAt(const Scale &s, double place) {
  if (s.Row.EntType == LineType) return PointAlong(CarrierOf(s.Row), place);
  return {s.Row.CenterX + s.Row.Radius * std::cos(s.From + place),
          s.Row.CenterY + s.Row.Radius * std::sin(s.From + place)};
}
double OwnEndReach(const Scale &s, double angle) {
  return s.Row.EntType == LineType ? OwnEnd : std::max(OwnEnd / s.Row.Radius, AngleBlur(angle));
}

struct Bounds {
  double Left = 0, Right = 0;
  PickedRow LeftCutter, RightCutter;
};

void Consider(const Scale &s, double pointer, const PickedRow &cutter, Bounds &b) {
  const std::array<Point, 2> both = [&] {
    const Roots roots = CarrierMeetings(s.Row, cutter.Row);
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    return roots.Case == RootCase::Two ? std::array<Point, 2>{roots.First, roots.Second}
                                       : std::array<Point, 2>{Point{none, none}, Point{none, none}};
  }();
  for (const Point at : both) {
    if (std::isnan(at.X) || !Lies(cutter.Row, at)) continue;
    const double place = PlaceOf(s, at);
    if (s.Row.EntType != CircleType &&
        (place < OwnEndReach(s, s.Row.StartAngle) || place > s.Length - OwnEndReach(s, s.Row.EndAngle)))
      continue;
    PickedRow found = cutter;
    found.Found = true;
    found.At = at;
    // About a circle every crossing lies on both sides of the pointer.
    const bool circle = s.Row.EntType == CircleType;
    if ((circle || place <= pointer) && (!b.LeftCutter.Found || place > b.Left)) {
      b.Left = place;
      b.LeftCutter = found;
    }
    if ((circle || place > pointer) && (!b.RightCutter.Found || place < b.Right)) {
      b.Right = place;
      b.RightCutter = found;
    }
  }
}

Entity PieceOf(const Scale &s, double left, double right) {
  const Point a = PointAt(s, left), b = PointAt(s, right);
  if (s.Row.EntType == LineType) return MakeLine(a.X, a.Y, b.X, b.Y);
  return MakeArc(s.Row.CenterX, s.Row.CenterY, s.Row.Radius, NormalAngle(s.From + left),
                 NormalAngle(s.From + right));
}

} // namespace

Section SectionTrim(const EntityTable &table, Point position, double grainRadius, const PickScope &scope) {
  Section section;
  section.Cut = PickRow(table, position, grainRadius, scope);
  if (!section.Cut.Found) return section;
  section.Found = true;
  section.Piece = section.Cut.Row;
  Scale s{section.Cut.Row};
  const double bearing = s.Row.EntType == LineType ? 0 : Bearing(CentreOf(s.Row), position);
  double pointer = 0;
  if (s.Row.EntType == LineType) {
    s.Length = GetLineLength(s.Row);
    pointer = AlongOf(CarrierOf(s.Row), position);
  } else if (s.Row.EntType == ArcType) {
    s.From = s.Row.StartAngle;
    s.Length = ArcSweep(s.Row);
    pointer = NormalAngle(bearing - s.From);
    if (pointer > s.Length) pointer = pointer - s.Length < TwoPi - pointer ? s.Length : 0;
  } else {
    s.From = bearing;
    s.Length = TwoPi;
  }

  Bounds b;
  b.Right = s.Length;
  for (int i = 0; i <= table.EntCount + 1; ++i) {
    PickedRow cutter;
    cutter.Index = i;
    if (i == section.Cut.Index) continue;
    cutter.Row = i <= table.EntCount ? RowAt(table, i) : CircleRow({0, 0}, grainRadius);
    if (!SameCarrier(s.Row, cutter.Row)) Consider(s, pointer, cutter, b);
  }
  if (s.Row.EntType == CircleType) {
    // The piece holds the pointer: from the crossing behind it round to the one before it.
    if (!b.LeftCutter.Found || Distance(b.LeftCutter.At, b.RightCutter.At) < OwnEnd) return section;
    section.Cut.At = PointAt(s, (b.Left + b.Right) / 2);
    section.Piece = PieceOf(s, b.Left, b.Right);
  } else {
    if (b.LeftCutter.Found || b.RightCutter.Found) section.Piece = PieceOf(s, b.Left, b.Right);
    section.Cut.At = PointAt(s, b.LeftCutter.Found ? b.Left / 2 : (b.Right + s.Length) / 2);
  }
  section.Left = b.LeftCutter;
  section.Right = b.RightCutter;
  return section;
}

Solution SectionCut(const Section &section) {
  if (!section.Found) return Failed("Entity not found");
  const bool left = section.Left.Found, right = section.Right.Found;
  if (section.Cut.Row.EntType == CircleType && left && right)
    return TrimDoubleOp(section.Cut, section.Left, section.Right);
  if (left && right) return TrimDivideOp(section.Cut, section.Left, section.Right);
  if (left || right) return TrimEnds(section.Cut, left ? section.Left : section.Right);
  Solution solution;
  solution.Deleted = {section.Cut.Index};
  return solution;
}
