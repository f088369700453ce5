#pragma once
#include "shell/workbench.h"

#include <optional>
#include <string_view>
#include <vector>

// The tools that every word of the query names, the best first: a word fits by the beginning of a word in the
// tool's name, in what it is called elsewhere or, with less weight, in its hint. All tools when nothing is
// asked.
std::vector<Ctl> FindTools(const Screen &, std::string_view query);

// Find_Tool, shown modally: what was chosen in it.
std::optional<Ctl> AskTool(Workbench &);
void FindToolEvent(Workbench &, const Event &);
