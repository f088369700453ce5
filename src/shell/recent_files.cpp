#include "shell/recent_files.h"

#include <algorithm>

namespace {
constexpr const char *Section = "MRUFiles";
constexpr std::size_t MostEntries = 4;

std::string Upper(std::string text) {
  for (char &c : text)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return text;
}
} // namespace

RecentFiles LoadRecentFiles(const SettingsStore &settings) {
  RecentFiles recent;
  for (std::size_t i = 0; i < MostEntries; ++i) {
    const std::string caption = GetSetting(settings, Section, std::to_string(2 * i));
    if (caption.empty()) break;
    recent.Entry.push_back({caption, GetSetting(settings, Section, std::to_string(2 * i + 1))});
  }
  return recent;
}

void SaveRecentFiles(SettingsStore &settings, const RecentFiles &recent) {
  DeleteSection(settings, Section);
  for (std::size_t i = 0; i < recent.Entry.size(); ++i) {
    SaveSetting(settings, Section, std::to_string(2 * i), recent.Entry[i].Caption);
    SaveSetting(settings, Section, std::to_string(2 * i + 1), recent.Entry[i].Path);
  }
}

void TouchRecentFile(RecentFiles &recent, const std::string &caption, const std::string &path) {
  const std::string sought = Upper(path);
  const auto found = std::find_if(recent.Entry.begin(), recent.Entry.end(),
                                  [&](const RecentFile &file) { return Upper(file.Path) == sought; });
  if (found != recent.Entry.end()) recent.Entry.erase(found);
  recent.Entry.insert(recent.Entry.begin(), {caption, path});
  if (recent.Entry.size() > MostEntries) recent.Entry.resize(MostEntries);
}
