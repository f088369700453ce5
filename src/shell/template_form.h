#pragma once
#include "shell/workbench.h"

// TemplateForm: a template's values with the drawing, the curve and the figures they make, as they change.

// Asks for the values and the grain's dimensions. True: Template.Ask holds Values and Doc.
bool AskTemplateValues(Workbench &, const std::string &name, const MacFile &);

// Asks for the prompts of a new template's variables, which go to `mac`. False: called off.
bool AskPrompts(Workbench &, const std::string &name, MacFile &mac);

void TemplateFormEvent(Workbench &, const Event &);
void PreviewEvent(Workbench &, const Event &); // PreviewForm

bool SameDimensions(const GrainDoc &, const GrainDoc &);
std::string TemplateName(const std::string &keyOrPath); // without folder and ending
