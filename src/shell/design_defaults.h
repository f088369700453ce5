#pragma once
#include "shell/grain_document.h"

#include <string>

// DefaultFile: 14 values, one a line, the last two (BackColor, LineColor) may be absent; the first `most` are
// read. An absent file is no trouble; a broken one leaves the design's values and is told in the text
// returned (file, line, field, what was expected).
std::string ApplyDefaultFile(const std::string &path, Design &, int most = 14);
// All 14 values. The line angle of a file that did not exist before is written as 0 unless the user gave it.
// Returns the trouble, or empty.
std::string WriteDefaultFile(const std::string &path, const Design &, bool lineAngleGiven = false);
