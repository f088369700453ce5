#include "base/settings_store.h"

#include "base/whole_file.h"

#include <filesystem>
#include <string_view>
#include <system_error>

namespace {

std::string Escaped(std::string_view text, bool key) {
  std::string out;
  for (char c : text) {
    if (c == '\n')
      out += "\\n";
    else if (c == '\r')
      out += "\\r";
    else if (c == '\\')
      out += "\\\\";
    else if (key && c == '=')
      out += "\\e";
    else if (key && c == '[')
      out += "\\b";
    else
      out += c;
  }
  return out;
}

std::string Unescaped(std::string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      out += text[i];
      continue;
    }
    const char c = text[++i];
    out += c == 'n' ? '\n' : c == 'r' ? '\r' : c == 'e' ? '=' : c == 'b' ? '[' : c;
  }
  return out;
}

} // namespace

SettingsStore LoadSettings(const std::string &path) {
  SettingsStore store{path, {}};
  std::string bytes;
  if (path.empty() || !ReadWhole(path, bytes).empty()) return store;
  std::string section;
  for (std::string_view rest = bytes; !rest.empty();) {
    const std::size_t end = rest.find('\n');
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    if (line.size() >= 2 && line.front() == '[' && line.back() == ']') {
      section = Unescaped(line.substr(1, line.size() - 2));
    } else if (const std::size_t mark = line.find('='); mark != line.npos) {
      store.Entry[{section, Unescaped(line.substr(0, mark))}] = Unescaped(line.substr(mark + 1));
    }
  }
  return store;
}

std::string GetSetting(const SettingsStore &store, const std::string &section, const std::string &key,
                       const std::string &otherwise) {
  const auto found = store.Entry.find({section, key});
  return found == store.Entry.end() ? otherwise : found->second;
}

void SaveSetting(SettingsStore &store, const std::string &section, const std::string &key,
                 const std::string &text) {
  store.Entry[{section, key}] = text;
}

void DeleteSection(SettingsStore &store, const std::string &section) {
  std::erase_if(store.Entry, [&](const auto &entry) { return entry.first.first == section; });
}

std::string WriteSettings(const SettingsStore &store) {
  if (store.Path.empty()) return {};
  std::string text, section;
  bool first = true;
  for (const auto &[place, value] : store.Entry) {
    if (first || place.first != section) {
      section = place.first;
      text += '[';
      text += Escaped(section, false);
      text += "]\n";
      first = false;
    }
    text += Escaped(place.second, true);
    text += '=';
    text += Escaped(value, false);
    text += '\n';
  }
  const auto folder = std::filesystem::path(store.Path).parent_path();
  std::error_code ignored; // a folder that cannot be made shows in the writing
  if (!folder.empty()) std::filesystem::create_directories(folder, ignored);
  return WriteWhole(store.Path, text);
}
