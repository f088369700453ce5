#include "geometry/solution.h"

#include "geometry/carrier.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <string>

namespace {
double OffRow(const Entity &e, Point p) {
  if (e.EntType == LineType) return std::abs(AsideOf(CarrierOf(e), p));
  return std::abs(Distance(CentreOf(e), p) - e.Radius);
}
} // namespace

PickedRow RowPick(const EntityTable &table, int index, Point position) {
  PickedRow pick{true, index, RowAt(table, index), position};
  if (pick.Row.EntType == LineType) pick.At = FootOn(CarrierOf(pick.Row), position);
  return pick;
}

PickedRow PickRow(const EntityTable &table, Point position, double grainRadius, const PickScope &scope,
                  bool grainCircle) {
  PickedRow row;
  const auto take = [&](const EntityTable &in, const Pick &found) {
    row.GeomAbort = found.GeomAbort;
    if (found.Found) row = RowPick(in, found.Index, position);
  };
  if (!grainCircle) {
    take(table, FindEntity(table, position, grainRadius, scope));
    return row;
  }
  if (table.EntCount < static_cast<int>(table.Row.size()) - 1) {
    const auto with = std::make_unique<EntityTable>(table);
    AddGrainCircle(*with, grainRadius);
    take(*with, FindEntity(*with, position, grainRadius, scope));
    return row;
  }
  // No room beside 301 rows: the edge is asked alone, and the nearer of both is meant.
  take(table, FindEntity(table, position, grainRadius, scope));
  const auto edge = std::make_unique<EntityTable>();
  AddGrainCircle(*edge, grainRadius);
  const PickedRow outer = PickRow(*edge, position, grainRadius);
  if (outer.Found && (!row.Found || OffRow(outer.Row, position) < OffRow(row.Row, position))) {
    row = outer;
    row.Index = table.EntCount + 1;
  }
  return row;
}

Solution Failed(std::string_view text, std::string_view title, Icon mark) {
  Solution failed;
  failed.Failure = {std::string(text), std::string(title), Buttons::Ok, mark};
  return failed;
}

Box Commit(EntityTable &table, const Solution &solution) {
  if (!solution.Solved()) return solution.Failure;
  const std::size_t used = static_cast<std::size_t>(table.EntCount + 1);
  if (used + solution.Added.size() > table.Row.size())
    return {std::string(TableFullText), "", Buttons::Ok, Icon::Exclamation};
  for (const RowChange &change : solution.Changed) RowAt(table, change.Index) = change.Row;
  for (const Entity &row : solution.Added) AppendRow(table, row);
  std::vector<int> gone = solution.Deleted;
  std::sort(gone.begin(), gone.end(), std::greater<>());
  for (const int i : gone) DeleteRow(table, i);
  return {};
}
