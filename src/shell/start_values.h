#pragma once
#include "shell/workbench.h"

#include <string>
#include <string_view>
#include <vector>

// What a drawing session carries from one tool to the next and from one session to another: snap, the ways to
// give points, rotation draw, the contents of the tools' frames. In a script: `have NAME VALUE`.
bool SetStartValue(Workbench &, std::string_view name, double value); // false: there is no such value
// "snap 0", ...: the snap and every value that differs from a new session's.
std::vector<std::string> StartValues(const Workbench &);
