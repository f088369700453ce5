#pragma once
#include "shell/grain_document.h"

#include <string>

// DefaultFile: 14 values, one a line, the last two (BackColor, LineColor) may be absent. An absent file is no
// trouble; a broken one leaves the design's values and is told in the text returned (file, line, what was expected).
std::string ApplyDefaultFile(const std::string &path, Design &);
std::string WriteDefaultFile(const std::string &path, const Design &);
