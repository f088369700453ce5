#include "cli/templates.h"

#include "base/number_text.h"
#include "base/whole_file.h"
#include "cli/exit_codes.h"
#include "cli/script_source.h"
#include "macros/template_values.h"
#include "macros/templates.h"
#include "shell/template_picture.h"
#include "shell/work_folder.h"

#include <CLI/App.hpp>
#include <algorithm>
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

int Make(const TemplatesArguments &a) {
  if (a.Folder.empty()) return Fail(BadUse, "--make: expected --folder too, for what is made");
  const std::vector<std::string> sources = ScriptSources(a.Make);
  if (sources.empty()) return Fail(BadUse, a.Make + ": there are no scripts in it");
  const TemplateFolders folders = Chosen(a.Folder);
  ScriptedTemplates templates;
  for (const std::string &source : sources) {
    const std::size_t before = templates.Made.size();
    if (std::string trouble = PlaySource(source, {.Templates = &templates, .Lessons = nullptr});
        !trouble.empty())
      return Fail(Refused, trouble);
    if (templates.Made.size() == before) return Fail(Refused, source + ": no line \"template\" in it");
  }
  std::error_code failed;
  fs::create_directories(folders.Template, failed);
  std::vector<TemplateEntry> list;
  for (const MadeTemplate &m : templates.Made) {
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
