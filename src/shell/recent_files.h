#pragma once
#include "base/settings_store.h"

#include <string>
#include <vector>

// At most four entries, newest first; kept under "MRUFiles": key 2i the caption, key 2i+1 the full path.
struct RecentFile {
  std::string Caption, Path;
};
struct RecentFiles {
  std::vector<RecentFile> Entry;
};
RecentFiles LoadRecentFiles(const SettingsStore &);
void SaveRecentFiles(SettingsStore &, const RecentFiles &);
// To the top; paths are compared upper-cased.
void TouchRecentFile(RecentFiles &, const std::string &caption, const std::string &path);
