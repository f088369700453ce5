#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// One group of a drawing file: its code and its value as it stands, without line ends. Line is the value's,
// from 1.
struct DxfGroup {
  int Code = 0;
  int Line = 0;
  std::string_view Value;
};

// All groups of a text file; LF, CR LF, CR and doubled CR LF ends, padded codes and comments (code 999) are
// taken alike. The trouble names `name` and the line: a binary file, a code that is no whole number, a value
// that is missing. Values point into `bytes`.
std::string ReadGroups(std::string_view bytes, const std::string &name, std::vector<DxfGroup> &groups);

std::string_view BareText(std::string_view);       // without blanks and tabs around it
std::string ShownText(std::string_view);           // for a message: short, other signs as ?
bool SameName(std::string_view, std::string_view); // letters A-Z and a-z count as one

// False for what is no number, is not finite, or overflows.
bool NumberOf(std::string_view value, double &number);
bool WholeOf(std::string_view value, int &number); // of 32 bits
