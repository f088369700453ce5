#include "platform/events.h"
#include "shell/journey.h"

#include "drafting/hot_keys.h"
#include "rounds.h"
#include "shell/grain_file.h"

#include <cmath>
#include <fstream>
#include <random>
#include <sstream>

namespace {

struct Settings : Journey {
  std::vector<double> DefaultFile() const {
    std::vector<double> value;
    std::stringstream lines(Read("DefaultFile"));
    for (double v; lines >> v;) value.push_back(v);
    return value;
  }
  void RightPress(Ctl tool, const std::string &script) {
    Screen().Lines = ReadScript(script);
    Dispatch(Bench(), PressOf(tool, {}, 2));
    PlayScript(Screen());
    EXPECT_EQ(Screen().Lines.Fault, "") << script;
  }
};

constexpr double Degree = Pi / 180;

TEST_F(Settings, OptionsAreKeptInRadiansAndTakeEffect) {
  ASSERT_TRUE(Start());
  Play("press mnuOptions\npress Default_List:Arc End Angle\nexpect text Default_Value 90\n"
       "type Default_Value 3*15\npress Default_List:Joining Tolerance\ntype Default_Value 5\n"
       "press Default_List:Arc End Angle\nexpect text Default_Value 3*15\npress OK");
  auto file = DefaultFile();
  ASSERT_EQ(file.size(), 14u);
  EXPECT_NEAR(file[1], 45 * Degree, 1e-14);
  EXPECT_EQ(file[2], 0); // of a new file
  EXPECT_NEAR(Bench().Grain.Defaults.ArcEndDefault, 45 * Degree, 1e-14);
  EXPECT_EQ(Bench().Grain.Doc.JoinTolerance, 0.01);

  const std::string before = Read("DefaultFile");
  Play("press mnuOptions\npress Default_List:Line Angle\ntype Default_Value 30\nkey Escape");
  EXPECT_EQ(Read("DefaultFile"), before);
  for (const auto &[row, bad, box] :
       {std::array{"Scale Factor", "0", "above 0"}, std::array{"Sim Increment Display!", "2.5", "whole"},
        std::array{"Arc Angle", "1/0", "ERROR"}, std::array{"Arc Angle", "", "Nothing entered"},
        std::array{"Rotation Angle", "letters", "ERROR"}}) {
    Play(std::string("press mnuOptions\npress Default_List:") + row + "\ntype Default_Value " + bad +
         "\npress Default_List:Line Angle\nkey Enter\nexpect box " + box +
         "\nexpect visible Options_Form\npress Cancel");
    EXPECT_EQ(Read("DefaultFile"), before) << row << bad;
  }
  Play("press Configure\npress Default_List:Line Angle\ntype Default_Value 30\n"
       "press Default_List:Sim Increment Display!\ntype Default_Value 9\nkey Enter");
  ASSERT_TRUE(Start());
  EXPECT_NEAR(Bench().Grain.Defaults.LineAngleDefault, 30 * Degree, 1e-7);
  EXPECT_EQ(Bench().Grain.Doc.SimIncrementDisplay, 9);
}

TEST_F(Settings, GridDialogAppliesAllOrNothing) {
  ASSERT_TRUE(Start());
  AppendRow(Bench().Grain.Table, MakeCircle(0, 0, 5));
  const std::string before = GrainText(Bench().Grain, GrainForm::File);
  const std::string changes =
      "press mnuGrid\nexpect text GridSpacing 1\ntype GridSpacing 5/2\npress DisplayGrid\npress SnapToGrid\n"
      "press Dots\nexpect unchecked Dotted_Line\npress GridColor2\nanswer 255\npress Screen_BG_Color\n"
      "answer 65280\npress Screen_Line_Color\nanswer cancel\n";
  Play(changes + "press Cancel");
  Play(changes + "key Escape");
  EXPECT_EQ(GrainText(Bench().Grain, GrainForm::File), before);
  EXPECT_TRUE(Bench().Grain.SavedFlag);
  for (const char *bad : {"0", "-1", "x", "1e9"})
    Play(std::string("press mnuGrid\ntype GridSpacing ") + bad +
         "\nkey Enter\nexpect box ERROR\nexpect visible Grid_Control\npress Cancel");
  EXPECT_EQ(GrainText(Bench().Grain, GrainForm::File), before);

  Play(changes + "key Enter");
  const GrainDoc &doc = Bench().Grain.Doc;
  EXPECT_EQ((std::array{doc.GridSpacing, doc.GridLineType, doc.GridColor, doc.BackColor, doc.LineColor}),
            (std::array{2.5f, 99.f, 255.f, 65280.f, GrainDoc{}.LineColor}));
  EXPECT_EQ(doc.DisplayGrid + 2 * doc.SnapToGrid, 3);
  EXPECT_FALSE(Bench().Grain.SavedFlag);
  EXPECT_EQ(Screen().Panel.Ground, 65280u);
  EXPECT_EQ(Screen()[Ctl::Grid_Preview].Index, 99);
  EXPECT_EQ(Screen()[Ctl::Grid_Preview].Colour, 65280u);
}

TEST_F(Settings, SaveAsDefaultKeepsTheToolsDefaultsOfTheFile) {
  Write("DefaultFile", ".5\r\n.25\r\n.75\r\n1\r\n3\r\n2\r\n7\r\n1\r\n8421504\r\n0\r\n0\r\n2\r\n");
  ASSERT_TRUE(Start());
  Bench().Grain.Defaults.ArcStartDefault = 3; // of this session
  Play("press mnuGrid\ntype GridSpacing 4\npress SolidLine\npress SaveAsDefault\nexpect hidden Grid_Control");
  EXPECT_EQ(DefaultFile(), (std::vector<double>{.5, .25, .75, 1, 3, 2, 7, 4, 8421504, 0, 0, 0, 12615680,
                                                16777090})); // colours in 7 digits
  EXPECT_EQ(Bench().Grain.Doc.GridSpacing, 4);
  EXPECT_EQ(Bench().Grain.Defaults.ArcStartDefault, 3);
}

TEST_F(Settings, IncrementsTakeTheSlidersValueOnAccept) {
  ASSERT_TRUE(Start());
  AppendRow(Bench().Grain.Table, MakeCircle(0, 0, 5));
  const char *moved = "press mnuIncrements\nexpect text IncrementSize 5\ntype IncrementSize 12\n"
                      "expect text DispIncSize 12\n";
  for (const char *way : {"press IncCancel", "key Escape"}) Play(std::string(moved) + way);
  EXPECT_EQ(Bench().Grain.Doc.SimIncrementDisplay, 5);
  EXPECT_TRUE(Bench().Grain.SavedFlag);
  Play(std::string(moved) + "press IncAccept");
  EXPECT_EQ(Bench().Grain.Doc.SimIncrementDisplay, 12);
  EXPECT_FALSE(Bench().Grain.SavedFlag);
}

TEST_F(Settings, KeysAreBoundToTools) {
  Install.clear(); // no keys come with the program
  ASSERT_TRUE(Start());
  const std::string set = "press HotKeyList:Set Hot Key...\n";
  RightPress(Ctl::FilletArc,
             "expect text HotKeyPrompt Fillet\nexpect visible HotKeyPrompt\n" + set +
                 "expect text HotKeys\nkey Ctrl+L\nexpect text HotKeys Ctrl+L\npress HotKey_Ok\n"
                 "expect box Create new File?\nbox Cancel\nexpect box Aborting operation\n"
                 "expect hidden HotKeyForm\nexpect hidden HotKeyPrompt");
  EXPECT_FALSE(FileExists(At("HotKeys")));
  RightPress(Ctl::Sing_Line, set + "key 5\nexpect box begins a value\nkey Ctrl+K\nexpect box tool "
                                   "finder\nkey Ctrl+L\nkey Enter\nbox OK");
  const std::string file = Read("HotKeys");
  EXPECT_EQ(std::count(file.begin(), file.end(), '\n'), 200);
  EXPECT_EQ(file.substr(0, 7), "76\r\n2\r\n");
  RightPress(Ctl::tbRefresh,
             "expect text HotKeyPrompt Refresh Screen\n" + set +
                 "key Ctrl+L\npress HotKey_Ok\nexpect box ERROR: Key Combination already used\n"
                 "expect visible HotKeyForm\nkey Escape");
  RightPress(Ctl::Circle_CtrEdge, set + "key Shift+F4\nkey Enter");
  RightPress(Ctl::Sing_Line, set + "expect text HotKeys Ctrl+L\nkey Escape");
  RightPress(Ctl::RunSim2, "press HotKeyList:Help\nexpect visible Help_Window");

  ASSERT_TRUE(Start()); // read again
  Play("key Ctrl+L");
  EXPECT_EQ(Bench().Draft.Cmd.CmdNo, 1);
  Play("key L\nkey F4\nkey Escape\nkey L");
  EXPECT_EQ(Bench().Draft.Cmd.CmdNo, 0);
  Play("key Shift+F4");
  EXPECT_EQ(Bench().Draft.Cmd.CmdNo, 24);
  RightPress(Ctl::Sing_Line, set + "key Delete\nexpect text HotKeys\nkey Enter");
  Play("key Escape\nkey Ctrl+L");
  EXPECT_EQ(Bench().Draft.Cmd.CmdNo, 0);
}

TEST_F(Settings, ABrokenHotKeyFileIsToldOnceAndNothingIsBound) {
  Write("HotKeys", "65\r\n0\r\n66\r\nx\r\n");
  ASSERT_TRUE(Start(FiveKeys(), "expect box HotKeys: line 4"));
  Play("key A\nexpect prompt");
  RightPress(Ctl::Sing_Line,
             "press HotKeyList:Set Hot Key...\nkey B\nkey Enter\nexpect box line 4\nbox OK\nkey B");
  EXPECT_EQ(Bench().Draft.Cmd.CmdNo, 1);
}

TEST_F(Settings, TextOfKeys) {
  const char *const front[] = {"",     "Shift+",     "Ctrl+",     "Shift+Ctrl+",
                               "Alt ", "Shift+Alt+", "Ctrl+Alt+", "Shift+Ctrl+Alt+"};
  for (std::int16_t shift = 0; shift < 8; ++shift)
    EXPECT_EQ(HotKeyText({112, shift}), std::string(front[shift]) + "F1");
  for (int slot = 1; slot <= 100; ++slot)
    EXPECT_TRUE(HotKeyControl(slot) == Ctl::Count || SlotOf(HotKeyControl(slot)) == slot) << slot;
}

// Whatever stands in the file: it is read whole or not at all, and what was read writes back.
TEST_F(Settings, RandomHotKeyFiles) {
  std::mt19937_64 random(Seed());
  SCOPED_TRACE("seed " + std::to_string(Seed()));
  const auto below = [&](std::size_t n) { return random() % n; };
  constexpr std::string_view odd = "0123456789-+.,eE\"#\r\n\t x\0\xff";
  int good = 0;
  for (int round = 0; round < 1000 * Rounds(); ++round) {
    std::array<HotKey, 101> read{}, again{};
    std::string bytes;
    for (int slot = 1; slot <= 100; ++slot)
      bytes +=
          std::to_string(static_cast<std::int16_t>(random())) + "\r\n" + std::to_string(below(9)) + "\r\n";
    for (auto n = below(4); n > 0; --n) {
      if (below(2))
        bytes[below(bytes.size())] = odd[below(odd.size())];
      else
        bytes.erase(below(bytes.size()), 1 + below(3));
    }
    if (below(8) == 0) bytes.resize(below(bytes.size()));
    std::filesystem::remove(At("HotKeys"));
    std::ofstream(At("HotKeys"), std::ios::binary) << bytes;
    const std::string trouble = ReadHotKeys(At("HotKeys"), read);
    if (!trouble.empty()) {
      EXPECT_EQ(trouble.rfind(At("HotKeys") + ": line ", 0), 0u) << trouble;
      for (const HotKey pair : read) ASSERT_EQ(pair.Key | pair.Shift, 0);
      continue;
    }
    if (++good % 50) continue;
    ASSERT_EQ(WriteHotKeys(At("HotKeys"), read), "");
    ASSERT_EQ(ReadHotKeys(At("HotKeys"), again), "");
    for (std::size_t i = 0; i <= 100; ++i)
      ASSERT_TRUE(read[i].Key == again[i].Key && read[i].Shift == again[i].Shift) << bytes;
  }
  EXPECT_GT(good, 100);
}

} // namespace
