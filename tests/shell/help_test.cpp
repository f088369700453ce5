// The manual, the keys that come with the program, and where keys go.
#include "shell/journey.h"

#include "drafting/command_table.h"
#include "drafting/hot_keys.h"
#include "shell/help_pages.h"

#include <map>

namespace {

struct Help : Journey {};

TEST_F(Help, EveryToolAndPointModeHasItsPageAndEveryPageItsTool) {
  std::string text;
  ASSERT_EQ(ReadWhole(TEST_SOURCE "/docs/tools.md", text), "");
  std::map<Ctl, const HelpPage *> about;
  std::map<std::string, int> titles;
  const auto pages = SplitHelp(text);
  for (const HelpPage &page : pages) {
    EXPECT_EQ(titles[page.Title]++, 0) << page.Title; // the list chooses by title
    EXPECT_GT(page.Text.size(), page.Title.size() + 40) << page.Title;
    EXPECT_EQ(page.Text.find("<a id"), std::string::npos) << page.Title;
    for (const std::string &name : page.Anchor) {
      const auto control = FindControl(name);
      ASSERT_TRUE(control) << name;
      EXPECT_TRUE(about.emplace(*control, &page).second) << name;
    }
  }
  std::vector<Ctl> wanted{Ctl::Cursor, Ctl::End_Ent, Ctl::Center_of_Ent, Ctl::Intersection,   Ctl::Along_Line,
                          Ctl::Key_In, Ctl::Delta,   Ctl::AutoPoint,     Ctl::DeactivateRDraw};
  for (const CommandRow &row : CommandTable()) wanted.push_back(row.Button);
  for (int slot = 1; slot <= 100; ++slot)
    if (HotKeyControl(slot) != Ctl::Count) wanted.push_back(HotKeyControl(slot));
  for (const Ctl tool : wanted) {
    ASSERT_TRUE(about.contains(tool)) << RowOf(tool).Name;
    if (CommandOf(tool)) {
      EXPECT_EQ(about[tool]->Title, RowOf(tool).Text);
    }
  }
}

TEST_F(Help, OpensAtTheToolBesideTheDrawing) {
  ASSERT_TRUE(Start());
  Play(
      "key F1\nexpect visible Help_Window\nkey Escape in Help_List\nexpect hidden Help_Window\n"
      "cmd 55\nanswer 2\nkey F1\nexpect text Help_Window Help - Fillet\nkey F1 in TrimSingle\n"
      "expect text Help_Window Help - Trim\npress Help_List:Chamfer\nexpect text Help_Window Help - Chamfer\n"
      "ask EraseSingle\npress HotKeyList:Help\nexpect text Help_Window Help - Delete One\n"
      "expect prompt Select First Entity / Indicate Position\nclose Help_Window\nexpect hidden Help_Window");
  EXPECT_NE(Screen()[Ctl::Help_Text].Text.find("Hot key: E"), std::string::npos);
  Install = At("none/");
  ASSERT_TRUE(Start());
  Play("press mnuHelpTools\nexpect visible Help_Window");
  EXPECT_NE(Screen()[Ctl::Help_Text].Text.find(At("none/docs/tools.md")), std::string::npos);
}

TEST_F(Help, ShippedKeysHoldUntilTheUserHasOthers) {
  ASSERT_TRUE(Start());
  std::string bytes;
  ASSERT_EQ(ReadWhole(TEST_SOURCE "/data/HotKeys", bytes), "");
  EXPECT_EQ(Read("HotKeys"), bytes);
  const auto shipped = Bench().Draft.HotKeyTable;
  for (std::size_t slot = 1; slot <= 100; ++slot) { // none that types a value, none of the menu's, none twice
    const HotKey key = shipped[slot];
    if (key.Key == 0) continue;
    EXPECT_TRUE((key.Key >= 'A' && key.Key <= 'Z' && key.Shift <= 1) || (key.Key > 112 && key.Key <= 123))
        << slot;
    EXPECT_EQ(HotKeyPressed(Bench().Draft, key.Key, key.Shift), HotKeyControl(static_cast<int>(slot)));
  }
  Play("key L\nexpect prompt Indicate Starting Point / Indicate Position\nkey Shift+R\nexpect visible "
       "BoxWH_Frame");
  EXPECT_TRUE(Screen()[Ctl::Sing_Line].Hint.ends_with(" (L)"));
  EXPECT_TRUE(Screen()[Ctl::tbRotationDraw].Hint.ends_with(" (Shift+O)"));
  bytes.clear();
  for (int i = 0; i < 200; ++i) bytes += "0\r\n";
  Write("HotKeys", bytes);
  ASSERT_TRUE(Start());
  Play("key L\nexpect prompt");
  EXPECT_EQ(Screen()[Ctl::Sing_Line].Hint.find(" (L)"), std::string::npos);
}

TEST_F(Help, KeysOfAFieldStartNoTool) {
  ASSERT_TRUE(Start());
  Play("cmd 1");
  Event e;
  e.What = Event::Kind::Key;
  for (std::size_t i = 0; i < CtlCount; ++i) {
    e.Target = static_cast<Ctl>(i);
    if (e.Target == Ctl::DrawPanel || RowOf(e.Target).Window != "frmMain") continue;
    for (e.Shift = 0; e.Shift <= 1; ++e.Shift)
      for (e.KeyCode = '0'; e.KeyCode <= 'Z'; ++e.KeyCode) {
        Dispatch(Bench(), e);
        ASSERT_EQ(Bench().Draft.Cmd.CmdNo, 1) << RowOf(e.Target).Name << " " << e.KeyCode;
      }
  }
  Play("key C\nexpect prompt Indicate Center / Indicate Position"); // the drawing's do
}

} // namespace
