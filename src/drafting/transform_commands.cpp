#include "drafting/ask_question.h"
#include "drafting/back_store.h"
#include "drafting/command_machine.h"
#include "drafting/commit.h"
#include "drafting/point_modes.h"
#include "drafting/pointer_notes.h"
#include "drafting/report.h"
#include "drafting/rotation_draw.h"
#include "drafting/selection.h"
#include "drafting/transform_rows.h"
#include "drafting/transforms.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int MoveByOffset = 70, MoveByPoints = 71, RotateCommand = 72, ScaleCommand = 73, MirrorCommand = 76;
constexpr double SamePlace = 0.0001; // mm
enum MirrorTypes { HorizontalMirror = 1, VerticalMirror, TwoPointMirror };

bool IsBlank(const std::string &text) { return text.find_first_not_of(" \t") == std::string::npos; }
double Radians(double degrees) { return degrees * Pi / 180; }

bool AskCopies(Drafting &d) {
  const auto copies = AskQuestion(d, {.Label = "Number of Copies",
                                      .Caption = "Number of Copies",
                                      .Value = static_cast<double>(d.Select.MoveRepeat),
                                      .Least = 1,
                                      .Most = 300,
                                      .Whole = true});
  if (copies) d.Select.MoveRepeat = static_cast<std::int16_t>(*copies);
  return copies.has_value();
}

void Make(Drafting &d, int copies, const RowMap &map) {
  if (Apply(d, TransformRows(d, copies, map))) SelectAgain(d);
}

int Copies(const Drafting &d) { return d.Select.Copy ? d.Select.MoveRepeat : 0; }

RowMap MoveMap(double dx, double dy) {
  return [=](const Entity &e, int copy) { return MovedRow(e, copy * dx, copy * dy); };
}
RowMap RotateMap(Point about, double angle, double step) {
  return [=](const Entity &e, int copy) { return RotatedRow(e, about, angle + (copy - 1) * step); };
}
RowMap ScaleMap(Point about, double factor) {
  return [=](const Entity &e, int copy) { return ScaledRow(e, about, std::pow(factor, copy)); };
}
RowMap MirrorMap(Point p, Point q) {
  return [=](const Entity &e, int) { return MirroredRow(e, p, q); };
}

Point MirrorEnd(const Drafting &d, Point p) {
  return d.Select.MirrorType == VerticalMirror ? Point{p.X, p.Y + 5} : Point{p.X + 1, p.Y};
}

double ValueHeld(const Drafting &d) {
  const DraftDefaults &defaults = d.Grain.Defaults;
  return d.Cmd.CmdNo == RotateCommand ? defaults.RotationAngleDefault : defaults.ScaleFactorDefault;
}

// Rotation comes in degrees. False: no factor, which was told.
bool HoldValue(Drafting &d, double value) {
  DraftDefaults &defaults = d.Grain.Defaults;
  if (d.Cmd.CmdNo == RotateCommand) {
    defaults.RotationAngleDefault = Radians(value);
    return true;
  }
  if (!(value > 0)) {
    Report(d, "ERROR: A number above 0 must be entered", "Input Error", Icon::Stop);
    return false;
  }
  defaults.ScaleFactorDefault = value;
  return true;
}

std::optional<double> ValueTyped(Drafting &d, Ctl field) {
  const auto value = FieldNumber(d, field);
  if (!value) d.Grain.GeomAbort = true;
  return value;
}

// X_Input as it stands, also when it was not entered.
bool TakeValue(Drafting &d) {
  const std::string &text = d.Out[Ctl::X_Input].Text;
  if (IsBlank(text) || text == OfferedValue(d)) return true;
  const auto value = ValueTyped(d, Ctl::X_Input);
  const double before = ValueHeld(d);
  if (!value || !HoldValue(d, *value)) return false;
  if (ValueHeld(d) != before) LogInput(d, LogXInput, *value, 0, 0, IsPlainNumber(text) ? "" : text);
  return true;
}

// The pitch of further copies: Y_Input, or the angle itself.
std::optional<double> TakeStep(Drafting &d) {
  if (d.Cmd.CmdNo != RotateCommand || IsBlank(d.Out[Ctl::Y_Input].Text)) return ValueHeld(d);
  const auto degrees = ValueTyped(d, Ctl::Y_Input);
  if (!degrees) return std::nullopt;
  AnswerGiven &entered = d.Typed.Field[1];
  if (entered.Value != *degrees) {
    const std::string &text = d.Out[Ctl::Y_Input].Text;
    LogInput(d, LogYInput, *degrees, 0, 0, IsPlainNumber(text) ? "" : text);
  }
  entered.Value = *degrees;
  return Radians(*degrees);
}

void ClickBase(Drafting &d, Point at) {
  std::optional<double> step = ValueHeld(d);
  if (FieldsOf(d) == FieldUse::Value) { // else they hold the position
    if (!TakeValue(d)) return;
    step = TakeStep(d);
  }
  if (!step || !PointInput(d, at)) return;
  const Point base = LastPoint(d.Cmd);
  Make(d, Copies(d),
       d.Cmd.CmdNo == RotateCommand ? RotateMap(base, ValueHeld(d), *step) : ScaleMap(base, ValueHeld(d)));
}

void ClickMirror(Drafting &d, Point at) {
  if (!PointInput(d, at)) return;
  Point p = PointAt(d.Cmd, 0), q = MirrorEnd(d, p);
  if (d.Select.MirrorType == TwoPointMirror) {
    d.Cmd.CmdState = static_cast<std::int16_t>(d.Cmd.PointCount + 1);
    if (d.Cmd.PointCount < 1) return;
    q = LastPoint(d.Cmd);
    if (std::abs(q.X - p.X) < SamePlace && std::abs(q.Y - p.Y) < SamePlace)
      return Report(d, "Start and Ending Points are identical");
  }
  Make(d, d.Select.Copy ? 1 : 0, MirrorMap(p, q));
}

void ClickMove(Drafting &d, Point at) {
  if (!PointInput(d, at)) return;
  d.Cmd.CmdState = static_cast<std::int16_t>(d.Cmd.PointCount + 1);
  if (d.Cmd.PointCount < 1) return;
  const Point from = PointAt(d.Cmd, 0), to = LastPoint(d.Cmd);
  Make(d, Copies(d), MoveMap(to.X - from.X, to.Y - from.Y));
}

// The points of the movement come next; Back returns to the selection.
void AskPoints(Drafting &d) {
  d.Cmd.Movement = true;
  d.Cmd.WindowSelect = d.Cmd.PickFound = false;
  d.Cmd.CmdState = d.Cmd.PointPhase = 0;
  d.Cmd.PointCount = -1;
  d.Out[Ctl::Selection_Frame].Visible = d.Out[Ctl::Window_Frame].Visible = false;
  d.Out[Ctl::End_Frame].Visible = true;
  d.Out.Focus = Ctl::DrawPanel;
}

void AskMirrorType(Drafting &d) {
  AskPoints(d);
  d.Out[Ctl::End_Frame].Visible = false;
  d.Out[Ctl::Mirror_Frame].Visible = true;
  d.Out[Ctl::DrawPanel].Enabled = false;
}

void PressOption(Drafting &d, const Event &event) { ChooseTransform(d, event.Text == "Copy"); }

void PressMirror(Drafting &d, const Event &event) {
  if (!d.Out[Ctl::Mirror_Frame].Visible) return;
  d.Select.MirrorType = event.Target == Ctl::Mirror_Horizonal  ? HorizontalMirror
                        : event.Target == Ctl::Mirror_Vertical ? VerticalMirror
                                                               : TwoPointMirror;
  d.Out[Ctl::Mirror_Frame].Visible = false;
  d.Out[Ctl::End_Frame].Visible = d.Out[Ctl::DrawPanel].Enabled = true;
  d.Out.Focus = Ctl::DrawPanel;
  LogInput(d, LogMirrorHorizonal + d.Select.MirrorType - HorizontalMirror);
}

void PressMirrorCancel(Drafting &d, const Event &) {
  if (!d.Out[Ctl::Mirror_Frame].Visible) return;
  LogLeave(d, d.Under.has_value());
  LeaveCommand(d);
}

constexpr ButtonRow Presses[] = {
    {Ctl::XFormOption, PressOption},         {Ctl::Mirror_Horizonal, PressMirror},
    {Ctl::Mirror_Vertical, PressMirror},     {Ctl::Mirror_2Points, PressMirror},
    {Ctl::Mirror_Cancel, PressMirrorCancel}, {Ctl::DeltaMovement, PressMovement},
    {Ctl::Point2Movement, PressMovement},    {Ctl::GrainMovement, PressMovement},
    {Ctl::CancelMovement, PressMovement}};
} // namespace

bool StartTransform(Drafting &d) {
  d.Cmd.SelectionMethod = SingleMethod;
  d.Select.FromIdle = d.Cmd.SelectCount > 0;
  d.Out[Ctl::End_Frame].Visible = false;
  Control &list = d.Out[Ctl::XFormOption];
  list.Item = {"Move", "Copy"};
  list.Index = -1;
  list.Visible = true;
  return true;
}

void ChooseTransform(Drafting &d, bool copy) {
  if (!d.Out[Ctl::XFormOption].Visible) return;
  d.Out[Ctl::XFormOption].Visible = false;
  d.Select.Copy = copy;
  const int kind = copy ? LogCopy : LogMove;
  if (d.Select.FromIdle) {
    d.Cmd.SelectCount = 0; // Back goes by single steps from here
    return AcceptSelection(d, kind);
  }
  d.Out[Ctl::Selection_Frame].Visible = true;
  LogInput(d, kind);
}

void TransformSelected(Drafting &d, int kind) {
  const bool askCopies = d.Select.Copy && d.Cmd.CmdNo != MirrorCommand;
  if (!TransformationQuery(d) || (askCopies && !AskCopies(d))) return LeaveCommand(d);
  if (d.Cmd.CmdNo == MoveByOffset) {
    double dx = 0, dy = 0;
    if (!AskDelta(d, dx, dy)) return LeaveCommand(d);
    if (!Apply(d, TransformRows(d, Copies(d), MoveMap(dx, dy)))) return;
    LogAccept(d, kind);
    return SelectAgain(d);
  }
  LogAccept(d, kind);
  if (kind == 0) PushBack(d);
  if (d.Cmd.CmdNo == MirrorCommand)
    AskMirrorType(d);
  else
    AskPoints(d);
}

void ClickTransform(Drafting &d, Point at) {
  if (d.Out[Ctl::XFormOption].Visible && d.Select.FromIdle) {
    d.Cmd.BackPos = d.Cmd.BackDepth; // Back leads where it does after the list's "Move"
    return ChooseTransform(d, false);
  }
  if (SelectionClick(d, at)) return;
  switch (d.Cmd.CmdNo) {
  case MoveByPoints: return ClickMove(d, at);
  case MirrorCommand: return ClickMirror(d, at);
  default: return ClickBase(d, at);
  }
}

void TypedTransform(Drafting &d, double value) { HoldValue(d, value); }

const char *StemTransform(const Drafting &d) {
  if (d.Out[Ctl::XFormOption].Visible) return "Select Move or Copy Entities Option";
  if (d.Out[Ctl::Mirror_Frame].Visible) return "Select Mirror Type";
  if (!Selecting(d)) return nullptr;
  if (const char *corner = StemSelection(d)) return corner;
  const bool held = CountSelected(d.Grain.Table) > 0;
  switch (d.Cmd.CmdNo) {
  case MoveByOffset:
    if (held) return d.Cmd.WindowSelect ? "Hit Enter to Reposition" : "Hit Enter/Accept to Reposition";
    return "Select Entities to Move";
  case MoveByPoints: return "Select Entities to Move";
  case RotateCommand: return "Select Entities to Rotate";
  case ScaleCommand: return "Select Entities to Scale";
  default: return "Select Entities to Mirror";
  }
}

void PreviewTransform(Drafting &d, Point at) {
  if (Selecting(d)) return PreviewSelection(d, at);
  const Point first = PointAt(d.Cmd, 0);
  const bool held = d.Cmd.PointCount >= 0;
  const DraftDefaults &defaults = d.Grain.Defaults;
  RowMap map;
  switch (d.Cmd.CmdNo) {
  case MoveByPoints:
    if (!held) return;
    map = MoveMap(at.X - first.X, at.Y - first.Y);
    ShowReading(d, at, OffsetText(at.X - first.X, at.Y - first.Y));
    break;
  case RotateCommand:
    map = RotateMap(at, defaults.RotationAngleDefault, 0);
    ShowReading(d, at, AngleText(defaults.RotationAngleDefault));
    break;
  case ScaleCommand:
    map = ScaleMap(at, defaults.ScaleFactorDefault);
    ShowReading(d, at, "x " + LengthText(defaults.ScaleFactorDefault));
    break;
  default:
    if (d.Out[Ctl::Mirror_Frame].Visible) return;
    if (d.Select.MirrorType != TwoPointMirror) map = MirrorMap(at, MirrorEnd(d, at));
    if (d.Select.MirrorType == TwoPointMirror && held) map = MirrorMap(first, at);
  }
  ShowTransformed(d, map);
}

std::span<const ButtonRow> TransformButtons() { return Presses; }
