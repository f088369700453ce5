#include "geometry/solution.h"

#include "geometry/carrier.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <string>

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
  const int last = static_cast<int>(table.Row.size()) - 1;
  if (!grainCircle || table.EntCount >= last) {
    take(table, FindEntity(table, position, grainRadius, scope));
    if (!grainCircle || row.Found) return row;
    // No room beside 301 rows: the edge is asked alone.
    const auto edge = std::make_unique<EntityTable>();
    AddGrainCircle(*edge, grainRadius);
    take(*edge, FindEntity(*edge, position, grainRadius, scope));
    if (row.Found) row.Index = last + 1;
    return row;
  }
  const auto with = std::make_unique<EntityTable>(table);
  AddGrainCircle(*with, grainRadius);
  take(*with, FindEntity(*with, position, grainRadius, scope));
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
