#include "dxf/dxf_groups.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {
std::string At(const std::string &name, int line) { return name + ": line " + std::to_string(line) + ": "; }

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

struct Lines {
  std::string_view Rest;
  int Number = 0;
  bool Take(std::string_view &line) {
    if (Rest.empty()) return false;
    const std::size_t end = std::min(Rest.find_first_of("\r\n"), Rest.size());
    line = Rest.substr(0, end);
    std::size_t next = end;
    for (const std::string_view mark : {"\r\r\n", "\r\n", "\n", "\r"})
      if (Rest.substr(end).starts_with(mark)) {
        next += mark.size();
        break;
      }
    Rest.remove_prefix(next);
    ++Number;
    return true;
  }
};

std::string NotText(std::string_view bytes, const std::string &name) {
  const std::string_view head = bytes.substr(0, 256);
  if (head.find("Binary DXF") != head.npos)
    return At(name, 1) + "this is a binary DXF file; save it as a text (ASCII) DXF";
  if (head.starts_with("AC10")) return At(name, 1) + "this is a DWG file; save it as a text (ASCII) DXF";
  const std::size_t zero = bytes.find('\0');
  if (zero == bytes.npos) return {};
  const auto line = std::count(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(zero), '\n') + 1;
  return At(name, static_cast<int>(line)) + "this is no text file: it holds a zero byte";
}
} // namespace

std::string ShownText(std::string_view text) {
  constexpr std::size_t most = 24;
  std::string shown;
  for (const char c : text.substr(0, most)) shown += c >= ' ' && c <= '~' ? c : '?';
  return shown + (text.size() > most ? "..." : "");
}

std::string_view BareText(std::string_view text) {
  const std::size_t from = text.find_first_not_of(" \t");
  if (from == text.npos) return {};
  return text.substr(from, text.find_last_not_of(" \t") - from + 1);
}

bool SameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Lower(x) == Lower(y); });
}

bool NumberOf(std::string_view value, double &number) {
  value = BareText(value);
  if (value.starts_with('+') && !value.starts_with("+-")) value.remove_prefix(1);
  double read = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), read);
  if (end != value.data() + value.size() || value.empty()) return false;
  if (error == std::errc::result_out_of_range) // too small for a double is 0
    return value.find("e-") != value.npos || value.find("E-") != value.npos ? (number = 0, true) : false;
  if (error != std::errc() || !std::isfinite(read)) return false;
  number = read;
  return true;
}

bool WholeOf(std::string_view value, int &number) {
  value = BareText(value);
  if (value.starts_with('+') && !value.starts_with("+-")) value.remove_prefix(1);
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
  return error == std::errc() && end == value.data() + value.size() && !value.empty();
}

std::string ReadGroups(std::string_view bytes, const std::string &name, std::vector<DxfGroup> &groups) {
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  if (std::string trouble = NotText(bytes, name); !trouble.empty()) return trouble;
  constexpr int comment = 999;
  groups.clear();
  Lines lines{bytes};
  std::string_view code;
  while (lines.Take(code)) {
    DxfGroup group;
    if (BareText(code).empty()) { // blank lines, or the mark that ends old text files, may close a file
      std::string_view more;
      const int blank = lines.Number;
      while (lines.Take(more))
        if (!BareText(more).empty() && more != "\x1A")
          return At(name, blank) + "a group code is missing here";
      break;
    }
    if (code == "\x1A") break;
    if (!WholeOf(code, group.Code))
      return At(name, lines.Number) + "expected a group code (a whole number), found \"" + ShownText(code) +
             "\"" + (groups.empty() ? "; this is no DXF file" : "");
    if (!lines.Take(group.Value))
      return At(name, lines.Number) + "the file ends behind a group code, its value is missing";
    group.Line = lines.Number;
    if (group.Code != comment) groups.push_back(group);
    if (group.Code == 0 && SameName(BareText(group.Value), "EOF")) break;
  }
  return {};
}
