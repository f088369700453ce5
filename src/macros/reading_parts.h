#pragma once
#include "shell/grain_file.h"

#include <limits>
#include <string>
#include <string_view>
#include <vector>

// What the readers of templates and lessons share.

constexpr int MostEntities = 301;

// As a text can stand between quotes in a line.
inline std::string Plain(std::string_view text) {
  std::string plain;
  for (const char c : text)
    if (c == '\n' || c == '\r')
      plain += ' ';
    else if (c != '"')
      plain += c;
  return plain;
}

inline std::string_view WithoutBlankEnd(std::string_view bytes) {
  const std::size_t last = bytes.find_last_not_of(" \t\r\n");
  return last == bytes.npos ? std::string_view() : bytes.substr(0, last + 1);
}

// What reads the file, and the first trouble it met.
struct Reading {
  RecordReader R;
  const std::string &Name;
  std::string Trouble{};
};

inline bool Refuse(Reading &in, const char *field, const std::string &why) {
  in.Trouble = RecordPlace(in.Name, in.R, field) + why;
  return false;
}

template <class Value>
bool Get(Reading &in, Value &value, const char *field) {
  return Take(in.R, value) || Refuse(in, field, in.R.Trouble);
}

inline bool GetBetween(Reading &in, int &value, int least, int most, const char *field) {
  if (!Get(in, value, field)) return false;
  if (value >= least && value <= most) return true;
  return Refuse(in, field,
                "expected a whole number from " + std::to_string(least) + " to " + std::to_string(most) +
                    ", found \"" + std::to_string(value) + "\"");
}

inline bool Get16(Reading &in, int &value, const char *field) {
  using Small = std::numeric_limits<std::int16_t>;
  return GetBetween(in, value, Small::min(), Small::max(), field);
}

inline bool GetEntity(Reading &in, std::vector<Entity> &to) {
  Entity entity;
  in.Trouble = TakeEntity(in.R, in.Name, entity);
  if (in.Trouble.empty()) to.push_back(entity);
  return in.Trouble.empty();
}
