#pragma once
#include "shell/workbench.h"

bool TemplateWindowEvent(Workbench &, const Event &); // false: of none of their windows
bool PressTemplate(Workbench &, const Event &);       // menu entries and strip; false: none of ours
