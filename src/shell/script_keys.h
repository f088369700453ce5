#pragma once
#include "platform/event.h"

#include <string>
#include <string_view>

// Keys by name, as scripts write them: "Shift+", "Ctrl+", "Alt+", then "Enter", "Up", "F1", a letter, a
// digit, a sign of the keyboard, or "#" and the code.
bool ReadKeyName(std::string_view name, Event &); // into KeyCode and Shift; false: there is no such key
std::string KeyNameOf(int code, int shift);
