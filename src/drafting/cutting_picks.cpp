#include "drafting/cutting_picks.h"

#include "drafting/command_machine.h"
#include "drafting/commit.h"
#include "drafting/report.h"
#include "drafting/rotation_draw.h"

#include <algorithm>

namespace {
constexpr int PlayingMode = 2, BackButton = 2;

// The fields that a cut can change.
bool SameGeometry(const Entity &a, const Entity &b) {
  const auto values = [](const Entity &e) {
    return std::array{e.X1,      e.Y1,     e.X2,         e.Y2,       e.CenterX,
                      e.CenterY, e.Radius, e.StartAngle, e.EndAngle, e.Slope};
  };
  return a.EntType == b.EntType && values(a) == values(b);
}

bool ChangesNothing(const Solution &s, const EntityTable &table) {
  return s.Added.empty() && s.Deleted.empty() &&
         std::all_of(s.Changed.begin(), s.Changed.end(),
                     [&](const RowChange &c) { return SameGeometry(c.Row, RowAt(table, c.Index)); });
}
} // namespace

void HoldPick(Drafting &d, const PickedRow &pick, Point clicked, int kind) {
  CommandState &cmd = d.Cmd;
  const auto slot = static_cast<std::size_t>(cmd.CmdState);
  cmd.Pick.at(slot) = pick;
  std::int16_t *const row[] = {&cmd.EntPick, &cmd.EntPick2, &cmd.EntPick3};
  bool *const have[] = {&cmd.PickHaveFirst, &cmd.PickHaveSecond, &cmd.PickHaveThird};
  *row[slot] = static_cast<std::int16_t>(pick.Index);
  *have[slot] = true;
  cmd.PickFound = true;
  ++cmd.CmdState;
  LogInput(d, kind, pick.Index, clicked.X, clicked.Y);
}

std::span<const PickedRow> HeldPicks(const Drafting &d) {
  return std::span(d.Cmd.Pick).first(static_cast<std::size_t>(d.Cmd.CmdState));
}

bool ApplyPicks(Drafting &d, std::span<const PickedRow> picks, const PickSolver &solve) {
  const Solution solution = SolveWithImages(d, picks, solve);
  if (!solution.Solved()) {
    Report(d, solution.Failure);
    return false;
  }
  return ChangesNothing(solution, d.Grain.Table) || Apply(d, solution);
}

void DropPicks(Drafting &d) {
  if (d.Grain.MacroMode == PlayingMode) return; // a template reads GeomAbort and goes no further
  for (int held = d.Cmd.CmdState; held > 0; --held)
    LogInput(d, LogClick, d.Cmd.ClickX, d.Cmd.ClickY, BackButton);
  RestartCommand(d);
  d.Grain.GeomAbort = false;
}
