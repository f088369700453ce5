#include "cli/script_source.h"

#include "base/whole_file.h"
#include "cli/private_folder.h"
#include "shell/start_up.h"
#include "shell/work_folder.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

std::vector<std::string> ScriptSources(const std::string &folder) {
  std::vector<std::string> sources;
  std::error_code failed;
  for (fs::directory_iterator it(folder, failed), end; !failed && it != end; it.increment(failed))
    if (it->path().extension() == ".txt") sources.push_back(it->path().string());
  std::sort(sources.begin(), sources.end());
  return sources;
}

std::string PlaySource(const std::string &path, const ScriptKeeps &keep) {
  std::string text;
  if (std::string trouble = ReadWhole(path, text); !trouble.empty()) return trouble;
  const PrivateFolder home;
  if (home.Path.empty()) return "no folder for work files can be made";
  ScriptedScreen screen;
  Workbench bench(screen);
  BindScript(bench, screen, keep);
  WriteWhole(home.Path + "IntroFile.txt", "1\r\n");
  WorkFolders work;
  work.AppDir = home.Path;
  work.Install = FindFolders(ExecutablePath()).Install;
  if (!StartUp(bench, work, ReadCommandLine({"Gd=40", "Gl=100", "Ea=0", "Eb=0", "Td=9"})))
    return path + ": cannot start";
  bench.Grain.Doc.SnapToGrid = 0;
  screen.Lines = ReadScript(text);
  PlayScript(screen);
  return screen.Lines.Fault.empty() ? "" : path + ": " + screen.Lines.Fault;
}
