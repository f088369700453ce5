#include "cli/outputs.h"

#include "base/whole_file.h"

#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

Outputs::~Outputs() {
  std::error_code ignored;
  for (const Target &t : All) fs::remove(t.Draft, ignored);
}

std::string PlanOutput(Outputs &outputs, const std::string &path) {
  std::error_code problem;
  if (fs::is_directory(path, problem)) return path + ": this is a folder";
  for (const Outputs::Target &t : outputs.All)
    if (t.Path == path) return path + ": named for two outputs";
  const std::string draft = path + ".part" + std::to_string(::getpid());
  if (std::string trouble = WriteWhole(draft, ""); !trouble.empty()) {
    if (const auto at = trouble.find(draft); at != trouble.npos) trouble.replace(at, draft.size(), path);
    return trouble;
  }
  outputs.All.push_back({path, draft});
  return {};
}

std::string FillOutput(Outputs &outputs, const std::string &path,
                       const std::function<std::string(const std::string &)> &write) {
  for (const Outputs::Target &t : outputs.All) {
    if (t.Path != path) continue;
    std::string trouble = write(t.Draft);
    if (const auto at = trouble.find(t.Draft); at != trouble.npos) trouble.replace(at, t.Draft.size(), path);
    return trouble;
  }
  return path + ": not planned";
}

std::string MoveIntoPlace(Outputs &outputs) {
  for (const Outputs::Target &t : outputs.All) {
    std::error_code problem;
    if (fs::exists(t.Path, problem) &&
        !fs::is_regular_file(t.Path, problem)) { // a pipe or a device is written straight
      std::string bytes;
      std::string trouble = ReadWhole(t.Draft, bytes);
      if (trouble.empty()) trouble = WriteWhole(t.Path, bytes);
      if (!trouble.empty()) return trouble;
      continue;
    }
    fs::rename(t.Draft, fs::exists(t.Path, problem) ? fs::canonical(t.Path, problem) : fs::path(t.Path),
               problem);
    if (problem) return t.Path + ": " + problem.message();
  }
  return {};
}
