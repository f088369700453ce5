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

} // namespace
