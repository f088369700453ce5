// One move of a slider in the value form of a template, in the real window: until its drawing and its Kn
// curve are painted. For a display of 1920 x 1080, such as xvfb-run -s "-screen 0 1920x1080x24" gives.
#include "base/whole_file.h"
#include "desktop/qt_screen.h"
#include "in_window.h"
#include "macros/templates.h"
#include "platform/events.h"
#include "scratch_folder.h"
#include "shell/start_up.h"
#include "shell/template_form.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTimer>
#include <string>

namespace {
struct Program {
  ScratchFolder Folder;
  QtScreen Screen{*static_cast<QApplication *>(QCoreApplication::instance())};
  Workbench Bench{Screen};

  Program() {
    WriteWhole(Folder.Path + "IntroFile.txt", "1\r\n");
    WorkFolders folders;
    folders.AppDir = Folder.Path;
    StartUp(Bench, folders, ReadCommandLine({"Gd=40", "Gl=120", "Ea=1", "Eb=0", "Td=9"}));
    Screen.Mirror();
  }
  void Settle() { // until the newest trial is shown
    while (Bench.Template.Ask.UnderWay) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
  }
};

void Slide(benchmark::State &state, const char *key) {
  Program program;
  const std::string folder = BENCH_BIN "data/templates/";
  MacFile mac;
  if (!ReadMacFile(FindTemplate({folder, folder}, key), mac).empty())
    return state.SkipWithError("no such template: build morvandel_templates");
  QTimer::singleShot(0, [&] { // in the form's own loop
    program.Settle();
    int place = 300;
    for (auto _ : state) {
      place = place == 300 ? 500 : 300;
      program.Screen.Send(TextIn(Ctl::Variable_Slider2, std::to_string(place)));
      program.Settle();
    }
    if (!program.Bench.Template.Ask.Trouble.empty()) state.SkipWithError("it does not burn");
    program.Screen.Send(CloseOf(Ctl::TemplateForm));
  });
  AskTemplateValues(program.Bench, key, mac);
}
BENCHMARK_CAPTURE(Slide, tube, "Tube")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(Slide, double_anchor, "Double anchor")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(Slide, wagon_wheel, "Wagon wheel")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(Slide, star_filleted, "Star filleted")->Unit(benchmark::kMillisecond)->UseRealTime();
} // namespace

int main(int argc, char **argv) { return RunInWindow(argc, argv); }
