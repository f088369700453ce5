// What was recorded, written, read and played again gives the same table bit for bit.
#include "journey_scripts.h"
#include "macros/tables.h"
#include "shell/journey.h"

#include "drafting/command_machine.h"
#include "macros/play.h"
#include "macros/record.h"

namespace {

struct Macros : Journey {
  TemplateRecording Rec;
  TemplatePlay Player;

  void Begin(const VariableTable &variables = {}) { BeginRecording(Rec, Bench().Draft, variables); }
  MacFile End() {
    MacFile read;
    const MacFile mac = RecordedTemplate(Rec, Bench().Draft);
    EndRecording(Rec, Bench().Draft);
    EXPECT_EQ(ParseMac(MacText(mac), "x.Mac", read), "");
    EXPECT_EQ(Difference(read.Start, mac.Start), "");
    return read;
  }
  std::string PlayAll(const MacFile &mac, const VariableTable &values) {
    BeginPlay(Player, Bench().Draft, mac, values);
    while (NextInstruction(Player, Bench().Draft)) {}
    return Player.Fault;
  }
  std::vector<Entity> Rows() { return RowsOf(Bench().Grain.Table); }
};

TEST_F(Macros, EveryJourneyPlaysToTheSameTable) {
  for (const auto &[path, script] : JourneyScripts()) {
    SCOPED_TRACE(path);
    ASSERT_TRUE(Start());
    Bench().Grain.Doc.SnapToGrid = 0;
    Bench().Grain.Table.EntCount = -1; // of the journey before, recovered
    Screen().Lines = ReadScript(script);
    while (!AtEnd(Screen().Lines) && Upcoming(Screen().Lines).starts_with("grain")) Screen().PlayLine();
    Begin();
    while (!AtEnd(Screen().Lines)) Screen().PlayLine();
    ASSERT_EQ(Screen().Lines.Fault, "");
    const std::vector<Entity> drawn = Rows();
    const MacFile mac = End();
    ASSERT_FALSE(drawn.empty());
    EXPECT_EQ(PlayAll(mac, mac.Variables), "") << LogText(mac.Log);
    EXPECT_EQ(Difference(Rows(), drawn), "") << LogText(mac.Log);
    UndoChange(Bench().Draft); // one for the whole play
    EXPECT_EQ(Difference(Rows(), drawn), "");
  }
}

// What an undo takes back leaves the log; the tool, the point mode and rotation draw chosen since stay.
TEST_F(Macros, UndoTakesInputsOffTheLogAndRedoBringsThemBack) {
  ASSERT_TRUE(Start());
  Bench().Grain.Doc.SnapToGrid = 0;
  Begin();
  const Drafting &d = Bench().Draft;
  const auto kinds = [&] {
    std::vector<int> all;
    for (const Instruction &i : d.Log.Row) all.push_back(i.PointArea);
    return all;
  };
  const std::vector<int> line{1, LogClick, LogClick}, square{1, 97, LogAnswers, 142, 141, LogClick, LogClick};
  Play("cmd 20\nanswer 3\nkey Escape\nkey Ctrl+Z"); // nothing to undo: nothing is left of it but idleness
  EXPECT_EQ(d.Cmd.CmdNo, 0);
  Play("cmd 1\nclick 0 0\nclick 5 0\nclick 5 5\nkey Ctrl+Z\nkey Ctrl+Y");
  EXPECT_EQ(kinds(), line); // the point picked after it is gone
  Play("press RotateDraw\nanswer 4\npress End_Ent\nkey Ctrl+Z\nexpect count 0");
  EXPECT_EQ(kinds(), (std::vector<int>{1, 97, LogAnswers, 142}));
  EXPECT_EQ(d.Cmd.CmdNo, 1);
  EXPECT_EQ(d.Cmd.RefType, EndRef);
  EXPECT_TRUE(d.Rotation.Active);
  Play("press Cursor\nclick 1 0\nclick 2 1\nexpect count 4\nkey Ctrl+Z\nexpect count 0\nkey Ctrl+Y\n"
       "expect count 4");
  EXPECT_EQ(kinds(), square);
  // A string goes on from nowhere after an undo, as without a recording.
  Play("press DeactivateRDraw\ncmd 2\nclick 9 9\nclick 9 5\nclick 5 5\nkey Ctrl+Z\nexpect count 5\n"
       "click 7 7\nexpect count 5\nclick 7 8\nexpect count 6\nkey Escape");
  const std::vector<Entity> drawn = Rows();
  const MacFile mac = End();
  EXPECT_EQ(PlayAll(mac, mac.Variables), "");
  EXPECT_EQ(Difference(Rows(), drawn), "");
}

// What is clicked and what stood there grow with the grain; what is typed stays.
TEST_F(Macros, AnotherDiameterScalesWhatIsPointedAt) {
  ASSERT_TRUE(Start());
  Bench().Grain.Doc.SnapToGrid = 0;
  Play("grain 40 100 9 none\ncmd 20\nanswer 2\nclick -8 -6\nkey Escape");
  Begin();
  Play("cmd 1\nclick 2 3\nclick 6 3\npoint 4; 5\nclickat GRAINDIAMETER/8; 7\ncmd 20\nanswer 2\nclick -4 "
       "0\nkey Escape");
  const MacFile mac = End();
  Play("grain 60 100 9 none");
  ASSERT_EQ(PlayAll(mac, mac.Variables), "");
  const std::vector<Entity> expected{MakeCircle(-12, -9, 3), MakeLine(3, 4.5, 9, 4.5),
                                     MakeLine(4, 5, 7.5, 10.5), MakeCircle(-6, 0, 2)};
  EXPECT_EQ(Difference(Rows(), expected), "");
}

// A row counts where the place has nothing, and only if it is of the type that was picked.
TEST_F(Macros, ARowOfAnotherTypeIsNotPicked) {
  ASSERT_TRUE(Start());
  MacFile mac;
  mac.Start = {MakeLine(0, 5, 8, 5), MakeCircle(-8, 0, 2)};
  SetGrainVariables(mac.Variables, 40, 100);
  const auto erase = [&](Instruction pick) {
    mac.Log = {{85, 0, 0, 0, "", 0, 0}, std::move(pick)};
    const std::string fault = PlayAll(mac, mac.Variables);
    return fault.empty() ? std::string(Rows().size() != 1              ? "all"
                                       : Rows()[0].EntType == LineType ? "circle"
                                                                       : "line")
                         : fault;
  };
  const std::string none = "Instruction 1 (Found Ent): No Entity Found";
  const int line = LineType, circle = CircleType;
  EXPECT_EQ(erase({LogFoundEnt, 0, -6, 0, "", circle, 1}), "circle"); // the place is asked first
  EXPECT_EQ(erase({LogFoundEnt, 1, 12, 12, "", circle, 1}), "circle");
  EXPECT_EQ(erase({LogFoundEnt, 0, 12, 12, "", line, 1}), "line");
  EXPECT_EQ(erase({LogFoundEnt, 0, 12, 12, "", circle, 1}), none);
  EXPECT_EQ(erase({LogFoundEnt, 7, 12, 12, "", line, 1}), none);
  EXPECT_EQ(erase({LogFoundEnt, 0, 12, 12, ";GRAINDIAMETER;GRAINDIAMETER", line, 1}),
            none); // formulas alone count
}

TEST_F(Macros, AFailingInstructionAndAStopPutTheDesignBack) {
  ASSERT_TRUE(Start());
  Play("cmd 20\nanswer 3\nclick 1 2\nkey Escape\ncmd 1\nclick 0 0"); // in the midst of a line
  const std::vector<Entity> own = Rows();
  const Drafting &d = Bench().Draft;
  MacFile mac;
  SetGrainVariables(mac.Variables, 40, 100);
  mac.Log = {{20, 0, 0, 0, "", 0, 0},
             {LogAnswers, 5, 0, 0, "", 0, 0},
             {LogClick, 0, 0, 1, "", 0, 0},
             {LogClick, 0, 0, 1, "1/0;2", 0, 0},
             {LogClick, 9, 9, 1, "", 0, 0}};
  EXPECT_EQ(PlayAll(mac, mac.Variables).substr(0, 28), "Instruction 3 (Click Point):");
  EXPECT_EQ(Player.FaultInstruction, 3);
  EXPECT_EQ(Difference(Rows(), own), "");
  mac.Log[3].Value4.clear();
  BeginPlay(Player, Bench().Draft, mac, mac.Variables);
  for (int i = 0; i < 2; ++i)
    ASSERT_TRUE(NextInstruction(Player, Bench().Draft)); // an answer comes with its tool
  EXPECT_EQ(Rows().size(), 1u);
  EXPECT_EQ(Rows()[0].Radius, 5);
  StopPlay(Player, Bench().Draft);
  EXPECT_EQ(Player.Fault, "");
  EXPECT_EQ(Difference(Rows(), own), "");
  EXPECT_EQ(d.Cmd.CmdNo, 0);
  EXPECT_EQ(Bench().Grain.MacroMode, 0);
  EXPECT_EQ(NextUndo(d.Ring).There, true); // one's own
}

} // namespace
