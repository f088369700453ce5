#include "performance/measured_curve.h"

#include "base/numeral.h"

#include <algorithm>
#include <fmt/format.h>
#include <optional>
#include <utility>

namespace {

constexpr std::string_view Blanks = " \t\r\"";

std::string_view Trimmed(std::string_view text) {
  const std::size_t from = text.find_first_not_of(Blanks);
  return from == text.npos ? std::string_view() : text.substr(from, text.find_last_not_of(Blanks) - from + 1);
}

std::optional<double> NumberOf(std::string text, char parting) {
  if (parting != ',' && std::count(text.begin(), text.end(), ',') == 1 && text.find('.') == text.npos)
    std::replace(text.begin(), text.end(), ',', '.');
  double value = 0;
  if (text.empty() || NumeralLength(text) != text.size() || !NumeralValue(text, value)) return std::nullopt;
  return value;
}

char PartingOf(std::string_view line) {
  for (const char c : {';', '\t'})
    if (line.find(c) != line.npos) return c;
  return ',';
}

} // namespace

std::string ReadMeasured(std::string_view text, const std::string &path, MeasuredCurve &curve) {
  MeasuredCurve read;
  int line = 0;
  bool begun = false;
  const auto at = [&](const std::string &trouble) {
    return fmt::format("{}: line {}: {}", path, line, trouble);
  };
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view whole = text.substr(0, end);
    const std::string_view row = Trimmed(whole);
    text.remove_prefix(std::min(end + 1, text.size()));
    ++line;
    if (row.empty() || row.front() == '#') continue;
    const char parting = PartingOf(row);
    const std::size_t cut = whole.find(parting);
    if (cut == whole.npos || whole.find(parting, cut + 1) != whole.npos)
      return at("expected two columns, parted by comma or semicolon");
    const std::string first(Trimmed(whole.substr(0, cut))), second(Trimmed(whole.substr(cut + 1)));
    const auto x = NumberOf(first, parting), value = NumberOf(second, parting);
    const bool heading = !begun && !x && !value && !first.empty();
    begun = true;
    if (heading) continue;
    if (!x) return at(fmt::format("(time): expected a number, found \"{}\"", first.substr(0, 40)));
    if (!value) return at(fmt::format("(value): expected a number, found \"{}\"", second.substr(0, 40)));
    if (*x < 0) return at("(time): expected 0 or more");
    if (!read.X.empty() && *x <= read.X.back()) return at("(time): expected more than in the line before it");
    read.X.push_back(*x);
    read.Value.push_back(*value);
  }
  if (read.X.size() < 2) return path + ": expected at least two points";
  curve = std::move(read);
  return {};
}
