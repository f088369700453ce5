#pragma once
#include "platform/controls.h"

#include <span>

// The tooltips of the drawing tools: the name, then how it is used in one line.
struct ToolHint {
  Ctl Target;
  const char *Text;
};
std::span<const ToolHint> ToolHints();
