// Any session that was recorded, written, read and played gives the same table bit for bit.
#include "chance.h"
#include "macros/tables.h"
#include "rounds.h"

#include "base/fault.h"
#include "drafting/command_machine.h"
#include "drafting/creation.h"
#include "drafting/point_fields.h"
#include "drafting/properties.h"
#include "drafting/view.h"
#include "macros/play.h"
#include "macros/record.h"

#include <cmath>

namespace {

// A user who draws whatever comes to his mind.
struct Scribbler : Screen {
  Chance Luck;
  std::string Number() {
    if (Luck.Below(12) == 0) return Luck.Of<std::string>({"0", "abc", "1e9", "-4"});
    if (Luck.Below(6) == 0)
      return Luck.Of<std::string>({"GRAINDIAMETER/7", "GRAINLENGTH/30", "2*3.3", "sqrt(7)/2"});
    return std::to_string(Luck.Below(2) ? 1 + Luck.Below(8) : 1 + Luck.Below(90) / 10.0).substr(0, 4);
  }
  Answer Ask(const Box &box) override {
    if (box.Offer == Buttons::YesNo) return Luck.Below(3) ? Answer::Yes : Answer::No;
    return Luck.Below(4) ? Answer::Ok : Answer::Cancel;
  }
  std::optional<std::string> AskFile(FileUse, std::string_view, std::string_view) override { return {}; }
  std::optional<std::uint32_t> AskColour(std::uint32_t) override { return {}; }
  void RunModal(Form form) override {
    auto &text = (*this)[Ctl::Question_Value].Text;
    if (form == Form::Question) text = Luck.Below(9) == 0 ? "" : Luck.Below(3) ? Number() : text;
    (*this)[WindowOf(form)].Visible = false;
  }
  void Wait(double) override {}
};

constexpr int Commands[] = {1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 20, 21, 22, 23, 24, 25, 26, 30,
                            31, 32, 33, 34, 35, 36, 51, 52, 53, 54, 55, 56, 57, 58, 60, 61, 62, 63, 64, 65,
                            66, 67, 68, 69, 70, 71, 72, 73, 76, 77, 80, 85, 86, 90, 91, 92, 93, 94, 95};
constexpr Ctl Modes[] = {Ctl::Cursor, Ctl::End_Ent, Ctl::Center_of_Ent, Ctl::Intersection,   Ctl::Along_Line,
                         Ctl::Key_In, Ctl::Delta,   Ctl::RotateDraw,    Ctl::DeactivateRDraw};

struct Stream {
  Drafting &Draft;
  Scribbler &Out;
  Chance &Luck;

  void Route(const Event &e) {
    if (e.What == Event::Kind::MouseDown) return MouseDown(Draft, e);
    if (e.What == Event::Kind::MouseMove) return MouseMove(Draft, e);
    if (e.What == Event::Kind::MouseUp) return MouseUp(Draft, e);
    const bool field = e.Target == Ctl::X_Input || e.Target == Ctl::Y_Input;
    const bool property = IsPropertyField(e.Target);
    if (e.What == Event::Kind::Text)
      return field ? FieldText(Draft, e) : property ? PropertyText(Draft, e) : CreationText(Draft, e);
    if (e.What == Event::Kind::Key)
      return field ? FieldKey(Draft, e) : property ? PropertyKey(Draft, e) : PanelKey(Draft, e);
    if (e.Target == Ctl::mnuEditUndo) return UndoChange(Draft);
    if (e.Target == Ctl::mnuEditRedo) return RedoChange(Draft);
    PressDrafting(Draft, e);
  }
  // Drawings before each change since the recording began, as far back as the ring goes.
  std::vector<std::vector<Entity>> Before{};
  void Send(const Event &e) {
    const bool undoes = e.Target == Ctl::mnuEditUndo;
    const unsigned changes = Draft.Changes;
    std::vector<Entity> drawn = RowsOf(Draft.Grain.Table);
    SendOn(e);
    if (undoes && !Before.empty()) {
      EXPECT_EQ(Difference(RowsOf(Draft.Grain.Table), Before.back()), "") << LogText(Draft.Log.Row);
      Before.pop_back();
    } else if (e.Target == Ctl::mnuEditRedo) {
      if (RowsOf(Draft.Grain.Table).size() != drawn.size() ||
          !Difference(RowsOf(Draft.Grain.Table), drawn).empty())
        Before.push_back(std::move(drawn));
    } else if (!undoes && Draft.Changes == changes + 1) {
      Before.push_back(std::move(drawn));
      if (Before.size() > 10) Before.erase(Before.begin());
    }
  }
  void SendOn(const Event &e) {
    try {
      Route(e);
    } catch (const Fault &) {
      Draft.Grain.GeomAbort = true;
    }
    RefreshDrafting(Draft);
  }
  void Press(Ctl c, const std::string &text = "") {
    Event e;
    e.Target = c;
    e.Text = text;
    if (Out[c].Visible && Out[c].Enabled) Send(e);
  }
  void Key(int code, Ctl where = Ctl::DrawPanel) {
    Event e;
    e.What = Event::Kind::Key;
    e.Target = where;
    e.KeyCode = code;
    Send(e);
  }
  void Type(Ctl c) {
    Event e;
    e.What = Event::Kind::Text;
    e.Target = c;
    e.Text = Out.Number();
    if (Out[c].Visible) Send(e);
  }
  double Near() { return Luck.Below(3) ? (Luck.Below(37) - 18) : (Luck.Below(36001) - 18000) / 1000.0 / 3; }
  // Often on something that stands there.
  Point Place() {
    const EntityTable &table = Draft.Grain.Table;
    if (table.EntCount < 0 || Luck.Below(3) == 0) return {Near(), Near()};
    const Entity &e = RowAt(table, Luck.Below(table.EntCount + 1));
    const double part = Luck.Below(11) / 10.0;
    if (e.EntType == LineType) return {e.X1 + part * (e.X2 - e.X1), e.Y1 + part * (e.Y2 - e.Y1)};
    const double angle = e.EntType == ArcType ? e.StartAngle + part * (e.EndAngle - e.StartAngle) : part * 6;
    return {e.CenterX + e.Radius * std::cos(angle), e.CenterY + e.Radius * std::sin(angle)};
  }
  void Mouse(Point from, Point to, int button) {
    Event e;
    e.Target = Ctl::DrawPanel;
    e.What = Event::Kind::MouseMove;
    e.X = from.X;
    e.Y = from.Y;
    Send(e);
    e.What = Event::Kind::MouseDown;
    e.Button = button;
    Send(e);
    e.What = Event::Kind::MouseUp;
    e.X = to.X;
    e.Y = to.Y;
    Send(e);
  }
  void Step() {
    const int what = Luck.Below(100);
    if (what < 55) {
      const Point p = Place();
      return Mouse(p, Luck.Below(25) ? p : Place(), Luck.Below(20) ? 1 : 2);
    }
    if (what < 67)
      return Press(FindCommand(Commands[Luck.Below(static_cast<int>(std::size(Commands)))])->Button);
    if (what < 74) return Press(Modes[Luck.Below(static_cast<int>(std::size(Modes)))]);
    if (what < 82) {
      const Ctl field = Luck.Below(2) ? Ctl::X_Input : Ctl::Y_Input;
      Type(field);
      return Luck.Below(3) ? Key(13, Ctl::Y_Input) : Key(Luck.Below(5) ? 13 : 27, Ctl::X_Input);
    }
    if (what < 88) {
      for (const Ctl c : {Ctl::BoxWidth, Ctl::PolySides, Ctl::PolyRadius, Ctl::PolyRotate})
        if (Luck.Below(3)) Type(c);
      Press(Luck.Of<Ctl>({Ctl::CC, Ctl::TL, Ctl::BR, Ctl::PolyFlat, Ctl::PolyCorner}));
      return Press(Luck.Of<Ctl>({Ctl::AcceptBoxWH, Ctl::AcceptBoxWH, Ctl::PolyAccept, Ctl::PolyCancel}));
    }
    if (what < 95) {
      if (Out[Ctl::XFormOption].Visible) return Press(Ctl::XFormOption, Luck.Below(2) ? "Move" : "Copy");
      if (Out[Ctl::Delete_Mode].Visible)
        return Press(Ctl::Delete_Mode, Luck.Below(2) ? "Single" : "Rotation Mode");
      return Press(
          Luck.Of<Ctl>({Ctl::SelectSingle, Ctl::SelectWindow, Ctl::SelectByType, Ctl::SelectAll,
                        Ctl::SelectLines, Ctl::SelectArcs, Ctl::SelectCircles, Ctl::All_Inside_Window,
                        Ctl::Part_Inside_Window, Ctl::Mirror_Horizonal, Ctl::Mirror_2Points,
                        Ctl::DeltaMovement, Ctl::Point2Movement, Ctl::GrainMovement}));
    }
    if (what == 95) return Press(Ctl::mnuEditUndo);
    if (what == 96) return Press(Luck.Below(2) ? Ctl::mnuEditRedo : Ctl::mnuEditUndo);
    if (what == 97) {
      Type(Luck.Of<Ctl>({Ctl::Prop_X1, Ctl::Prop_Length, Ctl::Prop_Radius, Ctl::Prop_CX, Ctl::Prop_Sweep}));
      return Key(13, Ctl::Prop_X1);
    }
    Key(Luck.Of<int>({13, 13, 27, 46}));
  }
};

TEST(RandomSessions, PlayToTheSameTable) {
  Scribbler screen;
  Design grain;
  Drafting draft{grain, screen};
  SetDimensions(grain.Doc, 40, 100, 9, 0);
  ZoomReset(screen.Panel, grain.Doc);
  ResetDrafting(draft);
  TemplateRecording rec;
  TemplatePlay play;
  std::size_t rows = 0;
  for (int round = 0; round < 2000 * Rounds(); ++round) {
    const auto seed = static_cast<unsigned>(Seed()) + static_cast<unsigned>(round);
    SCOPED_TRACE("seed " + std::to_string(seed));
    screen.Luck.Source.seed(seed);
    grain.Doc.SnapToGrid = screen.Luck.Below(4) == 0;
    if (screen.Luck.Below(3)) grain.Table.EntCount = -1; // else it begins with what stands there
    if (grain.Table.EntCount > 60) grain.Table.EntCount = 20;
    BeginRecording(rec, draft, {});
    Stream stream{draft, screen, screen.Luck};
    for (int i = 0; i < 40; ++i) stream.Step();
    const std::vector<Entity> drawn = RowsOf(grain.Table);
    const MacFile mac = RecordedTemplate(rec, draft);
    EndRecording(rec, draft);
    MacFile read;
    ASSERT_EQ(ParseMac(MacText(mac), "x.Mac", read), "");
    ASSERT_EQ(MacText(read), MacText(mac));
    rows += drawn.size();
    BeginPlay(play, draft, read, read.Variables);
    while (NextInstruction(play, draft)) {}
    ASSERT_EQ(play.Fault, "") << LogText(mac.Log);
    ASSERT_EQ(Difference(RowsOf(grain.Table), drawn), "") << LogText(mac.Log);
  }
  EXPECT_GT(rows, 5000u * static_cast<unsigned>(Rounds()));
}

} // namespace
