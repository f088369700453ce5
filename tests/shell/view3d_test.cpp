// The 3D view without a display: opened, turned, cut, burnt, linked with the charts, kept and exported.
#include "shell/journey.h"
#include "view3d/mesh.h"

#include <cmath>

namespace {
struct View3dJourney : Journey {
  const View3d &View() { return Bench().View; }
  double Volume(std::size_t solid) { return VolumeOf(*Screen().View3d.Solid.at(solid).Solid); }
  void Star() {
    ASSERT_TRUE(Start({"Gd=66", "Gl=190", "Ea=1", "Eb=1", "Td=15", TEST_SOURCE "/examples/star.mvd"}));
  }
};
} // namespace

TEST_F(View3dJourney, OpensTurnsCutsAndGoesBack) {
  Star();
  Play("press 3D_Render\nexpect visible View_3D\nexpect hidden View_Note\nexpect hidden Tools_Frame");
  ASSERT_EQ(Screen().View3d.Solid.size(), 2u); // liner and grain
  const double half = Volume(1), turn = View().Eye.Turn;
  Play("press Cut_None");
  const double whole = Volume(1);
  EXPECT_NEAR(half / whole, 0.5, 1e-3);
  Play("press Cut_Across");
  EXPECT_NEAR(Volume(1) / whole, 0.5, 1e-3);
  Play("key ] in Picture1\nkey ] in Picture1");
  EXPECT_NEAR(Volume(1) / whole, 0.58, 1e-3);
  Play("drag 100 100 160 130 in Picture1");
  EXPECT_NEAR(View().Eye.Turn, turn - 60 * 180 / 600.0, 1e-9);
  Play("key 1 in Picture1");
  EXPECT_EQ(View().Eye.Turn, 0);
  const double span = View().Eye.Span;
  Play("wheel 400 300 2 in Picture1\nkey + in Picture1");
  EXPECT_NEAR(View().Eye.Span, span / std::pow(1.2, 3), 1e-9);
  Play("press Show_Core\npress Show_Liner");
  EXPECT_EQ(Screen().View3d.Solid.size(), 2u); // core and grain
  // By its grip, straight along the motor in the side view.
  Play("key 2 in Picture1");
  const double at = View().AcrossPart;
  const ScenePoint grip = Screen().View3d.Grip;
  const auto text = [](double v) { return std::to_string(v); };
  Play("drag " + text(grip.X) + " " + text(grip.Y) + " " + text(grip.X + 50) + " " + text(grip.Y) +
       " in Picture1");
  const Pixel from = Project(View().Eye, {0, 0, 0}), to = Project(View().Eye, {0, 0, 190});
  EXPECT_NEAR(View().AcrossPart - at, 50 / (to.X - from.X), 0.02);
  Play("press 2D_Plot\nexpect hidden View_3D\nexpect visible Tools_Frame");
  EXPECT_TRUE(Screen().View3d.Solid.empty());
  Play("press mnuView3d\nexpect visible View_3D\ncmd 1\nexpect hidden View_3D"); // a tool wants the drawing
}

TEST_F(View3dJourney, FirstCutGoesThroughABoreBesideTheAxis) {
  ASSERT_TRUE(Start({"Gd=40", "Gl=100", "Ea=1", "Eb=0", "Td=5", Cases + "circle_centred.mvd"}));
  EXPECT_EQ(View().LengthPart, 0);
  Play("press 3D_Render");
  EXPECT_EQ(CutOf(Bench()).Middle.X, 0); // the axis is in the bore
  Play("press 2D_Plot");
  StandGrainAnew(Bench());
  Bench().Grain.Table.EntCount = -1;
  AppendRow(Bench().Grain.Table, MakeCircle(9, 2, 3));
  Play("press 3D_Render");
  EXPECT_NEAR(CutOf(Bench()).Middle.X, 9, 1e-9);
  const MeshBox kept = BoundsOf(*Screen().View3d.Solid.at(1).Solid);
  EXPECT_NEAR(kept.Low[0], 9, 1e-3);
  Play("key [ in Picture1"); // and from there on it is the user's
  EXPECT_NE(CutOf(Bench()).Middle.X, 9);
  Play("type Burn_At 14");
  EXPECT_EQ(View().Newest.Groups, 1);
}

TEST_F(View3dJourney, BurnAndChartsGoTogether) {
  Star();
  Play("press 3D_Render\ntype Burn_Slider 500");
  const double end = View().Newest.End;
  EXPECT_NEAR(View().BurnDist, end / 2, 1e-9);
  const Chart &live = Screen().MyLiveChart;
  EXPECT_NEAR(live.X.at(static_cast<std::size_t>(live.CursorStep - 1)), end / 2, end / 100);
  Play("hover MyLiveChart 0.25");
  EXPECT_NEAR(View().BurnDist, live.X.back() / 4, end / 100);
  Play("press RunSim2\nexpect visible View_3D\nhover MyChart1 0.75");
  const Chart &area = Screen().MyChart1;
  EXPECT_EQ(View().BurnDist, area.X.at(static_cast<std::size_t>(area.CursorStep - 1)));
  Play("type Burn_At 2\n");
  EXPECT_NEAR(area.X.at(static_cast<std::size_t>(area.CursorStep - 1)), 2, 0.04);
  Play("type Burn_At two");
  EXPECT_EQ(View().BurnDist, 2);
  EXPECT_NE(Screen()[Ctl::Burn_At].Hint, "");
  // Plays by the clock, and stops burnt out.
  Play("key Home in Picture1\nkey Space in Picture1");
  Event tick;
  tick.What = Event::Kind::Tick;
  tick.Target = Ctl::Picture1;
  tick.Notches = 0.4;
  Dispatch(Bench(), tick);
  EXPECT_NEAR(View().BurnDist, end * 0.4 / 8, 1e-9);
  for (int i = 0; i < 30; ++i) Dispatch(Bench(), tick);
  EXPECT_FALSE(View().Playing);
  Play("expect visible View_Note");
  EXPECT_EQ(Screen()[Ctl::View_Note].Text.find("Burnt out"), 0u);
}

TEST_F(View3dJourney, SaysWhyThereIsNoGrain) {
  ASSERT_TRUE(Start());
  Play("press 3D_Render\nexpect text View_Note There is no outline yet. Draw the core, or open a grain.\n"
       "expect disabled Burn_Play\nexpect disabled Save_Shot\npress 2D_Plot\n"
       "cmd 1\nclick 0 0\nclick 3 4\nkey Escape\npress 3D_Render\n"
       "expect text View_Note The outline is not closed.\npress 2D_Plot");
  ASSERT_TRUE(Start({"Gd=40", "Gl=100", "Ea=1", "Eb=0", "Td=5", Cases + "circle_centred.mvd"}));
  Bench().Grain.Doc.GrainLength = 0;
  Play(
      "press 3D_Render\nexpect text View_Note The grain has no length. Give it one under Motor, Dimensions.");
}

TEST_F(View3dJourney, KeepsItsLookAndTellsOfABrokenOne) {
  Star();
  Play("press 3D_Config\nanswer 255\npress Paint_Burning\npress Own_Ground\nanswer 4660\npress Paint_Ground\n"
       "type Liner_Thickness 99999999\nbox OK\npress Setup_3D.OK\ntype Liner_Thickness 3\npress Setup_3D.OK");
  EXPECT_EQ(View().Look.Liner, 3);
  Star();
  EXPECT_EQ(View().Look.Colour[2], 255u);
  EXPECT_EQ(View().Look.Ground, 4660u);
  Play("press 3D_Render");
  EXPECT_NEAR(BoundsOf(*Screen().View3d.Solid.at(0).Solid).High[0], 36, 0.1);
  Play("press 3D_Config\npress Setup_Restore\npress Setup_3D.OK");
  EXPECT_EQ(View().Look, Look3d{});
  Write("Default3DFile", "\"Look3D_1\"\r\n\"PropellantColor\",no\r\n");
  ASSERT_TRUE(Start(FiveKeys(), "expect box line 2, field 2 (PropellantColor)"));
  EXPECT_EQ(View().Look, Look3d{});
}

TEST_F(View3dJourney, ExportsTheInstantShown) {
  Star();
  Play("press 3D_Render\ntype Burn_At 3\nfile " + At("grain") +
       "\nbox OK\npress Export_Mesh\n"
       "press Mesh_Part:Core\nfile " +
       At("core.3mf") +
       "\nbox OK\npress Export_Mesh\n"
       "file " +
       At("core.txt") + "\nbox OK\npress mnuMesh3d");
  EXPECT_EQ(Read("grain.stl").size() % 50, 84u % 50);
  EXPECT_EQ(Read("core.3mf").substr(0, 2), "PK");
  EXPECT_FALSE(FileExists(At("core.txt")));
  Play("box OK\npress Save_Shot"); // nothing here can draw
}
