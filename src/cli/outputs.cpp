#include "cli/outputs.h"

#include "base/whole_file.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

std::string Follow(const std::string &path) {
  std::error_code problem;
  const fs::path place = fs::weakly_canonical(fs::absolute(path, problem), problem);
  return problem ? path : place.string();
}

// The trouble of a draft, told of its target.
std::string OfTarget(std::string trouble, const Outputs::Target &target) {
  if (const auto at = trouble.find(target.Draft); at != trouble.npos)
    trouble.replace(at, target.Draft.size(), target.Path);
  return trouble;
}

std::string Pour(const std::string &draft, const std::string &path) {
  std::string bytes;
  if (std::string trouble = ReadWhole(draft, bytes); !trouble.empty()) return trouble;
  const int handle = open(path.c_str(), O_WRONLY | O_CLOEXEC);
  int error = handle < 0 ? errno : 0;
  std::size_t done = 0;
  while (error == 0 && done < bytes.size()) {
    const ssize_t put = write(handle, bytes.data() + done, bytes.size() - done);
    if (put > 0)
      done += static_cast<std::size_t>(put);
    else if (errno != EINTR)
      error = errno;
  }
  if (handle >= 0 && close(handle) != 0 && error == 0) error = errno;
  return error ? path + ": cannot be written: " + std::strerror(error) : "";
}

} // namespace

Outputs::~Outputs() {
  std::error_code ignored;
  for (const Target &t : All) fs::remove(t.Draft, ignored);
}

std::string PlanOutput(Outputs &outputs, const std::string &path) {
  std::error_code problem;
  if (fs::is_directory(path, problem)) return path + ": this is a folder";
  if (access(path.c_str(), W_OK) != 0 && errno != ENOENT)
    return path + ": cannot be written: " + std::strerror(errno);
  Outputs::Target target{path, path, {}, true};
  target.Plain = !fs::exists(path, problem) || fs::is_regular_file(path, problem);
  if (target.Plain) target.Place = Follow(path);
  for (const Outputs::Target &t : outputs.All)
    if (t.Place == target.Place) return path + ": named for two outputs";
  if (target.Place == Follow(outputs.Input)) return path + ": this is the grain file itself";
  target.Draft = (target.Plain ? target.Place : (fs::temp_directory_path(problem) / "morvandel").string()) +
                 ".part" + std::to_string(::getpid()) + "." + std::to_string(outputs.All.size());
  if (std::string trouble = WriteWhole(target.Draft, ""); !trouble.empty()) return OfTarget(trouble, target);
  outputs.All.push_back(target);
  return {};
}

std::string FillOutput(Outputs &outputs, const std::string &path,
                       const std::function<std::string(const std::string &)> &write) {
  for (const Outputs::Target &t : outputs.All)
    if (t.Path == path) return OfTarget(write(t.Draft), t);
  return path + ": not planned";
}

std::string MoveIntoPlace(Outputs &outputs) {
  for (const Outputs::Target &t : outputs.All) // these can fail: before any file has changed
    if (!t.Plain)
      if (std::string trouble = Pour(t.Draft, t.Path); !trouble.empty()) return trouble;
  for (const Outputs::Target &t : outputs.All) {
    if (!t.Plain) continue;
    std::error_code problem;
    fs::rename(t.Draft, t.Place, problem);
    if (problem) return t.Path + ": " + problem.message();
  }
  return {};
}
