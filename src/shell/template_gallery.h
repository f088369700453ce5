#pragma once
#include "shell/workbench.h"

// Grain_Selection_Window: the templates by their pictures.

void ShowGallery(Workbench &); // mnuchoosetemplate; plays the one chosen
void GalleryEvent(Workbench &, const Event &);
void TemplateFileEvent(Workbench &, const Event &); // the text of a template's file

// Shipped templates that are new to the user become his; those he has been offered are kept in the settings.
std::string TakeShippedTemplates(Workbench &);

// A template newly written: its picture, and its line at the end of the index unless it has one.
std::string ListTemplate(TemplateState &, const std::string &key, const MacFile &);
