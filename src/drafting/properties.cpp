#include "drafting/properties.h"

#include "base/number_text.h"
#include "drafting/ask_question.h"
#include "drafting/commit.h"
#include "drafting/point_preview.h"
#include "drafting/report.h"
#include "drafting/selection.h"
#include "drafting/table_change.h"
#include "geometry/carrier.h"
#include "geometry/cut_core.h"
#include "geometry/row_measure.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int EnterKey = 13, EscapeKey = 27, TabKey = 9, ShiftKey = 1;
constexpr int Rounds = CircleType | ArcType;
constexpr double Degree = Pi / 180;

Point FirstEnd(const Entity &e) { return {e.X1, e.Y1}; }
Point SecondEnd(const Entity &e) { return {e.X2, e.Y2}; }

void SetLength(Entity &line, double length) {
  const double was = RowLength(line);
  const double ux = was > 0 ? (line.X2 - line.X1) / was : 1, uy = was > 0 ? (line.Y2 - line.Y1) / was : 0;
  line.X2 = line.X1 + length * ux;
  line.Y2 = line.Y1 + length * uy;
}

void SetAngle(Entity &line, double degrees) {
  const double length = RowLength(line);
  line.X2 = line.X1 + length * std::cos(degrees * Degree);
  line.Y2 = line.Y1 + length * std::sin(degrees * Degree);
}

void SetSweep(Entity &arc, double degrees) {
  arc.EndAngle = degrees == 360 ? arc.StartAngle : NormalAngle(arc.StartAngle + degrees * Degree);
}

double SweepDegrees(const Entity &arc) { return (IsWholeTurn(arc) ? TwoPi : ArcSweep(arc)) / Degree; }

struct FieldRow {
  Ctl Field, Label;
  int Types;
  double (*Get)(const Entity &);
  void (*Set)(Entity &, double);
};
constexpr FieldRow Fields[] = {
    {Ctl::Prop_X1, Ctl::Prop_X1_Label, LineType, [](const Entity &e) { return e.X1; },
     [](Entity &e, double v) { e.X1 = v; }},
    {Ctl::Prop_Y1, Ctl::Prop_Y1_Label, LineType, [](const Entity &e) { return e.Y1; },
     [](Entity &e, double v) { e.Y1 = v; }},
    {Ctl::Prop_X2, Ctl::Prop_X2_Label, LineType, [](const Entity &e) { return e.X2; },
     [](Entity &e, double v) { e.X2 = v; }},
    {Ctl::Prop_Y2, Ctl::Prop_Y2_Label, LineType, [](const Entity &e) { return e.Y2; },
     [](Entity &e, double v) { e.Y2 = v; }},
    {Ctl::Prop_Length, Ctl::Prop_Length_Label, LineType, RowLength, SetLength},
    {Ctl::Prop_Angle, Ctl::Prop_Angle_Label, LineType,
     [](const Entity &e) { return Bearing(FirstEnd(e), SecondEnd(e)) / Degree; }, SetAngle},
    {Ctl::Prop_CX, Ctl::Prop_CX_Label, Rounds, [](const Entity &e) { return e.CenterX; },
     [](Entity &e, double v) { e.CenterX = v; }},
    {Ctl::Prop_CY, Ctl::Prop_CY_Label, Rounds, [](const Entity &e) { return e.CenterY; },
     [](Entity &e, double v) { e.CenterY = v; }},
    {Ctl::Prop_Radius, Ctl::Prop_Radius_Label, Rounds, [](const Entity &e) { return e.Radius; },
     [](Entity &e, double v) { e.Radius = v; }},
    {Ctl::Prop_Diameter, Ctl::Prop_Diameter_Label, Rounds, [](const Entity &e) { return 2 * e.Radius; },
     [](Entity &e, double v) { e.Radius = v / 2; }},
    {Ctl::Prop_Start, Ctl::Prop_Start_Label, ArcType,
     [](const Entity &e) { return NormalAngle(e.StartAngle) / Degree; },
     [](Entity &e, double v) { e.StartAngle = NormalAngle(v * Degree); }},
    {Ctl::Prop_End, Ctl::Prop_End_Label, ArcType,
     [](const Entity &e) { return NormalAngle(e.EndAngle) / Degree; },
     [](Entity &e, double v) { e.EndAngle = NormalAngle(v * Degree); }},
    {Ctl::Prop_Sweep, Ctl::Prop_Sweep_Label, ArcType, SweepDegrees, SetSweep}};

const FieldRow *RowOfField(Ctl c) {
  const auto *row =
      std::find_if(std::begin(Fields), std::end(Fields), [&](const FieldRow &f) { return f.Field == c; });
  return row == std::end(Fields) ? nullptr : row;
}

std::string NumberOf(double v) {
  std::string text = FormatMask(v, "0.######");
  if (text.ends_with('.')) text.pop_back();
  return text;
}

bool Blank(const std::string &text) { return text.find_first_not_of(" \t") == std::string::npos; }

int PickedIndex(const Drafting &d) {
  if (d.Cmd.CmdNo != 0 || CountSelected(d.Grain.Table) != 1) return -1;
  for (int i = 0; i <= d.Grain.Table.EntCount; ++i)
    if (RowAt(d.Grain.Table, i).Selected) return i;
  return -1;
}

// The picked row with the typed numbers, or why there is none.
struct Edited {
  Entity Row;
  std::string Trouble, Title;
  Ctl At = Ctl::Count; // the field at fault
};

Edited Refuse(Ctl at, std::string trouble, std::string title) {
  return {{}, std::move(trouble), std::move(title), at};
}

std::string Within(double least, double most) {
  return "ERROR: A number from " + PlainText(least) + " to " + PlainText(most) + " must be entered";
}

Edited TypedRow(const Drafting &d) {
  constexpr const char *title = "Input Error";
  Entity row = RowAt(d.Grain.Table, d.Edit.Row);
  bool turned = false;
  Ctl at = Ctl::Count;
  for (const Ctl field : d.Edit.Typed) {
    at = field;
    const Formula typed = FieldFormula(d, d.Out[field].Text);
    if (!typed.Good()) return Refuse(field, "ERROR: " + typed.Message, title);
    const double value = Val(PlainText(typed.Value)); // as a log has it
    if (!(std::abs(value) <= MostLength)) return Refuse(field, Within(-MostLength, MostLength), title);
    if (field == Ctl::Prop_Sweep && !(value > 0 && value <= 360)) return Refuse(field, Within(0, 360), title);
    RowOfField(field)->Set(row, value);
    turned = turned || field == Ctl::Prop_Start || field == Ctl::Prop_End || field == Ctl::Prop_Sweep;
    const double size = row.EntType == LineType ? RowLength(row) : row.Radius;
    if (!(size >= LeastLength)) return Refuse(field, "ERROR: Entity's too small", "");
  }
  if (row.EntType == LineType)
    SetLineSlope(row);
  else if (row.EntType == CircleType)
    row = CircleRow(CentreOf(row), row.Radius);
  else if (turned && SameAngle(row.StartAngle, row.EndAngle))
    MakeFullCircle(row);
  else
    SetArcEnds(row);
  if (RowLength(row) < LeastLength) return Refuse(at, "ERROR: Entity's too small", "");
  row.GroupNo = RowAt(d.Grain.Table, d.Edit.Row).GroupNo;
  return {row, "", "", Ctl::Count};
}

void Drop(Drafting &d) {
  d.Edit.Typed.clear();
  d.Edit.Field = Ctl::Count;
  d.Out.Panel.Overlay.clear();
}

void LogTyped(Drafting &d, const std::vector<Ctl> &typed) {
  for (const Ctl field : typed) {
    const std::string &text = d.Out[field].Text;
    LogInput(d, LogProperty, static_cast<double>(RowOfField(field) - Fields),
             Val(PlainText(FieldFormula(d, text).Value)), field == typed.back() ? 1 : 0,
             IsPlainNumber(text) ? "" : ";" + text);
  }
}

void Enter(Drafting &d, Ctl field) {
  const int index = d.Edit.Row;
  d.Grain.GeomAbort = false;
  if (index < 0) return;
  d.Out.Focus = field;
  if (d.Edit.Typed.empty()) return Drop(d);
  const Edited edited = TypedRow(d);
  if (!edited.Trouble.empty()) {
    d.Out.Focus = edited.At;
    return Report(d, edited.Trouble, edited.Title, edited.Title.empty() ? Icon::Exclamation : Icon::Stop);
  }
  const std::vector<Ctl> typed = d.Edit.Typed;
  Drop(d);
  if (SameGeometry(edited.Row, RowAt(d.Grain.Table, index))) return;
  Solution change;
  change.Changed.push_back({index, edited.Row});
  if (!Apply(d, change, "Edit")) return;
  LogTyped(d, typed);
  RowAt(d.Grain.Table, index).Selected = true;
  d.Cmd.SelectCount = 1;
  RedrawPanel(d);
}

void GoOn(Drafting &d, Ctl from, int step) {
  constexpr int count = static_cast<int>(std::size(Fields));
  int i = static_cast<int>(RowOfField(from) - Fields);
  do i = (i + step + count) % count;
  while (!d.Out[Fields[i].Field].Visible && Fields[i].Field != from);
  d.Out.Focus = Fields[i].Field;
}

void ShowPreview(Drafting &d, const Entity &row) {
  const DrawItem item = RowItem(row, Ink::WillBe);
  std::vector<DrawItem> &overlay = d.Out.Panel.Overlay;
  if (std::find(overlay.begin(), overlay.end(), item) == overlay.end()) overlay.push_back(item);
}
} // namespace

bool IsPropertyField(Ctl c) { return RowOfField(c) != nullptr; }

void PropertyText(Drafting &d, const Event &event) {
  if (d.Edit.Row < 0 || !d.Out[event.Target].Visible) return;
  const FieldRow &field = *RowOfField(event.Target);
  const std::string own = NumberOf(field.Get(RowAt(d.Grain.Table, d.Edit.Row)));
  std::vector<Ctl> &typed = d.Edit.Typed;
  std::erase(typed, event.Target);
  d.Out.Panel.Overlay.clear();
  d.Out[event.Target].Text = event.Text;
  // The number as it was shown, and none, leave the row its own.
  if (!Blank(event.Text) && event.Text != own) typed.push_back(event.Target);
  d.Edit.Field = event.Target;
}

void PropertyKey(Drafting &d, const Event &event) {
  switch (event.KeyCode) {
  case EnterKey: return Enter(d, event.Target);
  case TabKey: return GoOn(d, event.Target, event.Shift & ShiftKey ? -1 : 1);
  case EscapeKey:
    Drop(d);
    d.Out.Focus = Ctl::DrawPanel;
    return;
  default: return;
  }
}

bool PlayProperty(Drafting &d, int field, double value, bool last) {
  const int row = PickedIndex(d);
  if (row < 0 || field < 0 || field >= static_cast<int>(std::size(Fields))) return false;
  const FieldRow &at = Fields[field];
  if ((at.Types & RowAt(d.Grain.Table, row).EntType) == 0) return false;
  d.Edit.Row = row;
  std::erase(d.Edit.Typed, at.Field);
  d.Edit.Typed.push_back(at.Field);
  d.Out[at.Field].Text = PlainText(value);
  if (last) Enter(d, at.Field);
  return true;
}

void RefreshProperties(Drafting &d) {
  const int picked = PickedIndex(d);
  const int count = d.Cmd.CmdNo == 0 ? CountSelected(d.Grain.Table) : 0;
  if (d.Edit.Row != picked || d.Edit.Changes != d.Changes) d.Edit = {picked, d.Changes, {}, Ctl::Count};
  d.Out[Ctl::Property_Frame].Visible = d.Out[Ctl::Prop_Text].Visible = count > 0;
  Entity row;
  std::string title = count > 1 ? std::to_string(count) + " entities" : "";
  if (picked >= 0) {
    row = RowAt(d.Grain.Table, picked);
    title = row.EntType == LineType ? "Line" : row.EntType == CircleType ? "Circle" : "Arc";
    if (const Edited edited = TypedRow(d); !d.Edit.Typed.empty() && edited.Trouble.empty()) {
      ShowPreview(d, edited.Row);
      row = edited.Row;
    }
  }
  d.Out[Ctl::Prop_Text].Text = title;
  const int type = picked >= 0 ? RowAt(d.Grain.Table, picked).EntType : 0;
  for (const FieldRow &field : Fields) {
    const bool shown = (field.Types & type) != 0;
    Control &control = d.Out[field.Field];
    control.Visible = d.Out[field.Label].Visible = shown;
    const auto &typed = d.Edit.Typed;
    if (std::find(typed.begin(), typed.end(), field.Field) == typed.end() && field.Field != d.Edit.Field)
      control.Text = shown ? NumberOf(field.Get(row)) : "";
  }
}
