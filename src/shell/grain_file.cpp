#include "shell/grain_file.h"

#include "base/number_text.h"
#include "base/text_record.h"
#include "base/whole_file.h"

#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <utility>
#include <variant>

namespace {

constexpr std::string_view VersionText = "Version1_1";

// Field lists in file order, walked by reader and writer alike.
template <class Record>
using Member = std::variant<double Record::*, float Record::*, std::int32_t Record::*, std::int16_t Record::*,
                            bool Record::*>;
template <class Record>
struct FileField {
  const char *Name;
  Member<Record> At;
};

constexpr std::array<FileField<GrainDoc>, 17> HeaderFields{{
    {"GrainRadius", &GrainDoc::GrainRadius},
    {"GrainLength", &GrainDoc::GrainLength},
    {"EndsExposed", &GrainDoc::EndsExposed},
    {"ThroatDiam", &GrainDoc::ThroatDiam},
    {"BurnIncrement", &GrainDoc::BurnIncrement},
    {"SimIncrementDisplay", &GrainDoc::SimIncrementDisplay},
    {"GridSpacing", &GrainDoc::GridSpacing},
    {"GridLineType", &GrainDoc::GridLineType},
    {"GridColor", &GrainDoc::GridColor},
    {"DisplayGrid", &GrainDoc::DisplayGrid},
    {"SnapToGrid", &GrainDoc::SnapToGrid},
    {"JoinTolerance", &GrainDoc::JoinTolerance},
    {"TolA", &GrainDoc::TolA},
    {"TolB", &GrainDoc::TolB},
    {"TolC", &GrainDoc::TolC},
    {"TolD", &GrainDoc::TolD},
    {"TolD", &GrainDoc::TolD}, // twice in the file; the second is the one that counts
}};

constexpr std::array<FileField<Entity>, 13> EntityFields{{
    {"EntType", &Entity::EntType},
    {"Selected", &Entity::Selected},
    {"X1", &Entity::X1},
    {"X2", &Entity::X2},
    {"CenterX", &Entity::CenterX},
    {"Y1", &Entity::Y1},
    {"Y2", &Entity::Y2},
    {"CenterY", &Entity::CenterY},
    {"Slope", &Entity::Slope},
    {"Intercept", &Entity::Intercept},
    {"Radius", &Entity::Radius},
    {"StartAngle", &Entity::StartAngle},
    {"EndAngle", &Entity::EndAngle},
}};
constexpr int EntityFieldCount = static_cast<int>(EntityFields.size());

template <class Record>
void PutField(RecordWriter &w, const Record &record, const FileField<Record> &field) {
  std::visit([&](auto member) { Put(w, record.*member); }, field.At);
}

template <class Record>
bool IsFinite(const Record &record, const FileField<Record> &field) {
  return std::visit([&](auto member) { return std::isfinite(static_cast<double>(record.*member)); },
                    field.At);
}

bool TakeInto(RecordReader &r, std::int16_t &value) {
  int wide = 0;
  if (!Take(r, wide)) return false;
  if (wide < std::numeric_limits<std::int16_t>::min() || wide > std::numeric_limits<std::int16_t>::max()) {
    r.Trouble = "expected a 16-bit whole number, found \"" + std::to_string(wide) + "\"";
    return false;
  }
  value = static_cast<std::int16_t>(wide);
  return true;
}
template <class Value>
bool TakeInto(RecordReader &r, Value &value) {
  return Take(r, value);
}

template <class Record>
bool TakeField(RecordReader &r, Record &record, const FileField<Record> &field) {
  return std::visit([&](auto member) { return TakeInto(r, record.*member); }, field.At);
}

std::string Place(const std::string &name, const RecordReader &r, const char *field) {
  std::string place = name + ": line " + std::to_string(r.Line) + ", field " + std::to_string(r.Field);
  if (*field != '\0') place += std::string(" (") + field + ")";
  return place + ": ";
}

template <class Record>
std::string ValueText(const Record &record, const FileField<Record> &field) {
  std::string text(1, '"');
  text += std::visit([&](auto member) { return PlainText(static_cast<double>(record.*member)); }, field.At);
  return text += '"';
}

std::string TakeHeader(RecordReader &r, const std::string &name, GrainDoc &doc) {
  for (const auto &field : HeaderFields) {
    if (!TakeField(r, doc, field)) return Place(name, r, field.Name) + r.Trouble;
    if (&field == &HeaderFields.front() && !(doc.GrainRadius > 0))
      return Place(name, r, field.Name) + "expected a number above 0, found " + ValueText(doc, field);
  }
  doc.GrainDiam = 2.0 * static_cast<double>(doc.GrainRadius);
  doc.LinerThickness = doc.GrainRadius / 20;
  return {};
}

std::string TakeEntityFields(RecordReader &r, const std::string &name, Entity &entity) {
  for (const auto &field : EntityFields) {
    if (!TakeField(r, entity, field)) return Place(name, r, field.Name) + r.Trouble;
    const bool curved = entity.EntType == CircleType || entity.EntType == ArcType;
    const char *expected = nullptr;
    if (!curved && entity.EntType != LineType) expected = "1 (line), 2 (circle) or 4 (arc)";
    if (curved && entity.Radius < 0) expected = "a number not below 0";
    if (expected)
      return Place(name, r, field.Name) + "expected " + expected + ", found " + ValueText(entity, field);
  }
  return {};
}

// Fields run across line ends, but a line that does not hold whole entities is what a later trouble comes
// from: that line is named then.
std::string TakeEntities(RecordReader &r, const std::string &name, EntityTable &table) {
  std::string uneven;
  table.EntCount = -1;
  while (!AtEnd(r)) {
    RecordReader line = r;
    const int fields = FieldsInRecord(r);
    if (r.AtLineStart && fields % EntityFieldCount != 0 && uneven.empty()) {
      line.Line += r.Field > 0;
      const bool few = fields < EntityFieldCount;
      line.Field = few ? fields + 1 : EntityFieldCount + 1;
      uneven = Place(name, line, few ? EntityFields[static_cast<std::size_t>(fields)].Name : "") +
               "expected " + std::to_string(EntityFieldCount) + " fields in an entity line, found " +
               std::to_string(fields);
    }
    Entity entity;
    std::string trouble = TakeEntityFields(r, name, entity);
    if (trouble.empty() && table.EntCount == static_cast<int>(table.Row.size()) - 1)
      trouble = name + ": line " + std::to_string(r.Line) +
                ", field 1 (EntType): expected the end of the file after " +
                std::to_string(table.Row.size()) + " entities, found one more";
    if (!trouble.empty()) return uneven.empty() ? trouble : uneven;
    AppendRow(table, entity);
  }
  return {};
}

std::string_view WithoutBlankEnd(std::string_view bytes) {
  const std::size_t last = bytes.find_last_not_of(" \t\r\n");
  return last == bytes.npos ? std::string_view() : bytes.substr(0, last + 1);
}

// What cannot be written, as far as the values tell.
std::string NotFinite(const std::string &path, const Design &design) {
  for (const auto &field : HeaderFields)
    if (!IsFinite(design.Doc, field))
      return path + ": cannot be written: " + field.Name + " is not a finite number";
  for (int i = 0; i <= design.Table.EntCount; ++i)
    if (const std::string field = NotFiniteField(RowAt(design.Table, i)); !field.empty())
      return path + ": cannot be written: " + field + " of entity " + std::to_string(i) +
             " is not a finite number";
  return {};
}

std::string WriteGrain(const std::string &path, const Design &design, GrainForm form) {
  const std::string trouble = NotFinite(path, design);
  if (!trouble.empty()) return trouble;
  // The work file is written at every change and serves the death of the program alone.
  return (form == GrainForm::Work ? WriteWholeSoon : WriteWhole)(path, GrainText(design, form));
}

} // namespace

void PutEntity(RecordWriter &w, const Entity &entity) {
  for (const auto &field : EntityFields) PutField(w, entity, field);
  EndRecord(w);
}

std::string TakeEntity(RecordReader &r, const std::string &name, Entity &entity) {
  return TakeEntityFields(r, name, entity);
}

std::string NotFiniteField(const Entity &entity) {
  for (const auto &field : EntityFields)
    if (!IsFinite(entity, field)) return field.Name;
  return {};
}

std::string RecordPlace(const std::string &name, const RecordReader &r, const char *field) {
  return Place(name, r, field);
}

std::string GrainText(const Design &design, GrainForm form) {
  RecordWriter w;
  if (form == GrainForm::File) {
    Put(w, VersionText);
    EndRecord(w);
  }
  for (const auto &field : HeaderFields) {
    PutField(w, design.Doc, field);
    EndRecord(w);
  }
  for (int i = 0; i <= design.Table.EntCount; ++i) PutEntity(w, RowAt(design.Table, i));
  return std::move(w.Bytes);
}

std::string ParseGrain(std::string_view bytes, const std::string &name, Design &design) {
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3); // a byte order mark left by an editor
  RecordReader r{WithoutBlankEnd(bytes)};
  const int fields = FieldsInRecord(r);
  RecordReader first = r;
  std::string version;
  const bool named = Take(first, version) && version == VersionText;
  if (named) {
    r = first;
  } else if (fields != EntityFieldCount) {
    RecordReader probe = r;
    double number = 0;
    const bool work = Take(probe, number) && fields == 1;
    if (!work)
      return Place(name, probe, "") +
             "expected \"Version1_1\", one number or an entity of 13 fields, found " +
             (fields > 1 ? std::to_string(fields) + " fields" : probe.Found);
  }
  const auto read = std::make_unique<Design>(design);
  std::string trouble;
  if (named || fields != EntityFieldCount) trouble = TakeHeader(r, name, read->Doc);
  if (trouble.empty()) trouble = TakeEntities(r, name, read->Table);
  if (!trouble.empty()) return trouble;
  design.Doc = read->Doc;
  design.Table = read->Table;
  return {};
}

std::string ReadGrainFile(const std::string &path, Design &design) {
  std::string bytes;
  const std::string trouble = ReadWhole(path, bytes);
  return trouble.empty() ? ParseGrain(bytes, path, design) : trouble;
}

std::string WriteGrainFile(const std::string &path, const Design &design) {
  return WriteGrain(path, design, GrainForm::File);
}

std::string WriteWorkFile(const std::string &path, const Design &design) {
  return design.MacroMode == 2 ? std::string() : WriteGrain(path, design, GrainForm::Work);
}

std::string RecoverWorkFile(const std::string &path, Design &design) {
  if (!FileExists(path)) return {};
  std::string bytes;
  const std::string trouble = ReadWhole(path, bytes);
  if (!trouble.empty() || WithoutBlankEnd(bytes).empty()) return trouble;
  return ParseGrain(bytes, path, design);
}
