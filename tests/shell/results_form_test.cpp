// Save_Results: the form, the run at its step, the file, the way back to design mode.
#include "base/number_text.h"
#include "shell/journey.h"

#include <algorithm>

namespace {

TEST_F(Journey, SavesResultsAndReturnsToDesignMode) {
  ASSERT_TRUE(Start());
  Play("drop " + Cases + "circle_centred.mvd\npress RunSim2\nexpect enabled Save_Results");
  const std::string radius = PlainText(Bench().Grain.Doc.GrainRadius);
  Play("press Save_Results\nexpect checked IncludeDimensions\nexpect disabled Include_Template_Data\n"
       "expect unchecked Include_Template_Data\n"
       "expect text Burn_Inc " +
       PlainText(Bench().Grain.Doc.GrainRadius / 100) +
       "\npress Core_Area_Col\npress KnRatio_Col\npress KnRatio_Col\n"
       "type Burn_Inc 0\npress Save_File\nexpect box a number above 0\nbox OK\n"
       "type Burn_Inc 0.00001\npress Save_File\nexpect box 32767\nbox OK\n"
       "type Burn_Inc " +
       radius +
       "+1\npress Save_File\nexpect box at most the grain radius\nbox OK\nexpect visible "
       "Save_Results_Form\ntype Burn_Inc 1/2\npress Save_File\nfile " +
       At("out"));
  EXPECT_EQ(Screen()[Ctl::Core_Area_Col].Colour, 0u);
  EXPECT_EQ(Screen()[Ctl::KnRatio_Col].Colour, 255u | 224u << 8 | 192u << 16);
  Play("expect hidden Save_Results_Form\nexpect hidden Report_Frame\nexpect visible Tools_Frame");
  const std::string text = Read("out.csv");
  EXPECT_NE(text.find("\r\nBurn Dist,Conduit Area,Ends Area,Total Area,Kn Ratio,Pressure"),
            std::string::npos);
  EXPECT_NE(text.find("\r\n.5,"), std::string::npos);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), std::count(text.begin(), text.end(), '\r'));
  EXPECT_NE(Read("GraphicFile2"), "");
}

TEST_F(Journey, ResultsCancelledOrUnwritableLoseNothing) {
  ASSERT_TRUE(Start());
  Play("press Save_Results\nexpect box Can't Simulate End Burning Geometries\nbox OK");
  Write("old.csv", "kept");
  std::filesystem::create_directories(Home / "folder.csv");
  const struct {
    const char *Closing;
    bool Box;
  } table[] = {{"press Save_Results_Form.Cancel", false},
               {"close Save_Results_Form", false},
               {"press Save_File\nfile cancel", false},
               {"press Save_File\nfile HOME/old\nexpect box already exists\nbox No", false},
               {"press Save_File\nfile HOME/folder.csv\nexpect box folder.csv\nbox OK", true}};
  for (const auto &[closing, box] : table) {
    std::string lines = closing;
    if (const auto at = lines.find("HOME"); at != lines.npos) lines.replace(at, 4, Home.string());
    Play("drop " + Cases +
         "circle_centred.mvd\npress RunSim2\nexpect visible Report_Frame\npress Save_Results\n" + lines +
         "\nexpect hidden Save_Results_Form\nexpect hidden Report_Frame\nexpect hidden SimMsg");
    EXPECT_EQ(FileExists(At("GraphicFile2")), box) << closing;
  }
  EXPECT_EQ(Read("old.csv"), "kept");
}

} // namespace
