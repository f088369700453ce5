#pragma once
#include "macros/record.h"
#include "shell/workbench.h"

#include <string>
#include <string_view>
#include <vector>

// Templates made by a script's own lines:
//   variable NAME VALUE PROMPT   names one, before `record`; the prompt as macros/template_values.h has it
//   record                       from here on everything is recorded, the drawing emptied
//   point X; Y                   Key_In, then both fields typed and entered; numbers or formulas
//   clickat X; Y                 a click there that keeps its formulas
//   template KEY: DESCRIPTION    ends the recording and keeps it

struct MadeTemplate {
  std::string Key;
  MacFile Mac; // its heading is the description
};
struct ScriptedTemplates {
  VariableTable Variables;
  TemplateRecording Record;
  std::vector<MadeTemplate> Made;
};

// Takes a line of the verbs variable, record and template. False: it is none of them. `trouble` says what is
// amiss with it.
bool ScriptTemplateLine(ScriptedTemplates &, Workbench &, std::string_view verb, std::string_view rest,
                        std::string &trouble);

// "X; Y" as formulas and their values.
struct ScriptedPlace {
  std::string X, Y;
  double AtX = 0, AtY = 0;
};
std::string ReadPlace(const Workbench &, std::string_view rest, ScriptedPlace &); // the trouble, or empty
