#include "macros/mac_file.h"

#include "base/whole_file.h"
#include "macros/reading_parts.h"

#include <cmath>
#include <utility>

namespace {
constexpr std::string_view VariableWord = "VariableNameCntr", RotationWord = "Rotation",
                           PictureWord = "PicInfo";
constexpr std::string_view ReadingWords = "Unfortunately an Error was encounted reading the Template file";
constexpr std::string_view MissingWords =
    "Can't find Macro Template file. Note: All Macro files must be in the Applicaion Directory";
constexpr std::string_view EmptyWords = "Error: File Empty";
constexpr const char *Labels[] = {
    "PointArea:", "Value1:", "Value2:", "Value3:", "Value4:", "Current PlotType:", "Current Selection Type:"};
constexpr int GrainRows = 2;

std::string Said(std::string_view words, const std::string &reason) {
  return std::string(words) + "\n" + reason;
}

template <class Value>
void PutLabelled(RecordWriter &w, const char *label, const Value &value) {
  Put(w, label);
  Put(w, value);
  EndRecord(w);
}

void PutInstruction(RecordWriter &w, int index, const Instruction &step) {
  PutLabelled(w, "Instruction No:", index);
  PutLabelled(w, Labels[0], step.PointArea);
  PutLabelled(w, Labels[1], step.Value1);
  PutLabelled(w, Labels[2], step.Value2);
  PutLabelled(w, Labels[3], step.Value3);
  PutLabelled(w, Labels[4], std::string_view(Plain(step.Value4)));
  PutLabelled(w, Labels[5], step.PlotType);
  PutLabelled(w, Labels[6], step.SelectionType);
  w.Bytes += "\r\n";
}

bool GetHead(Reading &in, MacFile &mac) {
  const int fields = FieldsInRecord(in.R);
  if (!Get(in, mac.Heading, "heading")) return false;
  std::string more;
  for (int i = 1; i < fields; ++i)
    if (!Get(in, more, "heading")) return false;
  int count = 0;
  if (!GetBetween(in, count, 0, MostEntities, "entity count")) return false;
  for (int i = 0; i < count; ++i)
    if (!GetEntity(in, mac.Start)) return false;
  return true;
}

bool SkipTo(Reading &in, std::string_view word) {
  for (std::string text; !AtEnd(in.R);) {
    if (!Get(in, text, "")) return false;
    if (text == word) return true;
  }
  return Refuse(in, "", "expected \"" + std::string(word) + "\", found the end of the file");
}

bool GetVariables(Reading &in, MacFile &mac) {
  const int most = static_cast<int>(mac.Variables.Row.size()) - 1;
  if (!SkipTo(in, VariableWord) || !GetBetween(in, mac.VariableNameCntr, -1, most, VariableWord.data()))
    return false;
  for (int i = 0; i <= mac.VariableNameCntr; ++i) {
    VariableRow &row = mac.Variables.Row[static_cast<std::size_t>(i)];
    if (!Get(in, row.Prompt, "prompt") || !Get(in, row.Name, "name") || !Get(in, row.Value, "value"))
      return false;
    if (!row.Name.empty()) row.Name[0] = i < GrainRows ? '*' : '#';
  }
  return true;
}

bool GetInstruction(Reading &in, Instruction &step) {
  std::string label;
  const auto labelled = [&](const char *name, auto get) {
    if (!Get(in, label, name)) return false;
    return get(name);
  };
  const auto number = [&](double &to) { return [&](const char *name) { return Get(in, to, name); }; };
  const auto whole = [&](int &to) { return [&](const char *name) { return Get16(in, to, name); }; };
  const auto text = [&](const char *name) {
    const std::size_t begin = in.R.Rest.find_first_not_of(", \t");
    const bool bare = begin != in.R.Rest.npos && in.R.Rest[begin] != '"';
    if (!Get(in, step.Value4, name)) return false;
    if (bare && step.Value4 == "0") step.Value4.clear(); // a number, where no text was
    return true;
  };
  return labelled(Labels[0], whole(step.PointArea)) && labelled(Labels[1], number(step.Value1)) &&
         labelled(Labels[2], number(step.Value2)) && labelled(Labels[3], number(step.Value3)) &&
         labelled(Labels[4], text) && labelled(Labels[5], whole(step.PlotType)) &&
         labelled(Labels[6], whole(step.SelectionType));
}

// True at the end of the instructions, PicInfo taken.
bool GetInstructions(Reading &in, MacFile &mac) {
  std::string label;
  double index = 0;
  while (!AtEnd(in.R)) {
    if (!Get(in, label, "Instruction No:")) return false;
    if (label.empty()) continue; // the blank record behind a block
    if (label == PictureWord) return true;
    Instruction step;
    if (!Get(in, index, "Instruction No:") || !GetInstruction(in, step)) return false;
    mac.Log.push_back(std::move(step));
  }
  return true;
}

bool GetAll(Reading &in, MacFile &mac) {
  if (!GetHead(in, mac) || !GetVariables(in, mac) || !SkipTo(in, RotationWord) ||
      !Get(in, mac.Rotation, RotationWord.data()) || !GetInstructions(in, mac))
    return false;
  while (!AtEnd(in.R)) {
    if (mac.Finished.size() == static_cast<std::size_t>(MostEntities))
      return Refuse(in, "", "expected the end of the file after 301 finished entities, found one more");
    if (!GetEntity(in, mac.Finished)) return false;
  }
  return true;
}

std::string NotFinite(const MacFile &mac) {
  for (const std::vector<Entity> *rows : {&mac.Start, &mac.Finished})
    for (const Entity &e : *rows)
      if (const std::string field = NotFiniteField(e); !field.empty()) return field + " of an entity";
  for (const VariableRow &row : mac.Variables.Row)
    if (!std::isfinite(row.Value)) return "the value of " + VariableName(row);
  for (std::size_t i = 0; i < mac.Log.size(); ++i)
    for (const double v : {mac.Log[i].Value1, mac.Log[i].Value2, mac.Log[i].Value3})
      if (!std::isfinite(v)) return "a value of instruction " + std::to_string(i);
  return std::isfinite(mac.Rotation) ? "" : "the rotation";
}

} // namespace

std::string VariableName(const VariableRow &row) { return row.Name.empty() ? "" : row.Name.substr(1); }

bool HasVariables(const MacFile &mac) {
  for (int i = FirstUserVariable; i <= mac.VariableNameCntr; ++i)
    if (mac.Variables.Row[static_cast<std::size_t>(i)].Name.size() > 1) return true;
  return false;
}

double RecordedDiameter(const MacFile &mac) { return mac.Variables.Row[0].Value; }

std::string MacText(const MacFile &mac) {
  RecordWriter w;
  Put(w, std::string_view(Plain(mac.Heading)));
  EndRecord(w);
  Put(w, static_cast<int>(mac.Start.size()));
  EndRecord(w);
  for (const Entity &e : mac.Start) PutEntity(w, e);
  Put(w, VariableWord);
  Put(w, mac.VariableNameCntr);
  EndRecord(w);
  for (int i = 0; i <= mac.VariableNameCntr; ++i) {
    const VariableRow &row = mac.Variables.Row[static_cast<std::size_t>(i)];
    const std::string name = Plain(VariableName(row));
    Put(w, std::string_view(Plain(row.Prompt)));
    Put(w, std::string_view(name.empty() ? name : (i < GrainRows ? "*" : "#") + name));
    Put(w, row.Value);
    EndRecord(w);
  }
  Put(w, RotationWord);
  Put(w, mac.Rotation);
  EndRecord(w);
  for (std::size_t i = 0; i < mac.Log.size(); ++i) PutInstruction(w, static_cast<int>(i), mac.Log[i]);
  Put(w, PictureWord);
  EndRecord(w);
  for (const Entity &e : mac.Finished) PutEntity(w, e);
  return std::move(w.Bytes);
}

std::string ParseMac(std::string_view bytes, const std::string &name, MacFile &mac) {
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  bytes = WithoutBlankEnd(bytes);
  if (bytes.empty()) return Said(EmptyWords, name + ": there is nothing in it");
  Reading in{RecordReader{bytes}, name};
  MacFile read;
  read.Heading.clear();
  if (!GetAll(in, read)) return Said(ReadingWords, in.Trouble);
  mac = std::move(read);
  return {};
}

std::string ReadMacFile(const std::string &path, MacFile &mac) {
  if (!FileExists(path)) return Said(MissingWords, path + ": there is no such file");
  std::string bytes;
  if (const std::string trouble = ReadWhole(path, bytes); !trouble.empty())
    return Said(ReadingWords, trouble);
  return ParseMac(bytes, path, mac);
}

std::string WriteMacFile(const std::string &path, const MacFile &mac) {
  if (const std::string what = NotFinite(mac); !what.empty())
    return path + ": cannot be written: " + what + " is not a finite number";
  return WriteWhole(path, MacText(mac));
}

std::string MacWords(const std::string &trouble) { return trouble.substr(0, trouble.find('\n')); }
