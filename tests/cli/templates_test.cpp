#include "cli/program.h"

#include "shell/grain_file.h"

#include <cmath>
#include <tuple>

namespace {

using Templates = Program;
using LessonFiles = Program;

TEST_F(LessonFiles, AreMadeAndListed) {
  ASSERT_EQ(Run("lessons l.tut --make '" TEST_SOURCE "/data/lesson_sources'"), 0) << Err;
  ASSERT_EQ(Run("lessons l.tut"), 0) << Err;
  EXPECT_EQ(Out.find("1 The first circle (starting)\n"), 0u) << Out;
  EXPECT_NE(Out.find("\n9 "), std::string::npos);
  EXPECT_EQ(Run("lessons none.tut"), 2);
  EXPECT_EQ(Err, "Can't Find Tutor File none.tut: there is no such file\n");
  Write("bad.tut", "\"Next Macro\"\r\n\"x\"\r\n1\r\n4\r\n");
  EXPECT_EQ(Run("lessons bad.tut"), 2);
  EXPECT_EQ(Err,
            "Unfortunately an Error was encounted reading the Tutor file bad.tut: line 4, field 1 (level): "
            "expected a whole number from 1 to 3, found \"4\"\n");
  Write("a.txt", "cmd 1\n");
  EXPECT_EQ(Run("lessons m.tut --make ."), 1);
  EXPECT_EQ(Err, "./a.txt: no line \"endlesson\" in it\n");
}

TEST_F(Templates, AreListedAndPlayed) {
  ASSERT_EQ(Run("templates"), 0) << Err;
  EXPECT_NE(Out.find("Wagon wheel\n"), std::string::npos);
  EXPECT_NE(Out.find("PortRad              6 mm   2 .. 17   Port radius"), std::string::npos) << Out;
  ASSERT_EQ(Run("templates --json"), 0);
  EXPECT_NE(
      Out.find("\"name\": \"Points\", \"prompt\": \"Number of points\", \"unit\": \"\", \"whole\": true"),
      std::string::npos);

  ASSERT_EQ(
      Run("play star points=7 TIPRAD=13 ValleyRad=TipRad/3 --grain 42,90,8,AB --save out.mvd --svg out.svg "
          "--json"),
      0)
      << Err;
  EXPECT_NE(Out.find("\"volume_loading\": 0."), std::string::npos);
  EXPECT_NE(Read("out.svg").find("<svg"), std::string::npos);
  Design design;
  ASSERT_EQ(ReadGrainFile(At("out.mvd"), design), "");
  EXPECT_EQ(design.Table.EntCount + 1, 14);
  EXPECT_EQ(design.Doc.GrainDiam, 42);
  EXPECT_EQ(design.Doc.EndsExposed, 3);
  EXPECT_NEAR(std::hypot(RowAt(design.Table, 0).X2, RowAt(design.Table, 0).Y2), 13.0 / 3, 1e-9);
}

TEST_F(Templates, WhatCannotBeIsToldAndLeavesNothing) {
  Write("bad.Mac", "\"h\"\r\n");
  Write("empty.Mac", "");
  for (const auto &[line, code, words] :
       {std::tuple{"play none", 2, "Can't find Macro Template file."},
        {"play ./bad.Mac", 2, "Unfortunately an Error was encounted reading the Template file"},
        {"play ./empty.Mac", 2, "Error: File Empty"},
        {"play Star Tip=3", 2, "there is no variable Tip; there are TipRad, ValleyRad, Points"},
        {"play Star TipRad", 2, "expected NAME=VALUE"},
        {"play Star TipRad=0", 2, "ERROR: All dimensional parameters must contain a value higher than zero!"},
        {"play Star --grain 0", 2, "--grain: expected"},
        {"play Star Points=250", 1, "Instruction 6 (Point Select Option: Key In): The drawing is full"},
        {"play Tube PortRad=30 --json", 1, ""},
        {"templates --make .", 2, "--make: expected --folder"}}) {
    EXPECT_EQ(Run(std::string(line) + (std::string_view(line).starts_with("play") ? " --save out.mvd" : "")),
              code)
        << line << Err;
    EXPECT_TRUE(Err.starts_with(words)) << line << ": " << Err;
    EXPECT_FALSE(std::filesystem::exists(At("out.mvd"))) << line;
  }
}

} // namespace
