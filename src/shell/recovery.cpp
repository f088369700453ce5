#include "shell/recovery.h"

#include "base/whole_file.h"
#include "shell/grain_file.h"

#include <ctime>
#include <filesystem>
#include <system_error>

namespace {
constexpr const char *CopyPrefix = "Recovered ";

std::string FreshCopyPath(const std::string &appDir) {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char stamp[32];
  std::strftime(stamp, sizeof stamp, "%Y-%m-%d %H-%M-%S", &local);
  const std::string stem = appDir + CopyPrefix + stamp;
  std::string path = stem + ".mvd";
  for (int n = 2; FileExists(path); ++n) path = stem + " (" + std::to_string(n) + ").mvd";
  return path;
}

// The stamp in the name sorts by time.
std::string NewestCopy(const std::string &appDir) {
  std::string newest;
  std::error_code none;
  for (const auto &file : std::filesystem::directory_iterator(appDir, none)) {
    const std::string name = file.path().filename().string();
    if (name.starts_with(CopyPrefix) && name.ends_with(".mvd") && appDir + name > newest)
      newest = appDir + name;
  }
  return newest;
}

// A start that was called off leaves its copy behind: the next one needs no second.
bool HoldsDesign(const std::string &copy, const Design &design) {
  std::string bytes;
  return !copy.empty() && ReadWhole(copy, bytes).empty() && bytes == GrainText(design, GrainForm::File);
}

void Recover(Workbench &bench, const std::string &left, std::vector<std::string> &notices) {
  Design found = bench.Grain;
  std::string trouble = ReadGrainFile(left, found);
  if (!trouble.empty()) {
    std::error_code failed;
    std::filesystem::rename(left, left + ".unreadable", failed);
    notices.push_back("The design of the last session could not be read back. " + trouble +
                      (failed ? "" : "\nThe file is kept as " + left + ".unreadable"));
    return;
  }
  found.SavedFlag = true;
  bench.Grain = found;
  if (found.Table.EntCount >= 0) {
    if (!HoldsDesign(NewestCopy(bench.Folders.AppDir), found))
      trouble = WriteGrainFile(FreshCopyPath(bench.Folders.AppDir), found);
    if (!trouble.empty()) notices.push_back(trouble);
    bench.Recovered.Open = true;
  }
  if (left == bench.Claim.TempFile) return;
  // The design moves to this program's own recovery file.
  if (WriteWorkFile(bench.Claim.TempFile, bench.Grain).empty()) WriteWhole(left, "");
}
} // namespace

void KeepWorkFile(Workbench &bench) {
  const std::string trouble = WriteWorkFile(bench.Claim.TempFile, bench.Grain);
  if (trouble.empty() || bench.WorkTroubleTold) return;
  bench.WorkTroubleTold = true;
  bench.Out.Ask(
      {"The design cannot be kept for recovery. " + trouble, "Morvandel", Buttons::Ok, Icon::Exclamation});
}

void EmptyWorkFile(Workbench &bench) { WriteWhole(bench.Claim.TempFile, ""); }

void RecoverDesign(Workbench &bench, std::vector<std::string> &notices) {
  const auto left = LeftOverTempFiles(bench.Claim, bench.Folders.AppDir);
  if (!left.empty()) Recover(bench, left.front(), notices);
  bench.Recovered.CopyPath = NewestCopy(bench.Folders.AppDir);
}
