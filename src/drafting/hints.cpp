#include "drafting/hints.h"

#include "drafting/command_table.h"
#include "drafting/point_fields.h"
#include "drafting/selection.h"

#include <algorithm>
#include <array>

namespace {
constexpr std::int32_t NarrowFrame = 930;

enum class Step { Frame, Option, Method, Corner, Select, Pick, LastPick, Side, Radius, Point, LastPoint };

bool Shown(const Drafting &d, Ctl c) { return d.Out[c].Visible; }

// How many picks complete a command that only picks.
int PicksOf(int cmdNo) {
  switch (cmdNo) {
  case 54:
  case 69:
  case 85:
  case 90: return 1;
  case 25:
  case 35:
  case 58:
  case 62:
  case 63:
  case 67: return 3;
  default: return 2;
  }
}

// The commands that pick a line or circle first and then take points.
bool PicksFirst(int cmdNo) { return (cmdNo >= 3 && cmdNo <= 6) || cmdNo == 10; }

Step StepOf(const Drafting &d, const CommandRow &row) {
  const CommandState &cmd = d.Cmd;
  for (const Ctl c : {Ctl::BoxWH_Frame, Ctl::Poly_Frame, Ctl::Mirror_Frame, Ctl::Movement_Frame})
    if (Shown(d, c)) return Step::Frame;
  if (Shown(d, Ctl::XFormOption)) return Step::Option;
  if (cmd.WindowSelect) return Step::Corner;
  if (Selecting(d)) return Shown(d, Ctl::Selection_Frame) ? Step::Method : Step::Select;
  const bool points = !row.Click || row.Enter || cmd.Movement;
  if (points) return cmd.PointCount + 2 >= std::max(row.Points, 1) ? Step::LastPoint : Step::Point;
  if (PicksFirst(row.CmdNo)) {
    if (!cmd.Pick[0].Found) return Step::Pick;
    return row.CmdNo == 4 ? Step::Side : Step::Point;
  }
  if ((row.CmdNo == 26 || row.CmdNo == 36) && cmd.CmdState == 2) return Step::Radius;
  return cmd.CmdState + 1 >= PicksOf(row.CmdNo) ? Step::LastPick : Step::Pick;
}

const char *PointText(const CommandState &cmd) {
  switch (cmd.RefType) {
  case EndRef: return "take the nearest end of the entity";
  case CentreRef: return "take the center of the entity";
  case IntersectionRef: return cmd.CmdStep % 2 == 0 ? "pick the first to cross" : "pick the second to cross";
  case AlongRef: return "pick the line";
  default: return "place the point";
  }
}

const char *LeftText(const Drafting &d, const CommandRow &row, Step step) {
  const bool begun = d.Cmd.CmdState > 0;
  switch (step) {
  case Step::Frame: return nullptr;
  case Step::Option: return d.Select.FromIdle ? "move what is selected" : "move this entity";
  case Step::Method:
  case Step::Select: return "select the entity";
  case Step::Corner: return begun ? "the opposite corner" : "the first corner";
  case Step::Side: return "choose the side";
  case Step::Radius: return nullptr;
  case Step::Pick: return "pick the entity";
  case Step::LastPick: return row.CmdNo == 85 ? "delete the entity" : "pick the entity, which completes it";
  case Step::Point:
  case Step::LastPoint: return PointText(d.Cmd);
  }
  return nullptr;
}

const char *EnterText(const Drafting &d, const CommandRow &row, Step step) {
  switch (step) {
  case Step::Frame:
    return Shown(d, Ctl::BoxWH_Frame) || Shown(d, Ctl::Poly_Frame) ? "accept the values" : nullptr;
  case Step::Option: return "move";
  case Step::Radius: return "take the radius";
  case Step::Corner:
  case Step::Method:
  case Step::Select:
    if (!row.Enter) return nullptr;
    if (CountSelected(d.Grain.Table) == 0) return "leave the tool";
    return row.CmdNo == 86 ? "delete the selection" : "go on with the selection";
  default: return nullptr;
  }
}

const char *RightText(const Drafting &d, const CommandRow &row) {
  if (row.CmdNo == 80) return "back to the tool before";
  if (d.Cmd.BackPos < d.Cmd.BackDepth) return "one step back";
  const bool panel = d.Out[Ctl::DrawPanel].Enabled;
  if (row.CmdNo == 55 || row.CmdNo == 56) return "another radius";
  if (panel && (row.CmdNo == 51 || row.CmdNo == 53)) return "other sizes";
  return "leave the tool";
}

void Add(std::string &line, const char *key, const char *what) {
  if (!what) return;
  if (!line.empty()) line += "   ";
  line += key;
  line += ": ";
  line += what;
}

std::string IdleText(const Drafting &d) {
  const bool any = d.Cmd.SelectCount > 0;
  std::string line;
  Add(line, "Left", any ? "select or deselect" : "select");
  Add(line, "Drag", "window");
  if (any) Add(line, "Right", "deselect all");
  Add(line, "Del", any ? "delete the selection" : "delete");
  if (const CommandRow *row = FindCommand(d.LastTool)) {
    const std::string again(RowOf(row->Button).Text);
    Add(line, "Enter", (again + " again").c_str());
  }
  return line;
}

bool Snaps(const Drafting &d, Step step) {
  if (step == Step::Corner || !d.Out[Ctl::DrawPanel].Enabled) return false;
  return d.Grain.Doc.SnapToGrid == 1 || (d.Track.AutoPoint && d.Cmd.RefType == CursorRef);
}

void ShowChange(Screen &out, Ctl menu, Ctl button, const std::string &verb, const UndoName &change,
                const char *key, const char *none) {
  const bool named = !change.Text.empty();
  out[menu].Text = named ? verb + " " + std::string(change.Text) : verb;
  out[menu].Hint = change.There ? out[menu].Text + key : none;
  out[button].Hint = out[menu].Hint;
}
} // namespace

std::string HintText(const Drafting &d) {
  const CommandRow *row = FindCommand(d.Cmd.CmdNo);
  if (!row) return IdleText(d);
  const Step step = StepOf(d, *row);
  std::string line;
  if (const char *left = LeftText(d, *row, step)) Add(line, "Left", left);
  Add(line, "Right", RightText(d, *row));
  if (Shown(d, Ctl::End_Frame) && d.Out[Ctl::End_Frame].Height > NarrowFrame) Add(line, "Tab", "type values");
  if (Snaps(d, step)) Add(line, "Alt", "no snap");
  Add(line, "Enter", EnterText(d, *row, step));
  Add(line, "Esc", "leave the tool");
  return line;
}

void RefreshHints(Drafting &d) {
  d.Out[Ctl::sbHints].Text = HintText(d);
  ShowChange(d.Out, Ctl::mnuEditUndo, Ctl::tbUndo, "Undo", NextUndo(d.Ring), " (Ctrl+Z)",
             d.Ring.UndoTop > 0 ? "Nothing older is kept" : "Nothing to undo");
  ShowChange(d.Out, Ctl::mnuEditRedo, Ctl::tbRedo, "Redo", NextRedo(d.Ring), " (Ctrl+Y)", "Nothing to redo");
}
