#pragma once
#include "drafting/drafting.h"

#include <span>

// The tooltips of the drawing tools: the name, then how it is used in one line.
struct ToolHint {
  Ctl Target;
  const char *Text;
};
std::span<const ToolHint> ToolHints();

// The hints of bound tools end with their key: " (L)".
void NameHotKeys(Screen &, const std::array<HotKey, 101> &);
