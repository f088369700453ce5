// The report's page, with and without a motor.
#include "base/whole_file.h"
#include "burnback/designs.h"
#include "outputs/motor_report.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

TEST(MotorReport, OnePageOfAnyBurn) {
  ScratchFolder folder;
  const std::string path = folder.Path + "report.pdf";
  const struct {
    const char *Name, *File;
    double Length, Throat, Step;
    bool Motor;
  } table[] = {{"motor", "/designs/star \xff\x01.mvd", 100, 8, 0, true},
               {"no throat", "", 100, 0, 0, false},
               {"no length", "", 0, 8, 0, false},
               {"one row", "/a_name_without_end_and_without_a_blank_that_no_page_is_wide_enough_for.mvd", 1e5,
                8, 25, true}};
  for (const auto &t : table) {
    Design d = MakeDesign(50, t.Length, t.Throat, 3);
    AddRows(d, RoundedPolygon(StarCorners(5, 15, 6, 0.1, 1, 1)));
    d.CurrentFile = t.File;
    BurnOptions options;
    options.Step = t.Step;
    BurnRun burn;
    BurnRefusal refusal;
    ASSERT_TRUE(BurnDesign(d, options, burn, refusal)) << t.Name << ": " << refusal.Text;
    MotorInputs inputs;
    inputs.ThroatDiam = t.Throat;
    inputs.GrainDiam = 50;
    inputs.GrainLength = t.Length;
    inputs.EndsExposed = 3;
    MotorRun motor;
    std::string trouble;
    ASSERT_TRUE(!t.Motor || RunMotor(burn, inputs, motor, trouble)) << t.Name << ": " << trouble;
    EXPECT_EQ(WriteMotorReport(d, burn, inputs, t.Motor ? &motor : nullptr, path), "") << t.Name;
    std::string bytes;
    ASSERT_EQ(ReadWhole(path, bytes), "");
    EXPECT_EQ(bytes.rfind("%PDF-", 0), 0u);
    EXPECT_NE(bytes.find("/MediaBox [ 0 0 595.28"), std::string::npos) << t.Name;
    EXPECT_NE(bytes.find("/Count 1"), std::string::npos) << t.Name;
    std::filesystem::create_directories(folder.Path + "held/report.pdf");
    EXPECT_NE(WriteMotorReport(d, burn, inputs, nullptr, folder.Path + "held/report.pdf"), "");
  }
}

} // namespace
