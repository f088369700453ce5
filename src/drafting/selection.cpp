#include "drafting/selection.h"

#include "drafting/back_store.h"
#include "drafting/command_machine.h"
#include "drafting/commit.h"
#include "drafting/measure.h"
#include "drafting/point_modes.h"
#include "drafting/report.h"
#include "drafting/transforms.h"

#include <algorithm>

namespace {
constexpr int AnyType = 7, DeleteCommand = 86;

bool Listed(const Drafting &d, Ctl c) { return d.Out[c].Visible; }

void OneStepFromStart(Drafting &d) { d.Cmd.BackPos = static_cast<std::int16_t>(d.Cmd.BackDepth - 1); }

// A step of which Back returns to the choice of the method.
void LeaveChoice(Drafting &d) {
  d.Out[Ctl::XFormOption].Visible = false;
  d.Out[Ctl::Selection_Frame].Visible = true;
  d.Cmd.BackPos = d.Cmd.BackDepth;
  PushBack(d);
  d.Out[Ctl::Selection_Frame].Visible = false;
}

void PickOne(Drafting &d, Point at) {
  const PickedRow pick = PickEntity(d, at, AnyType, "No Entity Found", LogSelectEnt);
  if (!pick.Found) return;
  if (Listed(d, Ctl::XFormOption)) d.Select.Copy = false;
  if (Listed(d, Ctl::XFormOption) || Listed(d, Ctl::Selection_Frame)) {
    LeaveChoice(d);
    d.Cmd.SelectionMethod = SingleMethod;
  }
  MarkRow(d, pick.Index);
  OneStepFromStart(d);
}

void TakeCorner(Drafting &d, Point at) {
  LogPosition(d, at);
  if (d.Cmd.CmdState == 0) {
    d.Cmd.AnchorX = at.X;
    d.Cmd.AnchorY = at.Y;
    d.Cmd.CmdState = 1;
    d.Cmd.PointPhase = 0;
    return;
  }
  MarkWindow(d, {d.Cmd.AnchorX, d.Cmd.AnchorY}, at);
  d.Cmd.CmdState = 0;
  d.Cmd.PointPhase = 1;
  OneStepFromStart(d);
}

bool Choosing(const Drafting &d) { return Selecting(d) && Listed(d, Ctl::Selection_Frame); }

void ChooseSingle(Drafting &d, const Event &) {
  if (!Choosing(d)) return;
  LeaveChoice(d);
  d.Cmd.SelectionMethod = SingleMethod;
  LogInput(d, LogSelectSingle);
}

void ChooseWindow(Drafting &d, const Event &) {
  if (!Choosing(d)) return;
  LeaveChoice(d);
  d.Cmd.SelectionMethod = WindowMethod;
  d.Cmd.RefType = CursorRef;
  d.Cmd.WindowSelect = true;
  d.Out[Ctl::Window_Frame].Visible = true;
  LogInput(d, LogSelectWindow);
}

void ChooseByType(Drafting &d, const Event &) {
  if (!Choosing(d)) return;
  LeaveChoice(d);
  d.Cmd.SelectionMethod = TypeMethod;
  d.Out[Ctl::Selection_Frame].Visible = true;
  LogInput(d, LogSelectByType);
}

void MarkAll(Drafting &d, int typeMask) {
  for (int i = 0; i <= d.Grain.Table.EntCount; ++i)
    if (RowAt(d.Grain.Table, i).EntType & typeMask) MarkRow(d, i);
}

void ChooseAll(Drafting &d, const Event &) {
  if (!Choosing(d)) return;
  LeaveChoice(d);
  d.Cmd.SelectionMethod = AllMethod;
  const Box sure{"Are you sure you want to Deleter ALL Entities?", "Verify Delete All", Buttons::OkCancel,
                 Icon::Question};
  if (d.Cmd.CmdNo == DeleteCommand && d.Grain.MacroMode != 2 && !d.Play.On && d.Out.Ask(sure) != Answer::Ok) {
    BackSelection(d);
    RestoreBack(d);
    return;
  }
  MarkAll(d, AnyType);
  AcceptSelection(d, LogSelectAll);
}

struct TypeRow {
  Ctl Button;
  int TypeMask, Kind;
};
constexpr TypeRow Types[] = {{Ctl::SelectLines, LineType, LogSelectLines},
                             {Ctl::SelectArcs, ArcType, LogSelectArcs},
                             {Ctl::SelectCircles, CircleType, LogSelectCircles}};

void ChooseType(Drafting &d, const Event &event) {
  if (!Choosing(d) || d.Cmd.SelectionMethod != TypeMethod) return;
  d.Out[Ctl::Selection_Frame].Visible = false;
  for (const TypeRow &row : Types)
    if (row.Button == event.Target) {
      MarkAll(d, row.TypeMask);
      return AcceptSelection(d, row.Kind);
    }
}

struct RuleRow {
  Ctl Button;
  std::int16_t Rule;
  int Kind;
};
constexpr RuleRow Rules[] = {{Ctl::All_Inside_Window, AllInside, LogAllInside},
                             {Ctl::Part_Inside_Window, PartInside, LogPartInside},
                             {Ctl::All_Outside_Window, AllOutside, LogAllOutside},
                             {Ctl::Part_Outside_Window, PartOutside, LogPartOutside}};

void ChooseRule(Drafting &d, const Event &event) {
  for (const RuleRow &row : Rules)
    if (row.Button == event.Target) {
      d.Select.WindowRule = row.Rule;
      LogInput(d, row.Kind);
    }
  RefreshSelection(d);
}

void ChooseDeleteMode(Drafting &d, const Event &event) {
  d.Select.RotationMode = event.Text == "Rotation Mode";
  d.Out[Ctl::Delete_Mode].Visible = false;
  LogInput(d, d.Select.RotationMode ? LogDeleteRotation : LogDeleteSingle);
}

constexpr ButtonRow Presses[] = {
    {Ctl::SelectSingle, ChooseSingle},      {Ctl::SelectWindow, ChooseWindow},
    {Ctl::SelectByType, ChooseByType},      {Ctl::SelectAll, ChooseAll},
    {Ctl::SelectLines, ChooseType},         {Ctl::SelectArcs, ChooseType},
    {Ctl::SelectCircles, ChooseType},       {Ctl::All_Inside_Window, ChooseRule},
    {Ctl::Part_Inside_Window, ChooseRule},  {Ctl::All_Outside_Window, ChooseRule},
    {Ctl::Part_Outside_Window, ChooseRule}, {Ctl::Delete_Mode, ChooseDeleteMode}};
} // namespace

bool StartSelection(Drafting &d) {
  d.Cmd.SelectionMethod = SingleMethod;
  d.Select.FromIdle = d.Cmd.SelectCount > 0;
  if (!d.Select.FromIdle) {
    d.Out[Ctl::Selection_Frame].Visible = true;
    return true;
  }
  AcceptSelection(d, d.Cmd.CmdNo);
  return false;
}

bool StartErase(Drafting &d) {
  d.Select.RotationMode = false;
  Control &list = d.Out[Ctl::Delete_Mode];
  list.Item = {"Single", "Rotation Mode"};
  list.Index = -1;
  list.Visible = d.Rotation.Active;
  return true;
}

void ClickErase(Drafting &d, Point at) {
  const PickedRow pick = PickEntity(d, at, AnyType, "No Entity Found");
  if (!pick.Found) return;
  d.Out[Ctl::Delete_Mode].Visible = false;
  MarkRow(d, pick.Index);
  DeleteSelected(d);
  RestartCommand(d);
}

void ClickSelection(Drafting &d, Point at) { SelectionClick(d, at); }

void EnterSelection(Drafting &d) {
  if (Listed(d, Ctl::XFormOption)) return ChooseTransform(d, false);
  if (Selecting(d)) AcceptSelection(d, 0);
}

void BackSelection(Drafting &d) {
  if (d.Cmd.BackPos == d.Cmd.BackDepth - 1) d.Cmd.SelectionMethod = SingleMethod;
}

const char *StemSelection(const Drafting &d) {
  if (!Selecting(d) || !d.Cmd.WindowSelect || d.Cmd.PointPhase != 0) return nullptr;
  return d.Cmd.CmdState == 0 ? "Indicate First Corner of Window" : "Indicate Second Corner of Window";
}

void PreviewSelection(Drafting &d, Point at) {
  if (d.Cmd.WindowSelect && d.Cmd.CmdState == 1) ShowWindow(d, {d.Cmd.AnchorX, d.Cmd.AnchorY}, at);
}

bool SelectionClick(Drafting &d, Point at) {
  if (!Selecting(d)) return false;
  if (d.Cmd.WindowSelect)
    TakeCorner(d, at);
  else
    PickOne(d, at);
  return true;
}

bool Selecting(const Drafting &d) {
  const CommandRow *row = FindCommand(d.Cmd.CmdNo);
  return row && row->Enter && !d.Cmd.Movement;
}

void AcceptSelection(Drafting &d, int kind) {
  if (CountSelected(d.Grain.Table) == 0) {
    LogAccept(d, kind);
    return LeaveCommand(d);
  }
  switch (d.Cmd.CmdNo) {
  case DeleteCommand:
    LogAccept(d, kind);
    DeleteSelected(d);
    return LeaveCommand(d);
  case 94:
  case 95: return VerifySelected(d, kind);
  default: return TransformSelected(d, kind);
  }
}

void LogAccept(Drafting &d, int kind) {
  if (kind == 0)
    LogInput(d, d.Cmd.CmdNo, 0, 0, 0, "ENTERKEY");
  else
    LogInput(d, kind);
}

void SelectAgain(Drafting &d) {
  if (d.Select.FromIdle) return LeaveCommand(d);
  RestartCommand(d);
  d.Cmd.SelectionMethod = SingleMethod;
  for (const Ctl c : {Ctl::Window_Frame, Ctl::Mirror_Frame, Ctl::End_Frame}) d.Out[c].Visible = false;
  d.Out[Ctl::Selection_Frame].Visible = true;
  d.Out[Ctl::DrawPanel].Enabled = true;
}

std::span<const ButtonRow> SelectionButtons() { return Presses; }

void RefreshSelection(Drafting &d) {
  for (const RuleRow &row : Rules) d.Out[row.Button].Checked = d.Select.WindowRule == row.Rule;
  for (const TypeRow &row : Types)
    d.Out[row.Button].Visible = Choosing(d) && d.Cmd.SelectionMethod == TypeMethod;
}
