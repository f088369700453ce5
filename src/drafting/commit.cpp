#include "drafting/commit.h"

#include "drafting/ask_question.h"
#include "drafting/command_table.h"
#include "drafting/point_preview.h"
#include "drafting/report.h"
#include "drafting/rotation_draw.h"
#include "drafting/view.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double LeastSize = 0.0001; // mm

bool TooSmall(const Entity &e) {
  return e.EntType == LineType ? std::hypot(e.X2 - e.X1, e.Y2 - e.Y1) < LeastSize : e.Radius < LeastSize;
}

// Sizes beyond what can be drawn, and numbers that are none, come of solvers led to a degenerate place.
bool Drawable(const Entity &e) {
  const double most = 100 * MostLength;
  for (const double v : {e.X1, e.Y1, e.X2, e.Y2, e.CenterX, e.CenterY, e.Radius})
    if (!(std::abs(v) <= most)) return false;
  return std::isfinite(e.StartAngle) && std::isfinite(e.EndAngle) && std::isfinite(e.Intercept);
}

bool AllDrawable(const Solution &s) {
  return std::all_of(s.Added.begin(), s.Added.end(), Drawable) &&
         std::all_of(s.Changed.begin(), s.Changed.end(), [](const RowChange &c) { return Drawable(c.Row); });
}
} // namespace

void ClearMarks(Drafting &d) {
  for (int i = 0; i <= d.Grain.Table.EntCount; ++i) RowAt(d.Grain.Table, i).Selected = false;
}

void RedrawPanel(Drafting &d) {
  if (d.Grain.MacroMode == 2) {
    if (d.Play.On) FoldArcAngles(d.Grain.Table); // as the drawing of the recorded session did
    return;
  }
  Redraw(d.Out.Panel, d.Grain, d.Marks);
  if (d.MarkFaults) d.MarkFaults();
}

void MarkRow(Drafting &d, int index) {
  Entity &row = RowAt(d.Grain.Table, index);
  row.Selected = true;
  FlashRow(d, row);
}

bool Apply(Drafting &d, const Solution &solution, std::string_view name) {
  Design &grain = d.Grain;
  if (solution.Solved() && !AllDrawable(solution)) {
    Report(d, "ERROR: No Solution Found", "ERROR", Icon::Stop);
    return false;
  }
  const EntityTable before = grain.Table;
  if (const Box failure = Commit(grain.Table, solution); !failure.Text.empty()) {
    Report(d, failure);
    return false;
  }
  const CommandRow *row = FindCommand(d.Cmd.CmdNo);
  if (name.empty()) name = row ? RowOf(row->Button).Text : "Delete"; // idle, a key deletes
  TakeSnapshot(d.Ring, before, grain.MacroMode, name);
  ++d.Changes;
  ClearMarks(d);
  grain.SavedFlag = false;
  RedrawPanel(d);
  if (d.KeepWork && grain.MacroMode != 2) d.KeepWork();
  return true;
}

bool AddEntities(Drafting &d, std::span<const Entity> rows) {
  Solution solution;
  if (std::any_of(rows.begin(), rows.end(), TooSmall)) solution = Failed("ERROR: Entity's too small");
  for (const Entity &row : rows) {
    solution.Added.push_back(row);
    if (d.Rotation.Active && solution.Solved() && RepeatOriginCircle(d, row))
      AppendCopies(d.Rotation, row, solution.Added);
  }
  return Apply(d, solution);
}
