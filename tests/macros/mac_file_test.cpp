#include "macros/file_maker.h"
#include "macros/mac_file.h"

#include <gtest/gtest.h>

namespace {

constexpr std::string_view ReadingWords = "Unfortunately an Error was encounted reading the Template file";

MacFile RandomMac(FileMaker &maker) {
  MacFile mac;
  mac.Heading = maker.Text();
  mac.Rotation = maker.Number();
  mac.VariableNameCntr = 1 + maker.Below(9);
  for (int i = 0; i <= mac.VariableNameCntr; ++i)
    mac.Variables.Row[static_cast<std::size_t>(i)] = {
        maker.Number(), (i < 2 ? "*V" : "#V") + std::to_string(i), maker.Text(), ""};
  mac.Start = maker.Rows();
  for (int i = maker.Below(20); i > 0; --i) mac.Log.push_back(maker.Step());
  mac.Finished = maker.Rows();
  return mac;
}

TEST(MacFile, ComesBackAsItWasWritten) {
  for (int round = 0; round < 3000 * Rounds(); ++round) {
    FileMaker maker(round);
    const std::string text = MacText(RandomMac(maker));
    MacFile first, second;
    ASSERT_EQ(ParseMac(text, "x.Mac", first), "") << text;
    ASSERT_EQ(MacText(first), text);
    std::string other = text; // other line ends, and no blank records behind the blocks
    std::erase(other, '\r');
    for (std::size_t at; (at = other.find("\n\n")) != other.npos;) other.erase(at, 1);
    ASSERT_EQ(ParseMac(other, "x.Mac", second), "") << other;
    ASSERT_EQ(second.Log, first.Log);
    ASSERT_EQ(MacText(second), text);
  }
}

TEST(MacFile, BrokenOnesAreToldAndReplaceNothing) {
  int told = 0;
  for (int round = 0; round < 3000 * Rounds(); ++round) {
    FileMaker maker(round);
    const std::string text = maker.Broken(MacText(RandomMac(maker)));
    MacFile mac;
    mac.Heading = "kept";
    const std::string trouble = ParseMac(text, "x.Mac", mac);
    if (trouble.empty()) {
      MacFile again; // what was read can be written and read
      ASSERT_EQ(ParseMac(MacText(mac), "y.Mac", again), "");
      continue;
    }
    ++told;
    ASSERT_EQ(mac.Heading, "kept");
    ASSERT_TRUE(mac.Log.empty());
    const std::string words = MacWords(trouble);
    ASSERT_TRUE(words == ReadingWords || words == "Error: File Empty") << trouble;
    ASSERT_NE(trouble.find("x.Mac: "), trouble.npos);
  }
  EXPECT_GT(told, 500);
}

TEST(MacFile, Words) {
  MacFile mac;
  const std::string head = "\"h\"\r\n", table = "\"VariableNameCntr\",1\r\n\"\",\"*GRAINDIAMETER\",40\r\n"
                                                "\"\",\"*GRAINLENGTH\",100\r\n\"Rotation\",0\r\n";
  EXPECT_EQ(MacWords(ReadMacFile("/none/x.Mac", mac)),
            "Can't find Macro Template file. Note: All Macro files must be in the Applicaion Directory");
  EXPECT_EQ(MacWords(ParseMac(" \r\n", "x", mac)), "Error: File Empty");
  for (const std::string &broken :
       {head, head + "302\r\n", head + "-1\r\n" + table, head + "1\r\n" + table,
        head + "0\r\n\"VariableNameCntr\",14\r\n",
        head + "0\r\n" + table + "\"Instruction No:\",0\r\n\"PointArea:\",70000\r\n"})
    EXPECT_EQ(MacWords(ParseMac(broken, "x", mac)), ReadingWords) << broken;
  // No "PicInfo", a heading of several fields, a number where no text was.
  ASSERT_EQ(ParseMac("made by hand, 1999\r\n0\r\nnote\r\n" + table +
                         "a,0\r\nb,151\r\nc,1\r\nd,2\r\ne,1\r\nf,0\r\ng,1\r\nh,1\r\n",
                     "x", mac),
            "");
  ASSERT_EQ(mac.Log.size(), 1u);
  EXPECT_EQ(mac.Log[0], (Instruction{151, 1, 2, 1, "", 1, 1}));
  EXPECT_FALSE(HasVariables(mac));
}

} // namespace
