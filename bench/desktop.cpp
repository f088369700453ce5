// What a person sees of one event, in the real window: pictures painted, curve shown. For a display of
// 1920 x 1080, such as xvfb-run -s "-screen 0 1920x1080x24" gives.
#include "base/whole_file.h"
#include "desktop/qt_screen.h"
#include "desktop/scene_painter.h"
#include "drafting/command_table.h"
#include "in_window.h"
#include "platform/events.h"
#include "scratch_folder.h"
#include "shell/design_view.h"
#include "shell/dispatch.h"
#include "shell/grain_file.h"
#include "shell/start_up.h"
#include "stars.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <cmath>
#include <string>

namespace {
// A program of 1920 x 1080 pixels with a filleted star of so many entities open.
struct Program {
  ScratchFolder Folder;
  QtScreen Screen{*static_cast<QApplication *>(QCoreApplication::instance())};
  Workbench Bench{Screen};

  explicit Program(int entities) {
    const std::string file = Folder.Path + "star.mvd";
    WriteGrainFile(file, FilletedStar(entities));
    WriteWhole(Folder.Path + "IntroFile.txt", "1\r\n");
    WriteWhole(Folder.Path + "settings.ini",
               "[Settings]\nMainLeft=0\nMainTop=0\nMainWidth=1920\nMainHeight=1080\nTheme=Light\n");
    WorkFolders folders;
    folders.AppDir = Folder.Path;
    StartUp(Bench, folders, ReadCommandLine({"Gd=100", "Gl=300", "Ea=1", "Eb=1", "Td=20", file}));
    Screen.Mirror();
    Settle();
  }
  void Send(Event::Kind what, Ctl target, double x = 0, double y = 0, int button = 0) {
    Screen.Send(MouseAt(what, target, x, y, button));
  }
  void Settle() { // until the newest curve is in and all is painted
    while (Bench.Live.UnderWay) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
  }
};

void EditToNewCurve(benchmark::State &state) {
  Program program(static_cast<int>(state.range(0)));
  // Two sizes of the star in turn.
  Design &grain = program.Bench.Grain;
  const EntityTable whole = grain.Table;
  EntityTable scaled = whole;
  for (int i = 0; i <= scaled.EntCount; ++i) {
    Entity &e = RowAt(scaled, i);
    for (double *v : {&e.X1, &e.Y1, &e.X2, &e.Y2, &e.CenterX, &e.CenterY, &e.Radius}) *v *= 0.97;
  }
  bool odd = false;
  for (auto _ : state) {
    grain.Table = (odd = !odd) ? scaled : whole;
    program.Send(Event::Kind::Press, Ctl::mnuRefresh);
    program.Settle();
  }
  state.counters["entities"] = grain.Table.EntCount + 1;
  if (!program.Bench.Live.Newest.Burnt) state.SkipWithError("no curve");
}

void FullRepaint(benchmark::State &state) {
  Program program(static_cast<int>(state.range(0)));
  double notch = 1;
  for (auto _ : state) {
    program.Screen.Send(WheelAt(Ctl::DrawPanel, 0, 0, notch = -notch));
    QCoreApplication::processEvents();
  }
  state.counters["pixels"] = program.Bench.Out.Panel.PixelWidth * program.Bench.Out.Panel.PixelHeight;
}

void PointerMove(benchmark::State &state, int cmdNo) {
  Program program(static_cast<int>(state.range(0)));
  program.Bench.Draft.Track.AutoPoint = true;
  program.Send(Event::Kind::Press, FindCommand(cmdNo)->Button);
  int i = 0;
  for (auto _ : state) {
    const double a = 0.1 * ++i;
    program.Send(Event::Kind::MouseMove, Ctl::DrawPanel, 30 * std::cos(a), 30 * std::sin(a));
    QCoreApplication::processEvents();
  }
}
void MoveInLine(benchmark::State &state) { PointerMove(state, 1); }
void MoveInSectionTrim(benchmark::State &state) { PointerMove(state, 69); }
} // namespace

// The 3D view by itself: the first picture with all that goes before it, and the pictures of a turn: plain,
// with many samples to a pixel, with two bitmaps.
void OpenSolids(benchmark::State &state) {
  Program program(24);
  for (auto _ : state) {
    program.Screen.Send(PressOf(Ctl::tb3DRender));
    while (program.Bench.View.UnderWay) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    program.Settle();
    state.PauseTiming();
    program.Screen.Send(PressOf(Ctl::tb2DPlot));
    program.Settle();
    state.ResumeTiming();
  }
}

void TurnSolids(benchmark::State &state) {
  Program program(24);
  program.Screen.Send(PressOf(Ctl::tb3DRender));
  program.Send(Event::Kind::Resize, Ctl::Picture1, 1280, 800);
  while (program.Bench.View.UnderWay) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  ScenePainter painter;
  const bool smooth = state.range(0) == 1;
  std::string bitmap;
  if (state.range(0) == 2) {
    bitmap = program.Folder.Path + "bitmap.png";
    QImage image(1024, 1024, QImage::Format_RGB32);
    for (int y = 0; y < 1024; ++y)
      for (int x = 0; x < 1024; ++x) image.setPixelColor(x, y, QColor(x * y % 251, x & 255, y & 255));
    image.save(QString::fromStdString(bitmap));
  }
  for (auto _ : state) {
    Orbit(program.Bench.View.Eye, 7, 0);
    RefreshView3d(program.Bench);
    program.Screen.View3d.Texture = {bitmap, bitmap, ""};
    if (painter.Paint(program.Screen.View3d, {1280, 800}, {Qt::white, Qt::gray, Qt::black, 0.3}, smooth)
            .isNull())
      state.SkipWithError("no picture");
  }
}

BENCHMARK(OpenSolids)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(TurnSolids)->Arg(0)->Arg(1)->Arg(2)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(EditToNewCurve)->Arg(12)->Arg(300)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(FullRepaint)->Arg(300)->Unit(benchmark::kMillisecond);
BENCHMARK(MoveInLine)->Arg(300)->Unit(benchmark::kMillisecond);
BENCHMARK(MoveInSectionTrim)->Arg(300)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv) { return RunInWindow(argc, argv); }
