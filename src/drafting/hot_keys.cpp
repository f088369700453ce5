#include "drafting/hot_keys.h"

#include "base/text_record.h"
#include "base/whole_file.h"
#include "drafting/command_table.h"

#include <limits>

namespace {
constexpr int LastSlot = 100;

// Slots of buttons that are no commands. A button on the toolbar shares the slot of the one it stands for.
struct SlotRow {
  int Slot;
  Ctl Button;
};
constexpr SlotRow Others[] = {{81, Ctl::Zoom_Reset},  {82, Ctl::Zoom_1h},    {83, Ctl::Zoom_x2},
                              {87, Ctl::mnuGrid},     {96, Ctl::RunSim2},    {97, Ctl::RotateDraw},
                              {98, Ctl::Design_Mode}, {99, Ctl::mnuRefresh}, {97, Ctl::tbRotationDraw},
                              {99, Ctl::tbRefresh}};

struct KeyRow {
  int Key;
  const char *Name;
};
constexpr KeyRow Keys[] = {
    {8, "Backspace"}, {9, "Tab"},      {13, "Enter"},     {19, "Pause"},  {20, "Caps Lock"}, {27, "Escape"},
    {32, "Space"},    {33, "Page Up"}, {34, "Page Down"}, {35, "End"},    {36, "Home"},      {37, "Left"},
    {38, "Up"},       {39, "Right"},   {40, "Down"},      {45, "Insert"}, {46, "Delete"},    {106, "Num *"},
    {107, "Num +"},   {109, "Num -"},  {110, "Num ."},    {111, "Num /"}, {186, ";"},        {187, "="},
    {188, ","},       {189, "-"},      {190, "."},        {191, "/"},     {192, "`"},        {219, "["},
    {220, "\\"},      {221, "]"},      {222, "'"}};

std::string KeyName(int key) {
  if ((key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9')) return {static_cast<char>(key)};
  if (key >= 96 && key <= 105) return "Num " + std::to_string(key - 96);
  if (key >= 112 && key <= 135) return "F" + std::to_string(key - 111);
  for (const KeyRow &row : Keys)
    if (row.Key == key) return row.Name;
  return "Key " + std::to_string(key);
}

bool TakeShort(RecordReader &r, std::int16_t &value) {
  int number = 0;
  if (!Take(r, number)) return false;
  using Short = std::numeric_limits<std::int16_t>;
  value = static_cast<std::int16_t>(number);
  if (number >= Short::min() && number <= Short::max()) return true;
  r.Trouble = "expected a 16-bit whole number, found " + std::to_string(number);
  return false;
}
} // namespace

Ctl HotKeyControl(int slot) {
  if (const CommandRow *row = FindCommand(slot)) return row->Button;
  for (const SlotRow &row : Others)
    if (row.Slot == slot) return row.Button;
  return Ctl::Count;
}

int SlotOf(Ctl button) {
  if (const CommandRow *row = CommandOf(button)) return row->CmdNo;
  for (const SlotRow &row : Others)
    if (row.Button == button) return row.Slot;
  return 0;
}

std::optional<Ctl> HotKeyPressed(const Drafting &d, int key, int shift) {
  if (key == 0) return std::nullopt;
  for (int slot = 1; slot <= LastSlot; ++slot) {
    const HotKey held = d.HotKeyTable[static_cast<std::size_t>(slot)];
    if (held.Key != key || held.Shift != shift) continue;
    const Ctl target = HotKeyControl(slot);
    if (target != Ctl::Count) return target;
  }
  return std::nullopt;
}

std::string HotKeyText(HotKey held) {
  constexpr const char *Front[] = {"",     "Shift+",     "Ctrl+",     "Shift+Ctrl+",
                                   "Alt ", "Shift+Alt+", "Ctrl+Alt+", "Shift+Ctrl+Alt+"};
  return held.Key == 0 ? std::string() : Front[held.Shift & 7] + KeyName(held.Key);
}

std::string ReadHotKeys(const std::string &path, std::array<HotKey, 101> &table) {
  table = {};
  if (!FileExists(path)) return {};
  std::string bytes;
  if (std::string trouble = ReadWhole(path, bytes); !trouble.empty()) return trouble;
  const std::size_t last = bytes.find_last_not_of(" \t\r\n");
  bytes.resize(last == bytes.npos ? 0 : last + 1);
  RecordReader r{bytes};
  std::array<HotKey, 101> read{};
  const auto where = [&] { return path + ": line " + std::to_string(r.Line); };
  for (std::size_t slot = 1; slot <= LastSlot; ++slot)
    for (const auto &[field, name] :
         {std::pair{&HotKey::Key, "key"}, std::pair{&HotKey::Shift, "shift state"}})
      if (!TakeShort(r, read[slot].*field))
        return where() + " (" + name + " of command " + std::to_string(slot) + "): " + r.Trouble;
  if (!AtEnd(r)) return where() + ": expected 200 lines, found more behind them";
  table = read;
  return {};
}

std::string WriteHotKeys(const std::string &path, const std::array<HotKey, 101> &table) {
  RecordWriter w;
  for (std::size_t slot = 1; slot <= LastSlot; ++slot)
    for (const int value : {table[slot].Key, table[slot].Shift}) {
      Put(w, value);
      EndRecord(w);
    }
  return WriteWhole(path, w.Bytes);
}
