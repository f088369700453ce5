#pragma once
#include "desktop/bindings.h"

QWidget *BuildToolsPane(Bindings &); // every drawing tool, in groups
// The tool that runs, Ctl::Count when none.
Ctl RunningTool(const Screen &);
