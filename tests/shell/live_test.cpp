#include "burnback/run_sim.h"
#include "shell/journey.h"

#include <algorithm>
#include <deque>

namespace {

// A screen whose worker is slow: works wait until the test lets them run.
struct SlowScreen : ScriptedScreen {
  struct Job {
    std::function<void()> Work, Done;
  };
  std::deque<Job> Waiting;
  void StartWork(std::function<void()> work, std::function<void()> done) override {
    Waiting.push_back({std::move(work), std::move(done)});
  }
  void Finish(std::size_t i) {
    Waiting[i].Work();
    Waiting[i].Done();
  }
};

struct Live : Journey {
  std::vector<float> Burnt(Design &grain) { // as the run without a screen has it
    BurnRun run;
    BurnRefusal refusal;
    EXPECT_TRUE(BurnDesign(grain, {}, run, refusal)) << refusal.Text;
    std::vector<float> curve;
    for (const ResultRow &row : run.Result)
      curve.push_back(run.HasThroat ? row.Kn : row.CoreArea + row.EndsArea);
    return curve;
  }
  static std::vector<std::string> Names(const ScriptedScreen &screen) {
    std::vector<std::string> names;
    for (const ChartSeries &s : screen.MyLiveChart.Series) names.push_back(s.Name);
    return names;
  }
  using List = std::vector<std::string>;
};

TEST_F(Live, TheCurveFollowsTheDrawing) {
  ASSERT_TRUE(Start());
  EXPECT_TRUE(Names(Screen()).empty());
  Play("expect checked mnuLiveBurn\ncmd 20\nanswer 5\nclick 0 0\nkey Escape");
  ASSERT_EQ(Names(Screen()), List{"Kn"});
  const std::vector<float> first = Burnt(Bench().Grain);
  EXPECT_EQ(Screen().MyLiveChart.Series[0].Value, first);
  EXPECT_NE(Screen()[Ctl::Live_MaxKn].Text, "Max Kn: ");
  EXPECT_FALSE(FileExists(At("GraphicFile")));

  Play("cmd 1\nclick 20 20\nclick 22 22"); // outside the core: two rows that do not close
  EXPECT_EQ(Names(Screen()), List{"Before"});
  EXPECT_EQ(Screen().MyLiveChart.Series[0].Value, first);
  EXPECT_FALSE(Screen()[Ctl::Live_MaxKn].Enabled);
  Play("press mnuEditUndo\nkey Escape");
  EXPECT_EQ(Names(Screen()), List{"Kn"});
  EXPECT_TRUE(Screen()[Ctl::Live_MaxKn].Enabled);

  // No throat: the area. What the curve was stays only while a tool is at work.
  Play("grain 40 100 0 none\nexpect text Live_MaxKn Max Kn: N/A");
  ASSERT_EQ(Names(Screen()), List{"Area"});
  EXPECT_EQ(Screen().MyLiveChart.Series[0].Value, Burnt(Bench().Grain));
  Play("press mnuFileNew\nbox No");
  EXPECT_TRUE(Names(Screen()).empty());
}

TEST_F(Live, TheFormerCurveStaysWhileAToolWorks) {
  ASSERT_TRUE(Start());
  Play("drop " + Cases + "star6_fillet.mvd");
  const std::vector<float> before = Burnt(Bench().Grain);
  Play("cmd 73\npress XFormOption:Move\npress SelectAll\ntype X_Input 0.9\nkey Enter\nclick 0 0");
  ASSERT_EQ(Names(Screen()), (List{"Before", "Kn"}));
  auto shown = Screen().MyLiveChart.Series[0].Value;
  shown.resize(before.size());
  EXPECT_EQ(shown, before);
  Play("key Escape");
  EXPECT_EQ(Names(Screen()), List{"Kn"});
}

TEST_F(Live, StaleResultsAreDropped) {
  SlowScreen screen;
  Workbench bench(screen);
  BindScript(bench, screen);
  WorkFolders folders;
  folders.AppDir = Home.string() + "/";
  ASSERT_TRUE(StartUp(bench, folders, ReadCommandLine(FiveKeys())));
  const auto play = [&](const std::string &lines) {
    screen.Lines = ReadScript(lines);
    PlayScript(screen);
    ASSERT_EQ(screen.Lines.Fault, "");
  };
  play("cmd 20\nanswer 5\nclick 0 0\nkey Escape\nmove 1 1\nmove 2 2");
  ASSERT_EQ(screen.Waiting.size(), 1u); // moves ask for nothing
  screen.Finish(0);
  ASSERT_EQ(Names(screen), List{"Kn"});
  const auto first = screen.MyLiveChart.Series[0].Value;

  play("grain 40 100 6 A\nmove 1 1\ngrain 40 100 8 A\nmove 1 1");
  ASSERT_EQ(screen.Waiting.size(), 3u);
  EXPECT_EQ(Names(screen), List{"Before"});
  screen.Finish(1); // overtaken
  EXPECT_EQ(Names(screen), List{"Before"});
  EXPECT_EQ(screen.MyLiveChart.Series[0].Value, first);
  screen.Finish(2);
  ASSERT_EQ(Names(screen), List{"Kn"});
  EXPECT_EQ(screen.MyLiveChart.Series[0].Value, Burnt(bench.Grain));
}

TEST_F(Live, ThePointerOnTheChartShowsTheFront) {
  ASSERT_TRUE(Start());
  Play("drop " + Cases + "star6_fillet.mvd\ncmd 1\nclick 1 1\nmove 2 2");
  const std::vector<DrawItem> rubber = Screen().Panel.Overlay;
  Play("hover MyLiveChart 0.5");
  const BurnRun &run = Bench().Live.Run;
  const int step = Screen().MyLiveChart.CursorStep;
  EXPECT_NEAR(step, run.RowsReached / 2.0, 1);
  const auto &overlay = Screen().Panel.Overlay;
  ASSERT_EQ(overlay.size() - rubber.size(), run.Steps.Start[static_cast<std::size_t>(step)] -
                                                run.Steps.Start[static_cast<std::size_t>(step - 1)]);
  EXPECT_EQ(overlay.back(),
            OutlineItem(run.Steps.Row[run.Steps.Start[static_cast<std::size_t>(step)] - 1], Ink::Picked));
  Event leave;
  leave.What = Event::Kind::Leave;
  leave.Target = Ctl::MyLiveChart;
  Dispatch(Bench(), leave);
  EXPECT_EQ(Screen().Panel.Overlay, rubber);
  EXPECT_EQ(Screen().MyLiveChart.CursorStep, 0);
}

TEST_F(Live, ShownWhereThereIsRoomUnlessSaidOtherwise) {
  const auto begin = [&](int width) {
    Program = std::make_unique<Running>();
    BindScript(Bench(), Screen());
    Screen().PixelWidth = width;
    WorkFolders folders;
    folders.AppDir = Home.string() + "/";
    ASSERT_TRUE(StartUp(Bench(), folders, ReadCommandLine(FiveKeys())));
  };
  begin(1279);
  Play("expect hidden Live_Frame\nclose");
  begin(1280);
  Play("expect visible Live_Frame\npress mnuLiveBurn\nexpect hidden Live_Frame\nclose");
  begin(1920);
  Play("expect hidden Live_Frame\nexpect unchecked mnuLiveBurn\npress mnuLiveBurn\nclose");
  begin(800);
  Play("expect visible Live_Frame\ndrop " + Cases +
       "star6_fillet.mvd\npress RunSim2\nexpect hidden Live_Frame\nclose");
}

} // namespace
