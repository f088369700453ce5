#include "shell/command_line.h"

#include "base/number_text.h"
#include "base/whole_file.h"

#include <cctype>
#include <cstdint>
#include <limits>
#include <string_view>

namespace {
constexpr std::size_t TokenLimit = 10;

void SplitArgument(const std::string &argument, std::vector<std::string> &token) {
  std::size_t at = 0;
  while ((at = argument.find_first_not_of(" \t", at)) != argument.npos && token.size() < TokenLimit) {
    const auto end = argument.find_first_of(" \t", at);
    token.push_back(argument.substr(at, end == argument.npos ? end : end - at));
    at = end == argument.npos ? argument.size() : end;
  }
}

std::string Lowered(std::string_view text) {
  std::string low;
  for (const char c : text) low += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return low;
}

// A length counts when it is above 0 and finite, in its 32-bit form too, and so is its half.
void TakeLength(double value, bool &has, double &to, int &count) {
  if (value > static_cast<double>(std::numeric_limits<float>::max()) || !(static_cast<float>(value / 2) > 0))
    return;
  has = true;
  to = value;
  ++count;
}

void ReadToken(const std::string &token, CommandLine &line) {
  const std::string head = token.substr(0, 3);
  if (head == "/kn" || head == "/Kn" || head == "/KN") { // "/kN" is not among the accepted forms
    line.KnBatch = true;
    return;
  }
  const std::string key = Lowered(head);
  const double value = token.size() > 3 ? Val(std::string_view(token).substr(3)) : 0;
  if (key == "gd=") {
    TakeLength(value, line.HasDiameter, line.Diameter, line.CmdParamCount);
  } else if (key == "gl=") {
    TakeLength(value, line.HasLength, line.Length, line.CmdParamCount);
  } else if (key == "td=") {
    TakeLength(value, line.HasThroat, line.Throat, line.CmdParamCount);
  } else if (key == "ea=" || key == "eb=") {
    (key == "ea=" ? line.HasEndA : line.HasEndB) = true;
    (key == "ea=" ? line.EndA : line.EndB) = value == 1;
    ++line.CmdParamCount;
  } else if (FileExists(token)) {
    if (line.GrainFile.empty()) line.GrainFile = token;
  } else if (Lowered(token).ends_with(".mvd") && line.MissingFile.empty()) {
    line.MissingFile = token;
  }
}
} // namespace

CommandLine ReadCommandLine(const std::vector<std::string> &arguments) {
  CommandLine line;
  for (const std::string &argument : arguments) {
    if (line.Token.size() == TokenLimit) break;
    if (FileExists(argument))
      line.Token.push_back(argument);
    else
      SplitArgument(argument, line.Token);
  }
  for (const std::string &token : line.Token) ReadToken(token, line);
  return line;
}

bool IsBatch(const CommandLine &line) {
  return line.KnBatch && line.HasDiameter && line.HasLength && line.HasEndA && line.HasEndB && line.HasThroat;
}

void ApplyKeys(const CommandLine &line, GrainDoc &doc) {
  if (line.HasDiameter) {
    doc.GrainDiam = line.Diameter;
    doc.GrainRadius = static_cast<float>(line.Diameter / 2);
  }
  if (line.HasLength) doc.GrainLength = static_cast<float>(line.Length);
  if (line.HasThroat) doc.ThroatDiam = static_cast<float>(line.Throat);
  const auto bit = [&](bool given, bool on, int mask) {
    if (given)
      doc.EndsExposed = static_cast<std::int16_t>(on ? doc.EndsExposed | mask : doc.EndsExposed & ~mask);
  };
  bit(line.HasEndA, line.EndA, 1);
  bit(line.HasEndB, line.EndB, 2);
}
