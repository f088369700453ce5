#include "geometry/carrier.h"
#include "geometry/diagnose.h"
#include "geometry/find_entity.h"
#include "geometry/row_ends.h"
#include "geometry/row_measure.h"
#include "geometry/self_crossings.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {
constexpr double Same = 1e-6;     // mm
constexpr double FlatSine = 1e-6; // of half a sweep: such an arc cannot be laid over another chord

Point EndAt(const Entity &row, int side) { return EndsOf(row)[static_cast<std::size_t>(side)]; }

bool MoveEnd(Entity &row, int side, Point to) { // of a line
  const Point other = EndAt(row, 1 - side);
  if (Distance(other, to) < LeastLength) return false;
  SetLineEnds(row, side == 0 ? to : other, side == 0 ? other : to);
  SetLineSlope(row);
  return true;
}

bool TurnEnd(Entity &arc, int side, Point to) { // along its circle
  Entity turned = arc;
  (side == 0 ? turned.StartAngle : turned.EndAngle) = Bearing(CentreOf(arc), to);
  if (IsWholeTurn(turned) || std::abs(ArcSweep(turned) - ArcSweep(arc)) > Pi / 2) return false;
  SetArcEnds(turned);
  arc = turned;
  return true;
}

bool SpanEnd(Entity &arc, int side, Point to) {
  const Point other = EndAt(arc, 1 - side);
  if (Distance(other, to) < LeastLength || std::sin(ArcSweep(arc) / 2) < FlatSine) return false;
  SpanChord(arc, side == 0 ? to : other, side == 0 ? other : to);
  return true;
}

using Mover = bool (*)(Entity &, int, Point);

struct Joint {
  Entity &A, &B;
  int SideA = 0, SideB = 0;

  bool Both(Mover move, Point to) const {
    Entity a = A, b = B;
    if (!move(a, SideA, to) || !move(b, SideB, to)) return false;
    A = a;
    B = b;
    return true;
  }
};

// The crossing of the whole lines or circles that lies within the tolerance of both ends.
std::optional<Point> CrossingAt(const Joint &j, double tolerance) {
  const Point one = EndAt(j.A, j.SideA), other = EndAt(j.B, j.SideB);
  const CrossingPair crossing = CarrierCrossings(j.A, j.B);
  for (int k = 0; k < crossing.Count; ++k) {
    const Point p = crossing.At[static_cast<std::size_t>(k)];
    if (Distance(p, one) <= tolerance && Distance(p, other) <= tolerance) return p;
  }
  return std::nullopt;
}

bool Close(const Joint &j, double tolerance) {
  const bool lineA = j.A.EntType == LineType, lineB = j.B.EntType == LineType;
  if (lineA != lineB)
    return lineA ? MoveEnd(j.A, j.SideA, EndAt(j.B, j.SideB)) : MoveEnd(j.B, j.SideB, EndAt(j.A, j.SideA));
  const auto crossing = CrossingAt(j, tolerance);
  if (crossing && j.Both(lineA ? MoveEnd : TurnEnd, *crossing)) return true;
  return j.Both(lineA ? MoveEnd : SpanEnd, Midway(EndAt(j.A, j.SideA), EndAt(j.B, j.SideB)));
}
} // namespace

Solution CloseGaps(const EntityTable &table, double joinTolerance) {
  Solution solution;
  if (table.EntCount < 0) return solution;
  const Surplus surplus = SurplusRows(table);
  for (const auto *rows : {&surplus.NoLength, &surplus.Duplicates})
    solution.Deleted.insert(solution.Deleted.end(), rows->begin(), rows->end());
  const std::vector<RowEnd> ends = RowEnds(table, Flags(table, surplus));
  std::vector<bool> taken(ends.size());
  std::vector<EndPair> joints; // each end once, with the end nearest to it
  for (const EndPair &pair : PairsWithin(ends, joinTolerance)) {
    if (taken[pair.One] || taken[pair.Other]) continue;
    taken[pair.One] = taken[pair.Other] = true;
    if (pair.Apart > Same) joints.push_back(pair);
  }
  std::vector<Entity> row(table.Row.begin(), table.Row.begin() + table.EntCount + 1);
  const auto rowOf = [&](std::size_t end) -> Entity & {
    return row[static_cast<std::size_t>(ends[end].Index)];
  };
  // Arcs first: a line beside one takes the end at which the arc comes to rest.
  const auto lines = [&](const EndPair &p) {
    return (rowOf(p.One).EntType == LineType) + (rowOf(p.Other).EntType == LineType);
  };
  std::stable_sort(joints.begin(), joints.end(),
                   [&](const EndPair &a, const EndPair &b) { return lines(a) < lines(b); });
  std::vector<bool> moved(row.size());
  for (const EndPair &pair : joints) {
    const RowEnd &one = ends[pair.One], &other = ends[pair.Other];
    const Joint joint{rowOf(pair.One), rowOf(pair.Other), one.Side, other.Side};
    if (!Close(joint, joinTolerance)) continue;
    for (const RowEnd *end : {&one, &other}) {
      const auto i = static_cast<std::size_t>(end->Index);
      const Entity &was = table.Row[i], &is = row[i];
      moved[i] = was.X1 != is.X1 || was.Y1 != is.Y1 || was.X2 != is.X2 || was.Y2 != is.Y2;
    }
  }
  for (std::size_t i = 0; i < row.size(); ++i)
    if (moved[i]) solution.Changed.push_back({static_cast<int>(i), row[i]});
  return solution;
}
