#pragma once
#include "drafting/drafting.h"

#include <string_view>

// Shows the box (an empty title: the main window's caption) unless a template plays, and raises GeomAbort.
void Report(Drafting &, const Box &);
void Report(Drafting &, std::string_view text, std::string_view title = "", Icon = Icon::Exclamation);

// Logs an input and, after it, the answers it asked for. `formulas` as Value4.
void LogInput(Drafting &, int kind, double v1 = 0, double v2 = 0, double v3 = 0, std::string value4 = "");
void LogLeave(Drafting &,
              bool zooming); // Escape, twice where a window zoom stands over the command that is left
