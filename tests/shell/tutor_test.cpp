// Lessons through Dispatch: chosen, played, left, taken up again; the user's own design stays his.
#include "macros/lesson_list.h"
#include "macros/tables.h"
#include "shell/journey.h"
#include "shell/tutor.h"

#include <sstream>

namespace {

struct Tutor : Journey {
  Tutor() { Install = TEST_BIN "/"; }
  std::vector<Entity> Own;
  // A circle of the user's own, and the list of lessons open.
  void Begin() {
    ASSERT_TRUE(Start());
    Play("cmd 20\nanswer 7\nclick 1 2\nkey Escape");
    Own = RowsOf(Bench().Grain.Table);
    Play("press tbToolBar.Tutor\nexpect visible TutorFrame");
  }
  void Choose(int index) {
    for (const std::string &item : Screen()[Ctl::TutorCombo].Item)
      if (item.find(":  " + std::to_string(index) + "  ") != item.npos) Play("press TutorCombo:" + item);
  }
  void OwnIsBack() {
    EXPECT_EQ(Difference(RowsOf(Bench().Grain.Table), Own), "");
    EXPECT_EQ(Bench().Grain.Doc.GrainLength, 100);
    EXPECT_FALSE(Bench().Grain.SavedFlag);
    EXPECT_FALSE(Screen()[Ctl::TutorFrame].Visible);
  }
};

TEST_F(Tutor, PlaysALessonToItsEndAndOffersTheNext) {
  Begin();
  ASSERT_EQ(Screen()[Ctl::TutorCombo].Item.at(0), "Starting:  1  The first circle");
  Bench().Grain.CurrentFile = At("own.mvd");
  Play("press Tutor_Start\n"
       "expect text Tutor_Head The first circle\n"
       "expect text Tutor_Step Step 1 of 2\n"
       "expect hidden Empty_Hint\n"
       "expect disabled mnuchoosetemplate\n"
       "expect count 0\n"
       "cmd 1\n" // before it asks anything
       "expect text Tutor_Step Step 1 of 2\n"
       "expect checked Tutor_Note\n"
       "cmd 20\nanswer 9\n"
       "expect text Tutor_Note Wrong Radius Dimension!  Enter a radius of 8\n"
       "expect text Tutor_Step Step 1 of 2\n"
       "cmd 20\nanswer 8\n"
       "expect text Tutor_Step Step 2 of 2\n"
       "expect unchecked Tutor_Note\n"
       "click 3 3\n"
       "expect text Tutor_Note Wrong Position!  Click at X=0, Y=0\n"
       "expect count 0\n");
  EXPECT_EQ(Bench().Grain.CurrentFile, "");
  EXPECT_NE(Screen()[Ctl::Tutor_Prompt].Text.find("X=0, Y=0"), std::string::npos);
  Play("click 0.1 0.1\n"
       "expect visible TutorMsgForm\n"
       "press Command1\n"
       "expect text Tutor_Step Done\n"
       "expect count 1\n"
       "press Tutor_Start\n"
       "expect text Tutor_Head A line, and one that begins at its end\n"
       "expect count 0\n"
       "key Escape\nexpect box Exit tutor and return to Mainmenu\nbox No\n"
       "expect visible TutorFrame\n"
       "key Escape\nbox Yes\n");
  OwnIsBack();
  EXPECT_EQ(Bench().Grain.CurrentFile, At("own.mvd"));
  EXPECT_EQ(Bench().Grain.MacroMode, 0);
  Play("press mnuTutor");
  EXPECT_EQ(Screen()[Ctl::TutorCombo].Item.at(0), "Starting:  1  The first circle  (done)");
  EXPECT_EQ(Screen()[Ctl::TutorCombo].Index, 1);
  Play("key Escape\nexpect hidden TutorFrame");
}

// What their sources say, with a press for each message of their own.
TEST_F(Tutor, PlaysEveryShippedLesson) {
  std::vector<std::filesystem::path> sources;
  for (const auto &entry : std::filesystem::directory_iterator(TEST_SOURCE "/data/lesson_sources"))
    sources.push_back(entry.path());
  Begin();
  for (const auto &source : sources) {
    SCOPED_TRACE(source.filename().string());
    std::string text, inputs, line;
    ASSERT_EQ(ReadWhole(source.string(), text), "");
    std::istringstream lines(text.substr(text.find("\nlesson ") + 1));
    int index = 0;
    for (std::getline(lines, line), std::sscanf(line.c_str(), "lesson %d", &index);
         std::getline(lines, line);)
      if (line.starts_with("then "))
        inputs += "press Command1\n";
      else if (!line.starts_with("say ") && line != "endlesson")
        inputs += line + "\n";
    Choose(index);
    Play("press Tutor_Start\n" + inputs + "expect text Tutor_Step Done\npress TutorCancel");
    OwnIsBack();
    Play("press mnuTutor");
  }
}

TEST_F(Tutor, GoesOnWhereItWasLeftInTheNextSessionToo) {
  Begin();
  Choose(2);
  Play("press Tutor_Start\ncmd 1\nclick -10 -4\nclick 6 5\npress TutorCancel");
  OwnIsBack();
  Program.reset();
  ASSERT_TRUE(Start());
  Play("press mnuTutor");
  Choose(2);
  Play("expect text Tutor_Step Left at step 4 of 7\nexpect visible Tutor_Again\npress Tutor_Start\n"
       "expect text Tutor_Step Step 4 of 7\nexpect count 1\nexpect visible End_Frame\n"
       "press End_Ent\nclick 5.5 4.7\npress Cursor\nclick 12 -4\npress Command1\nexpect count 2\n"
       "press Tutor_Again\nexpect text Tutor_Step Step 1 of 7\nexpect count 0");
}

TEST_F(Tutor, LeavesTheUsersDesignAloneWhateverIsDone) {
  Begin();
  const std::string recovery = Read("TempFile");
  Choose(7);
  Play("press Tutor_Start\npress RunSim2\nexpect text Tutor_Step Step 2 of 7");
  EXPECT_TRUE(Bench().Sim.ResultMode);
  EXPECT_EQ(Read("TempFile"), recovery);
  Play("press tbToolBar.Tutor\nbox Yes\nexpect visible TutorCombo");
  Choose(7);
  Play("expect text Tutor_Step 7 steps\npress Tutor_Start\nexpect text Tutor_Step Step 1 of 7\n"
       "press New\nbox No\nexpect visible TutorFrame\n"
       "press New\nbox Yes\nbox Cancel"); // his own is unsaved
  OwnIsBack();
  Play("press mnuTutor\npress Tutor_Start\ncmd 20\nanswer 8\nclose\nbox No");
  EXPECT_TRUE(Bench().Ended);
  Program.reset();
  ASSERT_TRUE(Start());
  Play("press mnuTutor\nexpect text Tutor_Step Left at step 2 of 2");
}

TEST_F(Tutor, RecordsALessonInTheWindow) {
  Begin();
  Play("press TutorCancel\npress MacroRecord\nanswer My own\nanswer 40\nanswer 3\nbox No\n"
       "expect visible MacroStop\nexpect disabled mnuFileOpen\n"
       "type Tutor_Tolerance 2\n"
       "cmd 20\nanswer 5\nanswer Take a circle\n"
       "click 0 0\nanswer cancel\n"
       "key M\nanswer So it is\n"
       "press RunSim2\nanswer Burn it\n"
       "press Design_Mode\nanswer cancel\n"
       "press MacroPause\npress MacroStop\nbox OK");
  OwnIsBack();
  std::vector<Lesson> all;
  ASSERT_EQ(ReadTutorFile(At("Tutor Macros.tut"), all), "");
  const Lesson &l = all.back();
  ASSERT_EQ(l.Step.size(), 6u);
  EXPECT_EQ(l.Step[1].Message, "Take a circle");
  EXPECT_EQ(l.Step[3].Special, "So it is");
  EXPECT_EQ(l.Step[3].Tolerance, 2);
  EXPECT_EQ(l.Step[4].Message, "Burn it");
  EXPECT_EQ(l.Shown.size(), 2u);
  Play("press mnuTutor");
  Choose(40);
  Play("press Tutor_Start\ncmd 20\nanswer 5\nclick 1 1\npress Command1\npress RunSim2\npress Design_Mode\n"
       "expect text Tutor_Step Done\nkey Escape");
  OwnIsBack();
  Play("press MacroRecord\nanswer No more\nanswer 41\nanswer 1\nbox Yes\npress TutorCancel\nbox Yes");
  OwnIsBack();
}

TEST_F(Tutor, NewLessonsReachAFileOfTheUsersOwn) {
  const auto lesson = [](const char *name, int index, int level) {
    return Lesson{name, index, level, {}, {LessonStep{"x", "", {151, 1, 2, 1, "", 0, 0}, 0}}, {}};
  };
  const std::string user = At("user.tut"), shipped = At("shipped.tut");
  std::vector<Lesson> list{lesson("stays", 9, 1)};
  EXPECT_EQ(SetUpLessons(user, shipped, list),
            "Can't Find Tutor File" + std::string("\n") + user + ": there is no such file");
  ASSERT_EQ(WriteTutorFile(user, {lesson("mine", 2, 3), lesson("old", 1, 1)}), "");
  Lesson mended = lesson("old", 1, 1);
  mended.Step[0].Message = "y";
  ASSERT_EQ(WriteTutorFile(shipped, {mended, lesson("new", 2, 2)}), "");
  ASSERT_EQ(SetUpLessons(user, shipped, list), "");
  ASSERT_EQ(list.size(), 3u);
  EXPECT_EQ(list[0].Step[0].Message, "y");
  EXPECT_EQ(list[1].Name + std::to_string(list[1].Index), "new3");
  EXPECT_EQ(list[2].Name + std::to_string(list[2].Index), "mine2");
  std::string before, after;
  ASSERT_EQ(ReadWhole(user, before), "");
  ASSERT_EQ(SetUpLessons(user, shipped, list), "");
  ASSERT_EQ(ReadWhole(user, after), "");
  EXPECT_EQ(before, after);
  const char *broken = "\"Next Macro\"\r\n\"mine\"\r\n7\r\n";
  Write("user.tut", broken);
  EXPECT_NE(SetUpLessons(user, shipped, list), "");
  EXPECT_EQ(Read("user.tut"), broken);
}

} // namespace
