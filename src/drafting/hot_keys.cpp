#include "drafting/hot_keys.h"

Ctl HotKeyControl(int) { return {}; }
int SlotOf(Ctl) { return {}; }
std::optional<Ctl> HotKeyPressed(const Drafting &, int, int) { return {}; }
std::string HotKeyText(HotKey) { return {}; }
std::string ReadHotKeys(const std::string &, std::array<HotKey, 101> &) { return {}; }
std::string WriteHotKeys(const std::string &, const std::array<HotKey, 101> &) { return {}; }
