#include "geometry/break.h"

#include "geometry/carrier.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double LeastPart = 0.1; // mm from a break to an end
constexpr std::string_view OnLineText = "ERROR: Breakpoint must be *ON* line";
constexpr std::string_view OnArcText = "ERROR: Breakpoint must be *ON* arc";
constexpr std::string_view InsideArcText = "Both Trimming Points must be inside Arc";

bool OnLine(const Entity &line, Point p) {
  const Point first{line.X1, line.Y1}, second{line.X2, line.Y2};
  const double u = LineCoordinate(line, p);
  return (LineCoordinate(line, first) - u) * (u - LineCoordinate(line, second)) > 0.01 &&
         Distance(first, p) >= LeastPart && Distance(second, p) >= LeastPart;
}

bool OnArc(const Entity &arc, double angle, Point p) {
  return AngleInArc(angle, arc, ArcEnds::Open) && Distance({arc.X1, arc.Y1}, p) >= LeastPart &&
         Distance({arc.X2, arc.Y2}, p) >= LeastPart;
}

Solution SelectionFailure(const PickedRow &cut, const PickedRow &cutter) {
  if (cut.Index == cutter.Index)
    return Failed("ERROR: Entity already Selected!", "Entity Selection Error", Icon::Stop);
  if (cut.Row.EntType == LineType && cutter.Row.EntType == LineType && AreParallel(cut.Row, cutter.Row))
    return Failed("Can't Solve for Parallel Lines");
  return {};
}

Solution BreakOnce(const PickedRow &cut, const PickedRow &cutter, Point nearTo, bool strict) {
  if (cut.Row.EntType == CircleType) return Failed(CircleTrimText, "", Icon::Stop);
  if (const Solution step = SelectionFailure(cut, cutter); !step.Solved()) return step;
  const Meeting m = MeetingOf(cut.Row, cutter.Row, nearTo, strict);
  if (m.Case == MeetCase::Apart) return Failed(OnArcText);
  if (m.Case != MeetCase::Meet) return MeetingFailure(m);
  Entity row = cut.Row, added = cut.Row;
  row.Selected = false;
  if (row.EntType == LineType) {
    if (!OnLine(row, m.At)) return Failed(OnLineText);
    SetLineEnds(added, {row.X2, row.Y2}, m.At);
    SetLineEnds(row, {row.X1, row.Y1}, m.At);
  } else {
    if (!OnArc(row, m.Angle, m.At)) return Failed(OnArcText);
    added.Selected = false;
    added.StartAngle = m.Angle;
    SetArcEnds(added);
    added.Y1 = added.CenterY + std::sin(2 * Pi - m.Angle) * added.Radius;
    row.EndAngle = m.Angle;
    SetArcEnds(row);
  }
  Solution solution;
  solution.Changed = {{cut.Index, row}};
  solution.Added = {added};
  return solution;
}

} // namespace

Solution BreakEnds(const PickedRow &cut, const PickedRow &cutter) {
  return BreakOnce(cut, cutter, cutter.At, false);
}

Solution BreakBothEnds(const PickedRow &one, const PickedRow &two) {
  Solution first = BreakOnce(one, two, two.At, false);
  if (!first.Solved()) return first;
  const Solution second = BreakOnce(two, one, two.At, false);
  if (!second.Solved()) return second;
  first.Changed.push_back(second.Changed[0]);
  first.Added.push_back(second.Added[0]);
  return first;
}

Solution BreakMultiOp(const PickedRow &cut, const PickedRow &cutter) {
  return BreakOnce(cut, cutter, cut.At, true);
}

Solution BreakDoubleOp(const PickedRow &cut, const PickedRow &first, const PickedRow &second) {
  for (const PickedRow *cutter : {&first, &second})
    if (const Solution step = SelectionFailure(cut, *cutter); !step.Solved()) return step;
  Meeting at[2] = {MeetingOf(cut.Row, first.Row, first.At), MeetingOf(cut.Row, second.Row, second.At)};
  for (const Meeting &m : at)
    if (m.Case != MeetCase::Meet) return MeetingFailure(m);
  if (Distance(at[0].At, at[1].At) < LeastPart) return Failed(NoIntersectionText);
  Entity row = cut.Row;
  row.Selected = false;
  Solution solution;
  Entity middle = row, last = row;
  if (row.EntType == LineType) {
    if (!OnLine(row, at[0].At) || !OnLine(row, at[1].At)) return Failed(OnLineText);
    const Point end1{row.X1, row.Y1}, end2{row.X2, row.Y2};
    if (Distance(end1, at[1].At) < Distance(end1, at[0].At)) std::swap(at[0], at[1]);
    SetLineEnds(row, end1, at[0].At);
    SetLineEnds(middle, at[0].At, at[1].At);
    SetLineEnds(last, at[1].At, end2);
    solution.Added = {middle, last};
  } else {
    bool seam = false; // a break at angle 0 of a circle
    if (row.EntType == CircleType) {
      row.EntType = middle.EntType = last.EntType = ArcType;
      row.StartAngle = 0;
      row.EndAngle = TwoPi;
      const Point zero{row.CenterX + row.Radius, row.CenterY};
      seam = std::min(Distance(zero, at[0].At), Distance(zero, at[1].At)) < LeastPart;
    } else if (!OnArc(row, at[0].Angle, at[0].At) || !OnArc(row, at[1].Angle, at[1].At)) {
      return Failed(InsideArcText);
    }
    double a = at[0].Angle, b = at[1].Angle;
    if (NormalAngle(b - row.StartAngle) < NormalAngle(a - row.StartAngle)) std::swap(a, b);
    middle.StartAngle = a;
    middle.EndAngle = b;
    last.StartAngle = b;
    last.EndAngle = NormalAngle(row.EndAngle);
    row.EndAngle = a;
    if (seam) {
      row.StartAngle = b;
      solution.Added = {middle};
    } else {
      solution.Added = {middle, last};
    }
    SetArcEnds(row);
    for (Entity &added : solution.Added) SetArcEnds(added);
  }
  solution.Changed = {{cut.Index, row}};
  return solution;
}
