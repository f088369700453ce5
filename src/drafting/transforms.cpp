#include "drafting/transforms.h"

#include "drafting/point_preview.h"
#include "drafting/rotation_draw.h"
#include "drafting/selection.h"

#include <cmath>

namespace {
constexpr double LeastSize = 0.0001; // mm

bool TooSmall(const Entity &e) {
  return e.EntType == LineType ? std::hypot(e.X2 - e.X1, e.Y2 - e.Y1) < LeastSize : e.Radius < LeastSize;
}
} // namespace

Solution TransformRows(const Drafting &d, int copies, const RowMap &map) {
  Solution solution;
  bool small = false;
  const auto made = [&](const TurnedIndex &at, int copy) {
    const Entity &row = RowAt(d.Grain.Table, at.Index);
    const double turn = at.Turn * d.Rotation.RotationPitch;
    Entity image = at.Turn == 0 ? map(row, copy) : TurnedRow(map(TurnedRow(row, -turn), copy), turn);
    image.Selected = false;
    small = small || (TooSmall(image) && !TooSmall(row));
    return image;
  };
  const std::vector<TurnedIndex> rows = SelectedRows(d, d.Rotation.Active);
  const std::size_t used = static_cast<std::size_t>(d.Grain.Table.EntCount + 1);
  if (used + rows.size() * static_cast<std::size_t>(copies) > d.Grain.Table.Row.size())
    return Failed(TableFullText);
  for (const TurnedIndex &row : rows)
    if (copies == 0) solution.Changed.push_back({row.Index, made(row, 1)});
  for (int copy = 1; copy <= copies; ++copy)
    for (const TurnedIndex &row : rows) solution.Added.push_back(made(row, copy));
  return small ? Failed("ERROR: Entity's too small") : solution;
}

void ShowTransformed(Drafting &d, const RowMap &map) {
  if (!map) return;
  for (const TurnedIndex &row : SelectedRows(d, false))
    d.Out.Panel.Overlay.push_back(RowItem(map(RowAt(d.Grain.Table, row.Index), 1), Ink::WillBe));
}
