#pragma once
#include <map>
#include <string>
#include <utility>

// Per-user settings: section and key to text, kept in one INI-like file. A missing or broken file is an empty
// store.
struct SettingsStore {
  std::string Path; // empty: kept in memory only
  std::map<std::pair<std::string, std::string>, std::string> Entry;
};
SettingsStore LoadSettings(const std::string &path);
std::string GetSetting(const SettingsStore &, const std::string &section, const std::string &key,
                       const std::string &otherwise = "");
void SaveSetting(SettingsStore &, const std::string &section, const std::string &key,
                 const std::string &text);
void DeleteSection(SettingsStore &, const std::string &section);
std::string WriteSettings(const SettingsStore &); // atomic; the trouble, or empty
