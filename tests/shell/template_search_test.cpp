// The search for a template's best values, in its form.
#include "base/number_text.h"
#include "platform/events.h"
#include "shell/journey.h"

namespace {

// A tube of radius PORT in a grain of 40: its loading is 1 - (PORT/20)^2.
const std::string Tube = "press mnumaketemplate\ntype Text1(2) PORT\ntype Variable_Value(2) 8\npress Next\n"
                         "press Circle_Radius\npress MacroParams.Accept\nanswer PORT\nclick 0 0\n"
                         "press Escape\npress Stop_Macro\nanswer Tube\n"
                         "type Prompt(2) Port radius, mm [2 .. 15]\npress TemplateForm.Accept\nbox OK\n";
const std::string New = "press New\nbox No\n";
const std::string Form = "press mnuchoosetemplate\npress Use_Template\n"
                         "expect hidden Optimise_Start\npress Optimise\nexpect visible Optimise_Start\n"
                         "expect text Optimise_From(2) 2\nexpect text Optimise_To(2) 15\n"
                         "press Optimise_Way:Minimise\npress Optimise_Figure:Volume loading, %\n"
                         "type Optimise_Seconds 600\n";
const std::string Cancel = "press TemplateForm.Cancel\n";

// Does something after so many trials of a search.
struct BusyScreen : ScriptedScreen {
  int After = 0, Trials = 0;
  std::function<void()> Then;
  void StartSearch(std::function<void(const std::function<void()> &)> work, std::function<void()> news,
                   std::function<void()> done) override {
    Trials = 0;
    work([&] {
      news();
      if (++Trials == After) Then();
    });
    done();
  }
};

struct TemplateSearch : Journey {
  BusyScreen Out;
  Workbench Busy{Out};
  void SetUp() override {
    Journey::SetUp();
    Install.clear(); // no templates but one's own
  }
  void StartBusy() {
    BindScript(Busy, Out);
    WorkFolders folders;
    folders.AppDir = Home.string() + "/";
    ASSERT_TRUE(StartUp(Busy, folders, ReadCommandLine(FiveKeys())));
    PlayBusy(Tube);
  }
  void PlayBusy(const std::string &script) {
    Out.Lines = ReadScript(script);
    PlayScript(Out);
    EXPECT_EQ(Out.Lines.Fault, "") << script;
  }
  double Radius(Workbench &bench) { return RowAt(bench.Grain.Table, 0).Radius; }
};

TEST_F(TemplateSearch, FindsTheBestThatKeepsTheRulesAndGivesTheFormerValuesBack) {
  ASSERT_TRUE(Start());
  Play(
      Tube + Form +
      "press Optimise_Rule(0):Volume loading, %\npress Optimise_Side(0):at least\ntype Optimise_Limit(0) 75\n"
      "type Optimise_Trials 300\npress Optimise_Start\nexpect enabled Optimise_Start\n"
      "expect text Optimise_Note\nexpect enabled Optimise_Restore\npress Optimise_Restore\n"
      "expect text VariableName(2) 8\nexpect disabled Optimise_Restore\nkey Enter in Optimise_Seed\n"
      "press TemplateForm.Accept\nexpect count 1");
  EXPECT_NEAR(Radius(Bench()), 10, 1e-3);
  const std::string best = Screen()[Ctl::Optimise_Best].Text;
  EXPECT_NE(best.find("Volume loading 75 %\nVolume loading 75 %, at least 75 %"), best.npos) << best;
  EXPECT_NEAR(Screen().Template_Picture.Item.back().At[2], 10, 1e-3);
  // The same trials again end at the same value; a rule that nothing keeps is told.
  const double before = Radius(Bench());
  Play(New + Form + "press Optimise_Start\npress TemplateForm.Accept");
  EXPECT_EQ(Radius(Bench()), before);
  Play(Form +
       "type Optimise_Limit(0) 99.9\npress Optimise_Start\n"
       "expect text Optimise_Note No trial keeps all that is to be kept; this one comes nearest\n" +
       Cancel);
  // The motor's figures: the widest port leaves the least impulse.
  Play(Form + "press Optimise_Rule(0):\ntype Optimise_Limit(0)\npress Optimise_Figure:Total impulse, N s\n"
              "press Optimise_Start\npress TemplateForm.Accept");
  EXPECT_NEAR(Radius(Bench()), 15, 1e-3);
}

TEST_F(TemplateSearch, StopKeepsTheBestSoFarAndAClosedFormEndsIt) {
  StartBusy();
  Out.After = 40;
  Out.Then = [&] { Dispatch(Busy, PressOf(Ctl::Optimise_Stop)); };
  PlayBusy(New + Form + "press Optimise_Start\nexpect visible Optimise_Start\npress TemplateForm.Accept");
  EXPECT_EQ(Out.Trials, 40);
  EXPECT_TRUE(Out[Ctl::Optimise_Progress].Text.starts_with("40 trials")) << Out[Ctl::Optimise_Progress].Text;
  EXPECT_GT(Radius(Busy), 8);
  const double kept = Radius(Busy);
  // While it is at work no one else changes the values.
  Out.Then = [&] {
    Dispatch(Busy, TextIn(Ctl::VariableName2, "3"));
    EXPECT_NE(Out[Ctl::VariableName2].Text, "3");
    Dispatch(Busy, KeyIn(Ctl::TemplateForm, 27));
  };
  PlayBusy(New + Form + "press Optimise_Start\nexpect hidden TemplateForm\nexpect count 0");
  EXPECT_EQ(Out.Trials, 40);
  EXPECT_EQ(Busy.Template.Ask.Seek.Running, nullptr);
  EXPECT_GT(kept, 0);
}

TEST_F(TemplateSearch, WhatCannotBeSoughtIsToldByItsField) {
  ASSERT_TRUE(Start());
  Play(Tube + New);
  const struct {
    const char *Lines, *Says;
    Ctl Field;
  } table[] = {
      {"type Optimise_From(2) 20", "Port radius: the range must go from a lower to a higher value",
       Ctl::Optimise_To2},
      {"type Optimise_To(2) 1e400", "Port radius, to: a number must be entered", Ctl::Optimise_To2},
      {"type Optimise_From(2) 0", "Port radius, from: it must be above 0", Ctl::Optimise_From2},
      {"press Optimise_Vary(2)", "Tick the values that may vary", Ctl::Optimise_Vary2},
      {"type VariableName(2) WEB", "PORT: ", Ctl::VariableName2},
      {"press Optimise_Rule(1):Max Kn", "Keep 2, Max Kn: a number must be entered", Ctl::Optimise_Limit1},
      {"press Optimise_Rule(1):\ntype Optimise_Limit(1) 3", "Keep 2: choose a figure", Ctl::Optimise_Rule1},
      {"type Optimise_Limit(1)\ntype Optimise_Seconds 0", "Seconds: ", Ctl::Optimise_Seconds},
      {"type Optimise_Trials 2.5", "Trials: a whole number", Ctl::Optimise_Trials},
      {"type Optimise_Seed -1", "Seed: a whole number", Ctl::Optimise_Seed}};
  for (const auto &row : table) {
    SCOPED_TRACE(row.Lines);
    Play(Form + "type Optimise_Trials 20\ntype Optimise_Seed 1\n" + row.Lines +
         "\npress Optimise_Start\nexpect visible Optimise_Start\n" + Cancel);
    EXPECT_TRUE(Screen()[Ctl::Optimise_Note].Text.starts_with(row.Says)) << Screen()[Ctl::Optimise_Note].Text;
    EXPECT_NE(Screen()[row.Field].Hint, "");
    EXPECT_EQ(Screen()[Ctl::Optimise_Best].Text, "");
  }
  // Ports as wide as the grain: nothing can be drawn or burnt, and the value stays.
  Play(Form +
       "type Optimise_Trials 50\ntype Optimise_Seed 1\ntype VariableName(2) 19\ntype VariableName(2) 25\n"
       "type Optimise_From(2) 21\ntype Optimise_To(2) 30\npress Optimise_Start\n"
       "expect text VariableName(2) 25\n" +
       Cancel);
  EXPECT_TRUE(Screen()[Ctl::Optimise_Note].Text.starts_with("None of these values can be worked out: "));
  // A figure of the nozzle without one.
  Play("press mnuDims\ntype Nozzle_Throat 0\npress Dimensions.Next");
  Play(Form + "press Optimise_Figure:Peak pressure, MPa\npress Optimise_Start\n" + Cancel);
  EXPECT_TRUE(Screen()[Ctl::Optimise_Note].Text.starts_with("Peak pressure: the grain has no nozzle throat"));
}

} // namespace
