#include "burnback/burn_run.h"
#include "desktop/journey.h"
#include "desktop/window_style.h"
#include "shell/grain_file.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <cmath>
#include <fstream>

namespace {
TEST(Desktop, FiveKeysOpenTheWindowWithoutTheDialog) {
  Journey first;
  first.Run(FiveKeys, {"shows IntroPage Introduction", "press DontShow", "checked DontShow", "press OK",
                       "shows frmMain Morvandel - ", "shows Grain_Diam_Label Grain Diameter: 50",
                       "shows Ends_Exposed_Label End A: Yes    End B: No", "visible Empty_Hint",
                       "enabled mnuTutor", "hidden Report_Frame"});
  first.Run(FiveKeys, {"shows frmMain Morvandel - ", "hidden IntroPage", "visible DrawPanel"});
}

TEST(Desktop, DimensionsDialogByKeyboard) {
  Journey j;
  j.Run({"Gd=20"}, {"visible Dimensions",
                    "text GrainDiam 0",
                    "press Next",
                    "box OK A NUMBER GREATER THAN 0 MUST BE ENTERED",
                    "key 6",
                    "key 0",
                    "shows GrainDiam 60",
                    "key Return",
                    "key 9",
                    "shows GrainLength 9",
                    "key Return",
                    "key 5",
                    "press EndA_Exposed",
                    "unchecked EndA_Exposed",
                    "text Nozzle_Throat 7.5",
                    "key Return",
                    "press OK",
                    "shows Grain_Diam_Label Grain Diameter: 60",
                    "shows Grain_Length_Label Grain Length: 9",
                    "shows Throat_Diam_Label Throat Diameter: 7.5",
                    "shows Ends_Exposed_Label End A: No    End B: Yes"});
}

TEST(Desktop, CancelOfTheFirstDialogEndsTheProgram) {
  Journey j;
  j.Run({}, {"visible Dimensions", "key Escape"});
}

TEST(Desktop, OpenRunReplayAndBack) {
  Design truth;
  ASSERT_EQ(ReadGrainFile(Cases + "star6_fillet.mvd", truth), "");
  BurnRun run;
  BurnRefusal refusal;
  ASSERT_TRUE(BurnDesign(truth, {}, run, refusal));
  const ReportText report = FormatReport(run);
  Journey j;
  j.Run(FiveKeys, PastIntro({"press mnuFileOpen",
                             "file " + Path(Cases + "star6_fillet.mvd"),
                             "shows frmMain Morvandel - star6_fillet.mvd",
                             "hidden Empty_Hint",
                             "press RunSim2",
                             "visible Report_Frame",
                             "shows Burn_Area " + Path(report.Burn_Area),
                             "shows Kn_Ratio " + Path(report.Kn_Ratio),
                             "shows Sliver_Fraction " + Path(report.Sliver_Fraction),
                             "shows UserPrompt Run pointer over Area Chart to illustrate burn pattern",
                             "hidden Tools_Frame",
                             "keep DrawPanel",
                             "keep MyChart1",
                             "keep MyChart2",
                             "move MyChart1 0.6 0.5",
                             "changed DrawPanel",
                             "changed MyChart1",
                             "changed MyChart2",
                             "keep DrawPanel",
                             "move MyChart1 0.4 0.5",
                             "changed DrawPanel",
                             "press Design_Mode",
                             "visible Tools_Frame",
                             "hidden Report_Frame",
                             "visible Motor_Dimensions"}));
  EXPECT_EQ(j.Table.EntCount, truth.Table.EntCount);
}

TEST(Desktop, ZoomByButtonsWheelAndPan) {
  const auto after = [](Lines lines) {
    Journey j;
    j.Run(KeysAnd(Cases + "star5_sharp.mvd"), PastIntro(std::move(lines)));
    return j.Panel;
  };
  const DrawSurface whole = after({"visible DrawPanel"});
  EXPECT_NEAR(std::min(whole.Width, -whole.Height), 52, 1e-3);
  EXPECT_NEAR(after({"press Zoom_x2"}).Width, whole.Width / 2, 1e-9);
  EXPECT_NEAR(after({"key Ctrl+-"}).Width, whole.Width * 2, 1e-9);
  EXPECT_EQ(after({"key Ctrl++", "press Zoom_1h", "press Zoom_1h", "key Ctrl+0"}).Width, whole.Width);

  const DrawSurface wheeled = after({"wheel DrawPanel 0.75 0.5 1"});
  EXPECT_LT(wheeled.Width, whole.Width);
  // The point under the pointer stays, to a pixel.
  const double pixel = whole.Width / whole.PixelWidth;
  EXPECT_NEAR(whole.Left + 0.75 * whole.Width, wheeled.Left + 0.75 * wheeled.Width, pixel);

  const DrawSurface panned =
      after({"down DrawPanel 0.5 0.5 middle", "move DrawPanel 0.6 0.5", "up DrawPanel 0.6 0.5 middle"});
  EXPECT_NEAR(panned.Left, whole.Left - 0.1 * whole.Width, 2 * pixel);
  EXPECT_NEAR(panned.Width, whole.Width, 1e-9);
}

TEST(Desktop, SaveAsWritesTheGrain) {
  Journey j;
  const std::string target = j.File("copy.mvd");
  j.Run(KeysAnd(Cases + "dogbone.mvd"),
        PastIntro({"key Ctrl+Shift+S", "file " + Path(target), "shows frmMain Morvandel - copy.mvd"}));
  Design truth, saved;
  ASSERT_EQ(ReadGrainFile(Cases + "dogbone.mvd", truth), "");
  ASSERT_EQ(ReadGrainFile(target, saved), "");
  ASSERT_EQ(saved.Table.EntCount, truth.Table.EntCount);
  for (int i = 0; i <= truth.Table.EntCount; ++i) {
    EXPECT_EQ(saved.Table.Row[i].X1, truth.Table.Row[i].X1);
    EXPECT_EQ(saved.Table.Row[i].EndAngle, truth.Table.Row[i].EndAngle);
  }
}

TEST(Desktop, ClosingWithUnsavedWorkAsks) {
  const Lines longer = {"press Grain_Edit", "text GrainLength 77", "press Next",
                        "shows Grain_Length_Label Grain Length: 77", "close frmMain"};
  for (const bool save : {true, false}) {
    Journey j;
    const std::string file = j.File("mine.mvd");
    std::ofstream(file, std::ios::binary) << BytesOf(Cases + "c_slot.mvd");
    Lines lines = PastIntro(longer);
    lines.push_back(QString("box %1 Save Grain Before exiting Morvandel?").arg(save ? "Yes" : "No"));
    j.Run({file}, [&] {
      Lines all = {"press Next"};
      all.insert(all.end(), lines.begin(), lines.end());
      return all;
    }());
    Design now;
    ASSERT_EQ(ReadGrainFile(file, now), "");
    EXPECT_EQ(now.Doc.GrainLength == 77, save);
    EXPECT_EQ(BytesOf(j.File("TempFile")), "");
  }
}

TEST(Desktop, DropOpensAndABadFileLeavesTheDesign) {
  Journey j;
  const std::string bad = j.File("bad.mvd");
  std::ofstream(bad) << "\"Version1_1\"\r\n25\r\nlong\r\n";
  Design scratch;
  const std::string words = ReadGrainFile(bad, scratch);
  ASSERT_NE(words, "");
  j.Run(FiveKeys,
        PastIntro({"drop " + Path(Cases + "square_port.mvd"), "shows frmMain Morvandel - square_port.mvd",
                   "keep DrawPanel", "drop " + Path(bad), "box OK " + Path(words),
                   "shows frmMain Morvandel - square_port.mvd", "same DrawPanel"}));
  EXPECT_EQ(j.Table.EntCount, 3);
}

TEST(Desktop, ThemeAndPlaceAreKept) {
  Journey j;
  j.Run(FiveKeys,
        PastIntro({"keep DrawPanel", "press mnuThemeDark", "changed DrawPanel", "checked mnuThemeDark",
                   "unchecked mnuThemeLight", "place frmMain 40 30 1000 700", "close frmMain"}));
  j.Run(FiveKeys, PastIntro({"checked mnuThemeDark", "visible DrawPanel"}));
  EXPECT_LT(QApplication::palette().color(QPalette::Window).lightness(), 128);
  EXPECT_NE(BytesOf(j.File("settings.ini")).find("MainWidth=1000"), std::string::npos)
      << BytesOf(j.File("settings.ini"));
}

TEST(Desktop, BatchNeedsNoDisplay) {
  QTemporaryDir home;
  QProcess program;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.remove("DISPLAY");
  environment.remove("WAYLAND_DISPLAY");
  environment.insert("MORVANDEL_HOME", home.path());
  program.setProcessEnvironment(environment);
  QStringList arguments{"/Kn"};
  for (const std::string &key : KeysAnd(Cases + "circle_centred.mvd")) arguments += Path(key);
  program.start(TEST_BIN "/morvandel", arguments);
  ASSERT_TRUE(program.waitForFinished());
  EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
  EXPECT_NE(BytesOf(home.filePath("KnProfile").toStdString()), "");
}

TEST(Layout, NoTextIsCut) {
  for (const double points : {10.0, 12.0}) {
    SCOPED_TRACE(points);
    SetBaseFont(points);
    Journey j;
    j.Run({"Gd=12345.678"}, {"whole Dimensions",
                             "press Next",
                             "whole IntroPage",
                             "press OK",
                             "whole frmMain",
                             "cmd 51",
                             "whole frmMain",
                             "cmd 53",
                             "whole frmMain",
                             "cmd 86",
                             "press SelectByType",
                             "whole frmMain",
                             "press SelectWindow",
                             "whole frmMain",
                             "key Escape",
                             "cmd 76",
                             "visible XFormOption",
                             "whole frmMain",
                             "key Escape",
                             "cmd 72",
                             "whole frmMain",
                             "cmd 55",
                             "whole Question_Form",
                             "press Cancel",
                             "press mnuGrid",
                             "whole Grid_Control",
                             "press Cancel",
                             "press mnuOptions",
                             "whole Options_Form",
                             "press Cancel",
                             "press mnuIncrements",
                             "whole Increments_2d",
                             "press IncCancel",
                             "ask Circle3Tangents",
                             "press HotKeyList:Set Hot Key...",
                             "whole HotKeyForm",
                             "press Cancel",
                             "drop " + Path(Cases + "star6_fillet.mvd"),
                             "whole frmMain",
                             "press RunSim2",
                             "visible Report_Frame",
                             "whole frmMain",
                             "press Design_Mode",
                             "press mnuAbout",
                             "whole frmAbout",
                             "press OK"});
  }
  SetBaseFont(10);
}
} // namespace

int main(int argc, char **argv) {
  testing::InitGoogleTest(&argc, argv);
  QApplication app(argc, argv);
  QApplication::setStyle(MakeWindowStyle());
  SetBaseFont(10);
  return RUN_ALL_TESTS();
}
