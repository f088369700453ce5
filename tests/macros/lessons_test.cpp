// The shipped lessons, made of their scripts and played by a user who does what they say, nearly.
#include "base/whole_file.h"
#include "macros/lesson.h"
#include "macros/lesson_words.h"
#include "macros/tables.h"
#include "rounds.h"
#include "shell/play_script.h"
#include "shell/refresh_screen.h"
#include "shell/start_up.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <random>
#include <sstream>
#include <unistd.h>

namespace {
namespace fs = std::filesystem;
using Said = LessonAnswer::Kind;

// Loose: whatever comes up is answered at once.
struct AnsweringScreen : ScriptedScreen {
  bool Loose = false;
  Answer Ask(const Box &box) override { return Loose ? Answer::Ok : ScriptedScreen::Ask(box); }
  void RunModal(Form form) override {
    if (!Loose) return ScriptedScreen::RunModal(form);
    (*this)[Ctl::Question_Value].Text = "3";
    (*this)[WindowOf(form)].Visible = false;
  }
};

struct Program {
  AnsweringScreen Screen;
  Workbench Bench{Screen};
  ScriptedLessons Lessons;
  explicit Program(const fs::path &home) {
    fs::remove_all(home); // nothing is left to be recovered
    fs::create_directories(home);
    WriteWhole((home / "IntroFile.txt").string(), "1\r\n");
    BindScript(Bench, Screen, {.Templates = nullptr, .Lessons = &Lessons});
    WorkFolders folders;
    folders.AppDir = home.string() + "/";
    folders.Install = TEST_SOURCE "/";
    EXPECT_TRUE(StartUp(Bench, folders, ReadCommandLine({"Gd=60", "Gl=100", "Ea=0", "Eb=0", "Td=9"})));
    Bench.Grain.Doc.SnapToGrid = 0;
  }
  void Play(const std::string &lines) {
    Screen.Lines = ReadScript(lines);
    PlayScript(Screen);
    ASSERT_EQ(Screen.Lines.Fault, "") << lines;
  }
};

// As a file holds it, with 15 digits.
std::string InFile(const std::vector<Entity> &rows) { return TutorText({Lesson{"", 0, 1, rows, {}, {}}}); }

struct Lessons : testing::Test {
  fs::path Home = fs::path(testing::TempDir()) / ("lessons_" + std::to_string(getpid()));
  void SetUp() override { fs::remove_all(Home); }
  void TearDown() override { fs::remove_all(Home); }

  static std::vector<fs::path> Sources() {
    std::vector<fs::path> all;
    for (const auto &entry : fs::directory_iterator(TEST_SOURCE "/data/lesson_sources"))
      all.push_back(entry.path());
    std::sort(all.begin(), all.end());
    return all;
  }
  // As it comes out of its file.
  Lesson Made(const fs::path &source) const {
    std::string text;
    EXPECT_EQ(ReadWhole(source.string(), text), "");
    Program program(Home);
    program.Play(text);
    EXPECT_EQ(program.Lessons.Made.size(), 1u);
    std::vector<Lesson> read;
    EXPECT_EQ(ParseTutor(TutorText(program.Lessons.Made), "x.tut", read), "");
    return read.at(0);
  }
  // What the user does, an input with its answers each.
  static std::vector<std::string> Inputs(const fs::path &source) {
    std::string text, line;
    EXPECT_EQ(ReadWhole(source.string(), text), "");
    std::istringstream lines(text.substr(text.find("\nlesson ") + 1));
    std::vector<std::string> all;
    while (std::getline(lines, line)) {
      const std::string verb = line.substr(0, line.find(' '));
      if (verb == "answer")
        all.back() += "\n" + line;
      else if (verb != "lesson" && verb != "say" && verb != "then" && verb != "pause" && verb != "endlesson")
        all.push_back(line);
    }
    return all;
  }
};

// A hand is not that steady.
std::string Nearly(const std::string &input) {
  double x = 0, y = 0;
  if (std::sscanf(input.c_str(), "click %lf %lf", &x, &y) != 2) return input;
  return "click " + std::to_string(x + 0.07) + " " + std::to_string(y - 0.05);
}

bool IsPress(const std::string &input, std::string &name) {
  if (!input.starts_with("press ")) return false;
  name = input.substr(6);
  const auto control = FindControl(name);
  return control && IsTaughtButton(*control);
}

LessonAnswer Do(Program &user, LessonPlay &play, const std::string &input) {
  std::string name;
  if (IsPress(input, name)) {
    LessonAnswer answer = CheckPress(play, user.Bench.Draft, name);
    if (answer.What != Said::Wrong) user.Play(input);
    return answer;
  }
  user.Play(input);
  const LessonAnswer answer = CheckLesson(play, user.Bench.Draft);
  RefreshScreen(user.Bench);
  return answer;
}

TEST_F(Lessons, ArePlayedToTheirEnd) {
  const auto sources = Sources();
  EXPECT_GE(sources.size(), 8u);
  for (const fs::path &source : sources) {
    SCOPED_TRACE(source.filename().string());
    const Lesson lesson = Made(source);
    ASSERT_GT(lesson.Step.size(), 1u);
    Program user(Home);
    user.Play("cmd 20\nanswer 11\nclick 1 2\nkey Escape");
    const std::vector<Entity> own = RowsOf(user.Bench.Grain.Table);
    LessonPlay play;
    ASSERT_EQ(BeginLesson(play, user.Bench.Draft, lesson), "");
    EXPECT_EQ(user.Bench.Grain.Doc.GrainDiam, 40);
    const auto inputs = Inputs(source);
    for (std::size_t i = 0; i < inputs.size(); ++i) {
      SCOPED_TRACE(inputs[i]);
      ASSERT_NE(LessonPrompt(play), "");
      // Left and taken up again, it goes on where it was.
      if (i == inputs.size() / 2 && !user.Bench.Sim.ResultMode) {
        const std::size_t next = play.Next;
        EndLesson(play, user.Bench.Draft);
        ASSERT_EQ(BeginLesson(play, user.Bench.Draft, lesson, next), "");
        ASSERT_EQ(play.Next, next);
      }
      const std::vector<Entity> before = RowsOf(user.Bench.Grain.Table);
      const std::size_t next = play.Next;
      if (inputs[i].starts_with("cmd ")) { // another tool
        const LessonAnswer wrong = Do(user, play, "cmd 24");
        ASSERT_EQ(wrong.What, Said::Wrong);
        ASSERT_EQ(wrong.Words.substr(0, wrong.Words.find('\n')),
                  inputs[i].starts_with("cmd 97") ? "Wrong Input!" : "Wrong Tool!");
        ASSERT_EQ(play.Next, next);
        ASSERT_EQ(Difference(RowsOf(user.Bench.Grain.Table), before), "");
      }
      const LessonAnswer answer = Do(user, play, Nearly(inputs[i]));
      ASSERT_EQ(answer.What, Said::Good) << answer.Words;
    }
    EXPECT_TRUE(LessonDone(play));
    EXPECT_EQ(LessonPrompt(play), "");
    EXPECT_EQ(InFile(RowsOf(user.Bench.Grain.Table)), InFile(lesson.Shown.back()));
    if (user.Bench.Sim.ResultMode) user.Play("press Design_Mode");
    EndLesson(play, user.Bench.Draft);
    EXPECT_EQ(Difference(RowsOf(user.Bench.Grain.Table), own), "");
    EXPECT_EQ(user.Bench.Grain.Doc.GrainDiam, 60);
    EXPECT_EQ(user.Bench.Grain.MacroMode, 0);
  }
}

// In each lesson one thing done wrongly, where the input beside it was asked for.
struct Slip {
  const char *Asked, *Done, *Words;
};
const std::map<int, Slip> Slips{
    {1, {"cmd 20\nanswer 8", "cmd 20\nanswer 9", "Wrong Radius Dimension!\nEnter a radius of 8"}},
    {2, {"click 12 -4", "click 12 -2", "Wrong Position!\nClick at X=12, Y=-4"}},
    {3, {"click 8 0", "click -8 0", "Wrong Entity!\nPick the line at X=8, Y=0"}},
    {4,
     {"cmd 97\nanswer 6", "cmd 97\nanswer 5",
      "Wrong Number of Rotations!\nEnter a number of rotations of 6"}},
    {5, {"cmd 55\nanswer 0.8", "cmd 55\nanswer 0.5", "Wrong Radius Dimension!\nEnter a radius of 0.8"}},
    {6, {"click -5 -4.9", "click -5 4.9", "Wrong Position!\nPick the circle at X=-5, Y=-4.9"}},
    {7, {"press RunSim2", "press Design_Mode", "Wrong Button!\nClick on the 'RUN SIM' Button"}},
    {8, {"press Chart_Pressure", "press Chart_Thrust", "Wrong Button!\nClick on the 'Chart Pc' Button"}},
    {9, {"press Mirror_Vertical", "press Mirror_Horizonal", "Wrong Input!\nChoose: Vert Mirror"}}};

TEST_F(Lessons, TellWhatWasWrong) {
  for (const fs::path &source : Sources()) {
    SCOPED_TRACE(source.filename().string());
    const Lesson lesson = Made(source);
    ASSERT_TRUE(Slips.contains(lesson.Index));
    const Slip &slip = Slips.at(lesson.Index);
    Program user(Home);
    LessonPlay play;
    ASSERT_EQ(BeginLesson(play, user.Bench.Draft, lesson), "");
    bool slipped = false;
    for (const std::string &input : Inputs(source)) {
      if (input == slip.Asked && !slipped) {
        slipped = true;
        const std::vector<Entity> before = RowsOf(user.Bench.Grain.Table);
        const LessonAnswer wrong = Do(user, play, slip.Done);
        EXPECT_EQ(wrong.What, Said::Wrong);
        EXPECT_EQ(wrong.Words, slip.Words);
        EXPECT_EQ(Difference(RowsOf(user.Bench.Grain.Table), before), "");
      }
      const LessonAnswer answer = Do(user, play, input);
      ASSERT_EQ(answer.What, Said::Good) << input << ": " << answer.Words;
    }
    EXPECT_TRUE(slipped && LessonDone(play));
    EXPECT_EQ(InFile(RowsOf(user.Bench.Grain.Table)), InFile(lesson.Shown.back()));
  }
}

TEST_F(Lessons, StandAnyInputBetween) {
  const std::vector<std::string> any{"cmd 1",
                                     "cmd 20",
                                     "cmd 52",
                                     "cmd 55",
                                     "cmd 60",
                                     "cmd 61",
                                     "cmd 85",
                                     "cmd 86",
                                     "cmd 97",
                                     "cmd 54",
                                     "click 0 0",
                                     "click 5 5",
                                     "click -8 -5",
                                     "click 8 0",
                                     "click 9 1.15",
                                     "back 0 0",
                                     "drag -15 -15 15 15",
                                     "key Enter",
                                     "key Delete",
                                     "key Ctrl+Z",
                                     "key Ctrl+Y",
                                     "key Tab",
                                     "press End_Ent",
                                     "press Intersection",
                                     "press Key_In",
                                     "press Delta",
                                     "press SelectAll",
                                     "press DeactivateRDraw",
                                     "press Undo"};
  std::mt19937 luck(static_cast<unsigned>(Seed()));
  for (const fs::path &source : Sources()) {
    SCOPED_TRACE(source.filename().string());
    const Lesson lesson = Made(source);
    for (int round = 0; round < 3 * Rounds(); ++round) {
      Program user(Home);
      LessonPlay play;
      ASSERT_EQ(BeginLesson(play, user.Bench.Draft, lesson), "");
      std::string done;
      for (const std::string &input : Inputs(source)) {
        const std::size_t asked = play.Next;
        for (auto more = luck() % 4; more > 0 && !user.Bench.Sim.ResultMode; --more) {
          const std::vector<Entity> before = RowsOf(user.Bench.Grain.Table);
          const std::size_t next = play.Next;
          const std::string &extra = any[luck() % any.size()];
          done += extra + "; ";
          user.Screen.Loose = true;
          user.Screen.Lines = ReadScript(extra);
          PlayScript(user.Screen); // what cannot be used now is a fault of the line alone
          const LessonAnswer answer = CheckLesson(play, user.Bench.Draft);
          RefreshScreen(user.Bench);
          if (answer.What == Said::Good) break; // it was the right one
          ASSERT_EQ(play.Next, next) << done;
          ASSERT_EQ(Difference(RowsOf(user.Bench.Grain.Table), before), "") << done;
        }
        user.Screen.Loose = false;
        // Taken up anew where it stood, and done as it says.
        if (!user.Bench.Sim.ResultMode) {
          EndLesson(play, user.Bench.Draft);
          ASSERT_EQ(BeginLesson(play, user.Bench.Draft, lesson, asked), "");
          RefreshScreen(user.Bench);
        }
        ASSERT_EQ(play.Next, asked);
        const LessonAnswer answer = Do(user, play, input);
        done += input + "; ";
        ASSERT_EQ(answer.What, Said::Good) << done << answer.Words;
      }
      ASSERT_TRUE(LessonDone(play));
      EXPECT_EQ(InFile(RowsOf(user.Bench.Grain.Table)), InFile(lesson.Shown.back()));
    }
  }
}

TEST(LessonWords, OfEachKind) {
  const auto words = [](const Instruction &want, const Instruction &got, int tool = 0) {
    const std::string text = LessonObjection({"", "", want, 0}, got, tool, 20); // 0.4 mm
    return text.empty() ? "fits" : text;
  };
  EXPECT_EQ(words({151, 1, 2, 1, "", 0, 0}, {151, 1.3, 2.2, 1, "", 0, 0}), "fits");
  EXPECT_EQ(words({151, 1, 2, 1, "", 0, 0}, {151, 1.3, 2.3, 1, "", 0, 0}),
            "Wrong Position!\nClick at X=1, Y=2");
  EXPECT_EQ(words({151, 1, 2, 1, "", 0, 0}, {151, 1, 2, 2, "", 0, 0}),
            "Wrong Mouse Button!\nClick at X=1, Y=2");
  EXPECT_EQ(words({151, 1, 2, 1, "", 0, 0}, {147, 1, 2, 0, "", 0, 0}), "fits");
  EXPECT_EQ(words({147, 1, 2, 0, "", 0, 0}, {147, 1.001, 2, 0, "", 0, 0}),
            "Wrong Position!\nKey in the point X=1, Y=2");
  EXPECT_EQ(words({130, 4, 1, 2, "", 2, 0}, {130, 5, 1.1, 2, "", 2, 0}), "fits");
  EXPECT_EQ(words({130, 4, 1, 2, "", 2, 0}, {130, 4, 2.9, 2, "", 2, 0}), "fits");
  EXPECT_EQ(words({130, 4, 1, 2, "", 2, 0}, {130, 4, 3.1, 2, "", 2, 0}),
            "Wrong Position!\nPick the circle at X=1, Y=2");
  EXPECT_EQ(words({131, 4, 1, 2, "", 4, 0}, {131, 4, 9, 9, "", 4, 0}), "fits");
  EXPECT_EQ(words({146, 3, 4, 0, "", 0, 0}, {146, 3.00004, 4, 0, "", 0, 0}), "fits");
  EXPECT_EQ(words({146, 3, 4, 0, "", 0, 0}, {146, 3.0001, 4, 0, "", 0, 0}),
            "Wrong X axis offset value!\nEnter an X offset of 3");
  EXPECT_EQ(words({146, 3, 4, 0, "", 0, 0}, {146, 3, 5, 0, "", 0, 0}),
            "Wrong Y axis offset value!\nEnter a Y offset of 4");
  EXPECT_EQ(words({203, 5, 10, 90, "", 0, 0}, {203, 5, 11, 90, "", 0, 0}, 30),
            "Wrong Start Angle!\nEnter a starting Angle of 10");
  EXPECT_EQ(words({203, 5, 10, 90, "", 0, 0}, {203, 5, 10, 91, "", 0, 0}, 30),
            "Wrong End Angle!\nEnter an Ending Angle of 90");
  EXPECT_EQ(words({54, 6, 0, 360, "", 0, 0}, {54, 7, 0, 360, "", 0, 0}, 54),
            "Wrong Number of Lines!\nSet Numnber of Lines to:6");
  EXPECT_EQ(words({201, 30, 0, 0, "", 0, 0}, {201, 31, 0, 0, "", 0, 0}, 72),
            "Wrong Rotation Angle!\nEnter a rotation angle of 30");
  EXPECT_EQ(words({201, 2, 0, 0, "", 0, 0}, {201, 3, 0, 0, "", 0, 0}, 73),
            "Wrong Scale Factor!\nEnter a scale factor of 2");
  EXPECT_EQ(words({203, 3, 0, 0, "", 0, 0}, {203, 4, 0, 0, "", 0, 0}, 70),
            "Wrong Number of Copies!\nEnter a number of copies of 3");
  EXPECT_EQ(words({160, 0, 0, 0, "", 0, 0}, {161, 0, 0, 0, "", 0, 0}, 70), "Wrong Selection!\nChoose: Move");
  EXPECT_EQ(words({70, 0, 0, 0, "ENTERKEY", 0, 0}, {70, 0, 0, 0, "", 0, 0}, 70), "Wrong Input!\nPress Enter");
}

} // namespace
