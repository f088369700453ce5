#pragma once
#include "desktop/bindings.h"

// TemplateNoteFrame above the drawing: what is recorded or played, its variables, its buttons.
QWidget *BuildTemplateStrip(Bindings &);
