#pragma once
#include "drafting/drafting.h"

#include <optional>
#include <string>

// A key for a tool. Slots have the numbers of the commands, and 80..83, 87, 96..99 for zooms, the grid
// dialog, RUN SIM, rotation draw, design mode and refresh.

Ctl HotKeyControl(int slot); // what the slot presses; Ctl::Count when it has none
int SlotOf(Ctl button);      // 0 when the control cannot be bound
std::optional<Ctl> HotKeyPressed(const Drafting &, int key, int shift); // the first slot that fits
// "Shift+Ctrl+Alt+" .. "Alt " and the key's name.
std::string HotKeyText(HotKey);

// 200 lines, key then shift for the slots 1..100. An absent file is all zeros; a broken one too, and the
// trouble (file, line) is returned.
std::string ReadHotKeys(const std::string &path, std::array<HotKey, 101> &);
std::string WriteHotKeys(const std::string &path, const std::array<HotKey, 101> &);
