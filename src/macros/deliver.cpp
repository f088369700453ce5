#include "macros/play.h"

#include "base/fault.h"
#include "base/number_text.h"
#include "drafting/command_machine.h"
#include "drafting/point_fields.h"
#include "drafting/point_modes.h"
#include "drafting/properties.h"
#include "drafting/selection.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int BackButton = 2, TypedPointKind = 147, MirrorAgain = 78, Mirror = 76;
constexpr int EnterKey = 13;
constexpr int Passed[] = {81, 82, 83, 87, 96, 98, 99}; // views and runs: nothing of the drawing

struct PressRow {
  int Kind;
  Ctl Button;
  const char *Item = ""; // of a list
};
constexpr PressRow Presses[] = {{97, Ctl::RotateDraw},
                                {LogSelectSingle, Ctl::SelectSingle},
                                {LogSelectWindow, Ctl::SelectWindow},
                                {LogSelectByType, Ctl::SelectByType},
                                {LogSelectAll, Ctl::SelectAll},
                                {LogSelectLines, Ctl::SelectLines},
                                {LogSelectArcs, Ctl::SelectArcs},
                                {LogSelectCircles, Ctl::SelectCircles},
                                {LogAllInside, Ctl::All_Inside_Window},
                                {LogAllOutside, Ctl::All_Outside_Window},
                                {LogPartInside, Ctl::Part_Inside_Window},
                                {LogPartOutside, Ctl::Part_Outside_Window},
                                {LogMirrorHorizonal, Ctl::Mirror_Horizonal},
                                {LogMirrorVertical, Ctl::Mirror_Vertical},
                                {LogMirror2Points, Ctl::Mirror_2Points},
                                {LogRefType + 1, Ctl::Cursor},
                                {LogRefType + 2, Ctl::End_Ent},
                                {LogRefType + 3, Ctl::Center_of_Ent},
                                {LogRefType + 4, Ctl::Intersection},
                                {LogRefType + 5, Ctl::Along_Line},
                                {LogMove, Ctl::XFormOption, "Move"},
                                {LogCopy, Ctl::XFormOption, "Copy"},
                                {LogDeltaMovement, Ctl::DeltaMovement},
                                {LogPoint2Movement, Ctl::Point2Movement},
                                {LogGrainMovement, Ctl::GrainMovement},
                                {LogCancelMovement, Ctl::CancelMovement},
                                {LogDeleteSingle, Ctl::Delete_Mode, "Single"},
                                {LogDeleteRotation, Ctl::Delete_Mode, "Rotation Mode"},
                                {LogDeactivateRDraw, Ctl::DeactivateRDraw}};

std::string Press(Drafting &d, Ctl target, const char *item = "") {
  Event press;
  press.Target = target;
  press.Text = item;
  PressDrafting(d, press);
  return {};
}

void TypeField(Drafting &d, Ctl field, double value) {
  Event typed;
  typed.What = Event::Kind::Text;
  typed.Target = field;
  typed.Text = PlainText(value);
  FieldText(d, typed);
}

void EnterField(Drafting &d, Ctl field) {
  Event key;
  key.What = Event::Kind::Key;
  key.Target = field;
  key.KeyCode = EnterKey;
  FieldKey(d, key);
}

std::string TypeX(Drafting &d, double value) {
  TypeField(d, Ctl::X_Input, value);
  const FieldUse use = FieldsOf(d);
  if (use == FieldUse::Value || use == FieldUse::Diameter) EnterField(d, Ctl::X_Input);
  return use == FieldUse::None ? "no field takes a number" : "";
}

std::string TypeY(Drafting &d, double value) {
  const FieldUse use = FieldsOf(d);
  if (use == FieldUse::None) return "no field takes a number";
  // A value of its own in X_Input was an input before; a text that is still there was not entered.
  if (use == FieldUse::Value) d.Out[Ctl::X_Input].Text.clear();
  TypeField(d, Ctl::Y_Input, value);
  EnterField(d, Ctl::Y_Input);
  return {};
}

std::string TypePoint(Drafting &d, double x, double y) {
  if (!FindCommand(d.Cmd.CmdNo)) return "no command runs";
  const std::int32_t mode = d.Cmd.RefType;
  d.Cmd.RefType = KeyInRef;
  TypeField(d, Ctl::X_Input, x);
  TypeField(d, Ctl::Y_Input, y);
  EnterField(d, Ctl::Y_Input);
  d.Cmd.RefType = mode == KeyInRef ? static_cast<std::int32_t>(CursorRef) : mode;
  return {};
}

// Of the 15 digits that a file keeps of a 32-bit number.
bool IsNarrow(double v) {
  return std::abs(static_cast<double>(static_cast<float>(v)) - v) <= 1e-14 * std::abs(v);
}

std::string Pick(Drafting &d, const Instruction &step) {
  const Point at{step.Value2, step.Value3};
  if (d.Cmd.CmdNo == 0 && step.PointArea != LogSelectEnt) return "no command runs";
  // A place by formulas is what the author meant, whatever row stood there.
  const bool row =
      step.Value4.empty() && std::abs(step.Value1) <= 300 && step.Value1 == std::floor(step.Value1);
  d.Play.Row = row ? static_cast<int>(step.Value1) : -1;
  d.Play.RowType = step.PlotType;
  if (d.Cmd.CmdNo == 0) {
    IdlePick(d, at);
    return {};
  }
  d.Typed.Entered =
      step.Value4.empty() && !(IsNarrow(at.X) && IsNarrow(at.Y)); // what is typed is not narrowed
  ClickHeld(d, at);
  d.Typed.Entered = false;
  return {};
}

std::string Click(Drafting &d, const Instruction &step) {
  const Point at{step.Value1, step.Value2};
  if (step.Value3 == BackButton) {
    Back(d, BackButton);
  } else if (d.Cmd.CmdNo != 0) {
    ClickHeld(d, at);
  } else if (!d.Select.Dragging) { // idle: the corners of a window
    IdlePress(d, at);
  } else {
    d.Select.Dragging = false;
    IdleWindow(d, {d.Cmd.AnchorX, d.Cmd.AnchorY}, at);
  }
  return {};
}

std::string AcceptFrame(Drafting &d, const Instruction &step) {
  const bool box = step.PointArea == 51;
  if (!d.Out[box ? Ctl::BoxWH_Frame : Ctl::Poly_Frame].Visible) return "its frame is not open";
  if (box) {
    d.Out[Ctl::BoxWidth].Text = PlainText(step.Value1);
    d.Out[Ctl::BoxHeight].Text = PlainText(step.Value2);
    d.Tool.BoxReference = static_cast<int>(std::clamp(step.Value3, 1.0, 9.0));
    return Press(d, Ctl::AcceptBoxWH);
  }
  d.Out[Ctl::PolySides].Text = PlainText(step.Value1);
  d.Out[Ctl::PolyRadius].Text = PlainText(step.Value2);
  d.Out[Ctl::PolyRotate].Text = PlainText(step.Value3);
  return Press(d, Ctl::PolyAccept);
}

std::string Enter(Drafting &d, const Instruction &step) {
  const int kind = step.PointArea == MirrorAgain ? Mirror : step.PointArea;
  if (kind == 51 || kind == 53) return AcceptFrame(d, step); // be it under a zoom
  if (d.Cmd.CmdNo != kind) return "its command does not run";
  switch (kind) {
  case 26:
  case 36: return TypeX(d, step.Value1);
  case 54: return "no circle or arc was picked for it";
  case 55:
  case 56: d.Tool.ToolRadius = step.Value1; return step.Value1 > 0 ? "" : "a radius must be above 0";
  default: break;
  }
  Event key;
  key.What = Event::Kind::Key;
  key.Target = Ctl::DrawPanel;
  key.KeyCode = EnterKey;
  PanelKey(d, key);
  return {};
}

std::string Route(Drafting &d, const Instruction &step) {
  const int kind = step.PointArea;
  for (const PressRow &row : Presses)
    if (row.Kind == kind) return Press(d, row.Button, row.Item);
  if (std::find(std::begin(Passed), std::end(Passed), kind) != std::end(Passed)) return {};
  if (const CommandRow *row = FindCommand(kind); row && step.Value4.empty()) {
    StartCommand(d, *row);
    return {};
  } else if (row || kind == MirrorAgain) {
    return Enter(d, step);
  }
  switch (kind) {
  case LogFoundEnt:
  case LogSelectEnt:
  case LogTrimmingEnt: return Pick(d, step);
  case LogClick: return Click(d, step);
  case LogDelta:
    d.Cmd.DeltaPending = true;
    d.Play.Offset = Point{step.Value1, step.Value2};
    return {};
  case TypedPointKind: return TypePoint(d, step.Value1, step.Value2);
  case LogXInput: return TypeX(d, step.Value1);
  case LogYInput: return TypeY(d, step.Value1);
  case LogPolyOption: return Press(d, step.Value1 == 0 ? Ctl::PolyFlat : Ctl::PolyCorner);
  case LogEscape: Escape(d); return {};
  case LogDeleteKey: DeleteKey(d); return {};
  case LogProperty:
    return PlayProperty(d, static_cast<int>(std::clamp(step.Value1, -1.0, 99.0)), step.Value2,
                        step.Value3 != 0)
               ? ""
               : "no such number of a picked entity";
  case LogAnswers: return {}; // nothing has asked
  default: return "there is no such kind of input";
  }
}

bool IsBack(const Instruction &step) { return step.PointArea == LogClick && step.Value3 == BackButton; }
} // namespace

std::string Deliver(Drafting &d, const Instruction &step, const std::vector<double> &answers) {
  Replay &play = d.Play;
  const bool on = play.On;
  play.On = true;
  play.Answer = answers;
  play.Taken = 0;
  play.Unanswered = false;
  play.Row = -1;
  play.RowType = 0;
  play.Said.clear();
  d.Grain.GeomAbort = false;
  const unsigned changes = d.Changes;
  std::string trouble;
  try {
    trouble = Route(d, step);
    RefreshFields(d);
  } catch (const Fault &fault) {
    d.Grain.GeomAbort = true;
    play.Said = fault.Text;
  }
  if (trouble.empty() && d.Grain.GeomAbort && d.Changes == changes)
    trouble = play.Said.empty() ? "ERROR: No Solution Found" : play.Said;
  if (trouble.empty() && play.Unanswered && !IsBack(step)) trouble = "a question found no answer";
  d.Answers.clear();
  play.On = on;
  return trouble;
}

Ctl ButtonOfKind(int kind) {
  const auto *row =
      std::find_if(std::begin(Presses), std::end(Presses), [&](const PressRow &p) { return p.Kind == kind; });
  return row == std::end(Presses) ? Ctl::Count : row->Button;
}
