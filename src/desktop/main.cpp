#include "desktop/icons.h"
#include "desktop/qt_screen.h"
#include "desktop/theme.h"
#include "desktop/window_style.h"
#include "platform/recorded_screen.h"
#include "shell/command_line.h"
#include "shell/dispatch.h"
#include "shell/kn_batch.h"
#include "shell/start_up.h"
#include "shell/work_folder.h"

#include <QLocale>
#include <cstdio>
#include <cstdlib>

int main(int argc, char **argv) {
  const CommandLine line = ReadCommandLine({argv + 1, argv + argc});
  const WorkFolders folders = FindFolders(ExecutablePath());
  if (IsBatch(line)) {
    std::string words;
    const int code = RunKnBatch(line, folders, words);
    if (!words.empty()) std::fprintf(stderr, "%s\n", words.c_str());
    return code;
  }
#ifdef __linux__
  if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY") && !std::getenv("QT_QPA_PLATFORM")) {
    std::fprintf(stderr, "morvandel: there is no display here; morvandel-cli burns without one\n");
    return 2;
  }
#endif
  int one = 1; // the arguments are the core's; the toolkit takes none of them
  QApplication app(one, argv);
  QLocale::setDefault(QLocale::c());
  QApplication::setApplicationName("Morvandel");
  QApplication::setDesktopFileName("morvandel");
  QApplication::setStyle(MakeWindowStyle());
  SetBaseFont(10);
  QApplication::setWindowIcon(SvgIcon("morvandel"));
  RecordedScreen<QtScreen> screen(app);
  Workbench bench(screen);
  if (!StartUp(bench, folders, line)) return 0;
  screen.Mirror();
  return bench.Ended ? 0 : app.exec();
}
