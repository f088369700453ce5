#pragma once
#include <string>
#include <string_view>

// Records of a text file: fields parted by commas, texts in double quotes, #TRUE# and #FALSE#, CR LF ends.
struct RecordWriter {
  std::string Bytes;
  bool Fresh = true; // the next field is the first of its record
};
void Put(RecordWriter &, double);
void Put(RecordWriter &, float);
void Put(RecordWriter &, int);
void Put(RecordWriter &, bool);
void Put(RecordWriter &, std::string_view);
void Put(RecordWriter &, const char *); // else a literal would go to bool
void EndRecord(RecordWriter &);

// Walks fields across commas and line ends alike (LF, CR LF and a last line without an end are read alike).
// Take returns false at a field that is empty, malformed, not finite or past the end; Trouble then says what
// was expected and found, Found the latter alone. Line and Field (from 1) are those of the field last taken
// or refused.
struct RecordReader {
  std::string_view Rest;
  int Line = 1, Field = 0;
  std::string Trouble{}, Found{};
  bool AtLineStart = true; // the next field opens a record
};
bool Take(RecordReader &, double &);
bool Take(RecordReader &, float &);
bool Take(RecordReader &, int &);         // a whole number of 32 bits
bool Take(RecordReader &, bool &);        // #TRUE#, #FALSE#, or any number (non-zero is true)
bool Take(RecordReader &, std::string &); // quoted, or bare to the comma or line end; of a blank line: empty
bool AtEnd(const RecordReader &);         // nothing is left
// Fields of the record the reader stands at, 0 at the end; nothing moves.
int FieldsInRecord(const RecordReader &);
