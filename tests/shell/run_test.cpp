// RunSim2, replay and the way back, through Dispatch.
#include "shell/journey.h"

#include <cmath>

namespace {

int Items(const Journey &, const DrawSurface &panel, Ink role) {
  int n = 0;
  for (const DrawItem &item : panel.Item) n += item.Role == role;
  return n;
}

TEST_F(Journey, RunReplayAndBack) {
  ASSERT_TRUE(Start());
  Play("drop " + Cases + "star6_fillet.mvd\npress RunSim2");
  Play(R"(expect prompt Run pointer over Area Chart to illustrate burn pattern
          expect text Burn_Area 79647.39
          expect text Kn_Ratio 253.5255
          expect text Volume_Loadings 84.2%
          expect text Sliver_Fraction 7.7%
          expect text Neutrallity 83.3%
          expect hidden Tools_Frame
          expect hidden Motor_Dimensions
          expect visible MyChart1_Frame
          expect visible MyChart2_Frame
          expect disabled RunSim2
          expect visible Design_Mode)");
  const BurnRun &run = Bench().Sim.Run;
  const Chart &areas = Screen().MyChart1, &kn = Screen().MyChart2;
  ASSERT_EQ(areas.Series.size(), 2u);
  EXPECT_TRUE(areas.Stacked);
  EXPECT_EQ(areas.Series[0].Value.size(), static_cast<std::size_t>(run.RowsReached));
  EXPECT_EQ(kn.Series[0].Value.back(), run.Result.back().Kn);
  EXPECT_GT(Items(*this, Screen().Panel, Ink::Contour), 100);

  Play("hover MyChart1 0.5");
  const int step = areas.CursorStep;
  EXPECT_EQ(step, kn.CursorStep);
  EXPECT_NEAR(step, run.RowsReached / 2.0, 1);
  EXPECT_EQ(Items(*this, Screen().Panel, Ink::Picked),
            static_cast<int>(run.Steps.Start[step] - run.Steps.Start[step - 1]));
  EXPECT_EQ(Screen()[Ctl::MyChart1_Frame].Text.rfind("BDist:", 0), 0u);
  Play("hover MyChart2 0\nhover MyChart1 1");
  EXPECT_EQ(areas.CursorStep, run.RowsReached);

  const std::size_t before = Screen().Panel.Item.size();
  Play("press Zoom_x2\nwheel 3 4 2\npan 0 0 5 5\npress Zoom_Reset");
  EXPECT_EQ(Screen().Panel.Item.size(), before); // the replayed outline stays in view through the zooms
  Play(R"(press Design_Mode
          expect visible Tools_Frame
          expect hidden Report_Frame
          expect enabled RunSim2
          expect count 24)");
  EXPECT_EQ(Items(*this, Screen().Panel, Ink::Contour), 0);
  EXPECT_NE(Read("GraphicFile"), "");
  EXPECT_NE(Read("CheckFile"), "");
  EXPECT_NE(Read("TempFile"), "");
}

TEST_F(Journey, RefusalsSpeakAndMark) {
  ASSERT_TRUE(Start());
  Play("press RunSim2\nexpect box Can't Simulate End Burning Geometries\nbox OK\nexpect hidden Report_Frame");
  Bench().Grain.Table.EntCount = -1;
  for (const Entity &e :
       {MakeLine(-8, -8, 8, -8), MakeLine(8, -8, 8, 8), MakeLine(8, 8, -8, 8), MakeLine(-8, 8, -8, -7)})
    AppendRow(Bench().Grain.Table, e);
  Play("press RunSim2\nexpect box Error: \nbox OK\nexpect visible Tools_Frame\nexpect hidden SimMsg");
  constexpr int rings = 2; // around the open ends, as long as they are open
  EXPECT_GT(Items(*this, Screen().Panel, Ink::Fault), rings);
  EXPECT_FALSE(FileExists(At("GraphicFile")));
  Play("press mnuRefresh");
  EXPECT_EQ(Items(*this, Screen().Panel, Ink::Fault), rings);
}

TEST_F(Journey, StoppedRunLeavesDesignModeAndNoFiles) {
  struct ImpatientScreen : ScriptedScreen {
    int Asked = 0;
    bool Progress(double part) override {
      EXPECT_TRUE(part >= 0 && part <= 1) << part;
      EXPECT_TRUE((*this)[Ctl::SimMsg].Visible);
      Event close; // what the user does meanwhile waits for the end of the run
      close.What = Event::Kind::Close;
      close.Target = Ctl::frmMain;
      OnEvent(close);
      return ++Asked < 2;
    }
  } screen;
  Workbench bench(screen);
  BindScript(bench, screen);
  WorkFolders folders;
  folders.AppDir = Home.string() + "/";
  ASSERT_TRUE(StartUp(bench, folders, ReadCommandLine(FiveKeys())));
  screen.Lines = ReadScript("drop " + Cases +
                            "star6_fillet.mvd\npress RunSim2\nexpect count 24\nexpect visible "
                            "Tools_Frame\nexpect hidden SimMsg\nexpect hidden MyChart1_Frame");
  PlayScript(screen);
  EXPECT_EQ(screen.Lines.Fault, "");
  EXPECT_EQ(screen.Asked, 2);
  EXPECT_FALSE(bench.Ended);
  EXPECT_FALSE(FileExists(At("GraphicFile")));
}

TEST_F(Journey, DebugModeMarksTheEndsAtTheWall) {
  ASSERT_TRUE(Start());
  Play("drop " + Cases + "star6_fillet.mvd\npress mnuDebugMode\nexpect checked mnuDebugMode\npress RunSim2");
  int marks = 0;
  for (const DrawItem &item : Screen().Panel.Item)
    if (item.What == DrawItem::Kind::Circle && item.At[2] == 0.1) {
      EXPECT_NEAR(std::hypot(item.At[0], item.At[1]), 50, 1e-4);
      ++marks;
    }
  EXPECT_GT(marks, 50);
  Play("press Design_Mode\npress mnuDebugMode\npress RunSim2");
  EXPECT_TRUE(Bench().Sim.Run.WallMarks.empty());
}

TEST_F(Journey, WithoutThroatThereIsNoKn) {
  ASSERT_TRUE(Start());
  Play("drop " + Cases + "circle_centred.mvd\ngrain 40 100 0 none\npress RunSim2");
  Play(R"(expect text Kn_Ratio N/A
          expect text Ap_At_Ratio N/A
          expect text Sliver_Fraction N/A
          expect hidden MyChart2_Frame)");
  EXPECT_TRUE(Screen().MyChart2.Series.empty());
}

TEST_F(Journey, NarrowScreensLeaveChartsOutInDesignMode) {
  const struct {
    int Width;
    bool Chart1, Chart2;
  } table[] = {{1440, true, true}, {1000, true, false}, {700, false, false}};
  for (const auto &t : table) {
    Program = std::make_unique<Running>();
    BindScript(Bench(), Screen());
    Screen().PixelWidth = t.Width;
    WorkFolders folders;
    folders.AppDir = Home.string() + "/";
    ASSERT_TRUE(StartUp(Bench(), folders, ReadCommandLine(FiveKeys())));
    Play("drop " + Cases +
         "star5_sharp.mvd\npress RunSim2\nexpect visible MyChart1_Frame\nexpect visible "
         "MyChart2_Frame\npress Design_Mode");
    EXPECT_EQ(Screen()[Ctl::MyChart1_Frame].Visible, t.Chart1) << t.Width;
    EXPECT_EQ(Screen()[Ctl::MyChart2_Frame].Visible, t.Chart2) << t.Width;
    Play("close");
  }
}

TEST_F(Journey, OpeningLeavesTheResults) {
  ASSERT_TRUE(Start());
  Play("drop " + Cases + "star5_sharp.mvd\npress RunSim2\ndrop " + Cases +
       "d_port.mvd\nexpect hidden Report_Frame\nexpect count 2");
  EXPECT_EQ(Items(*this, Screen().Panel, Ink::Contour), 0);
  Play("hover MyChart1 0.5"); // nothing to replay
  EXPECT_EQ(Items(*this, Screen().Panel, Ink::Picked), 0);
}

} // namespace
