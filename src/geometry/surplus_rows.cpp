#include "geometry/surplus_rows.h"

#include "geometry/carrier.h"
#include "geometry/row_measure.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double Same = 1e-6; // mm

// Most pairs fail here, before a root is taken.
bool MayCover(const Entity &line, const Entity &other) {
  const double dx = line.X2 - line.X1, dy = line.Y2 - line.Y1, most = 4 * Same * Same * (dx * dx + dy * dy);
  const double first = dx * (other.Y1 - line.Y1) - dy * (other.X1 - line.X1);
  const double second = dx * (other.Y2 - line.Y1) - dy * (other.X2 - line.X1);
  return first * first <= most && second * second <= most;
}

bool LineCovers(const Entity &line, const Entity &other) {
  if (!MayCover(line, other)) return false;
  const Carrier along = CarrierOf(line);
  const double length = RowLength(line);
  for (const Point p : {Point{other.X1, other.Y1}, Point{other.X2, other.Y2}}) {
    const double at = AlongOf(along, p);
    if (std::abs(AsideOf(along, p)) > Same || at < -Same || at > length + Same) return false;
  }
  return true;
}

bool RoundCovers(const Entity &round, const Entity &other) {
  if (std::abs(round.Radius - other.Radius) > Same || std::abs(round.CenterX - other.CenterX) > Same ||
      Distance(CentreOf(round), CentreOf(other)) > Same)
    return false;
  if (IsWholeTurn(round)) return true;
  if (IsWholeTurn(other)) return false;
  const double margin = Same / round.Radius;
  double from = NormalAngle(other.StartAngle - round.StartAngle);
  if (from > TwoPi - margin) from -= TwoPi;
  return from + ArcSweep(other) <= ArcSweep(round) + margin;
}

bool Covers(const Entity &row, const Entity &other) {
  const bool line = row.EntType == LineType;
  if (line != (other.EntType == LineType)) return false;
  return line ? LineCovers(row, other) : RoundCovers(row, other);
}

bool Around(const Extent &a, const Extent &b) {
  return b.Left >= a.Left - Same && b.Right <= a.Right + Same && b.Low >= a.Low - Same &&
         b.High <= a.High + Same;
}

std::size_t Count(const EntityTable &table) { return static_cast<std::size_t>(table.EntCount + 1); }
} // namespace

Surplus SurplusRows(const EntityTable &table) {
  Surplus surplus;
  std::vector<Extent> extent(Count(table));
  std::vector<bool> none(Count(table));
  for (std::size_t i = 0; i < extent.size(); ++i) {
    extent[i] = ExtentOf(table.Row[i]);
    none[i] = RowLength(table.Row[i]) < LeastLength;
    if (none[i]) surplus.NoLength.push_back(static_cast<int>(i));
  }
  const auto covers = [&](std::size_t i, std::size_t j) {
    return Around(extent[i], extent[j]) && Covers(table.Row[i], table.Row[j]);
  };
  std::vector<std::size_t> order; // by Left: what a row covers begins within its own width
  for (std::size_t i = 0; i < extent.size(); ++i)
    if (!none[i]) order.push_back(i);
  std::sort(order.begin(), order.end(),
            [&](std::size_t i, std::size_t j) { return extent[i].Left < extent[j].Left; });
  std::vector<Extent> sorted;
  for (const std::size_t i : order) sorted.push_back(extent[i]);
  std::vector<bool> covered(Count(table));
  for (std::size_t a = 0, first = 0; a < order.size(); ++a) {
    while (sorted[first].Left < sorted[a].Left - Same) ++first;
    for (std::size_t b = first; b < order.size() && sorted[b].Left <= sorted[a].Right + Same; ++b) {
      if (a == b || !Around(sorted[a], sorted[b])) continue;
      const std::size_t i = order[a], j = order[b];
      if (covers(i, j) && (i < j || !covers(j, i))) covered[j] = true;
    }
  }
  for (std::size_t j = 0; j < covered.size(); ++j)
    if (covered[j]) surplus.Duplicates.push_back(static_cast<int>(j));
  return surplus;
}

std::vector<bool> Flags(const EntityTable &table, const Surplus &surplus) {
  std::vector<bool> flag(Count(table));
  for (const auto *rows : {&surplus.NoLength, &surplus.Duplicates})
    for (const int i : *rows) flag[static_cast<std::size_t>(i)] = true;
  return flag;
}
