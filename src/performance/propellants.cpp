#include "performance/propellants.h"

#include "base/number_text.h"
#include "base/numeral.h"
#include "base/whole_file.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <utility>

namespace {

constexpr std::size_t LongestName = 60, LongestSource = 1000;
constexpr const char *FileName = "propellants.txt";
constexpr std::string_view Blanks = " \t\r";

struct NumberKey {
  const char *Key;
  double Propellant::*Field;
  bool Needed;
};
constexpr NumberKey NumberKeys[] = {{"a", &Propellant::A, true},
                                    {"n", &Propellant::N, true},
                                    {"density", &Propellant::Density, true},
                                    {"cstar", &Propellant::CStar, true},
                                    {"isp", &Propellant::Isp, true},
                                    {"lowest_pressure", &Propellant::LowestPressure, false},
                                    {"highest_pressure", &Propellant::HighestPressure, false}};
constexpr const char *SourceKey = "source";

constexpr std::string_view Preface =
    "# Propellants. Each begins with its name in brackets; then, a line each:\n"
    "#   a                  burn rate coefficient, mm/s at a chamber pressure in Pa: rate = a * pressure^n\n"
    "#   n                  burn rate exponent, below 1\n"
    "#   density            g/cc\n"
    "#   cstar              characteristic velocity, m/s\n"
    "#   isp                specific impulse, s\n"
    "#   lowest_pressure    MPa, where a and n hold (may be left out)\n"
    "#   highest_pressure   MPa (may be left out)\n"
    "#   source             where the figures come from (may be left out)\n";

std::string_view Trimmed(std::string_view text) {
  const std::size_t from = text.find_first_not_of(Blanks);
  if (from == text.npos) return {};
  return text.substr(from, text.find_last_not_of(Blanks) - from + 1);
}

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool SameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Lower(x) == Lower(y); });
}

bool HasControls(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 32; });
}

std::string CheckList(const std::vector<Propellant> &list) {
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (std::string trouble = CheckPropellant(list[i]); !trouble.empty())
      return list[i].Name + ": " + trouble;
    if (FindPropellant(list, list[i].Name) != &list[i]) return list[i].Name + ": the name stands twice";
  }
  return {};
}

// One entry while it is read.
struct Draft {
  Propellant Made;
  std::vector<std::string> Seen;
  int Line = 0;
};

// The trouble of a line "key = value", without its place.
std::string TakeField(Draft &draft, const std::string &key, std::string_view value) {
  if (std::find(draft.Seen.begin(), draft.Seen.end(), key) != draft.Seen.end()) return "stands twice";
  draft.Seen.push_back(key);
  if (key == SourceKey) {
    draft.Made.Source = value;
    return {};
  }
  for (const NumberKey &number : NumberKeys)
    if (key == number.Key)
      return !value.empty() && NumeralLength(value) == value.size() &&
                     NumeralValue(value, draft.Made.*number.Field)
                 ? ""
                 : fmt::format("expected a number, found \"{}\"", value);
  return "is none of a propellant's fields";
}

std::string Finish(const Draft &draft, std::vector<Propellant> &list) {
  for (const NumberKey &number : NumberKeys)
    if (number.Needed && std::find(draft.Seen.begin(), draft.Seen.end(), number.Key) == draft.Seen.end())
      return fmt::format("{} is missing", number.Key);
  if (std::string trouble = CheckPropellant(draft.Made); !trouble.empty()) return trouble;
  if (FindPropellant(list, draft.Made.Name)) return "the name stands twice";
  list.push_back(draft.Made);
  return {};
}

} // namespace

std::string CheckPropellant(const Propellant &p) {
  if (p.Name.empty() || p.Name.size() > LongestName || HasControls(p.Name) || Trimmed(p.Name) != p.Name ||
      p.Name.find_first_of("[]") != p.Name.npos)
    return fmt::format("name: expected 1 to {} characters without brackets", LongestName);
  if (p.Source.size() > LongestSource || HasControls(p.Source) || Trimmed(p.Source) != p.Source)
    return fmt::format("source: expected one line of at most {} characters", LongestSource);
  for (const NumberKey &number : NumberKeys)
    if (!std::isfinite(p.*number.Field)) return fmt::format("{}: expected a number", number.Key);
  for (const NumberKey &number : NumberKeys)
    if (number.Needed && number.Field != &Propellant::N && !(p.*number.Field > 0))
      return fmt::format("{}: expected a number above 0", number.Key);
  if (!(p.N < 1)) return "n: expected a number below 1";
  if (p.LowestPressure < 0) return "lowest_pressure: expected 0 MPa or more";
  if (p.HighestPressure != 0 && p.HighestPressure <= p.LowestPressure)
    return "highest_pressure: expected more than lowest_pressure";
  return {};
}

std::string ParsePropellants(std::string_view text, const std::string &path, std::vector<Propellant> &list) {
  std::vector<Propellant> read;
  Draft draft;
  int line = 0;
  const auto at = [&](int number, const std::string &what, const std::string &trouble) {
    return fmt::format("{}: line {} ({}): {}", path, number, what, trouble);
  };
  const auto finish = [&]() -> std::string {
    if (draft.Line == 0) return {};
    const std::string trouble = Finish(draft, read);
    return trouble.empty() ? trouble : at(draft.Line, draft.Made.Name, trouble);
  };
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view row = Trimmed(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    ++line;
    if (row.empty() || row.front() == '#') continue;
    if (row.front() == '[') {
      if (row.back() != ']') return at(line, "name", "expected a closing bracket");
      if (std::string trouble = finish(); !trouble.empty()) return trouble;
      draft = {};
      draft.Line = line;
      draft.Made.Name = Trimmed(row.substr(1, row.size() - 2));
      continue;
    }
    const std::size_t equals = row.find('=');
    if (equals == row.npos) return at(line, "entry", "expected [name] or key = value");
    const std::string key(Trimmed(row.substr(0, equals)));
    if (draft.Line == 0) return at(line, key, "expected a [name] before the first field");
    if (std::string trouble = TakeField(draft, key, Trimmed(row.substr(equals + 1))); !trouble.empty())
      return at(line, key, trouble);
  }
  if (std::string trouble = finish(); !trouble.empty()) return trouble;
  list = std::move(read);
  return {};
}

std::string PropellantsText(const std::vector<Propellant> &list) {
  std::string text(Preface);
  for (const Propellant &p : list) {
    text += fmt::format("\n[{}]\n", p.Name);
    for (const NumberKey &number : NumberKeys)
      if (number.Needed || p.*number.Field != 0)
        text += fmt::format("{} = {}\n", number.Key, PlainText(p.*number.Field));
    if (!p.Source.empty()) text += fmt::format("{} = {}\n", SourceKey, p.Source);
  }
  return text;
}

std::string ReadPropellants(const std::string &path, std::vector<Propellant> &list) {
  std::string bytes;
  if (std::string trouble = ReadWhole(path, bytes); !trouble.empty()) return trouble;
  return ParsePropellants(bytes, path, list);
}

std::string WritePropellants(const std::string &path, const std::vector<Propellant> &list) {
  if (std::string trouble = CheckList(list); !trouble.empty()) return path + ": not written: " + trouble;
  return WriteWhole(path, PropellantsText(list));
}

std::string LoadPropellants(const std::string &appDir, const std::string &install,
                            std::vector<Propellant> &list) {
  const std::string own = appDir + FileName, shipped = install + "data/" + FileName;
  if (!appDir.empty() && FileExists(own)) return ReadPropellants(own, list);
  std::string bytes;
  if (std::string trouble = ReadWhole(shipped, bytes); !trouble.empty()) return trouble;
  std::string trouble = ParsePropellants(bytes, shipped, list);
  if (trouble.empty() && !appDir.empty()) WriteWhole(own, bytes);
  return trouble;
}

const Propellant *FindPropellant(const std::vector<Propellant> &list, std::string_view name) {
  for (const Propellant &p : list)
    if (SameName(p.Name, name)) return &p;
  return nullptr;
}
