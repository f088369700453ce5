#include "geometry/surplus_rows.h"

#include "geometry/carrier.h"
#include "geometry/row_measure.h"

#include <cmath>

namespace {
constexpr double Same = 1e-6; // mm

bool LineCovers(const Entity &line, const Entity &other) {
  const Carrier along = CarrierOf(line);
  const double length = RowLength(line);
  for (const Point p : {Point{other.X1, other.Y1}, Point{other.X2, other.Y2}}) {
    const double at = AlongOf(along, p);
    if (std::abs(AsideOf(along, p)) > Same || at < -Same || at > length + Same) return false;
  }
  return true;
}

bool RoundCovers(const Entity &round, const Entity &other) {
  if (std::abs(round.Radius - other.Radius) > Same || Distance(CentreOf(round), CentreOf(other)) > Same)
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
  for (std::size_t j = 0; j < extent.size(); ++j)
    for (std::size_t i = 0; i < extent.size() && !none[j]; ++i)
      if (i != j && !none[i] && covers(i, j) && (i < j || !covers(j, i))) {
        surplus.Duplicates.push_back(static_cast<int>(j));
        break;
      }
  return surplus;
}

std::vector<bool> Flags(const EntityTable &table, const Surplus &surplus) {
  std::vector<bool> flag(Count(table));
  for (const auto *rows : {&surplus.NoLength, &surplus.Duplicates})
    for (const int i : *rows) flag[static_cast<std::size_t>(i)] = true;
  return flag;
}
