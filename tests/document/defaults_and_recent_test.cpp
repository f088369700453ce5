// DefaultFile and the recent files.
#include "base/whole_file.h"
#include "rounds.h"
#include "scratch_folder.h"
#include "shell/design_defaults.h"
#include "shell/grain_file.h"
#include "shell/recent_files.h"

#include <gtest/gtest.h>
#include <random>

namespace {

const std::string TwelveLines = ".1\r\n1.5\r\n.5\r\n.7\r\n.8\r\n2\r\n7\r\n.25\r\n255\r\n1\r\n1\r\n99\r\n";

std::string AllDefaults(const Design &d) {
  std::string text = GrainText(d, GrainForm::Work);
  for (const double x :
       {d.Defaults.ArcStartDefault, d.Defaults.ArcEndDefault, double{d.Defaults.LineAngleDefault},
        d.Defaults.ArcAngleDefault, d.Defaults.RotationAngleDefault, d.Defaults.ScaleFactorDefault,
        double{d.Doc.BackColor}, double{d.Doc.LineColor}})
    text += std::to_string(x) + " ";
  return text;
}

TEST(DefaultFile, ReadsTwelveToFourteenValues) {
  const ScratchFolder folder;
  const std::string path = folder.Path + "DefaultFile";
  const Design fresh;
  for (const auto &[more, back, line] : {std::tuple{"", fresh.Doc.BackColor, fresh.Doc.LineColor},
                                         std::tuple{"11\r\n", 11.0f, fresh.Doc.LineColor},
                                         std::tuple{"11\r\n1.677722E+07\r\n", 11.0f, 16777220.0f}}) {
    Design design;
    ASSERT_EQ(WriteWhole(path, TwelveLines + more), "");
    ASSERT_EQ(ApplyDefaultFile(path, design), "");
    EXPECT_EQ(design.Defaults.ArcStartDefault, .1);
    EXPECT_EQ(design.Defaults.LineAngleDefault, .5f);
    EXPECT_EQ(design.Defaults.ScaleFactorDefault, 2);
    EXPECT_EQ(design.Doc.SimIncrementDisplay, 7);
    EXPECT_EQ(design.Doc.GridSpacing, .25f);
    EXPECT_EQ(design.Doc.GridColor, 255);
    EXPECT_EQ(design.Doc.DisplayGrid, 1);
    EXPECT_EQ(design.Doc.GridLineType, 99);
    EXPECT_EQ(design.Doc.BackColor, back);
    EXPECT_EQ(design.Doc.LineColor, line);
    Design newOne;
    ASSERT_EQ(ApplyDefaultFile(path, newOne, 12), "");
    EXPECT_EQ(newOne.Doc.BackColor, fresh.Doc.BackColor) << "a new design reads the first twelve only";
  }
}

TEST(DefaultFile, TheLineAngleOfANewFileIsZero) {
  const ScratchFolder folder;
  const std::string path = folder.Path + "DefaultFile";
  Design design;
  design.Doc.GridSpacing = .5f;
  const std::string tail =
      "\r\n1.5707963267949\r\n1.5707963267949\r\n1\r\n5\r\n.5\r\n8421504\r\n0\r\n0\r\n2\r\n"
      "1.261568E+07\r\n1.677709E+07\r\n";
  const std::pair<const char *, std::string> rounds[] = {{"new", "0"}, {"there before", ".523598790168762"}};
  for (const auto &[when, angle] : rounds) {
    ASSERT_EQ(WriteDefaultFile(path, design), "");
    std::string bytes;
    ASSERT_EQ(ReadWhole(path, bytes), "");
    EXPECT_EQ(bytes, "0\r\n1.5707963267949\r\n" + angle + tail) << when;
  }
  Design again;
  EXPECT_EQ(ApplyDefaultFile(path, again), "");
  EXPECT_EQ(again.Defaults.LineAngleDefault, design.Defaults.LineAngleDefault);
  design.Doc.SimIncrementDisplay = 40000;
  EXPECT_NE(WriteDefaultFile(path, design).find("SimIncrementDisplay"), std::string::npos);
}

TEST(DefaultFile, ABrokenOneIsToldAndChangesNothing) {
  const ScratchFolder folder;
  const std::string path = folder.Path + "DefaultFile";
  Design design;
  const std::string before = AllDefaults(design);
  EXPECT_EQ(ApplyDefaultFile(path, design), "") << "absent";
  const std::pair<std::string, std::string> rows[] = {
      {"", "line 1, field 1 (ArcStartDefault): expected a finite number, found the end of the file"},
      {".1\r\n1.5\r\nx\r\n",
       "line 3, field 1 (LineAngleDefault): expected a finite 32-bit number, found \"x\""},
      {TwelveLines.substr(0, TwelveLines.size() - 4),
       "line 12, field 1 (GridLineType): expected a finite 32-bit number, found the end of the file"},
      {TwelveLines + "1\r\ninf\r\n",
       "line 14, field 1 (LineColor): expected a finite 32-bit number, found \"inf\""},
  };
  for (const auto &[bytes, said] : rows) {
    ASSERT_EQ(WriteWhole(path, bytes), "");
    EXPECT_EQ(ApplyDefaultFile(path, design), path + ": " + said);
    EXPECT_EQ(AllDefaults(design), before);
  }
  std::mt19937_64 random(Seed());
  for (int i = 0; i < 40 * Rounds(); ++i) {
    std::string bytes = TwelveLines;
    for (int k = 0; k < 2; ++k) bytes[random() % bytes.size()] = static_cast<char>(random());
    StreamedFile file;
    OpenStreamed(file, path);
    WriteStreamed(file, bytes);
    ASSERT_EQ(CommitStreamed(file), "");
    Design tried;
    if (!ApplyDefaultFile(path, tried).empty()) {
      EXPECT_EQ(AllDefaults(tried), before);
    }
  }
}

std::string Order(const RecentFiles &recent) {
  std::string text;
  for (const auto &file : recent.Entry) text += file.Caption + "=" + file.Path + " ";
  return text;
}

TEST(RecentFiles, MoveToTheTopAndStayFour) {
  RecentFiles recent;
  for (const char *name : {"a", "b", "c", "d"}) TouchRecentFile(recent, name, std::string("/x/") + name);
  EXPECT_EQ(Order(recent), "d=/x/d c=/x/c b=/x/b a=/x/a ");
  TouchRecentFile(recent, "B!", "/X/B");
  EXPECT_EQ(Order(recent), "B!=/X/B d=/x/d c=/x/c a=/x/a ");
  TouchRecentFile(recent, "e", "/x/e");
  EXPECT_EQ(Order(recent), "e=/x/e B!=/X/B d=/x/d c=/x/c ");

  SettingsStore settings;
  SaveRecentFiles(settings, recent);
  EXPECT_EQ(GetSetting(settings, "MRUFiles", "2"), "B!");
  EXPECT_EQ(GetSetting(settings, "MRUFiles", "3"), "/X/B");
  EXPECT_EQ(Order(LoadRecentFiles(settings)), Order(recent));
  SaveSetting(settings, "MRUFiles", "4", "");
  EXPECT_EQ(Order(LoadRecentFiles(settings)), "e=/x/e B!=/X/B ") << "stops at the first empty caption";
  recent.Entry.resize(1);
  SaveRecentFiles(settings, recent);
  EXPECT_EQ(Order(LoadRecentFiles(settings)), "e=/x/e ");
}

} // namespace
