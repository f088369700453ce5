#pragma once
#include "shell/workbench.h"

// What would change the drawing behind the back of a template or a lesson that is recorded or played: it
// waits, and its hint says for what.
void HoldControls(Workbench &);
