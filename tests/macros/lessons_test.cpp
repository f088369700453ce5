// The shipped lessons, made of their scripts and played by a user who does what they say, nearly.
#include "macros/lesson_player.h"
#include "macros/lesson_template.h"
#include "macros/template_design.h"
#include "rounds.h"

#include <cmath>
#include <map>
#include <random>

namespace {
using namespace lessons;

// A hand is not that steady.
std::string Nearly(const std::string &input) {
  double x = 0, y = 0;
  if (std::sscanf(input.c_str(), "click %lf %lf", &x, &y) != 2) return input;
  return "click " + std::to_string(x + 0.07) + " " + std::to_string(y - 0.05);
}

TEST(Lessons, ArePlayedToTheirEnd) {
  const auto sources = Sources();
  EXPECT_GE(sources.size(), 8u);
  for (const fs::path &source : sources) {
    SCOPED_TRACE(source.filename().string());
    Pupil pupil(Made(source));
    Program &user = pupil.User;
    user.Play("cmd 20\nanswer 11\nclick 1 2\nkey Escape");
    const std::vector<Entity> own = user.Rows();
    pupil.Begin();
    EXPECT_EQ(user.Bench.Grain.Doc.GrainDiam, 40);
    std::vector<std::string> inputs = Inputs(source);
    for (std::string &input : inputs) input = Nearly(input);
    pupil.ToTheEnd(inputs, [&](std::size_t i) {
      ASSERT_NE(LessonPrompt(pupil.Play), "");
      const std::size_t next = pupil.Play.Next;
      // Left and taken up again, it goes on where it was.
      if (i == inputs.size() / 2 && !user.Bench.Sim.ResultMode) pupil.Begin(next);
      if (!inputs[i].starts_with("cmd ")) return;
      const std::vector<Entity> before = user.Rows();
      const LessonAnswer wrong = pupil.Do("cmd 24"); // another tool
      ASSERT_EQ(wrong.What, Said::Wrong);
      ASSERT_EQ(wrong.Words.substr(0, wrong.Words.find('\n')),
                inputs[i].starts_with("cmd 97") ? "Wrong Input!" : "Wrong Tool!");
      ASSERT_EQ(pupil.Play.Next, next);
      ASSERT_EQ(Difference(user.Rows(), before), "");
    });
    EXPECT_EQ(LessonPrompt(pupil.Play), "");
    if (user.Bench.Sim.ResultMode) user.Play("press Design_Mode");
    EndLesson(pupil.Play, user.Bench.Draft);
    EXPECT_EQ(Difference(user.Rows(), own), "");
    EXPECT_EQ(user.Bench.Grain.Doc.GrainDiam, 60);
    EXPECT_EQ(user.Bench.Grain.MacroMode, 0);
  }
}

// In each lesson something done wrongly, where the input beside it was asked for.
struct Slip {
  const char *Asked, *Done, *Words;
};
const std::multimap<int, Slip> Slips{
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
    {9, {"press Mirror_Vertical", "press Mirror_Horizonal", "Wrong Input!\nChoose: Vert Mirror"}},
    {10,
     {"press mnumaketemplate",
      "press mnumaketemplate\ntype Text1(2) TIP\ntype Variable_Value(2) 14\npress Next",
      "Wrong Variable!\nName a variable TipRad of 14"}},
    {10,
     {"press mnumaketemplate",
      "press mnumaketemplate\ntype Text1(2) TipRad\ntype Variable_Value(2) 14\npress Next",
      "Wrong Input!\nName a variable ValleyRad of 5"}},
    // The number is right, but it would stay when the variable changes.
    {10, {"point TipRad; 0", "point 14; 0", "Wrong Formula!\nKey in the point X=TipRad, Y=0"}},
    {10,
     {"point ValleyRad*cos(pi/6); ValleyRad/2", "point ValleyRad*cos(pi/6); 2.5",
      "Wrong Formula!\nKey in the point X=ValleyRad*cos(pi/6), Y=ValleyRad/2"}},
    {10, {"cmd 55\nanswer Fillet", "cmd 55\nanswer 0.5", "Wrong Formula!\nEnter a radius of Fillet"}},
    {10,
     {"press Stop_Macro", "press Stop_Macro\nanswer Star\npress TemplateForm.Accept",
      "Wrong Name!\nCall it Rounded star"}},
    {10,
     {"press Stop_Macro",
      "press Stop_Macro\nanswer Rounded star\ntype Prompt(2) Tip radius, mm [10 .. 20]\n"
      "press TemplateForm.Accept",
      "Wrong Prompt!\nType the prompt \"Tip radius, mm [10 .. 18]\""}}};

TEST(Lessons, TellWhatWasWrong) {
  for (const fs::path &source : Sources()) {
    SCOPED_TRACE(source.filename().string());
    Pupil pupil(Made(source));
    pupil.Begin();
    const auto [first, last] = Slips.equal_range(pupil.What.Index);
    std::vector<const Slip *> left;
    for (auto slip = first; slip != last; ++slip) left.push_back(&slip->second);
    ASSERT_FALSE(left.empty());
    const std::vector<std::string> inputs = Inputs(source);
    pupil.ToTheEnd(inputs, [&](std::size_t i) {
      std::erase_if(left, [&](const Slip *slip) {
        if (inputs[i] != slip->Asked && !inputs[i].starts_with(slip->Asked + std::string("\n"))) return false;
        const std::vector<Entity> before = pupil.User.Rows();
        const LessonAnswer wrong = pupil.Do(slip->Done);
        EXPECT_EQ(wrong.What, Said::Wrong) << slip->Done;
        EXPECT_EQ(wrong.Words, slip->Words);
        EXPECT_EQ(Difference(pupil.User.Rows(), before), "");
        return true;
      });
    });
    EXPECT_TRUE(left.empty()) << left[0]->Asked;
  }
}

TEST(Lessons, StandAnyInputBetween) {
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
      Pupil pupil(lesson);
      pupil.Begin();
      Program &user = pupil.User;
      std::string done;
      pupil.ToTheEnd(Inputs(source), [&](std::size_t) {
        const std::size_t asked = pupil.Play.Next;
        if (user.Bench.Sim.ResultMode) return;
        for (auto more = luck() % 4; more > 0; --more) {
          const std::vector<Entity> before = user.Rows();
          const std::string &extra = any[luck() % any.size()];
          done += extra + "; ";
          user.Screen.Loose = true;
          user.Screen.Lines = ReadScript(extra);
          PlayScript(user.Screen); // what cannot be used now is a fault of the line alone
          user.Screen.Loose = false;
          if (pupil.Check().What == Said::Good) break; // it was the right one
          ASSERT_EQ(pupil.Play.Next, asked) << done;
          ASSERT_EQ(Difference(user.Rows(), before), "") << done;
        }
        pupil.Begin(asked); // taken up anew where it stood
      });
    }
  }
}

// Another way to say the same fits; and what the lesson has made is a template, as any other.
TEST(Lessons, MakeATemplateThatDrawsOtherNumbers) {
  const fs::path source = TEST_SOURCE "/data/lesson_sources/10_star_template.txt";
  Pupil pupil(Made(source));
  pupil.Begin();
  std::vector<std::string> inputs = Inputs(source);
  for (std::string &input : inputs)
    if (input == "point ValleyRad*cos(pi/6); ValleyRad/2")
      input = "point cos(pi/6)*ValleyRad; sin(pi/6)*ValleyRad";
  pupil.ToTheEnd(inputs, [](std::size_t) {});
  std::string name;
  const MacFile mac = TemplateOfLesson(pupil.Play.Log, 40, 100, &name);
  EXPECT_EQ(name, "Rounded star");
  EXPECT_EQ(mac.Variables.Row[4].Prompt, "Tip fillet, mm [0.2 .. 1]");
  for (const auto &[tip, valley, fillet] : {std::array{14., 5., 0.5}, {16., 6., 0.8}, {11., 4., 0.3}}) {
    const std::vector<TemplateAnswer> answers{{"TipRad", std::to_string(tip)},
                                              {"ValleyRad", std::to_string(valley)},
                                              {"Fillet", std::to_string(fillet)}};
    Design grain;
    ASSERT_EQ(DesignFromTemplate(mac, answers, {}, grain).Trouble, "");
    // The tip's half angle gives the arc's centre and where it touches.
    const double half = std::atan2(valley / 2, tip - valley * std::cos(Pi / 6));
    int arcs = 0;
    for (const Entity &e : RowsOf(grain.Table)) {
      const bool arc = e.EntType == ArcType;
      arcs += arc;
      const double centre = tip - fillet / std::sin(half), along = fillet / std::tan(half);
      const double touch = std::hypot(tip - along * std::cos(half), along * std::sin(half));
      if (arc) {
        EXPECT_NEAR(e.Radius, fillet, 1e-9);
        EXPECT_NEAR(std::hypot(e.CenterX, e.CenterY), centre, 1e-6);
      }
      const double near = std::min(std::hypot(e.X1, e.Y1), std::hypot(e.X2, e.Y2));
      const double far = std::max(std::hypot(e.X1, e.Y1), std::hypot(e.X2, e.Y2));
      EXPECT_NEAR(far, touch, 1e-6);
      EXPECT_NEAR(near, arc ? touch : valley, 1e-6);
    }
    EXPECT_EQ(arcs, 6);
    EXPECT_EQ(grain.Table.EntCount, 17);
  }
}

} // namespace
