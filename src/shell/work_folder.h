#pragma once
#include <string>
#include <vector>

// Where the program's files are. All folders end with the path separator.
// AppDir, the work files: MORVANDEL_HOME, else the executable's folder when it is writable and already holds
// work files, else the user's data folder (XDG_DATA_HOME, HOME/.local/share, or that of the password entry's
// home). It is made when missing.
// Install, read-only data: beside the executable (data/, examples/), else the install's share folder.
struct WorkFolders {
  std::string AppDir, Install;
  std::string Trouble; // AppDir could not be made or written to
};
WorkFolders FindFolders(const std::string &executable); // the executable's own path

std::string ExecutablePath(); // of the running program

// One claim on the work files of an AppDir: a second running program takes TempFile under another name
// ("TempFile.2", ...), so neither destroys the other's. The claim ends with the process, however that ends.
struct WorkClaim {
  int Handle = -1;
  std::string TempFile; // full path of this program's recovery file; empty when no claim could be made
  WorkClaim() = default;
  WorkClaim(const WorkClaim &) = delete;
  WorkClaim &operator=(const WorkClaim &) = delete;
  ~WorkClaim();
};
void ClaimWorkFiles(WorkClaim &, const std::string &appDir);
// Recovery files of crashed programs in this folder: not empty and claimed by no running program. This
// program's own comes first.
std::vector<std::string> LeftOverTempFiles(const WorkClaim &, const std::string &appDir);
