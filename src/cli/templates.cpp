#include "cli/templates.h"

#include "base/number_text.h"
#include "base/whole_file.h"
#include "cli/exit_codes.h"
#include "macros/template_values.h"
#include "macros/templates.h"
#include "platform/scripted_screen.h"
#include "shell/play_script.h"
#include "shell/start_up.h"
#include "shell/template_picture.h"
#include "shell/work_folder.h"

#include <CLI/App.hpp>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fmt/format.h>
#include <system_error>

namespace fs = std::filesystem;

namespace {
int Fail(int code, std::string words) {
  std::replace(words.begin(), words.end(), '\n', ' ');
  fmt::print(stderr, "{}\n", words);
  return code;
}

std::string AsFolder(std::string path) {
  if (!path.empty() && path.back() != '/') path += '/';
  return path;
}

TemplateFolders Chosen(const std::string &folder) {
  if (!folder.empty()) return {AsFolder(folder), AsFolder(folder)};
  const WorkFolders work = FindFolders(ExecutablePath());
  const TemplateFolders own = UserTemplates(work.AppDir);
  return FileExists(own.Template + "Templates") ? own : ShippedTemplates(work.Install);
}

std::string Quoted(std::string_view text) {
  std::string to(1, '"');
  for (const char c : text) {
    if (c == '"' || c == '\\') to += '\\';
    if (static_cast<unsigned char>(c) >= 32) to += c;
  }
  return to += '"';
}

std::string JsonEntry(const TemplateEntry &entry, const MacFile &mac) {
  std::string to = "  {\"name\": " + Quoted(entry.Key) + ", \"description\": " + Quoted(entry.Description) +
                   ", \"diameter_mm\": " + PlainText(RecordedDiameter(mac)) +
                   ", \"length_mm\": " + PlainText(mac.Variables.Row[1].Value) + ",\n   \"variables\": [";
  bool more = false;
  for (const TemplateVariable &v : TemplateVariables(mac, RecordedDiameter(mac))) {
    to += (more ? ",\n     " : "\n     ") + ("{\"name\": " + Quoted(v.Name)) +
          ", \"prompt\": " + Quoted(v.Prompt) + ", \"unit\": " + Quoted(v.Unit) +
          ", \"whole\": " + (v.Whole ? "true" : "false") + ", \"value\": " + PlainText(v.Value) +
          ", \"least\": " + PlainText(v.Least) + ", \"most\": " + PlainText(v.Most) + "}";
    more = true;
  }
  return to + "]}";
}

std::string TextEntry(const TemplateEntry &entry, const MacFile &mac) {
  std::string to = fmt::format("{}\n  {} (grain {} x {} mm)\n", entry.Key, entry.Description,
                               PlainText(RecordedDiameter(mac)), PlainText(mac.Variables.Row[1].Value));
  for (const TemplateVariable &v : TemplateVariables(mac, RecordedDiameter(mac)))
    to += fmt::format("  {:<14}{:>8} {:<4} {} .. {}   {}\n", v.Name, PlainText(v.Value), v.Unit,
                      PlainText(v.Least), PlainText(v.Most), v.Prompt);
  return to;
}

int List(const TemplatesArguments &a) {
  const TemplateFolders folders = Chosen(a.Folder);
  std::vector<TemplateEntry> list;
  if (std::string trouble = ReadTemplateIndex(folders, list); !trouble.empty()) return Fail(BadUse, trouble);
  std::string json = "[\n", text;
  for (std::size_t i = 0; i < list.size(); ++i) {
    MacFile mac;
    const std::string path = FindTemplate(folders, list[i].Key);
    if (std::string trouble = ReadMacFile(path.empty() ? folders.Template + list[i].Key : path, mac);
        !trouble.empty())
      return Fail(BadUse, trouble);
    json += JsonEntry(list[i], mac) + (i + 1 < list.size() ? ",\n" : "\n");
    text += (i > 0 ? "\n" : "") + TextEntry(list[i], mac);
  }
  if (list.empty() && !a.Json) return Fail(Done, folders.Template + ": there are no templates");
  fmt::print("{}", a.Json ? json + "]\n" : text);
  return Done;
}

std::string PlaySource(const std::string &path, const std::string &folder, std::vector<MadeTemplate> &made) {
  std::string text;
  if (std::string trouble = ReadWhole(path, text); !trouble.empty()) return trouble;
  ScriptedScreen screen;
  Workbench bench(screen);
  ScriptedTemplates templates;
  BindScript(bench, screen, {.Templates = &templates, .Lessons = nullptr});
  WriteWhole(folder + "IntroFile.txt", "1\r\n");
  WorkFolders work;
  work.AppDir = folder;
  if (!StartUp(bench, work, ReadCommandLine({"Gd=40", "Gl=100", "Ea=0", "Eb=0", "Td=9"})))
    return path + ": cannot start";
  bench.Grain.Doc.SnapToGrid = 0;
  screen.Lines = ReadScript(text);
  PlayScript(screen);
  if (!screen.Lines.Fault.empty()) return path + ": " + screen.Lines.Fault;
  if (templates.Made.empty()) return path + ": no line \"template\" in it";
  made.insert(made.end(), templates.Made.begin(), templates.Made.end());
  return {};
}

// Work files of one run; the user's own are never touched.
struct PrivateFolder {
  std::string Path;
  PrivateFolder() {
    std::error_code problem;
    std::string name = (fs::temp_directory_path(problem) / "morvandel-templates-XXXXXX").string();
    if (!problem && mkdtemp(name.data())) Path = name + "/";
  }
  PrivateFolder(const PrivateFolder &) = delete;
  PrivateFolder &operator=(const PrivateFolder &) = delete;
  ~PrivateFolder() {
    std::error_code none;
    if (!Path.empty()) fs::remove_all(Path, none);
  }
};

int Make(const TemplatesArguments &a) {
  if (a.Folder.empty()) return Fail(BadUse, "--make: expected --folder too, for what is made");
  std::vector<std::string> sources;
  std::error_code failed;
  for (fs::directory_iterator it(a.Make, failed), end; !failed && it != end; it.increment(failed))
    if (it->path().extension() == ".txt") sources.push_back(it->path().string());
  if (sources.empty()) return Fail(BadUse, a.Make + ": there are no scripts in it");
  std::sort(sources.begin(), sources.end());
  const TemplateFolders folders = Chosen(a.Folder);
  std::vector<MadeTemplate> made;
  for (const std::string &source : sources) {
    const PrivateFolder work;
    if (work.Path.empty()) return Fail(BadUse, "no folder for work files can be made");
    if (std::string trouble = PlaySource(source, work.Path, made); !trouble.empty())
      return Fail(Refused, trouble);
  }
  fs::create_directories(folders.Template, failed);
  std::vector<TemplateEntry> list;
  for (const MadeTemplate &m : made) {
    std::string trouble = WriteMacFile(folders.Template + WithMacEnding(m.Key), m.Mac);
    if (trouble.empty()) trouble = WriteTemplatePicture(folders, m.Key, m.Mac);
    if (!trouble.empty()) return Fail(BadUse, trouble);
    list.push_back({m.Key, m.Mac.Heading});
  }
  const std::string trouble = WriteTemplateIndex(folders, list);
  return trouble.empty() ? static_cast<int>(Done) : Fail(BadUse, trouble);
}
} // namespace

void AddTemplates(CLI::App &app, TemplatesArguments &a) {
  CLI::App *const command = app.add_subcommand("templates", "list the templates, their variables and ranges");
  command->add_option("--folder", a.Folder, "folder of the templates (else your own, else the shipped ones)");
  command->add_flag("--json", a.Json, "list them as JSON");
  command->add_option("--make", a.Make, "make the templates of --folder from the scripts in this folder");
}

int TemplatesCommand(const TemplatesArguments &a) { return a.Make.empty() ? List(a) : Make(a); }

std::string LocateTemplate(const std::string &name, const std::string &folder) {
  if (!folder.empty() || name.find('/') != name.npos) return FindTemplate(Chosen(folder), name);
  const WorkFolders work = FindFolders(ExecutablePath());
  for (const TemplateFolders &folders : {UserTemplates(work.AppDir), ShippedTemplates(work.Install)})
    if (const std::string path = FindTemplate(folders, name); !path.empty()) return path;
  return FindTemplate({"./", "./"}, name);
}
