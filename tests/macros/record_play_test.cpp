// What was recorded, written, read and played again gives the same table bit for bit.
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
  int played = 0;
  for (const auto &file : std::filesystem::directory_iterator(TEST_SOURCE "/tests/scripts")) {
    if (file.path().extension() != ".txt") continue;
    SCOPED_TRACE(file.path().filename().string());
    std::string script;
    ASSERT_EQ(ReadWhole(file.path().string(), script), "");
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
    ++played;
  }
  EXPECT_GT(played, 9);
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
