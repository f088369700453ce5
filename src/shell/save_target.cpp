#include "shell/save_target.h"

#include "base/whole_file.h"

#include <filesystem>

std::string AskTarget(Workbench &bench, const char *filter, const std::string &behind, const char *ending,
                      const char *named) {
  const std::filesystem::path design(bench.Grain.CurrentFile);
  const std::string initial =
      design.empty() ? std::string(named) : (design.parent_path() / design.stem()).string();
  const auto chosen = bench.Out.AskFile(FileUse::SaveAs, filter, initial + behind + ending);
  if (!chosen || chosen->empty()) return {};
  if (!std::filesystem::path(*chosen).extension().empty()) return *chosen;
  const std::string path = *chosen + ending;
  const std::string question =
      std::filesystem::path(path).filename().string() + " already exists. Replace it?";
  const bool replaces = FileExists(path); // the file dialog saw another name
  if (replaces && bench.Out.Ask({question, "Save As", Buttons::YesNo, Icon::Exclamation}) != Answer::Yes)
    return {};
  return path;
}
