#include "burnback/burn_run.h"
#include "desktop/player.h"
#include "desktop/qt_screen.h"
#include "desktop/window_style.h"
#include "shell/command_line.h"
#include "shell/dispatch.h"
#include "shell/grain_file.h"
#include "shell/play_script.h"
#include "shell/start_up.h"

#include <QApplication>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace {
const std::string Cases = TEST_DATA "/cases/";

std::string BytesOf(const std::string &path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}

// A program of its own: fresh work folder, fresh screen, the script played on it.
struct Journey {
  QTemporaryDir Home;
  DrawSurface Panel; // as it stood when the last line was done
  EntityTable Table;

  std::string File(const char *name) const { return Home.filePath(name).toStdString(); }

  void Run(const std::vector<std::string> &arguments, std::vector<QString> lines) {
    qputenv("MORVANDEL_HOME", Home.path().toUtf8());
    auto &app = *static_cast<QApplication *>(QCoreApplication::instance());
    QtScreen screen(app);
    Workbench bench(screen);
    Player player{app, bench, std::move(lines), 0, {}};
    Play(player);
    const WorkFolders folders = FindFolders(TEST_BIN "/morvandel");
    if (StartUp(bench, folders, ReadCommandLine(arguments))) {
      screen.Mirror();
      if (!bench.Ended) app.exec();
    }
    EXPECT_EQ(player.Fault, "");
    EXPECT_EQ(player.Next, player.Line.size()) << "ended before the script did";
    Panel = screen.Panel;
    Table = bench.Grain.Table;
  }
};

using Script = std::vector<QString>;
const std::vector<std::string> FiveKeys = {"Gd=50", "Gl=120", "Ea=1", "Eb=0", "Td=9"};
QString Path(const std::string &path) { return QString::fromStdString(path); }

std::vector<std::string> KeysAnd(const std::string &file) {
  std::vector<std::string> all = FiveKeys;
  all.push_back(file);
  return all;
}

Script PastIntro(Script lines) {
  Script all = {"press OK"};
  all.insert(all.end(), lines.begin(), lines.end());
  return all;
}

TEST(Desktop, FiveKeysOpenTheWindowWithoutTheDialog) {
  Journey first;
  first.Run(FiveKeys, {"shows IntroPage Introduction", "press DontShow", "checked DontShow", "press OK",
                       "shows frmMain Morvandel - ", "shows Grain_Diam_Label Grain Diameter: 50",
                       "shows Ends_Exposed_Label End A: Yes    End B: No", "visible Empty_Hint",
                       "disabled mnuImport", "hidden Report_Frame"});
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
  const auto after = [](Script lines) {
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
  const Script longer = {"press Grain_Edit", "text GrainLength 77", "press Next",
                         "shows Grain_Length_Label Grain Length: 77", "close frmMain"};
  for (const bool save : {true, false}) {
    Journey j;
    const std::string file = j.File("mine.mvd");
    std::ofstream(file, std::ios::binary) << BytesOf(Cases + "c_slot.mvd");
    Script lines = PastIntro(longer);
    lines.push_back(QString("box %1 Save Grain Before exiting Morvandel?").arg(save ? "Yes" : "No"));
    j.Run({file}, [&] {
      Script all = {"press Next"};
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

bool Near(double a, double b) { return std::abs(a - b) < 1e-6; }

// The rows in their order, by everything a solver may get wrong.
void ExpectSameRows(const EntityTable &got, const EntityTable &wanted) {
  ASSERT_EQ(got.EntCount, wanted.EntCount);
  for (int i = 0; i <= got.EntCount; ++i) {
    const Entity &a = RowAt(got, i), &b = RowAt(wanted, i);
    EXPECT_EQ(a.EntType, b.EntType) << "row " << i;
    for (const auto field : {&Entity::X1, &Entity::Y1, &Entity::X2, &Entity::Y2, &Entity::CenterX,
                             &Entity::CenterY, &Entity::Radius, &Entity::StartAngle, &Entity::EndAngle})
      EXPECT_NEAR(a.*field, b.*field, 1e-6) << "row " << i;
  }
}

// What a script draws without a window.
EntityTable DrawnUnseen(const std::string &text) {
  QTemporaryDir home;
  WorkFolders folders;
  folders.AppDir = home.path().toStdString() + "/";
  std::ofstream(folders.AppDir + "IntroFile.txt") << "1\r\n"; // no intro page
  ScriptedScreen screen;
  Workbench bench(screen);
  screen.Lines = ReadScript(text);
  BindScript(bench, screen);
  EXPECT_TRUE(StartUp(bench, folders, ReadCommandLine(FiveKeys)));
  PlayScript(screen);
  EXPECT_EQ(screen.Lines.Fault, "");
  return bench.Grain.Table;
}

TEST(Desktop, DraftingScriptsAsMouseAndKeysGiveTheSameTables) {
  for (const auto &file : std::filesystem::directory_iterator(TEST_DATA "/../scripts")) {
    if (file.path().extension() != ".txt") continue;
    SCOPED_TRACE(file.path().filename().string());
    const std::string text = BytesOf(file.path().string());
    std::vector<std::string> grain;
    Script lines;
    for (const QString &line : Path(text).split('\n', Qt::SkipEmptyParts)) {
      const QStringList word = line.split(' ');
      if (word[0] == "grain")
        grain = {"Gd=" + word[1].toStdString(), "Gl=" + word[2].toStdString(), "Td=" + word[3].toStdString(),
                 word[4].contains('A') ? "Ea=1" : "Ea=0", word[4].contains('B') ? "Eb=1" : "Eb=0"};
      else if (!line.startsWith('#'))
        lines.push_back(line);
    }
    Journey j;
    j.Run(grain, PastIntro(std::move(lines)));
    ExpectSameRows(j.Table, DrawnUnseen(text));
  }
}

TEST(Desktop, DrawsByDialogsFramesFieldsAndSelection) {
  Journey j;
  const std::string target = j.File("drawn.mvd");
  j.Run(FiveKeys, PastIntro({"cmd 51",
                             "visible BoxWH_Frame",
                             "type BoxWidth 20",
                             "key Tab",
                             "press TL",
                             "press CC",
                             "checked CC",
                             "unchecked TL",
                             "type BoxHeight 6*2",
                             "key Return",
                             "hidden BoxWH_Frame",
                             "click 0 0",
                             "expect count 4",
                             "cmd 55",
                             "shows Question_Label Enter Arc Radius:",
                             "answer 0",
                             "box OK ERROR: Zero Value not Allowed",
                             "answer 1+1",
                             "click 10 3",
                             "click 5 6",
                             "expect count 5",
                             "cmd 24",
                             "shows X_Label X:",
                             "click 0 0",
                             "shows X_Label Diam",
                             "type X_Input 3",
                             "key Return",
                             "expect count 6",
                             "key Escape",
                             "hidden End_Frame",
                             "key Ctrl+Z",
                             "expect count 5",
                             "key Ctrl+Y",
                             "expect count 6",
                             "press RotateDraw",
                             "answer 4",
                             "shows RotateDraw R=4",
                             "cmd 1",
                             "click 15 0",
                             "type X_Input 2",
                             "key Tab",
                             "key 9",
                             "key 0",
                             "key Return",
                             "expect count 10",
                             "press DeactivateRDraw",
                             "cmd 86",
                             "press SelectWindow",
                             "visible Window_Frame",
                             "press Part_Inside_Window",
                             "drag 14 -1 18 3",
                             "keep DrawPanel",
                             "key Return",
                             "expect count 9",
                             "key Escape",
                             "press mnuGrid",
                             "text GridSpacing 2.5",
                             "shows GridSpacing 2.5",
                             "press DisplayGrid",
                             "checked DisplayGrid",
                             "press Dashed_Line",
                             "checked Dashed_Line",
                             "press OK",
                             "changed DrawPanel",
                             "key Ctrl+Shift+S",
                             "file " + Path(target),
                             "shows frmMain Morvandel - drawn.mvd"}));
  Design saved;
  ASSERT_EQ(ReadGrainFile(target, saved), "");
  EXPECT_EQ(saved.Doc.GridSpacing, 2.5F);
  EXPECT_EQ(saved.Doc.GridLineType, 1);
  const EntityTable &table = saved.Table;
  ASSERT_EQ(table.EntCount, 8);
  int lines = 0, fillets = 0, circles = 0;
  double length = 0;
  for (int i = 0; i <= table.EntCount; ++i) {
    const Entity &e = RowAt(table, i);
    lines += e.EntType == LineType;
    if (e.EntType == LineType) length += std::hypot(e.X2 - e.X1, e.Y2 - e.Y1);
    fillets += e.EntType == ArcType && Near(e.CenterX, 8) && Near(e.CenterY, 4) && Near(e.Radius, 2);
    circles += e.EntType == CircleType && Near(e.CenterX, 0) && Near(e.CenterY, 0) && Near(e.Radius, 1.5);
  }
  EXPECT_EQ(lines, 7);
  EXPECT_EQ(fillets, 1);
  EXPECT_EQ(circles, 1);
  EXPECT_NEAR(length, 2 * (20 + 12) - 2 * 2 + 3 * 2, 1e-6);
}

TEST(Desktop, AHotKeyIsBoundByARightClickAndNeverFiresWhileTyping) {
  Journey j;
  j.Run(FiveKeys, PastIntro({"ask FilletArc",
                             "press HotKeyList:Set Hot Key...",
                             "key Shift+G",
                             "shows HotKeys Shift+G",
                             "press HotKey_Ok",
                             "box OK " + Path(j.File("HotKeys")) + " does not exist. Create new File?",
                             "key Shift+G",
                             "shows Question_Label Enter Arc Radius:",
                             "key Shift+G",
                             "key Escape",
                             "cmd 1",
                             "key Tab",
                             "key Shift+G",
                             "shows X_Input g",
                             "key Escape",
                             "key Escape",
                             "ask LineHorzVert",
                             "key Escape",
                             "cmd 8",
                             "click 0 0",
                             "click 0 4",
                             "expect count 1"}));
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
