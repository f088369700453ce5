#include "shell/script_keys.h"

#include <cctype>
#include <charconv>

namespace {
struct NamedKey {
  std::string_view Name;
  int Code;
};
constexpr NamedKey Held[] = {{"Shift+", 1}, {"Ctrl+", 2}, {"Alt+", 4}};
constexpr NamedKey Keys[] = {{"Enter", 13},    {"Escape", 27}, {"Tab", 9},     {"Delete", 46}, {"Space", 32},
                             {"Backspace", 8}, {"Left", 37},   {"Up", 38},     {"Right", 39},  {"Down", 40},
                             {"End", 35},      {"Home", 36},   {"Insert", 45}, {";", 186},     {"=", 187},
                             {"+", 187},       {",", 188},     {"-", 189},     {".", 190},     {"/", 191},
                             {"`", 192},       {"[", 219},     {"\\", 220},    {"]", 221},     {"'", 222}};
constexpr int F1 = 112, F12 = 123;

bool Number(std::string_view text, int &value) {
  const char *end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  return error == std::errc() && stop == end;
}

bool LetterOrDigit(int code) { return (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9'); }
} // namespace

bool ReadKeyName(std::string_view name, Event &event) {
  for (const NamedKey &held : Held)
    if (name.size() > held.Name.size() && name.starts_with(held.Name)) {
      event.Shift |= held.Code;
      name.remove_prefix(held.Name.size());
    }
  for (const NamedKey &key : Keys)
    if (key.Name == name) {
      event.KeyCode = key.Code;
      return true;
    }
  int number = 0;
  if (name.size() == 1) {
    event.KeyCode = std::toupper(static_cast<unsigned char>(name[0]));
    return LetterOrDigit(event.KeyCode);
  }
  if (name.starts_with('F') && Number(name.substr(1), number) && number >= 1 && number <= 12)
    event.KeyCode = F1 - 1 + number;
  else if (name.starts_with('#') && Number(name.substr(1), number) && number > 0 && number < 256)
    event.KeyCode = number;
  return event.KeyCode != 0;
}

std::string KeyNameOf(int code, int shift) {
  std::string name;
  for (const NamedKey &held : Held)
    if (shift & held.Code) name += held.Name;
  for (const NamedKey &key : Keys)
    if (key.Code == code) return name += key.Name;
  if (LetterOrDigit(code)) return name += static_cast<char>(code);
  return name +
         (code >= F1 && code <= F12 ? "F" + std::to_string(code - F1 + 1) : "#" + std::to_string(code));
}
