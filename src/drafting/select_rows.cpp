#include "drafting/commit.h"
#include "drafting/point_preview.h"
#include "drafting/pointer_notes.h"
#include "drafting/rotation_draw.h"
#include "drafting/selection.h"
#include "drafting/transform_rows.h"

#include <algorithm>
#include <array>
#include <span>
#include <tuple>
#include <utility>

namespace {
constexpr int EraseCommand = 85;

struct Telling {
  std::array<Point, 6> At;
  std::size_t Count = 0;
  void Add(Point p) { At[Count++] = p; }
};

Telling TellingPoints(const Entity &e) {
  Telling all;
  if (e.EntType != CircleType) {
    all.Add({e.X1, e.Y1});
    all.Add({e.X2, e.Y2});
  }
  if (e.EntType == LineType) return all;
  const Point axis[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
  for (int quarter = 0; quarter < 4; ++quarter)
    if (e.EntType == CircleType || AngleInArc(quarter * Pi / 2, e, ArcEnds::Closed))
      all.Add({e.CenterX + e.Radius * axis[quarter].X, e.CenterY + e.Radius * axis[quarter].Y});
  return all;
}
} // namespace

int CountSelected(const EntityTable &table) {
  const auto last = table.Row.begin() + table.EntCount + 1;
  return static_cast<int>(std::count_if(table.Row.begin(), last, [](const Entity &e) { return e.Selected; }));
}

bool InWindow(const Entity &e, const SelectionValues &window) {
  const Telling telling = TellingPoints(e);
  const auto points = std::span(telling.At).first(telling.Count);
  const auto inside = [&](Point p) { return InRectangle(window, p); };
  const bool all = std::all_of(points.begin(), points.end(), inside);
  const bool any = std::any_of(points.begin(), points.end(), inside);
  switch (window.WindowRule) {
  case PartInside: return any;
  case AllOutside: return !any;
  case PartOutside: return !all;
  default: return all;
  }
}

void SetWindow(SelectionValues &window, Point corner, Point opposite) {
  std::tie(window.WindowLeft, window.WindowRight) = std::minmax(corner.X, opposite.X);
  std::tie(window.WindowBottom, window.WindowTop) = std::minmax(corner.Y, opposite.Y);
}

void MarkWindow(Drafting &d, Point corner, Point opposite) {
  SetWindow(d.Select, corner, opposite);
  for (int i = 0; i <= d.Grain.Table.EntCount; ++i)
    if (InWindow(RowAt(d.Grain.Table, i), d.Select)) MarkRow(d, i);
}

void ShowWindow(Drafting &d, Point a, Point b) {
  Ctl rule = Ctl::All_Inside_Window;
  if (d.Select.WindowRule == PartInside) rule = Ctl::Part_Inside_Window;
  if (d.Select.WindowRule == AllOutside) rule = Ctl::All_Outside_Window;
  if (d.Select.WindowRule == PartOutside) rule = Ctl::Part_Outside_Window;
  ShowWindow(d, a, b, InWindow, RowOf(rule).Text.data());
}

void ShowWindow(Drafting &d, Point a, Point b, TakesRow takes, const char *rule) {
  SelectionValues window = d.Select;
  SetWindow(window, a, b);
  for (int i = 0; i <= d.Grain.Table.EntCount; ++i)
    if (const Entity &e = RowAt(d.Grain.Table, i); takes(e, window))
      d.Out.Panel.Overlay.push_back(RowItem(e, Ink::Picked));
  ShowRule(d, {window.WindowLeft, window.WindowTop}, rule);
  for (const auto &[from, to] : {std::pair{a, Point{b.X, a.Y}}, std::pair{Point{b.X, a.Y}, b},
                                 std::pair{b, Point{a.X, b.Y}}, std::pair{Point{a.X, b.Y}, a}})
    d.Out.Panel.Overlay.push_back(RowItem(MakeLine(from.X, from.Y, to.X, to.Y), Ink::Guide));
}

std::vector<TurnedIndex> SelectedRows(const Drafting &d, bool images) {
  const EntityTable &table = d.Grain.Table;
  std::vector<TurnedIndex> rows;
  for (int i = 0; i <= table.EntCount; ++i)
    if (RowAt(table, i).Selected) rows.push_back({i, 0});
  if (!images) return rows;
  std::bitset<301> taken;
  for (const TurnedIndex &row : rows) taken.set(static_cast<std::size_t>(row.Index));
  const std::size_t picked = rows.size();
  for (std::size_t i = 0; i < picked; ++i)
    for (int k = 1; k < d.Rotation.RotationCount; ++k) {
      const int image = ImageOf(table, RowAt(table, rows[i].Index), k * d.Rotation.RotationPitch,
                                d.Grain.Doc.JoinTolerance);
      if (image < 0 || taken[static_cast<std::size_t>(image)]) continue;
      taken.set(static_cast<std::size_t>(image));
      rows.push_back({image, k});
    }
  return rows;
}

void DeleteSelected(Drafting &d) {
  const bool images = d.Cmd.CmdNo == EraseCommand && d.Select.RotationMode && d.Rotation.Active;
  Solution solution;
  for (const TurnedIndex &row : SelectedRows(d, images)) solution.Deleted.push_back(row.Index);
  if (!solution.Deleted.empty()) Apply(d, solution);
}
