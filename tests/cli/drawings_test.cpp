#include "program.h"

namespace {
using Drawings = Program;

TEST_F(Drawings, OutAndInAgain) {
  ASSERT_EQ(
      Run("export '" TEST_SOURCE "/examples/finocyl.mvd' --dxf a.dxf --grain --results r.csv --step 0.5"), 0)
      << Err;
  EXPECT_NE(Read("r.csv").find("Results for Parameters:"), std::string::npos);
  ASSERT_EQ(Run("import a.dxf a.mvd"), 0) << Err;
  EXPECT_NE(Out.find("is the grain's edge."), std::string::npos) << Out;
  ASSERT_EQ(Run("export a.mvd --dxf b.dxf --grain"), 0) << Err;
  EXPECT_EQ(Read("a.dxf"), Read("b.dxf"));
}

TEST_F(Drawings, RefusalsLeaveWhatStands) {
  const std::string star = "'" TEST_SOURCE "/examples/star.mvd'";
  Write("old.mvd", "old");
  Write("bad.dxf", "0\nSECTION\n2\nENTITIES\n0\nLINE\n10\nx\n");
  Write("text.dxf", "0\nSECTION\n2\nENTITIES\n0\nTEXT\n1\nx\n0\nENDSEC\n0\nEOF\n");
  const struct {
    std::string Arguments, Words;
  } refused[] = {{"export " + star, "expected --dxf or --results"},
                 {"export " + star + " --grain", "--dxf"},
                 {"export " + star + " --results r.csv --step -1", "--step"},
                 {"export none.mvd --dxf a.dxf", "none.mvd"},
                 {"export " + star + " --dxf no/a.dxf", "no/a.dxf"},
                 {"import none.dxf old.mvd", "none.dxf"},
                 {"import bad.dxf old.mvd", "bad.dxf: line 8: the file ends inside its section"},
                 {"import text.dxf old.mvd", "Left out: 1 TEXT."},
                 {"import text.dxf old.mvd --units elbow", "--units"},
                 {"import text.dxf old.mvd --tolerance 0", "--tolerance"}};
  for (const auto &[arguments, words] : refused) {
    EXPECT_EQ(Run(arguments), 2) << arguments;
    EXPECT_NE((Out + Err).find(words), std::string::npos) << Err;
  }
  EXPECT_EQ(Read("old.mvd"), "old");
}
} // namespace
