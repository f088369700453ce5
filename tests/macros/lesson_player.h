#pragma once
#include "base/whole_file.h"
#include "macros/lesson.h"
#include "macros/tables.h"
#include "scratch_folder.h"
#include "shell/play_script.h"
#include "shell/refresh_screen.h"
#include "shell/start_up.h"
#include "shell/template_record.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

// The lessons' sources, and a pupil who does what a lesson says.
namespace lessons {
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
  ScratchFolder Folder;
  AnsweringScreen Screen;
  Workbench Bench{Screen};
  ScriptedLessons Lessons;
  Program() {
    WriteWhole(Folder.Path + "IntroFile.txt", "1\r\n");
    BindScript(Bench, Screen, {.Templates = nullptr, .Lessons = &Lessons});
    WorkFolders folders;
    folders.AppDir = Folder.Path;
    folders.Install = TEST_SOURCE "/";
    EXPECT_TRUE(StartUp(Bench, folders, ReadCommandLine({"Gd=60", "Gl=100", "Ea=0", "Eb=0", "Td=9"})));
    Bench.Grain.Doc.SnapToGrid = 0;
  }
  void Play(const std::string &lines) {
    Screen.Lines = ReadScript(lines);
    PlayScript(Screen);
    ASSERT_EQ(Screen.Lines.Fault, "") << lines;
  }
  std::vector<Entity> Rows() const { return RowsOf(Bench.Grain.Table); }
};

inline std::vector<fs::path> Sources() {
  std::vector<fs::path> all;
  for (const auto &entry : fs::directory_iterator(TEST_SOURCE "/data/lesson_sources"))
    all.push_back(entry.path());
  std::sort(all.begin(), all.end());
  return all;
}

inline std::string TextOf(const fs::path &source) {
  std::string text;
  EXPECT_EQ(ReadWhole(source.string(), text), "");
  return text;
}

// As it comes out of its file.
inline Lesson Made(const fs::path &source) {
  Program program;
  program.Play(TextOf(source));
  std::vector<Lesson> read;
  EXPECT_EQ(ParseTutor(TutorText(program.Lessons.Made), "x.tut", read), "");
  EXPECT_EQ(read.size(), 1u);
  return read.at(0);
}

// What the user does, an input with its answers, or what is done in its forms, each.
inline std::vector<std::string> Inputs(const fs::path &source) {
  const std::string text = TextOf(source);
  std::istringstream lines(text.substr(text.find("\nlesson ") + 1));
  std::vector<std::string> all;
  for (std::string line; std::getline(lines, line);) {
    const std::string verb = line.substr(0, line.find(' '));
    if (verb == "answer" || verb == "type" || line == "press Next" || line.ends_with("Form.Accept"))
      all.back() += "\n" + line;
    else if (verb != "lesson" && verb != "say" && verb != "then" && verb != "pause" && verb != "endlesson")
      all.push_back(line);
  }
  return all;
}

// As a file holds it, with 15 digits.
inline std::string InFile(const std::vector<Entity> &rows) {
  return TutorText({Lesson{"", 0, 1, rows, {}, {}}});
}

struct Pupil {
  Program User;
  Lesson What;
  LessonPlay Play;
  explicit Pupil(const Lesson &lesson) : What(lesson) {}
  void Begin(std::size_t from = 0) {
    EndLesson(Play, User.Bench.Draft);
    ASSERT_EQ(BeginLesson(Play, User.Bench.Draft, What, from), "");
    FollowLessonTemplate(User.Bench, Play);
    RefreshScreen(User.Bench);
    ASSERT_TRUE(from == 0 || Play.Next == from);
  }
  LessonAnswer Check() {
    const LessonAnswer answer = CheckLesson(Play, User.Bench.Draft);
    FollowLessonTemplate(User.Bench, Play);
    RefreshScreen(User.Bench);
    return answer;
  }
  LessonAnswer Do(const std::string &input) {
    LessonAnswer pressed;
    if (input.starts_with("press ")) {
      const std::string name = input.substr(6, input.find('\n') - 6);
      const auto control = FindControl(name);
      if (control && IsTaughtButton(*control)) pressed = CheckPress(Play, User.Bench.Draft, name);
    }
    if (pressed.What == Said::Wrong) return pressed;
    User.Play(input);
    const LessonAnswer answer = Check();
    return answer.What == Said::Nothing ? pressed : answer;
  }
  // The rest of the inputs; `before` comes before each.
  template <class Before>
  void ToTheEnd(const std::vector<std::string> &inputs, Before before) {
    for (std::size_t i = 0; i < inputs.size(); ++i) {
      SCOPED_TRACE(inputs[i]);
      ASSERT_NO_FATAL_FAILURE(before(i));
      const LessonAnswer answer = Do(inputs[i]);
      ASSERT_EQ(answer.What, Said::Good) << answer.Words;
    }
    EXPECT_TRUE(LessonDone(Play));
    EXPECT_EQ(InFile(User.Rows()), InFile(What.Shown.back()));
  }
};

} // namespace lessons
