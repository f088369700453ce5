#pragma once
#include <string>
#include <vector>

namespace CLI {
class App;
}

struct TemplatesArguments {
  std::string Folder, Make;
  bool Json = false;
};
void AddTemplates(CLI::App &, TemplatesArguments &);
// Lists the templates, or makes them of the scripts in a folder. Exit code.
int TemplatesCommand(const TemplatesArguments &);

struct PlayArguments {
  std::string Template, Folder, Grain, Save, Svg;
  std::vector<std::string> Value; // NAME=VALUE
  bool Json = false;
};
void AddPlay(CLI::App &, PlayArguments &);
// Draws a template with these values. Exit code.
int PlayCommand(const PlayArguments &);

// The template by its name or path: in the folder, else the user's own, else the shipped ones.
std::string LocateTemplate(const std::string &name, const std::string &folder);
// "NAME=VALUE", "D,L,T,ends". The trouble, or empty.
struct TemplateAnswer;
struct TemplateGrain;
std::string ReadAnswer(const std::string &text, TemplateAnswer &);
std::string ReadGrainOption(const std::string &text, TemplateGrain &);
// Finds and reads the template, its fixed values and its grain. The trouble, or empty.
struct TemplateTrials;
std::string ReadTrials(const std::string &name, const std::string &folder,
                       const std::vector<std::string> &set, const std::string &grain, TemplateTrials &);
