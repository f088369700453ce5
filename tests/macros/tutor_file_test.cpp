#include "base/whole_file.h"
#include "macros/file_maker.h"
#include "macros/tutor_file.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>

namespace {

std::vector<Lesson> RandomLessons(FileMaker &maker) {
  std::vector<Lesson> all(static_cast<std::size_t>(maker.Below(4)));
  for (Lesson &l : all) {
    l.Name = maker.Text();
    l.Index = maker.Below(2000) - 1000;
    l.Level = 1 + maker.Below(3);
    l.Start = maker.Rows();
    for (int i = maker.Below(8); i > 0; --i)
      l.Step.push_back({maker.Text(), maker.Text(), maker.Step(), maker.Below(2) * 0.5});
    for (int i = maker.Below(3); i > 0; --i) l.Shown.push_back(maker.Rows(1));
  }
  return all;
}

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
  for (int round = 0; round < 2000 * Rounds(); ++round) {
    FileMaker maker(round);
    const std::vector<Lesson> lessons = RandomLessons(maker);
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
  int told = 0;
  for (int round = 0; round < 3000 * Rounds(); ++round) {
    FileMaker maker(round);
    const std::string text = maker.Broken(TutorText(RandomLessons(maker)));
    if (text.empty()) continue;
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
  const ScratchFolder scratch;
  const std::string &folder = scratch.Path, path = folder + "Tutor Macros.tut";
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
  FileMaker maker(0);
  std::vector<std::vector<Entity>> written{maker.Rows(2), maker.Rows(1)}, read;
  for (const auto &rows : written) ASSERT_EQ(AppendTutorBuffer(buffer, rows), "");
  ASSERT_EQ(ReadTutorBuffer(buffer, read), "");
  EXPECT_EQ(TutorText({Lesson{"", 0, 1, {}, {}, read}}), TutorText({Lesson{"", 0, 1, {}, {}, written}}));
  ASSERT_EQ(WriteWhole(buffer, "1\r\n0,3\r\n"), "");
  EXPECT_EQ(ReadTutorBuffer(buffer, read), buffer + ": line 2, field 2 (EntType): expected 1 (line), 2 "
                                                    "(circle) or 4 (arc), found \"3\"");
  EXPECT_EQ(read.size(), 2u);
}

} // namespace
