#include "geometry/trim.h"

#include "geometry/carrier.h"

#include <cmath>
#include <utility>

namespace {

constexpr double SameRoot = 1e-6; // mm

Solution AlreadySelected() {
  return Failed("ERROR: Entity already Selected!", "Entity Selection Error", Icon::Stop);
}
bool ParallelPair(const Entity &a, const Entity &b) {
  return a.EntType == LineType && b.EntType == LineType && AreParallel(a, b);
}
Solution PickedParallel() { return Failed("Can't Solve for Parallel Lines"); }

double PickAngleOf(const PickedRow &p) { return Bearing(CentreOf(p.Row), p.At); }

// False when the two rounds do not meet: nothing to cut, and no message.
Solution CutOnce(const PickedRow &cut, const Entity &cutter, Point nearTo, double least, bool strict,
                 Entity &row) {
  const Meeting m = MeetingOf(cut.Row, cutter, nearTo, strict);
  row = cut.Row;
  row.Selected = false;
  if (m.Case == MeetCase::Apart) return {};
  if (m.Case != MeetCase::Meet) return MeetingFailure(m);
  if (row.EntType == LineType)
    MoveLineEnd(row, cut.At, m.At, least);
  else
    MoveArcEnd(row, PickAngleOf(cut), m.Angle);
  return {};
}

struct TwoPoints {
  Meeting First, Second;
};

Solution MeetTwo(const PickedRow &cut, const PickedRow &first, const PickedRow &second, TwoPoints &at) {
  if (cut.Index == first.Index)
    return Failed("ERROR: Can't Select Entity to be Trimmed as Trimming Entity", "Selection Error",
                  Icon::Stop);
  if (cut.Index == second.Index)
    return Failed("ERROR: Can't Select Entity to be Trimmed as Timming Entity", "Selection Error",
                  Icon::Stop);
  if (ParallelPair(cut.Row, first.Row) || ParallelPair(cut.Row, second.Row)) return PickedParallel();
  at.First = MeetingOf(cut.Row, first.Row, first.At);
  at.Second = MeetingOf(cut.Row, second.Row, second.At);
  for (const Meeting &m : {at.First, at.Second})
    if (m.Case != MeetCase::Meet) return MeetingFailure(m);
  if (Distance(at.First.At, at.Second.At) < SameRoot ||
      (cut.Row.EntType != LineType && SameAngle(at.First.Angle, at.Second.Angle)))
    return Failed(NoIntersectionText);
  return {};
}

Solution OneRow(int index, const Entity &row) {
  Solution solution;
  solution.Changed = {{index, row}};
  return solution;
}

} // namespace

Solution TrimEnds(const PickedRow &cut, const PickedRow &cutter) {
  if (cut.Row.EntType == CircleType) return Failed(CircleTrimText, "", Icon::Stop);
  if (cut.Index == cutter.Index) return AlreadySelected();
  if (ParallelPair(cut.Row, cutter.Row)) return PickedParallel();
  Entity row;
  const Solution step = CutOnce(cut, cutter.Row, cutter.At, -1e-5, false, row);
  return step.Solved() ? OneRow(cut.Index, row) : step;
}

Solution TrimBothEnds(const PickedRow &one, const PickedRow &two) {
  Solution first = TrimEnds(one, two);
  if (!first.Solved()) return first;
  if (two.Row.EntType == CircleType)
    return Failed("Can't Trim Circles with this Option! Use the 'Trim Entity at Both Ends' Button", "",
                  Icon::Stop);
  Entity row;
  const Solution step = CutOnce(two, first.Changed[0].Row, two.At, -1e-5, false, row);
  if (!step.Solved()) return step;
  first.Changed.push_back({two.Index, row});
  return first;
}

Solution TrimMultiOp(const PickedRow &cut, const PickedRow &cutter) {
  if (cut.Row.EntType == CircleType)
    return Failed("Entity not found or Invalid Entity Selected: Can't Single Trim Circles");
  if (cut.Index == cutter.Index) return AlreadySelected();
  if (ParallelPair(cut.Row, cutter.Row)) return PickedParallel();
  Entity row;
  const Solution step = CutOnce(cut, cutter.Row, cut.At, 0, true, row);
  return step.Solved() ? OneRow(cut.Index, row) : step;
}

Solution TrimDoubleOp(const PickedRow &cut, const PickedRow &first, const PickedRow &second) {
  TwoPoints at;
  if (const Solution step = MeetTwo(cut, first, second, at); !step.Solved()) return step;
  Entity row = cut.Row;
  row.Selected = false;
  if (row.EntType == LineType) {
    SetLineEnds(row, at.First.At, at.Second.At);
    return OneRow(cut.Index, row);
  }
  const double b1 = at.First.Angle, b2 = at.Second.Angle, p = PickAngleOf(cut);
  const bool forward = (b2 > p && p > b1) || (b1 > b2 && (p < b2 || p > b1));
  row.EntType = ArcType;
  row.StartAngle = forward ? b1 : b2;
  row.EndAngle = forward ? b2 : b1;
  SetArcEnds(row);
  return OneRow(cut.Index, row);
}

Solution TrimDivideOp(const PickedRow &cut, const PickedRow &first, const PickedRow &second,
                      bool allowCircle) {
  if (cut.Row.EntType == CircleType && !allowCircle) return Failed("Use Double Trim to divide circles");
  TwoPoints at;
  if (const Solution step = MeetTwo(cut, first, second, at); !step.Solved()) return step;
  Entity row = cut.Row;
  row.Selected = false;
  Entity added = row;
  if (row.EntType == LineType) {
    const Point end1{row.X1, row.Y1}, end2{row.X2, row.Y2};
    const auto inside = [&](Point p) {
      const double u = LineCoordinate(row, p);
      return (LineCoordinate(row, end1) - u) * (u - LineCoordinate(row, end2)) > 0;
    };
    if (!inside(at.First.At) || !inside(at.Second.At))
      return Failed("Trimming Points must be inside line End Points");
    Point nearer = at.First.At, farther = at.Second.At;
    if (Distance(end1, farther) < Distance(end1, nearer)) std::swap(nearer, farther);
    SetLineEnds(row, end1, nearer);
    SetLineEnds(added, farther, end2);
  } else {
    if (row.EntType == CircleType) {
      row.EntType = added.EntType = ArcType;
      row.StartAngle = 0;
      row.EndAngle = TwoPi;
    }
    if (!AngleInArc(at.First.Angle, row, ArcEnds::Open) || !AngleInArc(at.Second.Angle, row, ArcEnds::Open))
      return Failed("Trimming Points must be inside Arc");
    double nearer = at.First.Angle, farther = at.Second.Angle;
    if (NormalAngle(farther - row.StartAngle) < NormalAngle(nearer - row.StartAngle))
      std::swap(nearer, farther);
    added.StartAngle = farther;
    added.EndAngle = NormalAngle(row.EndAngle);
    row.EndAngle = nearer;
    SetArcEnds(row);
    SetArcEnds(added);
  }
  Solution solution = OneRow(cut.Index, row);
  solution.Added = {added};
  return solution;
}
