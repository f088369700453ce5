#include "shell/work_folder.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <pwd.h>
#include <string_view>
#include <sys/file.h>
#include <system_error>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr const char *WorkFileNames[] = {"TempFile",    "CurrentWorkFile", "DefaultFile", "Default3DFile",
                                         "HotKeys",     "IntroFile.txt",   "KnProfile",   "CheckFile",
                                         "GraphicFile", "GraphicFile2"};
constexpr const char *RecoveryName = "TempFile";
constexpr int MostClaims = 99;

std::string AsFolder(const fs::path &path) {
  std::string text = path.string();
  if (text.empty() || text.back() != '/') text += '/';
  return text;
}

std::string FromEnvironment(const char *name) {
  const char *value = std::getenv(name);
  return value ? value : "";
}

bool HoldsWorkFiles(const std::string &folder) {
  std::error_code none;
  return std::any_of(std::begin(WorkFileNames), std::end(WorkFileNames),
                     [&](const char *name) { return fs::is_regular_file(folder + name, none); });
}

bool IsWritable(const std::string &folder) {
  return faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

std::string HomeFolder() {
  std::string home = FromEnvironment("HOME");
  if (!home.empty() && home.front() == '/') return home;
  const passwd *entry = getpwuid(geteuid());
  return entry && entry->pw_dir && entry->pw_dir[0] == '/' ? entry->pw_dir : "";
}

std::string UserDataFolder() {
  const std::string data = FromEnvironment("XDG_DATA_HOME");
  if (!data.empty() && data.front() == '/')
    return AsFolder(data) + "morvandel/"; // a relative one is to be ignored
  const std::string home = HomeFolder();
  return home.empty() ? "" : AsFolder(home) + ".local/share/morvandel/";
}

std::string RecoveryPath(const std::string &appDir, int number) {
  std::string path = appDir + RecoveryName;
  if (number > 1) {
    path += '.';
    path += std::to_string(number);
  }
  return path;
}

std::string LockPath(const std::string &recovery) { return recovery + ".lock"; }

bool ClaimedByAnother(const std::string &recovery) {
  const int handle = open(LockPath(recovery).c_str(), O_RDWR | O_CLOEXEC);
  if (handle < 0) return false;
  const bool claimed = flock(handle, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
  close(handle);
  return claimed;
}

// Of "TempFile" 1, of "TempFile.7" 7, of anything else 0.
int RecoveryNumber(std::string_view name) {
  const std::string_view stem = RecoveryName;
  if (name == stem) return 1;
  if (!name.starts_with(stem) || name.size() < stem.size() + 2 || name[stem.size()] != '.') return 0;
  int number = 0;
  const char *end = name.data() + name.size();
  const auto [stop, error] = std::from_chars(name.data() + stem.size() + 1, end, number);
  return error == std::errc{} && stop == end && number >= 2 && RecoveryPath("", number) == name ? number : 0;
}

} // namespace

std::string ExecutablePath() {
  std::error_code failed;
  const fs::path path = fs::read_symlink("/proc/self/exe", failed);
  return failed ? std::string() : path.string();
}

WorkFolders FindFolders(const std::string &executable) {
  std::error_code failed;
  fs::path program = fs::canonical(executable, failed);
  if (failed) program = fs::absolute(executable, failed);
  const std::string beside = AsFolder(program.parent_path());
  WorkFolders folders;
  folders.Install = beside;
  if (!fs::is_directory(beside + "data", failed) && !fs::is_directory(beside + "examples", failed)) {
    const std::string share = AsFolder((program.parent_path().parent_path() / "share" / "morvandel"));
    if (fs::is_directory(share, failed)) folders.Install = share;
  }

  const std::string asked = FromEnvironment("MORVANDEL_HOME");
  if (!asked.empty())
    folders.AppDir = AsFolder(fs::absolute(asked, failed).lexically_normal());
  else if (IsWritable(beside) && HoldsWorkFiles(beside))
    folders.AppDir = beside;
  else
    folders.AppDir = UserDataFolder();
  if (folders.AppDir.empty()) {
    folders.Trouble = "There is no folder for the work files: set MORVANDEL_HOME to one";
    return folders;
  }
  fs::create_directories(folders.AppDir, failed);
  if (failed && !fs::is_directory(folders.AppDir))
    folders.Trouble = folders.AppDir + ": cannot be made: " + failed.message();
  else if (!IsWritable(folders.AppDir))
    folders.Trouble = folders.AppDir + ": cannot be written to: " + std::strerror(errno);
  return folders;
}

WorkClaim::~WorkClaim() {
  if (Handle >= 0) close(Handle);
}

void ClaimWorkFiles(WorkClaim &claim, const std::string &appDir) {
  if (claim.Handle >= 0) close(claim.Handle);
  claim.Handle = -1;
  claim.TempFile.clear();
  for (int number = 1; number <= MostClaims; ++number) {
    const std::string recovery = RecoveryPath(appDir, number);
    // The lock goes with the open file, so the system frees it however the program ends. It is not the
    // recovery file itself, which is replaced by another at each writing.
    const int handle = open(LockPath(recovery).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (handle < 0) return;
    if (flock(handle, LOCK_EX | LOCK_NB) == 0) {
      claim.Handle = handle;
      claim.TempFile = recovery;
      return;
    }
    close(handle);
  }
}

std::vector<std::string> LeftOverTempFiles(const WorkClaim &claim, const std::string &appDir) {
  std::vector<std::pair<int, std::string>> found; // this program's own sorts first
  std::error_code failed;
  for (const auto &file : fs::directory_iterator(appDir, failed)) {
    const int number = RecoveryNumber(file.path().filename().string());
    if (number == 0) continue;
    const std::string path = RecoveryPath(appDir, number);
    std::error_code none;
    if (!fs::is_regular_file(path, none) || fs::file_size(path, none) == 0) continue;
    if (path == claim.TempFile)
      found.emplace_back(0, path);
    else if (!ClaimedByAnother(path))
      found.emplace_back(number, path);
  }
  std::sort(found.begin(), found.end());
  std::vector<std::string> paths;
  for (auto &[number, path] : found) paths.push_back(std::move(path));
  return paths;
}
