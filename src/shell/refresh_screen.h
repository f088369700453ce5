#pragma once
#include "shell/workbench.h"

// Brings every control to what the workbench holds: captions, visibility, enabling, hints.
void RefreshScreen(Workbench &);
