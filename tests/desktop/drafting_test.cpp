#include "desktop/journey.h"
#include "shell/grain_file.h"
#include "shell/play_script.h"

#include <cmath>
#include <filesystem>

namespace {
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
    Lines lines;
    for (const QString &line : Path(text).split('\n', Qt::SkipEmptyParts)) {
      const QStringList word = line.split(' ');
      if (word[0] == "grain")
        grain = {"Gd=" + word[1].toStdString(), "Gl=" + word[2].toStdString(), "Td=" + word[3].toStdString(),
                 word[4].contains('A') ? "Ea=1" : "Ea=0", word[4].contains('B') ? "Eb=1" : "Eb=0"};
      else if (!line.startsWith('#'))
        lines.push_back(line);
    }
    Journey j;
    std::ofstream(j.File("settings.ini")) << "[Settings]\nAutoPoint=0\n"; // the places are meant as they are
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
} // namespace
