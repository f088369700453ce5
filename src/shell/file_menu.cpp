#include "shell/file_menu.h"

#include "base/whole_file.h"
#include "drafting/command_machine.h"
#include "shell/design_defaults.h"
#include "shell/design_view.h"
#include "shell/grain_file.h"
#include "shell/recovery.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

namespace {
constexpr const char *GrainFilter = "All Files (*.*)|*.*|Morvandel Files (*.mvd)|*.mvd";

std::string BareName(const std::string &path) { return std::filesystem::path(path).filename().string(); }

std::string FullPath(const std::string &path) {
  std::error_code none;
  const auto full = std::filesystem::absolute(path, none);
  return none ? path : full.lexically_normal().string();
}

void Tell(Workbench &bench, const std::string &title, const std::string &trouble) {
  bench.Out.Ask({trouble, title, Buttons::Ok, Icon::Exclamation});
}

bool WriteTo(Workbench &bench, const std::string &path, const std::string &title) {
  const std::string trouble = WriteGrainFile(path, bench.Grain);
  if (!trouble.empty()) {
    Tell(bench, title, trouble);
    return false;
  }
  bench.Grain.CurrentFile = path;
  bench.Grain.SavedFlag = true;
  bench.Caption = BareName(path);
  bench.Recovered.Open = false;
  KeepRecent(bench, path);
  return true;
}

void OpenPath(Workbench &bench, const std::string &path) {
  LeaveResults(bench.Grain, bench.Out, bench.Sim);
  if (!ReadIntoDesign(bench, path)) return;
  StandGrainAnew(bench);
  KeepRecent(bench, path);
}
} // namespace

void KeepRecent(Workbench &bench, const std::string &path) {
  TouchRecentFile(bench.Recent, BareName(path), path);
  SaveRecentFiles(bench.Settings, bench.Recent);
  WriteSettings(bench.Settings); // a list that cannot be kept is no reason to stop the user
}

bool SaveFirst(Workbench &bench) {
  if (bench.Grain.SavedFlag || bench.Grain.Table.EntCount < 0) return true;
  switch (bench.Out.Ask(
      {"Save Current Geometry First?", "Save Current Geometry", Buttons::YesNoCancel, Icon::Question})) {
  case Answer::Yes: return SaveGrainAs(bench); // a failed or cancelled save must not lose the design
  case Answer::No: return true;
  case Answer::Ok:
  case Answer::Cancel: return false;
  }
  return false;
}

void NewGrain(Workbench &bench) {
  if (!SaveFirst(bench)) return;
  LeaveResults(bench.Grain, bench.Out, bench.Sim);
  Design &grain = bench.Grain;
  grain.CurrentFile.clear();
  grain.SavedFlag = true;
  grain.Table.EntCount = -1;
  ResetDrafting(bench.Draft);
  bench.Caption.clear();
  bench.Template.UsedName.clear();
  bench.Recovered.Open = false;
  const float back = grain.Doc.BackColor,
              lines = grain.Doc.LineColor; // New reads the first twelve values only
  const std::string trouble = ApplyDefaultFile(grain.AppDir + "DefaultFile", grain);
  grain.Doc.BackColor = back;
  grain.Doc.LineColor = lines;
  if (!trouble.empty()) Tell(bench, "New", trouble);
  EmptyWorkFile(bench);
  ClearResults(bench);
  ShowWholeGrain(bench);
}

bool ReadIntoDesign(Workbench &bench, const std::string &path) {
  Design fresh = bench.Grain;
  const std::string trouble = ReadGrainFile(path, fresh);
  if (!trouble.empty()) {
    Tell(bench, "Open", trouble);
    return false;
  }
  fresh.CurrentFile = path;
  fresh.SavedFlag = true;
  bench.Grain = fresh;
  bench.Template.UsedName.clear();
  ResetDrafting(bench.Draft);
  bench.Caption = BareName(path);
  bench.Recovered.Open = false;
  ClearResults(bench);
  KeepWorkFile(bench);
  ShowWholeGrain(bench);
  return true;
}

void OpenGrain(Workbench &bench) {
  if (!SaveFirst(bench)) return;
  const auto chosen = bench.Out.AskFile(FileUse::Open, GrainFilter, "");
  if (!chosen || chosen->empty()) return;
  const std::string path = FullPath(*chosen);
  std::error_code none;
  if (!std::filesystem::exists(path, none)) { // a silent end, which leaves the name
    bench.Grain.CurrentFile = path;
    return;
  }
  OpenPath(bench, path);
}

void OpenDropped(Workbench &bench, const std::string &path) {
  if (SaveFirst(bench)) OpenPath(bench, FullPath(path));
}

void OpenRecent(Workbench &bench, std::size_t entry) {
  if (entry >= bench.Recent.Entry.size() || !SaveFirst(bench)) return;
  const RecentFile chosen = bench.Recent.Entry[entry];
  LeaveResults(bench.Grain, bench.Out, bench.Sim); // figures of a design that is no longer open would stand
  std::error_code none;
  if (!std::filesystem::exists(chosen.Path, none)) {
    bench.Grain.CurrentFile = chosen.Path;
    Tell(bench, "Open", chosen.Path + ": there is no such file");
  } else if (ReadIntoDesign(bench, chosen.Path)) {
    bench.Caption = chosen.Caption;
  }
  TouchRecentFile(bench.Recent, chosen.Caption, chosen.Path);
  SaveRecentFiles(bench.Settings, bench.Recent);
}

void OpenRecoveredCopy(Workbench &bench) {
  const std::string path = bench.Recovered.CopyPath;
  if (path.empty() || !SaveFirst(bench)) return;
  OpenPath(bench, path);
}

std::string ExamplePath(const WorkFolders &folders) {
  std::vector<std::string> found;
  std::error_code none;
  for (const auto &file : std::filesystem::directory_iterator(folders.Install + "examples", none))
    if (file.path().extension() == ".mvd") found.push_back(file.path().string());
  std::sort(found.begin(), found.end());
  const auto star = std::find_if(found.begin(), found.end(), [](const auto &path) {
    return BareName(path).find("star") != std::string::npos;
  });
  return star != found.end() ? *star : found.empty() ? "" : found.front();
}

void OpenExample(Workbench &bench) {
  const std::string path = ExamplePath(bench.Folders);
  if (path.empty() || !SaveFirst(bench)) return;
  LeaveResults(bench.Grain, bench.Out, bench.Sim);
  if (ReadIntoDesign(bench, path)) bench.Grain.CurrentFile.clear(); // Save asks for a place of the user's own
}

void DiscardRecovered(Workbench &bench) { NewGrain(bench); }

bool SaveGrain(Workbench &bench) {
  if (bench.Grain.CurrentFile.empty()) return SaveGrainAs(bench);
  return WriteTo(bench, bench.Grain.CurrentFile, "Save");
}

bool SaveGrainAs(Workbench &bench) {
  const auto chosen = bench.Out.AskFile(FileUse::SaveAs, GrainFilter, bench.Grain.CurrentFile);
  if (!chosen || chosen->empty()) return false;
  std::string path = FullPath(*chosen);
  if (std::filesystem::path(path).extension().empty()) {
    path += ".mvd";
    const std::string question =
        BareName(path) + " already exists. Replace it?"; // the file dialog saw another name
    if (FileExists(path) &&
        bench.Out.Ask({question, "Save As", Buttons::YesNo, Icon::Exclamation}) != Answer::Yes)
      return false;
  }
  return WriteTo(bench, path, "Save As");
}
