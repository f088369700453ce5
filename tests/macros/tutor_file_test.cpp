#include "base/whole_file.h"
#include "macros/tables.h"
#include "macros/tutor_file.h"
#include "rounds.h"

#include <filesystem>
#include <random>

namespace {

struct Maker {
  std::mt19937 Luck;
  int Below(int n) { return static_cast<int>(Luck() % static_cast<unsigned>(n)); }
  double Number() { return (Below(2000001) - 1000000) / 1000.0; }
  std::string Text() {
    static const std::vector<std::string> words{"Next Macro",
                                                "999",
                                                "Click, then (look) [here]",
                                                "",
                                                "ENTERKEY",
                                                "2*R;pi",
                                                "-1",
                                                "#TRUE#",
                                                "0",
                                                "r\xC3\xA4"
                                                "dius"};
    return words[static_cast<std::size_t>(Below(static_cast<int>(words.size())))];
  }
  std::vector<Entity> Rows(int least) {
    std::vector<Entity> to;
    for (int i = least + Below(4); i > 0; --i)
      to.push_back(Below(2) ? MakeLine(Number(), Number(), Number(), Number())
                            : MakeArc(Number(), Number(), 1 + Below(50), 0.25, 1.5));
    return to;
  }
  std::vector<Lesson> Lessons() {
    std::vector<Lesson> all(static_cast<std::size_t>(Below(4)));
    for (Lesson &l : all) {
      l.Name = Text();
      l.Index = Below(2000) - 1000;
      l.Level = 1 + Below(3);
      l.Start = Rows(0);
      for (int i = Below(8); i > 0; --i)
        l.Step.push_back({Text(),
                          Text(),
                          {Below(230), Number(), Number(), Number(), Text(), Below(5), Below(5)},
                          Below(2) * 0.5});
      for (int i = Below(3); i > 0; --i) l.Shown.push_back(Rows(1));
    }
    return all;
  }
};

void ExpectSame(const std::vector<Lesson> &a, const std::vector<Lesson> &b) {
  ASSERT_EQ(a.size(), b.size());
  for (std::size_t i = 0; i < a.size(); ++i) {
    ASSERT_EQ(a[i].Name, b[i].Name);
    ASSERT_EQ(a[i].Index, b[i].Index);
    ASSERT_EQ(a[i].Level, b[i].Level);
    ASSERT_EQ(a[i].Step, b[i].Step);
    ASSERT_EQ(a[i].Shown.size(), b[i].Shown.size());
  }
}

TEST(TutorFile, ComesBackAsItWasWritten) {
  Maker maker;
  for (int round = 0; round < 2000 * Rounds(); ++round) {
    maker.Luck.seed(static_cast<unsigned>(Seed()) + static_cast<unsigned>(round));
    const std::vector<Lesson> lessons = maker.Lessons();
    const std::string text = TutorText(lessons);
    std::vector<Lesson> first, second;
    ASSERT_EQ(ParseTutor(text, "x.tut", first), "") << text;
    ASSERT_NO_FATAL_FAILURE(ExpectSame(lessons, first)) << text;
    ASSERT_EQ(TutorText(first), text); // numbers have 15 digits there
    std::string other = text;          // other line ends, and notes before the first lesson
    std::erase(other, '\r');
    ASSERT_EQ(ParseTutor("made by hand, 1999\n\n" + other + "\n", "x.tut", second), "") << other;
    ASSERT_EQ(TutorText(second), text);
  }
}

TEST(TutorFile, BrokenOnesAreToldAndReplaceNothing) {
  Maker maker;
  int told = 0;
  for (int round = 0; round < 3000 * Rounds(); ++round) {
    maker.Luck.seed(static_cast<unsigned>(Seed()) + static_cast<unsigned>(round));
    std::string text = TutorText(maker.Lessons());
    if (text.empty()) continue;
    for (int hits = 1 + maker.Below(3); hits > 0 && !text.empty(); --hits) {
      const auto at = static_cast<std::size_t>(maker.Below(static_cast<int>(text.size())));
      switch (maker.Below(5)) {
      case 0: text.resize(at + 1); break;
      case 1: text[at] = static_cast<char>(maker.Below(256)); break;
      case 2: text.insert(at, "99999999999"); break;
      case 3: text.erase(at, 7); break;
      default: text.insert(at, "\r\n"); break;
      }
    }
    std::vector<Lesson> lessons(7), again;
    const std::string trouble = ParseTutor(text, "x.tut", lessons);
    if (trouble.empty()) { // what was read can be written and read
      ASSERT_EQ(ParseTutor(TutorText(lessons), "y.tut", again), "");
      continue;
    }
    ++told;
    ASSERT_EQ(lessons.size(), 7u);
    ASSERT_EQ(trouble.substr(0, trouble.find('\n')),
              "Unfortunately an Error was encounted reading the Tutor file");
    ASSERT_NE(trouble.find("x.tut: "), trouble.npos);
  }
  EXPECT_GT(told, 500);
}

TEST(TutorFile, FileAndBuffer) {
  const std::string folder = testing::TempDir() + "tutor_file/", path = folder + "Tutor Macros.tut";
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  std::vector<Lesson> lessons;
  EXPECT_EQ(ReadTutorFile(path, lessons), "Can't Find Tutor File\n" + path + ": there is no such file");
  Lesson one{"One", 4, 2, {}, {}, {}};
  EXPECT_EQ(AddLesson(path, one), "");
  EXPECT_EQ(AddLesson(path, one), "The index 4 is that of \"One\"");
  one.Index = 5;
  EXPECT_EQ(AddLesson(path, one), "");
  ASSERT_EQ(ReadTutorFile(path, lessons), "");
  ASSERT_EQ(lessons.size(), 2u);
  const Lesson *found = nullptr;
  EXPECT_EQ(FindLesson(lessons, 6, found), "Error: Can't Find Macro");
  EXPECT_EQ(FindLesson(lessons, 5, found), "");
  EXPECT_EQ(found, &lessons[1]);
  ASSERT_EQ(WriteWhole(path, "\"Next Macro\"\r\n\"x\"\r\n1\r\n4\r\n"), "");
  EXPECT_NE(AddLesson(path, one), ""); // and the file stays as it is
  std::string bytes;
  ASSERT_EQ(ReadWhole(path, bytes), "");
  EXPECT_EQ(bytes, "\"Next Macro\"\r\n\"x\"\r\n1\r\n4\r\n");

  const std::string buffer = folder + "TutorEntBuffer.tmp";
  Maker maker;
  std::vector<std::vector<Entity>> written{maker.Rows(2), maker.Rows(1)}, read;
  for (const auto &rows : written) ASSERT_EQ(AppendTutorBuffer(buffer, rows), "");
  ASSERT_EQ(ReadTutorBuffer(buffer, read), "");
  EXPECT_EQ(TutorText({Lesson{"", 0, 1, {}, {}, read}}), TutorText({Lesson{"", 0, 1, {}, {}, written}}));
  ASSERT_EQ(WriteWhole(buffer, "1\r\n0,3\r\n"), "");
  EXPECT_EQ(ReadTutorBuffer(buffer, read), buffer + ": line 2, field 2 (EntType): expected 1 (line), 2 "
                                                    "(circle) or 4 (arc), found \"3\"");
  EXPECT_EQ(read.size(), 2u);
  std::filesystem::remove_all(folder);
}

} // namespace
