#pragma once
#include "macros/mac_file.h"

#include <span>
#include <string>
#include <vector>

// The index of templates: the file "Templates" in the template folder, a line of key and description each, in
// list order; the picture of key K is K.BMP in the picture folder. Folders end with the path separator.
struct TemplateFolders {
  std::string Template, Picture;
};
struct TemplateEntry {
  std::string Key; // a file name without folder and extension
  std::string Description;
  bool operator==(const TemplateEntry &) const = default;
};

// Each returns the trouble, or an empty text.
std::string ReadTemplateIndex(const TemplateFolders &,
                              std::vector<TemplateEntry> &); // no file: an empty list
std::string WriteTemplateIndex(const TemplateFolders &, std::span<const TemplateEntry>);

// Of a file picked by the user: "Error: File Empty", a file that is no template, or "Error: Duplicate Key
// Name in List."; else the entry, at the end of the list and of the index file, and the template for its
// picture.
std::string AddTemplate(const TemplateFolders &, std::vector<TemplateEntry> &, const std::string &path,
                        MacFile &);
bool MoveTemplate(std::vector<TemplateEntry> &, std::size_t from, std::size_t to); // false: no such place

std::string KeyOf(const std::string &path);         // the name less folder and four characters
std::string WithMacEnding(const std::string &name); // ".Mac" added unless the name has it in any case
std::string
FileNameObjection(const std::string &name); // why it cannot name a template: empty, or it holds "/"

// Full paths; case does not matter. Empty: there is none.
std::string FindTemplate(const TemplateFolders &, const std::string &keyOrPath);
std::string FindPicture(const TemplateFolders &, const std::string &key);

std::string PicturePath(const TemplateFolders &, const std::string &key); // where it is to be written

TemplateFolders ShippedTemplates(const std::string &install); // beside the program, to be read
TemplateFolders UserTemplates(const std::string &appDir);
// The shipped templates as the user's own, each once: those whose name is not in `offered`, nor in his list,
// and whose file does not stand in his folder, at the end of his list. All names go to `offered`.
std::string SetUpTemplates(const TemplateFolders &user, const TemplateFolders &shipped,
                           std::vector<std::string> &offered);
