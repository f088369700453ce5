// The 3D view on the real window: opened, turned, looked at pixel by pixel, left again; and where there is no
// OpenGL.
#include "desktop/journey.h"

#include "desktop/scene_painter.h"
#include "platform/events.h"
#include "view3d/view_solids.h"

#include <QImage>
#include <numbers>

namespace {
const QString StarFile = TEST_DATA "/../../examples/star.mvd";

Lines Opened(Lines lines) {
  Lines all = PastIntro({"drop " + StarFile, "visible Motor_Dimensions", "press 3D_Render",
                         "visible Picture1", "hidden View_Note", "enabled Save_Shot"});
  all.insert(all.end(), lines.begin(), lines.end());
  return all;
}
} // namespace

TEST(Desktop, View3dByMouseAndKeys) {
  Journey j;
  const QString png = Path(j.File("shot.png")), stl = Path(j.File("core.stl"));
  j.Run(FiveKeys, Opened({"keep Picture1",
                          "down Picture1 0.3 0.3",
                          "move Picture1 0.5 0.4",
                          "changed Picture1",
                          "up Picture1 0.5 0.4",
                          "keep Picture1",
                          "press Cut_None",
                          "changed Picture1",
                          "keep Picture1",
                          "wheel Picture1 0.5 0.5 3",
                          "changed Picture1",
                          "press View_Iso",
                          "press Cut_Lengthwise",
                          "keep Picture1",
                          "move MyLiveChart 0.6 0.5",
                          "changed Picture1",
                          "press Burn_Play",
                          "shows Burn_Play Pause",
                          "press Burn_Play",
                          "shows Burn_Play Play",
                          "text Burn_At 99",
                          "visible View_Note",
                          "text Burn_At 2.5",
                          "hidden View_Note",
                          "press Save_Shot",
                          "file " + png,
                          "press Export_Mesh",
                          "file " + stl,
                          "whole View_3D",
                          "press 3D_Config",
                          "visible Setup_3D",
                          "whole Setup_3D",
                          "text Liner_Thickness 5",
                          "press OK",
                          "hidden Setup_3D",
                          "press mnuThemeDark",
                          "changed Picture1",
                          "press 2D_Plot",
                          "hidden Picture1",
                          "visible DrawPanel",
                          "press 3D_Render",
                          "visible Picture1",
                          "key Escape",
                          "visible DrawPanel"}));
  const QImage shot(png);
  EXPECT_GE(shot.width(), 1920);
  EXPECT_GT(BytesOf(stl.toStdString()).size(), 10000u);
  EXPECT_NE(BytesOf(j.File("Default3DFile")).find("\"LinerThickness\",5"), std::string::npos);
}

// The picture from before, parallel: what is not ground is the exact section and the liner, and in it the cut
// face stands where the plane is.
TEST(Desktop, View3dShowsTheExactSection) {
  Journey j;
  const std::string star = StarFile.toStdString();
  qputenv("MORVANDEL_HOME", j.Home.path().toUtf8());
  auto &app = *static_cast<QApplication *>(QCoreApplication::instance());
  QtScreen screen(app);
  Workbench bench(screen);
  Lines past{"press OK"};
  Player player{app, bench, past, 0, {}};
  Play(player);
  std::vector<std::string> keys = KeysAnd(star);
  ASSERT_TRUE(StartUp(bench, FindFolders(TEST_BIN "/morvandel"), ReadCommandLine(keys)));
  screen.Mirror();
  const auto press = [&](Ctl c) { screen.Send(PressOf(c)); };
  press(Ctl::tb3DRender);
  press(Ctl::View_Front);
  press(Ctl::View_Perspective);
  press(Ctl::Cut_None);
  screen.Send(TextIn(Ctl::Burn_At, "2"));
  press(Ctl::View_Fit);
  while (bench.View.UnderWay) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  ScenePainter painter;
  ASSERT_EQ(painter.Trouble, "");
  const QColor ground(255, 0, 255);
  const QSize size(static_cast<int>(bench.View.Eye.Width), static_cast<int>(bench.View.Eye.Height));
  const auto paint = [&] { return painter.Paint(screen.View3d, size, {ground, ground, Qt::black, 0}); };
  QImage picture = paint();
  GrainSection section;
  ASSERT_EQ(SectionAt(*bench.View.Newest.Front, 2, section), "");
  const double R = section.GrainRadius, out = R + LinerOf(bench), pixel = bench.View.Eye.Span / size.height();
  const auto covered = [&](int x, int y) { return picture.pixelColor(x, y) != ground; };
  double area = 0;
  for (int y = 0; y < size.height(); ++y)
    for (int x = 0; x < size.width(); ++x) area += covered(x, y) ? pixel * pixel : 0;
  const double exact = section.Area + std::numbers::pi * (out * out - R * R);
  const double rim = 2 * std::numbers::pi * out * pixel; // half covered pixels count whole
  EXPECT_NEAR(area, exact, 2 * rim);
  const auto at = [&](double x, double y, double z) { return Project(bench.View.Eye, {x, y, z}); };
  const Pixel edge = at(out, 0, 190), middle = at(0, 0, 190);
  EXPECT_TRUE(covered(static_cast<int>(edge.X) - 2, static_cast<int>(edge.Y)));
  EXPECT_FALSE(covered(static_cast<int>(edge.X) + 2, static_cast<int>(edge.Y)));
  EXPECT_FALSE(covered(static_cast<int>(middle.X), static_cast<int>(middle.Y)));
  // Half of it away: only the other half covers anything.
  press(Ctl::Cut_Lengthwise);
  while (bench.View.UnderWay) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  picture = paint();
  double left = 0, right = 0;
  for (int y = 0; y < size.height(); ++y)
    for (int x = 0; x < size.width(); ++x)
      (x < middle.X - 1 ? left : right) += covered(x, y) ? pixel * pixel : 0;
  EXPECT_EQ(left, 0);
  EXPECT_NEAR(right, exact / 2, 2 * rim);
}

TEST(NoGl, TellsAndKeepsTheDrawing) {
  if (qgetenv("QT_XCB_GL_INTEGRATION") != "none") GTEST_SKIP() << "for a display without OpenGL";
  Journey j;
  j.Run(FiveKeys, PastIntro({"drop " + StarFile, "visible Motor_Dimensions", "press 3D_Render",
                             "expect box needs OpenGL 3.3", "visible DrawPanel", "hidden Picture1",
                             "press 2D_Plot", "visible DrawPanel"}));
}
