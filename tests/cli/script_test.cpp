#include "cli/program.h"
#include "journey_scripts.h"
#include "same_rows.h"

#include "burnback/run_sim.h"
#include "shell/grain_file.h"

#include <algorithm>
#include <cmath>

namespace {

using Script = Program;

TEST_F(Script, DrawsEveryJourneyToItsTableAndBurnsIt) {
  for (const auto &[script, text] : JourneyScripts()) {
    SCOPED_TRACE(script);
    EXPECT_EQ(Run("script '" + script + "' --save out.mvd"), 0) << Err;
    if (!std::filesystem::exists(At("out.mvd"))) continue;
    Design got, wanted;
    ASSERT_EQ(ReadGrainFile(At("out.mvd"), got), "");
    ASSERT_EQ(ReadGrainFile(std::filesystem::path(script).replace_extension(".mvd").string(), wanted), "");
    ExpectSameRows(RowsOf(got.Table), RowsOf(wanted.Table));
    if (text.starts_with("# burns")) {
      BurnRun run;
      BurnRefusal refusal;
      EXPECT_TRUE(BurnDesign(got, {}, run, refusal)) << RefusalWords(refusal);
    }
    std::filesystem::remove(At("out.mvd"));
  }
}

TEST_F(Script, FaultsNameTheLineAndLeaveNoOutput) {
  for (const auto &[lines, where] :
       {std::pair{"cmd 20\n", "line 1: unanswered question"}, std::pair{"# note\n\ncmd 99999\n", "line 3: "},
        std::pair{"cmd 1\nclick 1 x\n", "line 2: cannot click 1 x"},
        std::pair{"cmd 90\nclick 1 1\n", "line 2: unexpected box"}, std::pair{"expect count 1\n", "line 1: "},
        std::pair{"cmd 20\nanswer abc\nexpect box zero\n", "line 3: the box says"},
        std::pair{"press SelectAll\n", "line 1: SelectAll cannot be used now"},
        std::pair{"fly\n", "line 1: cannot fly"}}) {
    Write("s.txt", lines);
    EXPECT_EQ(Run("script s.txt --save out.mvd --svg out.svg"), 1) << lines;
    EXPECT_EQ(Err.rfind(std::string("s.txt: ") + where, 0), 0u) << Err;
    EXPECT_EQ(std::count(Err.begin(), Err.end(), '\n'), 1) << Err;
    EXPECT_FALSE(std::filesystem::exists(At("out.mvd")) || std::filesystem::exists(At("out.svg")));
  }
  Write("s.txt", "cmd 1\n");
  for (const char *bad : {"script", "script none.txt", "script s.txt --design none.mvd",
                          "script s.txt --save s.txt", "script s.txt --svg none/out.svg"})
    EXPECT_EQ(Run(bad), 2) << bad;
}

TEST_F(Script, BeginsWithADesignAndLeavesTheUsersFilesAlone) {
  Write("s.txt", "cmd 20\nanswer 2*3\nclick 1 2\nexpect count 25\n");
  const auto files = [&] {
    return std::distance(std::filesystem::directory_iterator(At("home")),
                         std::filesystem::directory_iterator());
  };
  Design before, after;
  ASSERT_EQ(ReadGrainFile(Star, before), "");
  ASSERT_EQ(Run("script s.txt --design '" + Star + "' --save out.mvd --svg out.svg --trace"), 0) << Err;
  EXPECT_NE(Err.find("answer 2*3"), std::string::npos);
  EXPECT_NE(Read("out.svg").find("<svg"), std::string::npos);
  ASSERT_EQ(ReadGrainFile(At("out.mvd"), after), "");
  EXPECT_EQ(after.Doc.GrainDiam, before.Doc.GrainDiam);
  AppendRow(before.Table, MakeCircle(1, 2, 6));
  ExpectSameRows(RowsOf(after.Table), RowsOf(before.Table));
  EXPECT_EQ(files(), 0);
}

} // namespace
