#include "drafting/command_machine.h"

#include "drafting/back_store.h"
#include "drafting/commit.h"
#include "drafting/creation.h"
#include "drafting/hints.h"
#include "drafting/hot_keys.h"
#include "drafting/point_modes.h"
#include "drafting/prompt.h"
#include "drafting/properties.h"
#include "drafting/report.h"
#include "drafting/rotation_draw.h"
#include "drafting/selection.h"
#include "drafting/tracker.h"
#include "drafting/transforms.h"
#include "drafting/typing.h"
#include "drafting/zoom_window.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int LeftButton = 1, RightButton = 2, AltKey = 4, ZoomCommand = 80, StringOfLines = 2,
              PlayingMode = 2;
constexpr double SamePlace = 0.0001; // mm
constexpr int NarrowFrame = 930, WideFrame = 1350;
constexpr std::uint32_t RunningColour = 255;

constexpr std::array Lists{Ctl::XFormOption, Ctl::Delete_Mode, Ctl::HotKeyList};
constexpr std::array Frames{Ctl::End_Frame,      Ctl::Selection_Frame, Ctl::Mirror_Frame, Ctl::Window_Frame,
                            Ctl::Movement_Frame, Ctl::BoxWH_Frame,     Ctl::Poly_Frame};

void HideAll(Drafting &d) {
  for (const Ctl c : Lists) d.Out[c].Visible = false;
  for (const Ctl c : Frames) d.Out[c].Visible = false;
}

void ShowFrames(Drafting &d, const CommandRow &row) {
  HideAll(d);
  Control &frame = d.Out[Ctl::End_Frame];
  frame.Visible = row.Fields != EndFrame::None;
  frame.Height = row.Fields == EndFrame::Fields ? WideFrame : NarrowFrame;
  d.Out[Ctl::Motor_Dimensions].Visible = false;
  d.Out[Ctl::DrawPanel].Enabled = true;
}

void ToIdle(Drafting &d) {
  static_cast<StepState &>(d.Cmd) = StepState{};
  d.Cmd.CmdNo = 0;
  d.Cmd.BackDepth = d.Cmd.BackPos = 0;
  d.Cmd.DeltaPending = false;
  if (d.Under) d.Cmd.RefType = d.Under->RefType; // a zoom has its own
  d.Under.reset();
  d.Marks.clear();
  d.Answers.clear();
  d.Out.Panel.Overlay.clear();
  HideAll(d);
  d.Out[Ctl::DrawPanel].Enabled = true;
  d.Out[Ctl::Motor_Dimensions].Visible = true;
}

// The last point of one line begins the next.
void ChainLine(Drafting &d) {
  const Point last = LastPoint(d.Cmd);
  RestartCommand(d);
  d.Cmd.PointX[0] = last.X;
  d.Cmd.PointY[0] = last.Y;
  d.Cmd.PointCount = 0;
  d.Cmd.CmdState = 2;
  d.Cmd.AnchorX = last.X;
  d.Cmd.AnchorY = last.Y;
}

void GenericClick(Drafting &d, const CommandRow &row, Point at) {
  if (!PointInput(d, at)) return;
  CommandState &cmd = d.Cmd;
  const Point last = LastPoint(cmd);
  cmd.AnchorX = last.X;
  cmd.AnchorY = last.Y;
  const int held = cmd.PointCount + 1;
  if (row.Points == 3) cmd.PointPhase = static_cast<std::int16_t>(held);
  cmd.CmdState = static_cast<std::int16_t>(std::min(held, row.Points == 3 ? 1 : 2));
  if (held < row.Points) return;
  const unsigned changes = d.Changes;
  row.Commit(d);
  if (cmd.CmdNo != row.CmdNo || (d.Grain.GeomAbort && d.Changes == changes)) return;
  if (row.CmdNo == StringOfLines)
    ChainLine(d);
  else
    RestartCommand(d);
}

void TakePointer(Drafting &d, const Event &event) {
  d.Pointer = {event.X, event.Y};
  d.NoSnap = (event.Shift & AltKey) != 0;
}

double CaptureDistance(const Drafting &d) { return std::abs(d.Out.Panel.Height) / 100; }

// What tells whether an input has left the command without a word in the log: a question was cancelled.
struct Standing {
  std::size_t Logged;
  unsigned Changes;
  bool Stood, Zooming;
  explicit Standing(const Drafting &d)
      : Logged(d.Log.Row.size()), Changes(d.Changes), Stood(d.Cmd.CmdNo != 0 || d.Cmd.SelectCount > 0),
        Zooming(d.Cmd.CmdNo == ZoomCommand) {}
};

void LogLeft(Drafting &d, const Standing &before) {
  const bool idle = d.Cmd.CmdNo == 0 && d.Cmd.SelectCount == 0;
  if (!d.Log.On || !before.Stood || !idle || d.Log.Row.size() < before.Logged) return;
  // Numbers that it took from the fields do not leave a command.
  const auto logged = d.Log.Row.begin() + static_cast<std::ptrdiff_t>(before.Logged);
  const bool numbers = std::all_of(logged, d.Log.Row.end(), [](const Instruction &i) {
    return i.PointArea == LogXInput || i.PointArea == LogYInput;
  });
  if (!numbers || (logged != d.Log.Row.end() && d.Changes != before.Changes)) return;
  d.Answers.clear();
  LogLeave(d, before.Zooming);
}

// What an input that came to nothing puts back while a recording runs, since the log knows nothing of it.
struct Moment {
  CommandState Cmd;
  SelectionValues Select;
  std::array<bool, BackFrames.size() + Lists.size()> Shown{};
  std::bitset<301> Marked;
  std::size_t Logged;
  unsigned Changes;
};

template <class Flag>
void EachFrame(Drafting &d, Flag flag) {
  std::size_t i = 0;
  for (const Ctl c : BackFrames) flag(c == Ctl::DrawPanel ? d.Out[c].Enabled : d.Out[c].Visible, i++);
  for (const Ctl c : Lists) flag(d.Out[c].Visible, i++);
}

Moment MomentOf(Drafting &d) {
  Moment m{d.Cmd, d.Select, {}, {}, d.Log.Row.size(), d.Changes};
  EachFrame(d, [&](const bool &shown, std::size_t i) { m.Shown[i] = shown; });
  for (int i = 0; i <= d.Grain.Table.EntCount; ++i)
    m.Marked[static_cast<std::size_t>(i)] = RowAt(d.Grain.Table, i).Selected;
  return m;
}

void PutBackFailed(Drafting &d, const Moment &m) {
  if (!d.Grain.GeomAbort || d.Log.Row.size() != m.Logged || d.Changes != m.Changes ||
      d.Cmd.CmdNo != m.Cmd.CmdNo)
    return;
  d.Cmd = m.Cmd;
  d.Select = m.Select;
  EachFrame(d, [&](bool &shown, std::size_t i) { shown = m.Shown[i]; });
  for (int i = 0; i <= d.Grain.Table.EntCount; ++i)
    RowAt(d.Grain.Table, i).Selected = m.Marked[static_cast<std::size_t>(i)];
}

template <class Input>
void Recorded(Drafting &d, Input input) {
  if (!d.Log.On) return input();
  const Standing stood(d);
  const Moment before = MomentOf(d);
  input();
  PutBackFailed(d, before);
  LogLeft(d, stood);
}

bool WantsCorner(const Drafting &d) { return d.Cmd.WindowSelect || d.Cmd.CmdNo == ZoomCommand; }
} // namespace

// What fails leaves everything as it was before the click.
void ClickHeld(Drafting &d, Point at) {
  const CommandRow *row = FindCommand(d.Cmd.CmdNo);
  if (!row) return;
  if ((d.Log.On || d.Play.On) && !d.Typed.Entered) at = NarrowPoint(at);
  const Standing stood(d);
  d.Grain.GeomAbort = false;
  const CommandState before = d.Cmd;
  const EntityTable rows = d.Grain.Table; // for the marks of picked rows
  const std::vector<Point> marks = d.Marks;
  const std::size_t logged = d.Log.Row.size();
  const DraftDefaults defaults = d.Grain.Defaults;
  const unsigned changes = d.Changes;
  if (row->CmdNo != ZoomCommand) PushBack(d);
  d.Cmd.PickFound = false;
  if (row->Click)
    row->Click(d, at);
  else
    GenericClick(d, *row, at);
  if (d.Grain.GeomAbort && d.Changes == changes && d.Cmd.CmdNo == before.CmdNo) {
    d.Cmd = before;
    d.Marks = marks;
    for (int i = 0; i <= rows.EntCount; ++i) RowAt(d.Grain.Table, i).Selected = RowAt(rows, i).Selected;
  }
  if (d.Grain.GeomAbort && d.Changes == changes && (d.Cmd.CmdNo == before.CmdNo || d.Cmd.CmdNo == 0)) {
    CutLog(d.Log, logged);
    if (d.Log.On) d.Grain.Defaults = defaults; // values typed with it were logged with it
  }
  d.Log.Place = {};
  LogLeft(d, stood);
  d.Answers.clear();
  SetPrompt(d);
  RedrawPanel(d);
}

void RestartCommand(Drafting &d) {
  static_cast<StepState &>(d.Cmd) = StepState{};
  d.Cmd.BackPos = d.Cmd.BackDepth;
  d.Marks.clear();
  ClearMarks(d);
  d.Cmd.SelectCount = 0;
  d.Out.Panel.Overlay.clear();
}

void LeaveCommand(Drafting &d) {
  ClearMarks(d);
  d.Cmd.SelectCount = 0;
  ToIdle(d);
  SetPrompt(d);
  RedrawPanel(d);
}

void StartCommand(Drafting &d, const CommandRow &row) {
  if (row.CmdNo == ZoomCommand) return StartZoomWindow(d);
  const Standing stood(d);
  const bool keeps = d.Cmd.CmdNo == 0 && d.Cmd.SelectCount > 0 && row.Enter; // works on the idle selection
  if (keeps)
    ToIdle(d);
  else
    LeaveCommand(d);
  d.Grain.GeomAbort = false;
  d.Cmd.CmdNo = d.LastTool = row.CmdNo;
  d.Cmd.BackDepth = d.Cmd.BackPos = row.BackDepth;
  if (d.Cmd.RefType == 0) d.Cmd.RefType = CursorRef;
  ShowFrames(d, row);
  if (d.Grain.Table.EntCount < 300) RowAt(d.Grain.Table, d.Grain.Table.EntCount + 1).EntType = row.NewType;
  d.Out.Focus = Ctl::DrawPanel;
  SetPrompt(d);
  RedrawPanel(d);
  if (d.Grain.MacroMode == PlayingMode)
    RefreshPoints(d);
  else
    RefreshDrafting(d); // a question at the start stands over a screen that is true
  if (row.Start && !row.Start(d)) {
    d.Answers.clear();
    LeaveCommand(d);
    return LogLeft(d, stood);
  }
  if (d.KeepWork && d.Grain.MacroMode != PlayingMode) d.KeepWork();
  LogInput(d, row.CmdNo);
  SetPrompt(d);
  RedrawPanel(d);
}

void Back(Drafting &d, int button) {
  if (d.Grain.MacroMode == PlayingMode && !d.Play.On) return;
  d.Grain.GeomAbort = false;
  const Standing stood(d);
  const bool idle = d.Cmd.CmdNo == 0;
  if (idle && d.Cmd.SelectCount == 0) {
    d.Out[Ctl::HotKeyList].Visible = false;
    return;
  }
  const bool choosing = d.Out[Ctl::XFormOption].Visible;
  const CommandRow *row = FindCommand(d.Cmd.CmdNo);
  const bool steps = row && row->CmdNo != ZoomCommand && !choosing && d.Cmd.SelectCount == 0;
  for (const Ctl c : Lists) d.Out[c].Visible = false;
  d.Out.Panel.Overlay.clear();
  if (steps && d.Cmd.BackPos == d.Cmd.BackDepth) d.Marks.clear();
  if (steps && row->Back) row->Back(d);
  if (!idle) LogInput(d, LogClick, d.Cmd.ClickX, d.Cmd.ClickY, button); // with what the step asked
  if (d.Cmd.CmdNo == ZoomCommand) return LeaveZoomWindow(d);
  if (!idle && d.Cmd.CmdNo == 0) return; // a cancelled question left the command
  if (!steps || !RestoreBack(d)) {
    LeaveCommand(d);
    return LogLeft(d, stood);
  }
  SetPrompt(d);
  RedrawPanel(d);
}

void Escape(Drafting &d) {
  if (d.Cmd.CmdNo != 0 || d.Cmd.SelectCount > 0) LogInput(d, LogEscape);
  if (d.Cmd.CmdNo == ZoomCommand) return LeaveZoomWindow(d);
  LeaveCommand(d);
}

void MouseDown(Drafting &d, const Event &event) {
  d.Grain.GeomAbort = false;
  d.TypingAtPointer = false;
  d.Cmd.ClickX = event.X;
  d.Cmd.ClickY = event.Y;
  TakePointer(d, event);
  const Point at = d.Pointer;
  const bool listed = d.Out[Ctl::HotKeyList].Visible;
  d.Out[Ctl::HotKeyList].Visible = false;
  if (event.Button == RightButton) return Back(d, RightButton);
  if (event.Button != LeftButton || listed) return;
  if (d.Cmd.CmdNo == 0) {
    IdlePress(d, at);
    IdleMove(d, at);
    return RedrawPanel(d);
  }
  if (!d.Out[Ctl::DrawPanel].Enabled) return;
  const Point held = HeldPosition(d, at);
  const Point last = LastPoint(d.Cmd);
  if (d.Cmd.CmdNo == StringOfLines && d.Cmd.PointCount >= 0 && d.Cmd.RefType == CursorRef &&
      !d.Cmd.DeltaPending && std::hypot(held.X - last.X, held.Y - last.Y) < SamePlace)
    return; // a double click adds no line
  ClickHeld(d, held);
}

void MouseMove(Drafting &d, const Event &event) {
  TakePointer(d, event);
  ShowPointer(d);
}

void ShowPointer(Drafting &d) {
  const Point at = d.Pointer;
  d.Out.Panel.Overlay.clear();
  if (d.Cmd.CmdNo == 0) return IdleMove(d, at);
  if (!d.Out[Ctl::DrawPanel].Enabled) return;
  const Point held = TrackPointer(d, at);
  const CommandRow *row = FindCommand(d.Cmd.CmdNo);
  if (row && row->Preview) row->Preview(d, held);
}

void MouseUp(Drafting &d, const Event &event) {
  if (event.Button != LeftButton) return;
  const Point at{event.X, event.Y};
  if (d.Cmd.CmdNo == 0) {
    IdleRelease(d, at);
    d.Out.Panel.Overlay.clear();
    return RedrawPanel(d);
  }
  const bool dragged = std::hypot(event.X - d.Cmd.ClickX, event.Y - d.Cmd.ClickY) > CaptureDistance(d);
  if (dragged && WantsCorner(d) && d.Out[Ctl::DrawPanel].Enabled) ClickHeld(d, at);
}

void ClickAt(Drafting &d, Point at) {
  d.Cmd.ClickX = at.X;
  d.Cmd.ClickY = at.Y;
  ClickHeld(d, at);
}

namespace {
// A key that is bound starts what it is bound to, and no more.
bool StartsAgain(const Drafting &d, const Event &event) {
  constexpr int enter = 13, space = 32;
  return d.Cmd.CmdNo == 0 && (event.KeyCode == enter || event.KeyCode == space) && event.Shift == 0 &&
         FindCommand(d.LastTool) && !HotKeyPressed(d, event.KeyCode, event.Shift);
}
} // namespace

void DeleteKey(Drafting &d) {
  constexpr int deleteEntities = 86;
  const CommandRow *row = FindCommand(d.Cmd.CmdNo);
  if (d.Cmd.CmdNo == 0 && d.Cmd.SelectCount > 0)
    LogInput(d, deleteEntities); // its button does the same
  else if (d.Cmd.CmdNo == ZoomCommand)
    LogLeave(d, true);
  else if (row)
    LogInput(d, row->Enter ? static_cast<int>(LogDeleteKey) : static_cast<int>(LogEscape));
  if (!row || row->Enter) DeleteSelected(d);
  LeaveCommand(d);
}

void PanelKey(Drafting &d, const Event &event) {
  const CommandRow *row = FindCommand(d.Cmd.CmdNo);
  if (StartsAgain(d, event)) return StartCommand(d, *FindCommand(d.LastTool));
  switch (event.KeyCode) {
  case 13:
    d.Grain.GeomAbort = false;
    if (row && row->Enter) Recorded(d, [&] { row->Enter(d); });
    SetPrompt(d);
    RedrawPanel(d);
    break;
  case 27: Escape(d); break;
  case 46: DeleteKey(d); break;
  case 9:
    if (d.Out[Ctl::End_Frame].Visible && d.Out[Ctl::End_Frame].Height > NarrowFrame)
      d.Out.Focus = Ctl::X_Input;
    break;
  default: break;
  }
}

bool PressDrafting(Drafting &d, const Event &event) {
  for (const auto rows :
       {PointButtons(), CreationButtons(), RotationButtons(), SelectionButtons(), TransformButtons()})
    for (const ButtonRow &row : rows)
      if (row.Target == event.Target) {
        d.Grain.GeomAbort = false;
        Recorded(d, [&] { row.Action(d, event); });
        d.Answers.clear();
        SetPrompt(d);
        RedrawPanel(d);
        return true;
      }
  const CommandRow *row = CommandOf(event.Target);
  if (row) StartCommand(d, *row);
  return row != nullptr;
}

namespace {
void PutBack(Drafting &d, bool (*change)(Drafting &)) {
  const CommandRow *row = FindCommand(d.Cmd.CmdNo);
  if (d.Cmd.CmdNo == ZoomCommand) LeaveZoomWindow(d);
  if (!row || row->Enter)
    LeaveCommand(d); // rows shift: no selection survives
  else
    RestartCommand(d);
  if (change(d)) {
    ++d.Changes;
    if (d.KeepWork && d.Grain.MacroMode != PlayingMode) d.KeepWork();
  }
  SetPrompt(d);
  RedrawPanel(d);
}
} // namespace

void UndoChange(Drafting &d) {
  if (d.Log.On) return d.TakeBack ? d.TakeBack(d, false) : void();
  PutBack(d, [](Drafting &x) { return Undo(x.Ring, x.Grain.Table, x.Grain.MacroMode); });
}

void RedoChange(Drafting &d) {
  if (d.Log.On) return d.TakeBack ? d.TakeBack(d, true) : void();
  PutBack(d, [](Drafting &x) { return Redo(x.Ring, x.Grain.Table); });
}

void ResetDrafting(Drafting &d) {
  d.Ring = UndoRing{};
  ++d.Changes;
  d.Track.Target = {};
  LeaveCommand(d);
}

void RefreshDrafting(Drafting &d) {
  for (const CommandRow &row : CommandTable()) {
    const bool running = row.CmdNo == d.Cmd.CmdNo;
    d.Out[row.Button].Colour = running ? RunningColour : 0;
    d.Out[row.Button].Checked = running;
  }
  RefreshPoints(d);
  RefreshCreation(d);
  RefreshRotation(d);
  RefreshSelection(d);
  RefreshTyping(d);
  RefreshHints(d);
  RefreshProperties(d);
}
