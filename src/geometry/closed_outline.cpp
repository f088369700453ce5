#include "geometry/closed_outline.h"

#include "geometry/primitives.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

OutlinePiece Reversed(OutlinePiece piece) {
  std::swap(piece.X1, piece.X2);
  std::swap(piece.Y1, piece.Y2);
  piece.Sweep = -piece.Sweep;
  return piece;
}

OutlinePiece PieceOf(Entity e) {
  if (e.EntType == LineType) return {e.X1, e.Y1, e.X2, e.Y2};
  SetArcEnds(e);
  return {e.X1, e.Y1, e.X2, e.Y2, e.CenterX, e.CenterY, e.Radius, ArcSweep(e)};
}

} // namespace

std::vector<OutlinePiece> ClosedOutline(const EntityTable &table, double joinTolerance) {
  std::vector<OutlinePiece> waiting, walk;
  for (int i = 0; i <= table.EntCount; ++i) {
    const Entity &e = RowAt(table, i);
    if (e.EntType == CircleType) {
      if (table.EntCount > 0) return {};
      const double right = e.CenterX + e.Radius;
      return {{right, e.CenterY, right, e.CenterY, e.CenterX, e.CenterY, e.Radius, 2 * Pi}};
    }
    if (e.EntType != LineType || e.X1 != e.X2 || e.Y1 != e.Y2) waiting.push_back(PieceOf(e));
  }
  if (waiting.empty()) return {};
  walk.reserve(waiting.size());
  walk.push_back(waiting.back());
  waiting.pop_back();
  while (!waiting.empty()) {
    const OutlinePiece &tip = walk.back();
    double best = joinTolerance;
    std::size_t next = waiting.size();
    bool backward = false;
    for (std::size_t i = 0; i < waiting.size(); ++i) {
      const OutlinePiece &p = waiting[i];
      const auto far = [&](double x, double y) { // most are: no root is taken for them
        return std::abs(x - tip.X2) > best || std::abs(y - tip.Y2) > best;
      };
      if (far(p.X1, p.Y1) && far(p.X2, p.Y2)) continue;
      const double first = std::hypot(p.X1 - tip.X2, p.Y1 - tip.Y2);
      const double second = std::hypot(p.X2 - tip.X2, p.Y2 - tip.Y2);
      if (first > best && second > best) continue;
      best = std::min(first, second);
      next = i;
      backward = second < first;
    }
    if (next == waiting.size()) return {};
    walk.push_back(backward ? Reversed(waiting[next]) : waiting[next]);
    waiting[next] = waiting.back();
    waiting.pop_back();
  }
  const OutlinePiece &first = walk.front(), &last = walk.back();
  if (std::hypot(first.X1 - last.X2, first.Y1 - last.Y2) > joinTolerance) return {};
  return walk;
}
