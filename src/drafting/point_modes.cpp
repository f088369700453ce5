#include "drafting/point_modes.h"

#include "drafting/ask_question.h"
#include "drafting/command_machine.h"
#include "drafting/prompt.h"
#include "drafting/report.h"
#include "geometry/carrier.h"
#include "geometry/cut_core.h"

#include <cmath>
#include <tuple>
#include <utility>

namespace {
constexpr int AnyType = 7, LinesOnly = 1;
constexpr std::size_t MostMarks = 100, LastSlot = 100;
constexpr double CrossingGap = 0.001; // mm; how far a crossing may lie off either entity
constexpr std::uint32_t ChosenColour = 0 + 255 * 256 + 255 * 65536;
constexpr std::uint32_t PlainColour = 192 + 192 * 256 + 192 * 65536;
constexpr std::uint32_t AutoColour = 128 + 200 * 256 + 200 * 65536;

struct Mode {
  Ctl Button;
  std::int32_t RefType;
  bool Auto; // found by the tracker too
};
constexpr Mode Modes[] = {{Ctl::Cursor, CursorRef, true},        {Ctl::End_Ent, EndRef, true},
                          {Ctl::Center_of_Ent, CentreRef, true}, {Ctl::Intersection, IntersectionRef, false},
                          {Ctl::Along_Line, AlongRef, false},    {Ctl::Key_In, KeyInRef, false}};

struct Offset {
  double DX = 0, DY = 0;
  bool Asked = false;
  std::vector<AnswerGiven> Answers; // kept from the log of the click: the offset is a step of its own
};

bool AskOffset(Drafting &d, Offset &offset) {
  if (!d.Cmd.DeltaPending) return true;
  if (d.Play.On && d.Play.Offset) {
    offset.DX = d.Play.Offset->X;
    offset.DY = d.Play.Offset->Y;
    d.Play.Offset.reset();
    return true;
  }
  const std::size_t before = d.Answers.size();
  if (d.Cmd.RefType == CursorRef) d.Out[Ctl::End_Frame].Text = "Indicate Start Point";
  offset.Asked = AskDelta(d, offset.DX, offset.DY);
  d.Out[Ctl::End_Frame].Text.clear();
  const auto from = d.Answers.begin() + static_cast<std::ptrdiff_t>(std::min(before, d.Answers.size()));
  offset.Answers.assign(from, d.Answers.end());
  d.Answers.erase(from, d.Answers.end());
  return offset.Asked;
}

void LogOffset(Drafting &d, const Offset &offset) {
  if (!offset.Asked) return;
  std::string formulas;
  if (offset.Answers.size() == 2 && !(offset.Answers[0].Formula.empty() && offset.Answers[1].Formula.empty()))
    formulas = offset.Answers[0].Formula + ";" + offset.Answers[1].Formula;
  std::vector<AnswerGiven> waiting;
  std::swap(waiting, d.Answers);
  LogInput(d, LogDelta, offset.DX, offset.DY, 0, formulas);
  std::swap(waiting, d.Answers);
}

void Append(Drafting &d, Point at) {
  CommandState &cmd = d.Cmd;
  if (cmd.PointCount >= static_cast<int>(LastSlot)) {
    cmd.PointX[0] = cmd.PointX[LastSlot];
    cmd.PointY[0] = cmd.PointY[LastSlot];
    cmd.PointCount = 0;
  }
  const auto slot = static_cast<std::size_t>(++cmd.PointCount);
  cmd.PointX[slot] = cmd.AnchorX = at.X;
  cmd.PointY[slot] = cmd.AnchorY = at.Y;
  cmd.CmdStep = cmd.RefType == IntersectionRef || cmd.CmdStep >= 2 ? 2 : 0;
  cmd.CrossingFirst = {};
  cmd.RefOrigin = cmd.KeyInX = cmd.KeyInY = cmd.DeltaPending = false;
  if (cmd.RefType == KeyInRef) cmd.RefType = CursorRef;
}

// The row that was picked when the log was recorded, if it is still of its kind.
bool RecordedRow(const Drafting &d, int typeMask, bool allowSelected) {
  if (!d.Play.On || d.Play.Row < 0 || d.Play.Row > d.Grain.Table.EntCount) return false;
  const Entity &e = RowAt(d.Grain.Table, d.Play.Row);
  return (e.EntType & typeMask) != 0 && (d.Play.RowType == 0 || d.Play.RowType == e.EntType) &&
         (allowSelected || !e.Selected);
}

double AngleApart(double a, double b) {
  const double apart = NormalAngle(a - b);
  return std::min(apart, TwoPi - apart);
}

Point NearEnd(const Entity &e, Point p) {
  const auto ends = EndsOf(e);
  bool second = false;
  if (e.EntType == LineType) {
    const Point foot = FootOn(CarrierOf(e), p);
    second = Distance(foot, ends[1]) < Distance(foot, ends[0]);
  } else if (e.EntType == ArcType) {
    const double angle = Bearing(CentreOf(e), p);
    second = AngleApart(angle, e.EndAngle) < AngleApart(angle, e.StartAngle);
  }
  return ends[second ? 1 : 0];
}

double OffCurve(const Entity &e, Point p) {
  return e.EntType == LineType ? std::abs(AsideOf(CarrierOf(e), p))
                               : std::abs(Distance(CentreOf(e), p) - e.Radius);
}

// Of the whole lines and circles, nearer to the position. Circles that miss each other can come with points
// of neither.
std::optional<Point> Crossing(const Entity &one, const Entity &two, Point p) {
  const Roots roots = CarrierMeetings(one, two);
  if (roots.Case == RootCase::None) return std::nullopt;
  const Point at = NearerRoot(roots, p);
  if (!(OffCurve(one, at) <= CrossingGap && OffCurve(two, at) <= CrossingGap)) return std::nullopt;
  return at;
}

std::optional<Point> AlongLine(Drafting &d, const Entity &line, Point p) {
  const auto distance = AskQuestion(d, {.Label = "Enter Distance Along Line",
                                        .Caption = "Distance Along Line",
                                        .Value = GetLineLength(line),
                                        .AllowZero = true});
  if (!distance) return std::nullopt;
  Carrier from = CarrierOf(line);
  const Point near = NearEnd(line, p);
  if (near.X != line.X1 || near.Y != line.Y1) from = {near, -from.UX, -from.UY};
  return PointAlong(from, *distance);
}

void NoSolution(Drafting &d) { Report(d, "Error: Can't Find Solution"); }

bool FirstOfCrossing(Drafting &d, Point p) {
  CommandState &cmd = d.Cmd;
  if (cmd.RefType != IntersectionRef || cmd.CmdStep % 2 != 0) return false;
  cmd.CrossingFirst = PickEntity(d, p, AnyType, "No Entity Found", LogFoundEnt, true);
  if (cmd.CrossingFirst.Found) ++cmd.CmdStep;
  return true;
}

// The point that a picked entity gives. Nothing: told, or the command was left.
std::optional<Point> PointOf(Drafting &d, const PickedRow &pick, Point p) {
  switch (d.Cmd.RefType) {
  case EndRef: return NearEnd(pick.Row, p);
  case CentreRef:
    if (pick.Row.EntType == LineType) return Midway({pick.Row.X1, pick.Row.Y1}, {pick.Row.X2, pick.Row.Y2});
    return CentreOf(pick.Row);
  case IntersectionRef: {
    const auto at = Crossing(d.Cmd.CrossingFirst.Row, pick.Row, p);
    if (!at) NoSolution(d);
    return at;
  }
  default: {
    const auto at = AlongLine(d, pick.Row, p);
    d.Cmd.PickFound = at.has_value();
    if (!at) LeaveCommand(d);
    return at;
  }
  }
}

bool InputByPick(Drafting &d, Point p) {
  if (FirstOfCrossing(d, p)) return false;
  const bool lines = d.Cmd.RefType == AlongRef;
  const PickedRow pick =
      PickEntity(d, p, lines ? LinesOnly : AnyType, lines ? "No Line Found" : "No Entity Found", 0, true);
  if (!pick.Found) return false;
  if (d.Cmd.RefType == IntersectionRef && pick.Index == d.Cmd.CrossingFirst.Index) {
    Report(d, "Line Already Selected");
    return false;
  }
  Offset offset;
  if (!AskOffset(d, offset)) {
    LeaveCommand(d);
    return false;
  }
  const auto at = PointOf(d, pick, p);
  if (!at) return false;
  d.Cmd.EntPick3 = static_cast<std::int16_t>(pick.Index);
  LogOffset(d, offset);
  LogInput(d, LogFoundEnt, pick.Index, p.X, p.Y);
  const Point taken{at->X + offset.DX, at->Y + offset.DY};
  Append(d, taken);
  MarkPoint(d, taken);
  return true;
}

void ChooseMode(Drafting &d, const Event &event) {
  for (const Mode &mode : Modes) {
    if (mode.Button != event.Target) continue;
    // A typed point leads back to the cursor.
    if (mode.RefType == KeyInRef && d.Cmd.RefType != CursorRef && d.Cmd.RefType != KeyInRef)
      LogInput(d, LogRefType + static_cast<int>(CursorRef));
    d.Cmd.RefType = mode.RefType;
    if (d.Cmd.CmdStep % 2 != 0) --d.Cmd.CmdStep; // an intersection begun is dropped
    d.Cmd.CrossingFirst = {};
    d.Out.Panel.Overlay.clear();
    if (mode.RefType != KeyInRef) LogInput(d, LogRefType + mode.RefType); // typed points log themselves
    d.Out.Focus = mode.RefType == KeyInRef ? Ctl::X_Input : Ctl::DrawPanel;
  }
  RefreshPoints(d);
}

void PressDelta(Drafting &d, const Event &) {
  d.Cmd.DeltaPending = !d.Cmd.DeltaPending;
  RefreshPoints(d);
}

void PressAutoPoint(Drafting &d, const Event &) {
  const bool on = !d.Track.AutoPoint;
  d.Track = {};
  d.Track.AutoPoint = on;
  RefreshPoints(d);
}

constexpr ButtonRow Presses[] = {{Ctl::Cursor, ChooseMode},        {Ctl::End_Ent, ChooseMode},
                                 {Ctl::Center_of_Ent, ChooseMode}, {Ctl::Intersection, ChooseMode},
                                 {Ctl::Along_Line, ChooseMode},    {Ctl::Key_In, ChooseMode},
                                 {Ctl::Delta, PressDelta},         {Ctl::AutoPoint, PressAutoPoint}};

bool TrackerHolds(const Drafting &d, Point p) {
  const int row = d.Track.Target.SnapEntity;
  return d.Track.Target.SnapActive && p.X == d.Cmd.TrackX && p.Y == d.Cmd.TrackY && row >= 0 &&
         row <= d.Grain.Table.EntCount;
}
} // namespace

void LogPosition(Drafting &d, Point p) {
  // One coordinate was typed and the other pointed at.
  for (const auto &[keyed, field, i] :
       {std::tuple{d.Cmd.KeyInX, Ctl::X_Input, 0u}, {d.Cmd.KeyInY, Ctl::Y_Input, 1u}}) {
    const std::string &text = d.Out[field].Text;
    if (!d.Log.On || !keyed || FieldsOf(d) != FieldUse::Position || IsPlainNumber(text)) continue;
    const Formula formula = FieldFormula(d, text);
    if (formula.Good() && std::abs(formula.Value) <= MostLength) d.Log.Place[i] = text;
  }
  if (d.Typed.Entered)
    LogTypedPoint(d, p);
  else
    LogInput(d, LogClick, p.X, p.Y, 1);
}

PickedRow PickEntity(Drafting &d, Point p, int typeMask, std::string_view none, int kind, bool allowSelected,
                     bool grainCircle) {
  PickScope scope;
  scope.TypeMask = typeMask;
  scope.AllowSelected = allowSelected;
  const double grainRadius = static_cast<double>(d.Grain.Doc.GrainRadius);
  // The snap says which row, the pointer itself on which side: at a corner both picks of a fillet would meet.
  const bool held = TrackerHolds(d, p);
  const Point pointer = held ? Point{d.Cmd.ClickX, d.Cmd.ClickY} : p;
  if (held) {
    const Entity &e = RowAt(d.Grain.Table, d.Track.Target.SnapEntity);
    scope.SnapActive = (e.EntType & typeMask) != 0 && (allowSelected || !e.Selected);
    scope.SnapEntity = d.Track.Target.SnapEntity;
  }
  PickedRow pick = PickRow(d.Grain.Table, scope.SnapActive ? p : pointer, grainRadius, scope, grainCircle);
  if (pick.Found && scope.SnapActive) pick = RowPick(d.Grain.Table, pick.Index, pointer);
  if (pick.Index != d.Play.Row && RecordedRow(d, typeMask, allowSelected))
    pick = RowPick(d.Grain.Table, d.Play.Row, p);
  if (pick.GeomAbort) {
    Report(d, "ERROR: No Solution Found");
  } else if (!pick.Found) {
    d.Grain.GeomAbort = true;
    if (!none.empty()) Report(d, none, "ERROR", Icon::Stop);
  } else {
    d.Cmd.PickFound = true;
    d.Log.PickedType = pick.Row.EntType;
    FlashRow(d, pick.Row);
    if (kind != 0) LogInput(d, kind, pick.Index, p.X, p.Y);
  }
  return pick;
}

bool PointInput(Drafting &d, Point p) {
  if (d.Cmd.RefType != CursorRef && d.Cmd.RefType != KeyInRef) return InputByPick(d, p);
  Offset offset;
  if (!AskOffset(d, offset)) {
    LeaveCommand(d);
    return false;
  }
  LogOffset(d, offset);
  LogPosition(d, p);
  Append(d, {p.X + offset.DX, p.Y + offset.DY});
  return true;
}

void TakePosition(Drafting &d, Point p) {
  LogPosition(d, p);
  Append(d, p);
}

void MarkPoint(Drafting &d, Point p) {
  if (d.Marks.size() >= MostMarks) d.Marks.erase(d.Marks.begin());
  d.Marks.push_back(p);
}

std::span<const ButtonRow> PointButtons() { return Presses; }

void RefreshPoints(Drafting &d) {
  for (const Mode &mode : Modes) {
    Control &button = d.Out[mode.Button];
    const bool chosen = d.Cmd.RefType == mode.RefType;
    button.Checked = chosen;
    button.Colour = chosen ? ChosenColour : PlainColour;
    if (d.Track.AutoPoint && mode.Auto && (!chosen || mode.RefType == CursorRef)) button.Colour = AutoColour;
  }
  d.Out[Ctl::Delta].Checked = d.Cmd.DeltaPending;
  d.Out[Ctl::Delta].Colour = d.Cmd.DeltaPending ? ChosenColour : PlainColour;
  d.Out[Ctl::AutoPoint].Checked = d.Track.AutoPoint;
  d.Out[Ctl::AutoPoint].Colour = d.Track.AutoPoint ? AutoColour : PlainColour;
  RefreshFields(d);
}
