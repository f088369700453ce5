#include "macros/templates.h"

#include "base/text_record.h"
#include "base/whole_file.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <system_error>
#include <utility>

namespace fs = std::filesystem;

namespace {
constexpr std::string_view IndexName = "Templates", MacEnding = ".mac", PictureEnding = ".bmp";
constexpr std::size_t EndingLength = 4;

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char &c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return lower;
}

std::string FindInFolder(const std::string &folder, const std::string &name) {
  std::error_code failed;
  if (fs::is_regular_file(folder + name, failed)) return folder + name;
  std::string found; // the first by name
  for (fs::directory_iterator it(folder, failed), end; !failed && it != end; it.increment(failed)) {
    const std::string path = it->path().string();
    std::error_code none;
    if (Lower(it->path().filename().string()) == Lower(name) && it->is_regular_file(none) &&
        (found.empty() || path < found))
      found = path;
  }
  return found;
}

std::string Plain(std::string_view text) {
  std::string plain;
  for (const char c : text)
    if (c != '"') plain += c == '\n' || c == '\r' ? ' ' : c;
  return plain;
}

bool HasKey(const std::vector<TemplateEntry> &list, const std::string &key) {
  return std::any_of(list.begin(), list.end(),
                     [&](const TemplateEntry &e) { return Lower(e.Key) == Lower(key); });
}

// The file stands in the template folder, copied there if need be.
std::string TakeIntoFolder(const TemplateFolders &folders, const std::string &key, const std::string &path) {
  if (!FindTemplate(folders, key).empty()) {
    std::error_code failed;
    return fs::equivalent(FindTemplate(folders, key), path, failed) && !failed
               ? ""
               : path + ": another template of this name stands in " + folders.Template;
  }
  std::string bytes;
  if (std::string trouble = ReadWhole(path, bytes); !trouble.empty()) return trouble;
  std::error_code failed;
  fs::create_directories(folders.Template, failed);
  return WriteWhole(folders.Template + WithMacEnding(key), bytes);
}
} // namespace

std::string ReadTemplateIndex(const TemplateFolders &folders, std::vector<TemplateEntry> &list) {
  const std::string path = folders.Template + std::string(IndexName);
  std::vector<TemplateEntry> read;
  if (!FileExists(path)) {
    list.clear();
    return {};
  }
  std::string bytes;
  if (std::string trouble = ReadWhole(path, bytes); !trouble.empty()) return trouble;
  RecordReader r{bytes};
  while (!AtEnd(r)) {
    if (bytes.find_first_not_of(" \t\r\n", bytes.size() - r.Rest.size()) == bytes.npos) break;
    TemplateEntry entry;
    const int fields = FieldsInRecord(r);
    if (!Take(r, entry.Key) || (fields > 1 && !Take(r, entry.Description)) || fields > 2)
      return path + ": line " + std::to_string(r.Line) + ": expected a name and a description, found " +
             std::to_string(fields) + (fields == 1 ? " field" : " fields");
    if (entry.Key.empty() || HasKey(read, entry.Key)) continue; // blank lines, a second line of a name
    read.push_back(std::move(entry));
  }
  list = std::move(read);
  return {};
}

std::string WriteTemplateIndex(const TemplateFolders &folders, std::span<const TemplateEntry> list) {
  std::error_code failed;
  fs::create_directories(folders.Template, failed);
  RecordWriter w;
  for (const TemplateEntry &e : list) {
    Put(w, std::string_view(Plain(e.Key)));
    Put(w, std::string_view(Plain(e.Description)));
    EndRecord(w);
  }
  return WriteWhole(folders.Template + std::string(IndexName), w.Bytes);
}

std::string AddTemplate(const TemplateFolders &folders, std::vector<TemplateEntry> &list,
                        const std::string &path, MacFile &mac) {
  MacFile read;
  if (std::string trouble = ReadMacFile(path, read); !trouble.empty()) return trouble;
  const std::string key = KeyOf(path);
  if (std::string why = FileNameObjection(key); !why.empty()) return path + ": " + why;
  if (HasKey(list, key)) return "Error: Duplicate Key Name in List.";
  if (std::string trouble = TakeIntoFolder(folders, key, path); !trouble.empty()) return trouble;
  std::vector<TemplateEntry> longer = list;
  const bool own = !read.Heading.empty() && read.Heading != MacFile{}.Heading;
  longer.push_back({key, own ? read.Heading : key});
  if (std::string trouble = WriteTemplateIndex(folders, longer); !trouble.empty()) return trouble;
  list = std::move(longer);
  mac = std::move(read);
  return {};
}

bool MoveTemplate(std::vector<TemplateEntry> &list, std::size_t from, std::size_t to) {
  if (from >= list.size() || to >= list.size()) return false;
  TemplateEntry entry = std::move(list[from]);
  list.erase(list.begin() + static_cast<std::ptrdiff_t>(from));
  list.insert(list.begin() + static_cast<std::ptrdiff_t>(to), std::move(entry));
  return true;
}

std::string KeyOf(const std::string &path) {
  const std::string name = fs::path(path).filename().string();
  return name.substr(0, name.size() - std::min(name.size(), EndingLength));
}

std::string WithMacEnding(const std::string &name) {
  return Lower(name).ends_with(MacEnding) ? name : name + ".Mac";
}

std::string FileNameObjection(const std::string &name) {
  if (name.find_first_not_of(" .") == name.npos) return "A name is wanted";
  if (name.find('/') != name.npos) return "A template's name must not hold \"/\"";
  for (const char c : name)
    if (static_cast<unsigned char>(c) < 32 || c == '"') return "A template's name must not hold such a sign";
  return {};
}

std::string FindTemplate(const TemplateFolders &folders, const std::string &keyOrPath) {
  if (keyOrPath.empty()) return {};
  if (keyOrPath.find('/') != keyOrPath.npos) {
    const fs::path path(keyOrPath);
    return FindInFolder(path.parent_path().string() + "/", WithMacEnding(path.filename().string()));
  }
  return FindInFolder(folders.Template, WithMacEnding(keyOrPath));
}

std::string FindPicture(const TemplateFolders &folders, const std::string &key) {
  return key.empty() ? "" : FindInFolder(folders.Picture, key + std::string(PictureEnding));
}

std::string PicturePath(const TemplateFolders &folders, const std::string &key) {
  return folders.Picture + key + ".BMP";
}

TemplateFolders ShippedTemplates(const std::string &install) {
  const std::string folder = install + "data/templates/";
  return {folder, folder};
}

TemplateFolders UserTemplates(const std::string &appDir) {
  const std::string folder = appDir + "templates/";
  return {folder, folder};
}

std::string SetUpTemplates(const TemplateFolders &user, const TemplateFolders &shipped,
                           std::vector<std::string> &offered) {
  std::vector<TemplateEntry> all, list;
  std::string trouble = ReadTemplateIndex(shipped, all);
  if (trouble.empty()) trouble = ReadTemplateIndex(user, list);
  if (!trouble.empty()) return trouble;
  std::vector<TemplateEntry> added;
  std::vector<std::string> known = offered;
  for (const TemplateEntry &e : all) {
    if (std::find(known.begin(), known.end(), e.Key) != known.end()) continue;
    known.push_back(e.Key);
    if (!HasKey(list, e.Key) && FindTemplate(user, e.Key).empty()) added.push_back(e);
  }
  std::error_code failed;
  for (const std::string &folder : {user.Template, user.Picture}) fs::create_directories(folder, failed);
  for (const TemplateEntry &e : added) {
    for (const auto &[from, to] :
         {std::pair{FindTemplate(shipped, e.Key), user.Template + WithMacEnding(e.Key)},
          std::pair{FindPicture(shipped, e.Key), PicturePath(user, e.Key)}}) {
      std::string bytes;
      if (from.empty() || FileExists(to)) continue;
      if (trouble = ReadWhole(from, bytes); !trouble.empty()) return trouble;
      if (trouble = WriteWhole(to, bytes); !trouble.empty()) return trouble;
    }
    list.push_back(e);
  }
  if (!added.empty()) trouble = WriteTemplateIndex(user, list);
  if (trouble.empty()) offered = std::move(known);
  return trouble;
}
