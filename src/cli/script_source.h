#pragma once
#include "shell/play_script.h"

#include <string>
#include <vector>

// Scripts that make what the program ships with.

// Sorted paths of the scripts in a folder; none: there are none.
std::vector<std::string> ScriptSources(const std::string &folder);

// Plays one from an empty grain of 40 x 100 mm, in a folder of its own: the user's files are never touched.
// The trouble, or empty.
std::string PlaySource(const std::string &path, const ScriptKeeps &);
