#include "drafting/point_fields.h"

#include "base/number_text.h"
#include "drafting/ask_question.h"
#include "drafting/command_machine.h"
#include "drafting/command_table.h"
#include "drafting/commit.h"
#include "drafting/point_modes.h"
#include "drafting/prompt.h"
#include "drafting/report.h"
#include "geometry/carrier.h"

#include <cmath>

namespace {
constexpr int NarrowFrame = 930, WideFrame = 1350;
constexpr int TypedPointKind = 147;
constexpr int ArcByRadius = 30;
constexpr int EnterKey = 13, TabKey = 9, EscapeKey = 27;

const std::string &TextOf(const Drafting &d, Ctl field) { return d.Out[field].Text; }
bool Blank(const std::string &text) { return text.find_first_not_of(" \t") == std::string::npos; }

std::optional<double> ValueOf(const Drafting &d, Ctl field) {
  if (Blank(TextOf(d, field))) return std::nullopt;
  const Formula formula = FieldFormula(d, TextOf(d, field));
  const bool fits = formula.Good() && std::abs(formula.Value) <= MostLength;
  return fits ? std::optional(formula.Value) : std::nullopt;
}

// The field's formula becomes its number. False: it is none, which was told. A blank field stays blank.
bool Evaluate(Drafting &d, Ctl field) {
  const std::string text = TextOf(d, field);
  if (Blank(text)) return true;
  const auto value = FieldNumber(d, field);
  if (!value) return false;
  AnswerGiven &kept = d.Typed.Field[field == Ctl::X_Input ? 0 : 1];
  const std::string shown = PlainText(*value);
  if (!IsPlainNumber(text)) kept.Formula = text;
  kept.Value = Val(shown); // as it stands there, and in a log
  d.Out[field].Text = shown;
  return true;
}

bool &KeyedIn(Drafting &d, Ctl field) { return field == Ctl::X_Input ? d.Cmd.KeyInX : d.Cmd.KeyInY; }

void ClearFields(Drafting &d) {
  for (const Ctl field : {Ctl::X_Input, Ctl::Y_Input}) {
    d.Out[field].Text.clear();
    KeyedIn(d, field) = false;
  }
  d.Typed = {};
}

void Refresh(Drafting &d) {
  d.Answers.clear();
  SetPrompt(d);
  RefreshPoints(d);
  RedrawPanel(d);
}

// A click at the typed place: RefType 7 for its time, and 1 after a use of Key_In.
template <typename Deliver>
void AsTyped(Drafting &d, Deliver deliver) {
  const std::int32_t mode = d.Cmd.RefType;
  d.Cmd.RefType = KeyInRef;
  d.Typed.Entered = true;
  d.Out.Focus = Ctl::DrawPanel;
  deliver();
  d.Typed.Entered = false;
  const bool failed = d.Grain.GeomAbort && d.Cmd.CmdNo != 0;
  if (!failed) ClearFields(d);
  d.Cmd.RefType = mode == KeyInRef && !failed ? static_cast<std::int32_t>(CursorRef) : mode;
  Refresh(d);
}

void TakeDiameter(Drafting &d, const AnswerGiven &diameter) {
  const CommandRow &row = *FindCommand(d.Cmd.CmdNo);
  d.Typed = {false, 1, {diameter, {}}};
  AsTyped(d, [&] { row.Typed(d, diameter.Value); });
}

void TakeValue(Drafting &d) { // the command's own, from X_Input
  const CommandRow &row = *FindCommand(d.Cmd.CmdNo);
  const AnswerGiven given = d.Typed.Field[0];
  d.Grain.GeomAbort = false;
  d.Out.Focus = row.YLabel ? Ctl::Y_Input : Ctl::DrawPanel;
  const std::size_t logged = d.Log.Row.size();
  row.Typed(d, given.Value);
  if (!d.Grain.GeomAbort && d.Log.Row.size() == logged) { // else the picks were given back
    const std::string entered = given.Formula.empty() ? "ENTERKEY" : given.Formula;
    if (row.YLabel || row.Enter)
      LogInput(d, LogXInput, given.Value, 0, 0, given.Formula);
    else
      LogInput(d, row.CmdNo, given.Value, 0, 0, entered); // the radius of a tangent circle or arc
  }
  Refresh(d);
}

void TakeSecondValue(Drafting &d) {
  const AnswerGiven given = d.Typed.Field[1];
  DraftDefaults &defaults = d.Grain.Defaults;
  if (d.Cmd.CmdNo == ArcByRadius)
    defaults.ArcEndDefault = NormalAngle(defaults.ArcStartDefault + given.Value * Pi / 180);
  LogInput(d, LogYInput, given.Value, 0, 0, given.Formula);
}

void TellRange(Drafting &d) {
  const std::string most = PlainText(MostLength);
  Report(d, "ERROR: A number from -" + most + " to " + most + " must be entered", "Input Error", Icon::Stop);
}

// What was typed, or where the field was left empty what the pointer gave instead. False: that is out of
// range, which was told.
bool KeepTyped(Drafting &d, FieldUse use, Point at) {
  const Point last = LastPoint(d.Cmd);
  std::array<double, 2> given{at.X, at.Y};
  if (use == FieldUse::Polar) given = {Distance(last, at), Bearing(last, at) * 180 / Pi};
  if (use == FieldUse::Size) given = {at.X - last.X, at.Y - last.Y};
  d.Typed.Named = use == FieldUse::Position ? 0 : 2;
  for (std::size_t i = 0; i < given.size(); ++i)
    if (const Ctl field = i == 0 ? Ctl::X_Input : Ctl::Y_Input; Blank(TextOf(d, field))) {
      if (std::abs(given[i]) > MostLength) return TellRange(d), false;
      if (d.Log.On) d.Out[field].Text = PlainText(given[i]); // as a log holds it
      d.Typed.Field[i] = {d.Log.On ? Val(TextOf(d, field)) : given[i], {}};
    }
  return true;
}

void MakePoint(Drafting &d, FieldUse use) {
  const Point pointer{d.Cmd.TrackX, d.Cmd.TrackY};
  if (!KeepTyped(d, use, FieldPoint(d, pointer))) return;
  const Point at = FieldPoint(d, pointer);
  AsTyped(d, [&] { ClickAt(d, at); });
}

void EnterX(Drafting &d) {
  if (!Evaluate(d, Ctl::X_Input)) return;
  d.Out.Focus = Ctl::Y_Input;
  if (Blank(TextOf(d, Ctl::X_Input))) return;
  if (FieldsOf(d) == FieldUse::Value) TakeValue(d);
  if (FieldsOf(d) == FieldUse::Diameter) TakeDiameter(d, d.Typed.Field[0]);
}

void EnterY(Drafting &d) {
  const FieldUse use = FieldsOf(d);
  if (!Evaluate(d, Ctl::X_Input) || !Evaluate(d, Ctl::Y_Input)) return;
  const bool x = !Blank(TextOf(d, Ctl::X_Input)), y = !Blank(TextOf(d, Ctl::Y_Input));
  if (use == FieldUse::Diameter && (x || y)) {
    const AnswerGiven &radius = d.Typed.Field[1];
    const std::string formula = radius.Formula.empty() ? "" : "2*(" + radius.Formula + ")";
    const double twice = formula.empty() ? 2 * radius.Value : Val(PlainText(FieldFormula(d, formula).Value));
    return TakeDiameter(d, d.Cmd.KeyInY ? AnswerGiven{twice, formula} : d.Typed.Field[0]);
  }
  if (use != FieldUse::Value) return MakePoint(d, use);
  if (x) TakeValue(d);
  const CommandRow *row = FindCommand(d.Cmd.CmdNo);
  if (y && !d.Grain.GeomAbort && row && row->YLabel) TakeSecondValue(d);
  d.Out.Focus = Ctl::DrawPanel;
}
} // namespace

std::optional<double> FieldNumber(Drafting &d, Ctl field) {
  const auto value = FieldValue(d, TextOf(d, field));
  if (!value || std::abs(*value) <= MostLength) return value;
  TellRange(d);
  return std::nullopt;
}

std::string OfferedValue(const Drafting &d) {
  switch (d.Cmd.CmdNo) {
  case 72: return FormatMask(d.Grain.Defaults.RotationAngleDefault * 180 / Pi, "0.######");
  case 73: return PlainText(d.Grain.Defaults.ScaleFactorDefault);
  default: return {};
  }
}

FieldUse FieldsOf(const Drafting &d) {
  const CommandRow *row = FindCommand(d.Cmd.CmdNo);
  if (!row || row->Fields == EndFrame::None) return FieldUse::None;
  if (d.Cmd.RefType == KeyInRef) return FieldUse::Position;
  if (row->Fields != EndFrame::Fields) return FieldUse::None;
  if (!row->XLabel) return FieldUse::Position;
  const bool held = d.Cmd.PointCount >= 0;
  switch (row->CmdNo) {
  case 1:
  case 2: return held ? FieldUse::Polar : FieldUse::Position;
  case 24: return held ? FieldUse::Diameter : FieldUse::Position;
  case 52: return held ? FieldUse::Size : FieldUse::Position;
  default: return FieldUse::Value;
  }
}

Point FieldPoint(const Drafting &d, Point pointer) {
  const auto x = ValueOf(d, Ctl::X_Input), y = ValueOf(d, Ctl::Y_Input);
  const Point last = LastPoint(d.Cmd);
  const double away = Bearing(last, pointer);
  switch (FieldsOf(d)) {
  case FieldUse::Position: return {x.value_or(pointer.X), y.value_or(pointer.Y)};
  case FieldUse::Polar: {
    const double length = x.value_or(Distance(last, pointer)), angle = y ? *y * Pi / 180 : away;
    return {last.X + length * std::cos(angle), last.Y + length * std::sin(angle)};
  }
  case FieldUse::Size: return {x ? last.X + *x : pointer.X, y ? last.Y + *y : pointer.Y};
  case FieldUse::Diameter: {
    if (!x && !y) return pointer;
    const double radius = d.Cmd.KeyInX && x ? *x / 2 : y.value_or(x.value_or(0) / 2);
    return {last.X + radius * std::cos(away), last.Y + radius * std::sin(away)};
  }
  case FieldUse::None:
  case FieldUse::Value: break;
  }
  return pointer;
}

void FieldText(Drafting &d, const Event &event) {
  d.Out[event.Target].Text = event.Text;
  d.Typed.Field[event.Target == Ctl::X_Input ? 0 : 1] = {};
  if (FieldsOf(d) == FieldUse::Value) return; // held once it is entered
  KeyedIn(d, event.Target) = !Blank(event.Text);
  if (FieldsOf(d) != FieldUse::Diameter || event.Target != Ctl::X_Input) return;
  const auto diameter = ValueOf(d, Ctl::X_Input);
  d.Cmd.KeyInY = false;
  d.Out[Ctl::Y_Input].Text = diameter && *diameter > 0 ? FormatMask(*diameter / 2, "0.000") : std::string();
}

void FieldKey(Drafting &d, const Event &event) {
  if (FieldsOf(d) == FieldUse::None) return;
  if (event.KeyCode == EnterKey && !d.Out[Ctl::DrawPanel].Enabled) return; // a frame is to be accepted first
  const bool first = event.Target == Ctl::X_Input;
  switch (event.KeyCode) {
  case EnterKey: return first ? EnterX(d) : EnterY(d);
  case TabKey: d.Out.Focus = first && d.Out[Ctl::Y_Input].Visible ? Ctl::Y_Input : Ctl::X_Input; return;
  case EscapeKey:
    d.Cmd.RefType = d.Log.On ? CentreRef : CursorRef;
    LogInput(d, LogRefType + d.Cmd.RefType);
    ClearFields(d);
    if (d.Cmd.RadiusHeld) d.Out[Ctl::X_Input].Text = PlainText(d.Tool.ToolRadius);
    d.Out.Focus = Ctl::DrawPanel;
    return Refresh(d);
  default: return;
  }
}

void LogTypedPoint(Drafting &d, Point p) {
  const auto &[x, y] = d.Typed.Field;
  if (d.Typed.Named == 0) {
    const bool formulas = !(x.Formula.empty() && y.Formula.empty());
    return LogInput(d, TypedPointKind, p.X, p.Y, 0, formulas ? x.Formula + ";" + y.Formula : "");
  }
  LogInput(d, LogXInput, x.Value, 0, 0, x.Formula);
  if (d.Typed.Named > 1) LogInput(d, LogYInput, y.Value, 0, 0, y.Formula);
}

void RefreshFields(Drafting &d) {
  const CommandRow *row = FindCommand(d.Cmd.CmdNo);
  const FieldUse use = FieldsOf(d);
  const bool wide = use != FieldUse::None;
  const bool named = wide && use != FieldUse::Position && row->XLabel;
  const std::string before = d.Out[Ctl::X_Label].Text;
  d.Out[Ctl::End_Frame].Height = wide ? WideFrame : NarrowFrame;
  d.Out[Ctl::X_Label].Text = named ? row->XLabel : "X:";
  d.Out[Ctl::Y_Label].Text = !named ? "Y:" : row->YLabel ? row->YLabel : "";
  const bool second = wide && !(named && !row->YLabel);
  d.Out[Ctl::X_Label].Visible = d.Out[Ctl::X_Input].Visible = wide;
  d.Out[Ctl::Y_Label].Visible = d.Out[Ctl::Y_Input].Visible = second;
  if (d.Cmd.KeyInX || d.Cmd.KeyInY || d.Cmd.RadiusHeld ||
      (use == FieldUse::Value && d.Out[Ctl::X_Label].Text == before))
    return;
  ClearFields(d);
  if (use == FieldUse::Value) d.Out[Ctl::X_Input].Text = OfferedValue(d);
}
