#pragma once
#include "shell/workbench.h"

#include <string>

// Asks for a file to save to, first named after the design with `behind` put to it, or `named` where there is
// none. A name without an ending takes this one. Empty: called off.
std::string AskTarget(Workbench &, const char *filter, const std::string &behind, const char *ending,
                      const char *named = "motor");
