// Every row of text_rules.csv holds.
#include "base/fault.h"
#include "base/number_text.h"
#include "base/rounding.h"
#include "base/text_record.h"
#include "base/whole_file.h"

#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <vector>

namespace {

using Cells = std::vector<std::string>;

std::vector<Cells> ReadTable(const std::string &path) {
  std::string bytes;
  EXPECT_EQ(ReadWhole(path, bytes), "");
  std::vector<Cells> table;
  Cells row(1);
  bool quoted = false;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const char c = bytes[i];
    if (c == '"' && quoted && i + 1 < bytes.size() && bytes[i + 1] == '"') {
      row.back() += bytes[++i];
    } else if (c == '"') {
      quoted = !quoted;
    } else if (c == ',' && !quoted) {
      row.emplace_back();
    } else if (c == '\n' && !quoted) {
      table.push_back(row);
      row = Cells(1);
    } else if (c != '\r' || quoted) {
      row.back() += c;
    }
  }
  return table;
}

std::vector<std::string> Split(const std::string &text, const std::string &by) {
  std::vector<std::string> parts;
  std::size_t from = 0;
  for (std::size_t at; (at = text.find(by, from)) != text.npos; from = at + by.size())
    parts.push_back(text.substr(from, at - from));
  parts.push_back(text.substr(from));
  return parts;
}

std::string Unescape(std::string text) {
  for (const auto &[mark, meant] : {std::pair{"\\r", "\r"}, std::pair{"\\n", "\n"}})
    for (std::size_t at; (at = text.find(mark)) != text.npos;) text.replace(at, 2, meant);
  return text;
}

// A number, "a+b" or "a/b" of the argument column.
double Number(const std::string &text) {
  char *end = nullptr;
  const double a = std::strtod(text.c_str(), &end);
  if (end == text.c_str()) ADD_FAILURE() << "no number: " << text;
  if (*end == '+' || *end == '/') {
    const double b = std::strtod(end + 1, nullptr);
    return *end == '+' ? a + b : a / b;
  }
  if (*end != '\0') ADD_FAILURE() << "no number: " << text;
  return a;
}

std::string OrFault(const std::function<std::string()> &body) {
  try {
    return body();
  } catch (const Fault &) {
    return "Fault";
  }
}

// Of "nan, inf" each must give the same.
std::string ForEach(const std::string &argument, const std::function<std::string(double)> &body) {
  std::string all;
  for (const auto &part : Split(argument, ", ")) {
    const std::string one = OrFault([&] { return body(Number(part)); });
    EXPECT_TRUE(all.empty() || all == one) << argument;
    all = one;
  }
  return all;
}

std::string PutRecord(const std::string &argument) {
  RecordWriter w;
  if (argument == "(none)") {
    EndRecord(w);
    return w.Bytes;
  }
  if (argument == "say \"x\"") {
    Put(w, argument);
    EndRecord(w);
    return w.Bytes;
  }
  for (const auto &part : Split(argument, ", ")) {
    if (part == "true" || part == "false")
      Put(w, part == "true");
    else if (part.front() == '"')
      Put(w, std::string_view(part).substr(1, part.size() - 2));
    else if (part.find('.') == part.npos)
      Put(w, std::atoi(part.c_str()));
    else
      Put(w, Number(part));
  }
  EndRecord(w);
  return w.Bytes;
}

std::string TakeDoubles(const std::string &argument) {
  std::string all;
  const std::string bytes = argument + "\r\n";
  RecordReader r{bytes};
  do {
    double value = 0;
    if (!Take(r, value)) {
      EXPECT_NE(r.Trouble, "");
      EXPECT_EQ(r.Line, 1);
      EXPECT_EQ(r.Field, 1);
      return "refused";
    }
    all += (all.empty() ? "" : " then ") + PlainText(value);
  } while (!AtEnd(r));
  return all;
}

std::string TakeText(const std::string &argument) {
  if (argument == "LF only") {
    std::vector<std::vector<std::string>> read;
    for (const std::string end : {"\n", "\r\n"})
      for (const bool ended : {true, false}) {
        const std::string bytes = "1,\"b\"" + end + end + "\"c\"" + (ended ? end : "");
        RecordReader r{bytes};
        std::vector<std::string> &items = read.emplace_back();
        while (!AtEnd(r)) {
          std::string text;
          EXPECT_TRUE(Take(r, text)) << r.Trouble;
          items.push_back(text + "@" + std::to_string(r.Line) + "," + std::to_string(r.Field));
        }
      }
    for (const auto &items : read)
      if (items != std::vector<std::string>{"1@1,1", "b@1,2", "@2,1", "c@3,1"}) return "otherwise";
    return "as CR LF";
  }
  const std::string bytes = (argument == "(blank line)" ? "" : argument) + "\r\n";
  RecordReader r{bytes};
  std::string text;
  if (!Take(r, text)) return "refused";
  EXPECT_TRUE(AtEnd(r)) << "one item";
  return text.empty() ? "empty text" : text;
}

std::string TakeBool(const std::string &argument) {
  RecordReader r{argument};
  bool value = false;
  return !Take(r, value) ? "refused" : value ? "true" : "false";
}

using Rule = std::function<std::string(const std::string &argument, const std::string &mask)>;

const std::map<std::string, Rule> Rules{
    {"NumberText(double)",
     [](auto &a, auto &) { return ForEach(a, [](double x) { return NumberText(x); }); }},
    {"NumberText(float)", [](auto &a, auto &) { return NumberText(static_cast<float>(Number(a))); }},
    {"PlainText(double)", [](auto &a, auto &) { return PlainText(Number(a)); }},
    {"PlainText(float)", [](auto &a, auto &) { return PlainText(static_cast<float>(Number(a))); }},
    {"ColourOf", [](auto &a, auto &) { return std::to_string(ColourOf(static_cast<float>(Number(a)))); }},
    {"Put record", [](auto &a, auto &) { return PutRecord(a); }},
    {"Take bool", [](auto &a, auto &) { return TakeBool(a); }},
    {"Take double", [](auto &a, auto &) { return TakeDoubles(a); }},
    {"Take string", [](auto &a, auto &) { return TakeText(a); }},
    {"FormatMask",
     [](auto &a, auto &mask) {
       const auto parts = Split(a, " as ");
       return parts.size() == 2 ? FormatMask(static_cast<float>(Number(parts[0])), mask)
                                : FormatMask(Number(a), mask);
     }},
    {"Val", [](auto &a, auto &) { return PlainText(Val(a)); }},
    {"RoundInt", [](auto &a, auto &) { return std::to_string(RoundInt(Number(a))); }},
    {"Narrow16",
     [](auto &a, auto &) { return OrFault([&] { return std::to_string(Narrow16(Number(a))); }); }},
    {"NarrowFloat",
     [](auto &a, auto &) {
       return OrFault([&] { return PlainText(static_cast<double>(NarrowFloat(Number(a)))); });
     }},
    {"GridSnap(spacing 1)", [](auto &a, auto &) { return PlainText(GridSnap(Number(a), 1)); }},
    {"GridSnap(spacing 0)", [](auto &a, auto &) { return PlainText(GridSnap(Number(a), 0)); }},
    {"RoundPlaces",
     [](auto &a, auto &mask) { return PlainText(RoundPlaces(Number(a), std::atoi(mask.c_str()))); }},
};

TEST(TextRules, EveryRowHolds) {
  const auto table = ReadTable(TEST_DATA "/text_rules.csv");
  ASSERT_GT(table.size(), 100u);
  ASSERT_EQ(table[0], (Cells{"function", "argument", "mask", "expected", "note"}));
  for (std::size_t i = 1; i < table.size(); ++i) {
    const Cells &row = table[i];
    SCOPED_TRACE("row " + std::to_string(i + 1) + ": " + row[0] + " of " + row[1] + " " + row[2]);
    ASSERT_EQ(row.size(), 5u);
    const auto rule = Rules.find(row[0]);
    if (rule == Rules.end()) {
      ADD_FAILURE() << "unknown function";
      continue;
    }
    std::string expected = Unescape(row[3]);
    if (row[0] == "Take double" && expected == "1e-09") expected = PlainText(1e-9);
    if (row[0] == "Take double" && expected == "1e-05") expected = PlainText(1e-5);
    if (row[0].starts_with("FormatMask") && expected == "empty") expected = "";
    EXPECT_EQ(rule->second(row[1], row[2]), expected);
  }
}

} // namespace
