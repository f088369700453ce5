#include "shell/journey.h"

#include "drafting/command_table.h"
#include "shell/tool_finder.h"

#include <algorithm>

namespace {

struct Finder : Journey {
  std::vector<Ctl> Found(std::string_view query) { return FindTools(Screen(), query); }
};

TEST_F(Finder, KnowsToolsByTheirNamesAndByOthers) {
  ASSERT_TRUE(Start());
  const std::pair<const char *, Ctl> best[] = {
      {"round", Ctl::FilletArc},     {"polyline", Ctl::Str_Line},   {"delete", Ctl::EraseSingle},
      {"offset", Ctl::LineParaDist}, {"explode", Ctl::LineSegment}, {"stretch", Ctl::XFormBoxMove},
      {"bevel", Ctl::FilletChamfer}, {"mirror", Ctl::XFormMirror},  {"rectangle", Ctl::BoxWidthHeight},
      {"line", Ctl::Sing_Line},      {"TRIM", Ctl::TrimSingle},     {"tang 3 circ", Ctl::Circle3Tangents},
      {"hexagon", Ctl::LinePoly},    {"fit", Ctl::Zoom_Reset},      {"simulate", Ctl::RunSim2}};
  for (const auto &[query, tool] : best) {
    const auto found = Found(query);
    ASSERT_FALSE(found.empty()) << query;
    EXPECT_EQ(found.front(), tool) << query << " gives " << RowOf(found.front()).Name;
  }
  const auto array = Found("array");
  for (const Ctl tool : {Ctl::XFormRotate, Ctl::RotateDraw})
    EXPECT_NE(std::find(array.begin(), array.end(), tool), array.end());
  EXPECT_TRUE(Found("fillet xyzzy").empty());
  const auto all = Found("");
  for (const CommandRow &row : CommandTable()) { // none is left out, and its own name finds it first
    EXPECT_NE(std::find(all.begin(), all.end(), row.Button), all.end()) << row.CmdNo;
    EXPECT_EQ(Found(RowOf(row.Button).Text).front(), row.Button) << row.CmdNo;
  }
}

TEST_F(Finder, StartsWhatIsChosen) {
  ASSERT_TRUE(Start());
  Play("key Ctrl+K\nexpect visible Find_Tool\ntype Find_Text bevel\nkey Enter\nanswer 1\nanswer 2\n"
       "expect hidden Find_Tool\nexpect prompt Select First Line / Indicate Position");
  Play("press mnuFindTool\ntype Find_Text break\nkey Up\nkey Down\nkey Enter\n"
       "expect prompt Select First Entity to Break / Indicate Position");
  Play("key Ctrl+K\ntype Find_Text line\nkey Escape\nexpect hidden Find_Tool\n"
       "expect prompt Select First Entity to Break / Indicate Position");
  Play(
      "key Ctrl+K\ntype Find_Text xyzzy\nkey Enter\nexpect visible Find_Tool\nkey Down\ntype Find_Text area\n"
      "press Find_List:" +
      Screen()[Ctl::VerifyArea].Hint + "\nexpect visible Selection_Frame");
  Play("drop " + Cases + "d_port.mvd\npress RunSim2");
  for (const Ctl tool : Found("")) EXPECT_EQ(CommandOf(tool), nullptr) << RowOf(tool).Name; // drafting sleeps
}

} // namespace
