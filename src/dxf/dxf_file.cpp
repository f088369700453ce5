#include "dxf/dxf_file.h"

#include "dxf/dxf_writer.h"

namespace {
struct Walk {
  DxfFile &File;
  std::size_t At = 0;
  std::string Trouble;
};

bool More(const Walk &w) { return w.At < w.File.Group.size(); }
const DxfGroup &Here(const Walk &w) { return w.File.Group[w.At]; }
bool Opens(const DxfGroup &g, std::string_view name) {
  return g.Code == 0 && SameName(BareText(g.Value), name);
}

// The record at hand, up to the next one.
DxfEntity TakeRecord(Walk &w) {
  DxfEntity record{BareText(Here(w).Value), Here(w).Line, w.At + 1, w.At + 1};
  for (++w.At; More(w) && Here(w).Code != 0; ++w.At)
    ;
  record.Last = w.At;
  return record;
}

void HeaderRecord(Walk &w, const DxfEntity &section) {
  std::string_view variable;
  for (std::size_t i = section.First; i < section.Last; ++i) {
    const DxfGroup &g = w.File.Group[i];
    if (g.Code == 9) variable = BareText(g.Value);
    int whole = 0;
    double number = 0;
    if (variable == "$INSUNITS" && g.Code == 70 && WholeOf(g.Value, whole)) w.File.InsUnits = whole;
    if ((g.Code != 10 && g.Code != 20) || !NumberOf(g.Value, number)) continue;
    if (variable == "$EXTMIN") (g.Code == 10 ? w.File.LeastX : w.File.LeastY) = number;
    if (variable == "$EXTMAX") (g.Code == 10 ? w.File.MostX : w.File.MostY) = number;
  }
}

void BlockRecords(Walk &w) { // at BLOCK
  const DxfEntity head = TakeRecord(w);
  const DxfFields fields{w.File, head, w.Trouble};
  DxfBlock block;
  block.BaseX = Real(fields, 10, 0);
  block.BaseY = Real(fields, 20, 0);
  block.Line = head.Line;
  while (More(w) && !Opens(Here(w), "ENDBLK") && !Opens(Here(w), "ENDSEC"))
    block.Entity.push_back(TakeRecord(w));
  const DxfGroup *name = FindGroup(fields, 2);
  if (name) w.File.Block[SmallLetters(BareText(name->Value))] = std::move(block);
}

void SectionRecords(Walk &w, std::string_view section) { // behind its name, up to ENDSEC
  while (More(w) && !Opens(Here(w), "ENDSEC") && w.Trouble.empty()) {
    if (SameName(section, "BLOCKS") && Opens(Here(w), "BLOCK")) {
      BlockRecords(w);
      continue;
    }
    const DxfEntity record = TakeRecord(w);
    if (SameName(section, "ENTITIES")) w.File.Entity.push_back(record);
    if (SameName(section, "TABLES") && SameName(record.Type, "LAYER")) {
      const DxfGroup *name = FindGroup({w.File, record, w.Trouble}, 2);
      if (name && SameName(BareText(name->Value), DxfLayer)) w.File.OwnLayer = true;
    }
  }
}

std::string Sections(Walk &w) {
  bool entities = false;
  while (More(w) && !Opens(Here(w), "EOF")) {
    if (!Opens(Here(w), "SECTION"))
      return PlaceOf(w.File, Here(w).Line) + "expected the start of a section (0, SECTION)";
    const DxfEntity section = TakeRecord(w);
    const DxfGroup *name = FindGroup({w.File, section, w.Trouble}, 2);
    if (!name) return PlaceOf(w.File, section.Line) + "the section has no name";
    entities = entities || SameName(BareText(name->Value), "ENTITIES");
    if (SameName(BareText(name->Value), "HEADER")) HeaderRecord(w, section);
    SectionRecords(w, BareText(name->Value));
    if (!w.Trouble.empty()) return w.Trouble;
    if (!More(w) || !Opens(Here(w), "ENDSEC"))
      return PlaceOf(w.File, w.File.Group.back().Line) + "the file ends inside its section " +
             ShownText(BareText(name->Value)) + "; it is cut off";
    TakeRecord(w);
  }
  w.File.NoEnd = !More(w);
  const int last = w.File.Group.empty() ? 1 : w.File.Group.back().Line;
  return entities ? "" : PlaceOf(w.File, last) + "the file ends without a section ENTITIES";
}

std::string Expected(const DxfFields &f, const DxfGroup &g, const char *what) {
  return PlaceOf(f.File, g.Line) + ShownText(f.Entity.Type) + ", group " + std::to_string(g.Code) +
         ": expected " + what + ", found \"" + ShownText(g.Value) + '"';
}
} // namespace

std::string SmallLetters(std::string_view text) {
  std::string small(text);
  for (char &c : small)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return small;
}

std::string PlaceOf(const DxfFile &file, int line) {
  return file.Name + ": line " + std::to_string(line) + ": ";
}

const DxfGroup *FindGroup(const DxfFields &f, int code) {
  constexpr int embedded = 101; // an object of its own inside the record
  for (std::size_t i = f.Entity.First; i < f.Entity.Last && f.File.Group[i].Code != embedded; ++i)
    if (f.File.Group[i].Code == code) return &f.File.Group[i];
  return nullptr;
}

double RealOf(const DxfFields &f, const DxfGroup &g) {
  double number = 0;
  if (!NumberOf(g.Value, number) && f.Trouble.empty()) f.Trouble = Expected(f, g, "a number");
  return number;
}

double Real(const DxfFields &f, int code) {
  if (const DxfGroup *g = FindGroup(f, code)) return RealOf(f, *g);
  if (f.Trouble.empty())
    f.Trouble =
        PlaceOf(f.File, f.Entity.Line) + ShownText(f.Entity.Type) + " has no group " + std::to_string(code);
  return 0;
}

double Real(const DxfFields &f, int code, double otherwise) {
  const DxfGroup *g = FindGroup(f, code);
  return g ? RealOf(f, *g) : otherwise;
}

int Whole(const DxfFields &f, int code, int otherwise) {
  const DxfGroup *g = FindGroup(f, code);
  int number = otherwise;
  if (g && !WholeOf(g->Value, number) && f.Trouble.empty()) f.Trouble = Expected(f, *g, "a whole number");
  return number;
}

std::string ReadDxf(std::string_view bytes, const std::string &name, DxfFile &file) {
  file = {};
  file.Name = name;
  if (std::string trouble = ReadGroups(bytes, name, file.Group); !trouble.empty()) return trouble;
  if (file.Group.empty()) return PlaceOf(file, 1) + "the file is empty";
  Walk walk{file, 0, {}};
  return Sections(walk);
}
