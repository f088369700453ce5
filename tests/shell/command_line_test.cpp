#include "shell/command_line.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

TEST(CommandLineKeys, Table) {
  const struct {
    const char *Argument;
    bool KnBatch;
    int Count;
    double Diameter, Throat;
    bool EndA, EndB;
  } table[] = {
      {"/Kn", true, 0, 0, 0, false, false},           {"/kn", true, 0, 0, 0, false, false},
      {"/KN", true, 0, 0, 0, false, false},           {"/kN", false, 0, 0, 0, false, false},
      {"/Kn=7", true, 0, 0, 0, false, false},         {"Gd=40", false, 1, 40, 0, false, false},
      {"gD=4e1", false, 1, 40, 0, false, false},      {"gd=", false, 0, 0, 0, false, false},
      {"Gd=-3", false, 0, 0, 0, false, false},        {"Gd=12abc", false, 1, 12, 0, false, false},
      {"Ea=1", false, 1, 0, 0, true, false},          {"Ea=2", false, 1, 0, 0, false, false},
      {"eB=1", false, 1, 0, 0, false, true},          {"Td=0", false, 0, 0, 0, false, false},
      {"tD=7.5", false, 1, 0, 7.5, false, false},     {"Xy=3", false, 0, 0, 0, false, false},
      {"Gd=40 Gd=50", false, 2, 50, 0, false, false}, {"\t/Kn \t Td=5", true, 1, 0, 5, false, false},
  };
  for (const auto &t : table) {
    const CommandLine line = ReadCommandLine({t.Argument});
    EXPECT_EQ(line.KnBatch, t.KnBatch) << t.Argument;
    EXPECT_EQ(line.CmdParamCount, t.Count) << t.Argument;
    EXPECT_EQ(line.Diameter, t.Diameter) << t.Argument;
    EXPECT_EQ(line.Throat, t.Throat) << t.Argument;
    EXPECT_EQ(line.EndA, t.EndA) << t.Argument;
    EXPECT_EQ(line.EndB, t.EndB) << t.Argument;
  }
}

TEST(CommandLineKeys, TheEleventhTokenIsNotSeen) {
  const CommandLine line = ReadCommandLine({"a b c d e", "f g h i", "Gd=10", "Gl=20"});
  EXPECT_EQ(line.Token.size(), 10u);
  EXPECT_TRUE(line.HasDiameter);
  EXPECT_FALSE(line.HasLength);
}

TEST(CommandLineKeys, ExistingFilesAreOneToken) {
  const std::string path = testing::TempDir() + "/a grain of mine.mvd";
  std::ofstream(path) << "x";
  const CommandLine line = ReadCommandLine({path, "Gd=40 Gl=100", "none.mvd"});
  EXPECT_EQ(line.GrainFile, path);
  EXPECT_EQ(line.Token.size(), 4u);
  EXPECT_EQ(line.MissingFile, "none.mvd");
  EXPECT_FALSE(IsBatch(line));
  EXPECT_TRUE(IsBatch(ReadCommandLine({"/Kn Gd=40 Gl=100 Ea=1 Eb=0 Td=5"})));
  EXPECT_FALSE(IsBatch(ReadCommandLine({"/Kn Gd=40 Gl=100 Ea=1 Eb=0 Td=0"})));
  std::filesystem::remove(path);
}

} // namespace
