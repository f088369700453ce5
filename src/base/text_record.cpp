#include "base/text_record.h"

#include "base/number_text.h"
#include "base/numeral.h"

#include <cmath>
#include <limits>

namespace {

void Open(RecordWriter &w) {
  if (!w.Fresh) w.Bytes += ',';
  w.Fresh = false;
}

template <class Number>
void PutNumber(RecordWriter &w, Number value) {
  char text[32];
  char *const end = WriteNumber(text, value); // may throw: before the comma is written
  Open(w);
  w.Bytes.append(text, static_cast<std::size_t>(end - text));
}

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }

std::string_view Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

// One field cut from the front of a text.
struct Cut {
  std::string_view Text;                             // without blanks around, without quotes
  std::size_t Size = 0;                              // with its comma or line end
  bool Quoted = false, Last = false, Broken = false; // Broken: quote not closed, or more behind it
};

Cut CutField(std::string_view rest) {
  Cut cut;
  std::size_t at = 0;
  const auto stops = [&] { return at == rest.size() || rest[at] == ',' || IsLineEnd(rest[at]); };
  while (at < rest.size() && IsBlank(rest[at])) ++at;
  if (at < rest.size() && rest[at] == '"') {
    const std::size_t open = at++;
    while (at < rest.size() && rest[at] != '"' && !IsLineEnd(rest[at])) ++at;
    cut.Quoted = true;
    if (at == rest.size() || rest[at] != '"') {
      cut.Broken = true;
      cut.Text = rest.substr(open, at - open);
    } else {
      cut.Text = rest.substr(open + 1, at - open - 1);
      ++at;
      while (at < rest.size() && IsBlank(rest[at])) ++at;
      if (!stops()) {
        cut.Broken = true;
        while (!stops()) ++at;
        cut.Text = Trim(rest.substr(open, at - open));
      }
    }
  } else {
    const std::size_t from = at;
    while (!stops()) ++at;
    cut.Text = Trim(rest.substr(from, at - from));
  }
  cut.Last = at == rest.size() || rest[at] != ',';
  if (at < rest.size() && rest[at] == '\r' && at + 1 < rest.size() && rest[at + 1] == '\n') ++at;
  cut.Size = at < rest.size() ? at + 1 : at;
  return cut;
}

bool Refuse(RecordReader &r, const char *expected, const std::string &found) {
  r.Found = found;
  r.Trouble = std::string("expected ") + expected + ", found " + found;
  return false;
}

std::string Shown(std::string_view text) {
  constexpr std::size_t most = 40;
  std::string shown = "\"";
  for (char c : text.substr(0, most)) shown += c < ' ' || c > '~' ? '?' : c;
  return shown + (text.size() > most ? "...\"" : "\"");
}

bool Next(RecordReader &r, const char *expected, Cut &cut) {
  const bool end = AtEnd(r);
  if (r.AtLineStart && r.Field > 0) {
    ++r.Line;
    r.Field = 0;
  }
  ++r.Field;
  if (end) return Refuse(r, expected, "the end of the file");
  cut = CutField(r.Rest);
  r.Rest.remove_prefix(cut.Size);
  r.AtLineStart = cut.Last;
  if (cut.Broken)
    return Refuse(r, "a quote that closes right before a comma or the line end", Shown(cut.Text));
  return true;
}

bool RefuseField(RecordReader &r, const char *expected, const Cut &cut) {
  return Refuse(r, expected, cut.Text.empty() ? "an empty field" : Shown(cut.Text));
}

template <class Number>
bool TakeNumber(RecordReader &r, const char *expected, Cut &cut, Number &value) {
  if (!Next(r, expected, cut)) return false;
  if (cut.Quoted) cut.Text = Trim(cut.Text);
  const bool good =
      !cut.Text.empty() && NumeralLength(cut.Text) == cut.Text.size() && NumeralValue(cut.Text, value);
  return good || RefuseField(r, expected, cut);
}

bool SameWord(std::string_view text, std::string_view upper) {
  if (text.size() != upper.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i] >= 'a' && text[i] <= 'z' ? static_cast<char>(text[i] - 32) : text[i];
    if (c != upper[i]) return false;
  }
  return true;
}

} // namespace

void Put(RecordWriter &w, double value) { PutNumber(w, value); }
void Put(RecordWriter &w, float value) { PutNumber(w, value); }

void Put(RecordWriter &w, int value) {
  Open(w);
  w.Bytes += std::to_string(value);
}

void Put(RecordWriter &w, bool value) {
  Open(w);
  w.Bytes += value ? "#TRUE#" : "#FALSE#";
}

void Put(RecordWriter &w, std::string_view text) {
  Open(w);
  w.Bytes += '"';
  w.Bytes += text;
  w.Bytes += '"';
}

void Put(RecordWriter &w, const char *text) { Put(w, std::string_view(text)); }

void EndRecord(RecordWriter &w) {
  w.Bytes += "\r\n";
  w.Fresh = true;
}

bool Take(RecordReader &r, double &value) {
  Cut cut;
  return TakeNumber(r, "a finite number", cut, value);
}

bool Take(RecordReader &r, float &value) {
  Cut cut;
  return TakeNumber(r, "a finite 32-bit number", cut, value);
}

bool Take(RecordReader &r, int &value) {
  Cut cut;
  double number = 0;
  constexpr const char *expected = "a 32-bit whole number";
  if (!TakeNumber(r, expected, cut, number)) return false;
  if (number != std::trunc(number) || number < std::numeric_limits<int>::min() ||
      number > std::numeric_limits<int>::max())
    return RefuseField(r, expected, cut);
  value = static_cast<int>(number);
  return true;
}

bool Take(RecordReader &r, bool &value) {
  Cut cut;
  constexpr const char *expected = "#TRUE# or #FALSE#";
  if (!Next(r, expected, cut)) return false;
  double number = 0;
  const bool yes = SameWord(cut.Text, "#TRUE#"), no = SameWord(cut.Text, "#FALSE#");
  if (!yes && !no &&
      (cut.Text.empty() || NumeralLength(cut.Text) != cut.Text.size() || !NumeralValue(cut.Text, number)))
    return RefuseField(r, expected, cut);
  value = yes || number != 0;
  return true;
}

bool Take(RecordReader &r, std::string &text) {
  Cut cut;
  if (!Next(r, "a text", cut)) return false;
  text = cut.Text;
  return true;
}

bool AtEnd(const RecordReader &r) { return r.Rest.empty() && r.AtLineStart; }

int FieldsInRecord(const RecordReader &r) {
  if (AtEnd(r)) return 0;
  int fields = 0;
  for (std::string_view rest = r.Rest;;) {
    const Cut cut = CutField(rest);
    ++fields;
    if (cut.Last) return fields;
    rest.remove_prefix(cut.Size);
  }
}
