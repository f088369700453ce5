// A lesson recorded on the screen, with its questions, and found in its file.
#include "macros/lesson.h"
#include "macros/tables.h"
#include "shell/journey.h"
#include "shell/tutor_record.h"

namespace {

struct TutorJourney : Journey {
  TutorRecording Rec;
  // Answers to what the call asks.
  template <class Call>
  auto With(const std::string &answers, Call call) {
    Screen().Lines = ReadScript(answers);
    auto result = call();
    EXPECT_EQ(Screen().Lines.Fault, "") << answers;
    EXPECT_TRUE(AtEnd(Screen().Lines)) << answers;
    return result;
  }
  void Done(const std::string &line, const std::string &messages) {
    Play(line);
    With(messages, [&] { return AskMessages(Bench(), Rec), 0; });
  }
};

TEST_F(TutorJourney, RecordsALessonAndBringsTheDesignBack) {
  ASSERT_TRUE(Start());
  Play("cmd 20\nanswer 7\nclick 1 2\nkey Escape");
  const std::vector<Entity> own = RowsOf(Bench().Grain.Table);
  const auto record = [&] { return MacroRecord(Bench(), Rec); };
  EXPECT_FALSE(With("answer cancel", record));
  EXPECT_FALSE(With("answer One\nanswer cancel", record));
  EXPECT_EQ(RowsOf(Bench().Grain.Table).size(), 1u);
  ASSERT_TRUE(With("answer One\nanswer x\nbox OK\nanswer 12\nanswer 4\nbox OK\nanswer 2\nbox No", record));
  EXPECT_EQ(Bench().Grain.MacroMode, 1);
  EXPECT_EQ(Bench().Grain.Table.EntCount, -1);
  Done("cmd 20\nanswer 5", "answer A circle of 5");
  EXPECT_EQ(Screen()[Ctl::Question_Label].Text, "Enter Message for action:");
  MacroPause(Bench(), Rec); // nothing is drawn yet
  Done("click 0 0", "answer cancel");
  MacroPause(Bench(), Rec);
  // Taken back and brought again it keeps its words; what comes in its place has its own.
  Done("press Undo", "");
  Done("click 3 3", "answer Elsewhere");
  Done("press Undo", "");
  Done("click 0 0", "answer Here");
  Done("press Undo", "");
  Done("press Redo", "");
  Done("click 9 0", "answer There");
  const std::vector<Entity> drawn = RowsOf(Bench().Grain.Table);
  ASSERT_TRUE(With("", [&] { return MacroStop(Bench(), Rec); }));
  EXPECT_EQ(Difference(RowsOf(Bench().Grain.Table), own), "");
  EXPECT_EQ(Bench().Grain.MacroMode, 0);
  EXPECT_FALSE(FileExists(At("TutorEntBuffer.tmp")));

  std::vector<Lesson> lessons;
  ASSERT_EQ(ReadTutorFile(At("Tutor Macros.tut"), lessons), "");
  ASSERT_EQ(lessons.size(), 1u);
  const Lesson &l = lessons[0];
  EXPECT_EQ(l.Name + std::to_string(l.Index) + std::to_string(l.Level), "One122");
  std::vector<Instruction> log;
  for (const LessonStep &s : l.Step) log.push_back(s.Expected);
  ASSERT_EQ(l.Step.size(), 5u) << LogText(log); // the grain, the tool, its answer, two places
  EXPECT_EQ(l.Step[1].Message, "A circle of 5");
  EXPECT_EQ(l.Step[3].Message, "Here");
  EXPECT_EQ(l.Step[4].Message, "There");
  ASSERT_EQ(l.Shown.size(), 2u);
  EXPECT_EQ(l.Shown[0].size(), 1u);
  EXPECT_EQ(Difference(l.Shown[1], drawn), "");

  // The index is taken now; kept entities are the start.
  ASSERT_TRUE(With("answer Two\nanswer 12\nbox OK\nanswer 13\nanswer 1\nbox Yes", record));
  ASSERT_TRUE(With("", [&] { return MacroStop(Bench(), Rec); }));
  ASSERT_EQ(ReadTutorFile(At("Tutor Macros.tut"), lessons), "");
  ASSERT_EQ(lessons.size(), 2u);
  EXPECT_EQ(Difference(lessons[1].Start, own), "");
  LessonPlay play;
  EXPECT_EQ(BeginLesson(play, Bench().Draft, lessons[0]), "");
  EXPECT_EQ(LessonPrompt(play), "A circle of 5");
  EndLesson(play, Bench().Draft);
}

} // namespace
