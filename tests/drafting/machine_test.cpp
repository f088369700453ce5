// The command machine as a whole: every command from idle and back, and drawings made of random events.
#include "platform/events.h"
#include "rounds.h"
#include "shell/journey.h"

#include "drafting/command_table.h"
#include "shell/grain_file.h"

#include <cmath>
#include <random>

namespace {

bool SameRow(const Entity &a, const Entity &b) {
  return a.EntType == b.EntType && a.X1 == b.X1 && a.Y1 == b.Y1 && a.X2 == b.X2 && a.Y2 == b.Y2 &&
         a.CenterX == b.CenterX && a.CenterY == b.CenterY && a.Radius == b.Radius &&
         a.StartAngle == b.StartAngle && a.EndAngle == b.EndAngle && a.Slope == b.Slope &&
         a.Intercept == b.Intercept;
}

bool SameTable(const EntityTable &a, const EntityTable &b) {
  for (int i = 0; i <= a.EntCount && a.EntCount == b.EntCount; ++i)
    if (!SameRow(RowAt(a, i), RowAt(b, i))) return false;
  return a.EntCount == b.EntCount;
}

// Answers every question and box, in the ways a person does and some more.
struct ChanceScreen : Screen {
  std::mt19937 Luck;
  int Below(int n) { return static_cast<int>(Luck() % static_cast<unsigned>(n)); }
  std::string Number() {
    const char *odd[] = {"", "0", "-2", "abc", "1e999", "1/0", "3*2", "301", "400"};
    return Below(6) ? std::to_string(1 + Below(60) / 10.0) : odd[Below(9)];
  }
  Answer Ask(const Box &box) override {
    if (box.Offer == Buttons::YesNo) return Below(2) ? Answer::Yes : Answer::No;
    return Below(2) || box.Offer == Buttons::Ok ? Answer::Ok : Answer::Cancel;
  }
  std::optional<std::string> AskFile(FileUse, std::string_view, std::string_view) override { return {}; }
  std::optional<std::uint32_t> AskColour(std::uint32_t) override { return Below(0x1000000); }
  void RunModal(Form form) override {
    for (int i = 0; i < 12 && (*this)[WindowOf(form)].Visible; ++i) {
      if (form == Form::Question) {
        OnEvent(TextIn(Ctl::Question_Value, i < 10 ? Number() : ""));
        OnEvent(PressOf(Below(12) ? Ctl::Question_OK : Ctl::Question_Cancel));
      } else {
        OnEvent(KeyIn(WindowOf(form), 27));
      }
    }
    (*this)[WindowOf(form)].Visible = false;
  }
  void Wait(double) override {}
};

struct Machine : Journey {
  std::unique_ptr<Workbench> Made;
  ChanceScreen Random;

  Workbench &Begin(unsigned seed) {
    Made.reset();
    Random.Luck.seed(seed);
    Made = std::make_unique<Workbench>(Random);
    WorkFolders folders;
    folders.AppDir = Home.string() + "/";
    folders.Install = std::string(TEST_SOURCE) + "/";
    EXPECT_TRUE(StartUp(*Made, folders, ReadCommandLine(FiveKeys())));
    return *Made;
  }
  void TearDown() override {
    Made.reset();
    Journey::TearDown();
  }
  void Send(Event::Kind what, Ctl target, double x = 0, double y = 0, int button = 0, int key = 0,
            int shift = 0, const std::string &text = "") {
    Event e = MouseAt(what, target, x, y, button, shift);
    e.KeyCode = key;
    e.Text = text;
    Dispatch(*Made, e);
  }
  void Click(double x, double y, int button = 1) {
    Send(Event::Kind::MouseMove, Ctl::DrawPanel, x, y);
    Send(Event::Kind::MouseDown, Ctl::DrawPanel, x, y, button);
    Send(Event::Kind::MouseUp, Ctl::DrawPanel, x, y, button);
  }
  // A place on the drawing, more often near an entity than not.
  Point Somewhere() {
    const EntityTable &table = Made->Grain.Table;
    if (table.EntCount < 0 || Random.Below(3) == 0)
      return {Random.Below(3600) / 100.0 - 18, Random.Below(3600) / 100.0 - 18};
    const Entity &e = RowAt(table, Random.Below(table.EntCount + 1));
    const double part = Random.Below(101) / 100.0;
    if (e.EntType == LineType) return {e.X1 + part * (e.X2 - e.X1), e.Y1 + part * (e.Y2 - e.Y1)};
    const double sweep = e.EntType == ArcType ? ArcSweep(e) : TwoPi;
    const double at = (e.EntType == ArcType ? e.StartAngle : 0) + part * sweep;
    return {e.CenterX + e.Radius * std::cos(at), e.CenterY + e.Radius * std::sin(at)};
  }
};

const char *Some = "cmd 52\nclick -8 -6\nclick 8 6\nkey Escape\ncmd 20\nanswer 5\nclick 0 0\nkey Escape\n";

TEST_F(Machine, EveryCommandStartsPromptsAndLeaves) {
  ASSERT_TRUE(Start());
  Play(Some);
  const EntityTable before = Bench().Grain.Table;
  for (const CommandRow &row : CommandTable()) {
    SCOPED_TRACE("command " + std::to_string(row.CmdNo));
    std::string script = "cmd " + std::to_string(row.CmdNo) + "\n";
    const int questions = row.CmdNo == 57 || row.CmdNo == 32   ? 2
                          : row.CmdNo == 30 || row.CmdNo == 31 ? 3
                          : row.CmdNo == 4 || row.CmdNo == 20 || row.CmdNo == 21 || row.CmdNo == 33 ||
                                  row.CmdNo == 55 || row.CmdNo == 56
                              ? 1
                              : 0;
    for (int i = 0; i < questions; ++i) script += "answer 2\n";
    Play(script);
    EXPECT_EQ(Bench().Draft.Cmd.CmdNo, row.CmdNo);
    EXPECT_TRUE(Screen()[Ctl::UserPrompt].Visible);
    EXPECT_FALSE(Screen()[Ctl::UserPrompt].Text.empty());
    EXPECT_NE(Screen()[row.Button].Colour, 0u);
    // A first click on an entity, then away.
    if (Screen()[Ctl::DrawPanel].Enabled && row.CmdNo != 90 && row.CmdNo != 91 && row.CmdNo != 54 &&
        row.CmdNo != 69 && row.CmdNo != 85 && row.CmdNo != 3 && row.Points != 1)
      Play(row.CmdNo == 10 || row.CmdNo == 11 ? "click 5 0\n" : "click 0 6\n");
    Play("key Escape\n");
    EXPECT_EQ(Bench().Draft.Cmd.CmdNo, 0);
    EXPECT_FALSE(Screen()[Ctl::UserPrompt].Visible);
    EXPECT_EQ(Screen()[row.Button].Colour, 0u);
    EXPECT_TRUE(SameTable(Bench().Grain.Table, before));
    for (int i = 0; i <= before.EntCount; ++i) EXPECT_FALSE(RowAt(Bench().Grain.Table, i).Selected);
  }
}

TEST_F(Machine, Prompts) {
  ASSERT_TRUE(Start());
  Play("cmd 1\nexpect prompt Indicate Starting Point / Indicate Position\n"
       "click 0 0\nexpect prompt Indicate End Point / Indicate Position\n"
       "back 0 0\nexpect prompt Indicate Starting Point / Indicate Position\n"
       "press End_Ent\nexpect prompt Indicate Starting Point / Select Entity\n"
       "press Intersection\nexpect prompt Indicate Starting Point / Indicate First Entity\n"
       "press Cursor\nclick 0 0\nclick 5 0\nback 0 0\n"
       "cmd 2\nclick 0 0\nclick 5 0\nexpect prompt Indicate end point of new line / Indicate Position\n"
       "click 5 5\nclick 5 5\nexpect count 3\nback 0 0\nexpect prompt\n"
       "cmd 60\nexpect prompt Select Entity to Trim or Extend / Indicate Position\n"
       "click 2 0\nexpect prompt Select Trimming Entity / Indicate Position\n"
       "cmd 23\nclick 0 0\nexpect prompt Indicate Second Point / Indicate Position\n"
       "click 1 0\nexpect prompt Indicate 3rd Point / Indicate Position\n"
       "cmd 72\npress XFormOption:Move\npress SelectAll\nexpect prompt Indicate Rotation Point\n"
       "press Along_Line\nexpect prompt Select Rotation Point / Select Line\npress Cursor\n"
       "cmd 80\nexpect prompt Indicate first corner of new window / Indicate Position\n"
       "click 0 0\nclick 5 5\nexpect prompt Indicate Rotation Point\nkey Escape\nexpect prompt\n");
}

TEST_F(Machine, UndoAcrossTheRing) {
  for (int changes = 10; changes <= 13; ++changes) {
    SCOPED_TRACE(changes);
    ASSERT_TRUE(Start());
    std::vector<EntityTable> states{Bench().Grain.Table};
    for (int i = 0; i < changes; ++i) {
      const std::string at = std::to_string(i);
      Play(i % 4 == 3 ? "cmd 85\nclick 0 " + std::to_string(i - 1) + "\nkey Escape\n"
                      : "cmd 1\nclick 0 " + at + "\nclick 5 " + at + "\nkey Escape\n");
      states.push_back(Bench().Grain.Table);
    }
    const int kept = std::min(changes, UndoSlots - 1);
    for (int i = 1; i <= kept; ++i) {
      Play("key Ctrl+Z\n");
      EXPECT_TRUE(SameTable(Bench().Grain.Table, states[states.size() - 1 - static_cast<std::size_t>(i)]))
          << i;
    }
    for (int i = kept - 1; i >= 0; --i) {
      Play("key Ctrl+Y\n");
      EXPECT_TRUE(SameTable(Bench().Grain.Table, states[states.size() - 1 - static_cast<std::size_t>(i)]))
          << i;
    }
  }
}

bool SlopeHolds(const Entity &e) {
  if (e.EntType != LineType) return true;
  return std::isfinite(e.Slope) && std::abs(e.Slope) <= 1000000 && std::isfinite(e.Intercept);
}

TEST_F(Machine, RandomDrawing) {
  int grown = 0;
  for (int round = 0; round < 4 * Rounds(); ++round) {
    const auto seed = static_cast<unsigned>(Seed()) + static_cast<unsigned>(round);
    SCOPED_TRACE("seed " + std::to_string(seed));
    Workbench &bench = Begin(seed);
    EntityTable last = bench.Grain.Table;
    for (int i = 0; i < 1500 && !HasFatalFailure(); ++i) {
      const unsigned changes = bench.Draft.Changes;
      const int what = Random.Below(20);
      const Point at = Somewhere();
      if (what < 3) {
        const auto rows = CommandTable();
        Send(Event::Kind::Press,
             rows[static_cast<std::size_t>(Random.Below(static_cast<int>(rows.size())))].Button);
      } else if (what < 13) {
        Click(at.X, at.Y, Random.Below(15) ? 1 : 2);
      } else if (what == 13) {
        const int keys[] = {13, 13, 13, 9, 46, 'A'};
        Send(Event::Kind::Key, Ctl::DrawPanel, 0, 0, 0, keys[Random.Below(6)]);
      } else if (what == 14) {
        Send(Event::Kind::Key, Ctl::DrawPanel, 0, 0, 0, Random.Below(2) ? 'Z' : 'Y', 2);
      } else if (what == 15) {
        const Ctl field = Random.Below(2) ? Ctl::X_Input : Ctl::Y_Input;
        Send(Event::Kind::Text, field, 0, 0, 0, 0, 0, Random.Number());
        Send(Event::Kind::Key, field, 0, 0, 0, 13);
      } else { // any control of the main window
        Ctl c = static_cast<Ctl>(Random.Below(static_cast<int>(CtlCount)));
        const auto &items = Random[c].Item;
        const bool undoes =
            c == Ctl::mnuEditUndo || c == Ctl::tbUndo || c == Ctl::mnuEditRedo || c == Ctl::tbRedo;
        const bool leaves = undoes || c == Ctl::mnuFileExit || c == Ctl::mnuFileNew || c == Ctl::tbNew ||
                            c == Ctl::RunSim2 || c == Ctl::mnuDims || RowOf(c).Window == "Dimensions";
        if (leaves || !Random[c].Visible) c = Random.Below(2) ? Ctl::XFormOption : Ctl::SelectAll;
        Send(Event::Kind::Press, c, 0, 0, 1, 0, 0,
             items.empty() ? ""
                           : items[static_cast<std::size_t>(Random.Below(static_cast<int>(items.size())))]);
      }
      const EntityTable &table = bench.Grain.Table;
      ASSERT_TRUE(table.EntCount >= -1 && table.EntCount <= 300);
      for (int k = 0; k <= table.EntCount; ++k) {
        const Entity &e = RowAt(table, k);
        ASSERT_TRUE(e.EntType == LineType || e.EntType == CircleType || e.EntType == ArcType);
        ASSERT_TRUE(SlopeHolds(e)) << k;
        for (const double v : {e.X1, e.Y1, e.X2, e.Y2, e.CenterX, e.CenterY, e.Radius})
          ASSERT_TRUE(std::isfinite(v));
        const bool idle = bench.Draft.Cmd.CmdNo == 0 && bench.Draft.Cmd.SelectCount == 0;
        ASSERT_FALSE(idle && e.Selected) << k;
      }
      if (bench.Draft.Changes == changes + 1 &&
          what != 14) { // one change is one undo, and redo brings it back
        const EntityTable now = table;
        const CommandState cmd = bench.Draft.Cmd;
        Send(Event::Kind::Press, Ctl::mnuEditUndo);
        EXPECT_TRUE(SameTable(table, last)) << "undo after step " << i << " of command " << cmd.CmdNo;
        Send(Event::Kind::Press, Ctl::mnuEditRedo);
        ASSERT_TRUE(SameTable(table, now)) << "redo after step " << i;
      }
      last = table;
    }
    grown += last.EntCount > 5;
  }
  EXPECT_GT(grown, 0);
}

} // namespace
