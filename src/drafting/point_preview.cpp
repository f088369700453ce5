#include "drafting/point_preview.h"

#include "drafting/command_table.h"
#include "drafting/creation_shapes.h"
#include "drafting/pointer_notes.h"
#include "drafting/rotation_draw.h"

namespace {
constexpr int ZoomCommand = 80;
constexpr std::size_t MostRows = 301;

void Show(Drafting &d, const Entity &row, Ink role) { d.Out.Panel.Overlay.push_back(RowItem(row, role)); }

void ShowWindow(Drafting &d, Point a, Point b) {
  Show(d, MakeLine(a.X, a.Y, b.X, a.Y), Ink::Guide);
  Show(d, MakeLine(b.X, a.Y, b.X, b.Y), Ink::Guide);
  Show(d, MakeLine(b.X, b.Y, a.X, b.Y), Ink::Guide);
  Show(d, MakeLine(a.X, b.Y, a.X, a.Y), Ink::Guide);
}
bool IsBox(int cmdNo) { return cmdNo == 51 || cmdNo == 52; }

std::string Reading(const Drafting &d, const Solution &shape, Point last, Point at) {
  const std::vector<Entity> &rows = shape.Added;
  if (!shape.Solved() || rows.empty()) return RowReading(MakeLine(last.X, last.Y, at.X, at.Y));
  if (IsBox(d.Cmd.CmdNo)) return SizeText(GetLineLength(rows[0]), GetLineLength(rows[1]));
  if (d.Cmd.CmdNo == 53) return "R " + LengthText(d.Tool.PolyRadius);
  return RowReading(rows[0]);
}
} // namespace

DrawItem RowItem(const Entity &e, Ink role) {
  DrawItem item;
  item.Role = role;
  if (e.EntType == LineType) {
    item.At = {e.X1, e.Y1, e.X2, e.Y2};
  } else {
    item.What = e.EntType == CircleType ? DrawItem::Kind::Circle : DrawItem::Kind::Arc;
    item.At = {e.CenterX, e.CenterY, e.Radius, e.StartAngle, e.EndAngle};
  }
  return item;
}

void FlashRow(Drafting &d, const Entity &e) {
  d.Out.Panel.Flash = {RowItem(e, Ink::Picked)};
  ++d.Out.Panel.FlashNo;
}

void PreviewPoints(Drafting &d, Point at) {
  const Point last = LastPoint(d.Cmd);
  const bool anchored = d.Cmd.PointCount >= 0;
  if (d.Cmd.CmdNo == ZoomCommand) {
    if (anchored) ShowWindow(d, last, at);
    return;
  }
  std::vector<Point> points;
  for (int i = 0; i <= d.Cmd.PointCount; ++i) points.push_back(PointAt(d.Cmd, i));
  points.push_back(at);
  const Solution shape = ShapeOf(d, points);
  std::vector<Entity> rows = shape.Added;
  const bool made = shape.Solved() && !rows.empty();
  if (!made && !anchored) return;
  const auto copies = static_cast<std::size_t>(d.Rotation.RotationCount);
  if (made && d.Rotation.Active && rows.size() * copies <= MostRows)
    for (const Entity &row : shape.Added) AppendCopies(d.Rotation, row, rows);
  if (!made) Show(d, MakeLine(last.X, last.Y, at.X, at.Y), Ink::Guide);
  if (made)
    for (const Entity &row : rows) Show(d, row, Ink::WillBe);
  ShowReading(d, at, Reading(d, shape, last, at));
}
