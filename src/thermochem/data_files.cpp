#include "thermochem/data_files.h"

#include "base/number_text.h"
#include "base/rounding.h"
#include "base/whole_file.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace {

// What no substance reaches; a file beyond them is a foreign one or has been damaged.
constexpr double MostAtoms = 32767;
constexpr double MostHeat = 1e5;       // cal/g
constexpr double MostDensity = 10;     // lb/cu-in
constexpr int MostSpeciesAtoms = 1000; // of one element in one species
constexpr int MostAtomicNumber = 100;
constexpr float MostCoefficient = 1e7F;
constexpr float MostKelvin = 1e5F;

constexpr const char *IngredientName = "pepcoded.daf", *SpeciesName = "jannaf.daf";

bool IsText(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

// What an editor may leave behind the last record.
bool IsLineEnd(std::string_view bytes) { return bytes.find_first_not_of("\r\n\x1a") == bytes.npos; }

std::string RecordTrouble(const std::string &path, std::size_t record, const std::string &name,
                          const std::string &words) {
  return fmt::format("{}: record {}{}: {}", path, record, name.empty() ? "" : " (" + name + ")", words);
}

// The whole file without line ends behind the last record. The trouble, or empty.
std::string ReadRecords(const std::string &path, std::size_t length, std::string &bytes) {
  if (std::string trouble = ReadWhole(path, bytes); !trouble.empty()) return trouble;
  const std::size_t over = bytes.size() % length, whole = bytes.size() / length;
  if (over == 0) return {};
  if (!IsLineEnd(std::string_view(bytes).substr(whole * length)))
    return RecordTrouble(
        path, whole + 1, "",
        fmt::format("cut off: {} bytes of {} (the file's length, {} bytes, is no multiple of {})", over,
                    length, bytes.size(), length));
  bytes.resize(whole * length);
  return {};
}

} // namespace

DataPlaces FindDataFiles(const std::vector<std::string> &folders) {
  const auto find = [&](const char *name) {
    for (const std::string &folder : folders)
      if (FileExists(folder + name)) return folder + name;
    return (folders.empty() ? "" : folders.front()) + name;
  };
  return {find(IngredientName), find(SpeciesName)};
}

std::string ReadIngredientFields(const std::string &path, std::vector<IngredientFields> &records) {
  std::string bytes;
  if (std::string trouble = ReadRecords(path, IngredientBytes, bytes); !trouble.empty()) return trouble;
  const std::size_t count = bytes.size() / IngredientBytes;
  if (count <= FillerRecords)
    return fmt::format("{}: holds {} records: the first ingredient is record {}", path, count,
                       FillerRecords + 1);
  records.clear();
  for (std::size_t r = 0; r < count; ++r)
    records.push_back(ReadIngredient(std::string_view(bytes).substr(r * IngredientBytes, IngredientBytes)));
  return {};
}

std::string IngredientFault(const IngredientFields &fields, IngredientRecord &record) {
  record = {};
  for (const std::string *text : {&fields.Name, &fields.Heat, &fields.Density, &fields.Confidence})
    if (!IsText(*text)) return "holds what is no text";
  record.Name = std::string(fields.Name);
  record.Confidence = std::string(Trimmed(fields.Confidence));
  for (std::size_t k = 0; k < CompositionFields; ++k) {
    const std::string &field = fields.Composition[k];
    if (!IsText(field)) return fmt::format("composition field {} holds what is no text", k + 1);
    const double count = RoundEven(Val(field.substr(0, 3)));
    if (std::abs(count) > MostAtoms)
      return fmt::format("composition field {} tells a count out of range: \"{}\"", k + 1, field);
    record.Count[k] = static_cast<int>(count);
    record.Symbol[k] = std::string(Trimmed(std::string_view(field).substr(3)));
  }
  record.HeatOfFormation = Val(fields.Heat);
  record.Density = Val(fields.Density);
  if (std::abs(record.HeatOfFormation) > MostHeat)
    return fmt::format("the heat of formation is out of range: \"{}\"", fields.Heat);
  if (std::abs(record.Density) > MostDensity)
    return fmt::format("the density is out of range: \"{}\"", fields.Density);
  return {};
}

std::string ReadSpeciesRecords(const std::string &path, std::vector<SpeciesRecord> &records) {
  std::string bytes;
  if (std::string trouble = ReadRecords(path, SpeciesBytes, bytes); !trouble.empty()) return trouble;
  const std::size_t held = bytes.size() / SpeciesBytes;
  if (held < 2) return fmt::format("{}: holds {} records: the first species is record 2", path, held);
  const std::int32_t last = ReadSpeciesCount(bytes);
  if (last < 2)
    return RecordTrouble(path, 1, "", fmt::format("tells {} as the last record: this is no such file", last));
  if (static_cast<std::size_t>(last) > held)
    return RecordTrouble(
        path, 1, "",
        fmt::format("tells {} as the last record, but the file ends with record {}", last, held));
  records.clear();
  for (std::size_t r = 1; r < static_cast<std::size_t>(last); ++r)
    records.push_back(ReadSpecies(std::string_view(bytes).substr(r * SpeciesBytes, SpeciesBytes)));
  return {};
}

std::string SpeciesFault(const SpeciesRecord &record) {
  if (record.AtomicNumber[0] == 0) return {}; // not a species
  if (!IsText(record.Name)) return "the name is no text";
  for (std::size_t k = 0; k < SpeciesPairs && record.AtomicNumber[k] != 0; ++k) {
    if (record.AtomicNumber[k] < 0 || record.AtomicNumber[k] > MostAtomicNumber)
      return fmt::format("element {} of the formula has no atomic number of 1 to {}", k + 1,
                         MostAtomicNumber);
    if (record.Atoms[k] < 0 || record.Atoms[k] > MostSpeciesAtoms)
      return fmt::format("element {} of the formula has no count of 0 to {}", k + 1, MostSpeciesAtoms);
  }
  for (std::size_t range = 0; range < record.C.size(); ++range) {
    for (std::size_t i = 0; i < record.C[range].size(); ++i) {
      const float c = record.C[range][i];
      if (!std::isfinite(c))
        return fmt::format("coefficient c{} of range {} is not a finite number", i + 1, range + 1);
      if (std::abs(c) > MostCoefficient)
        return fmt::format("coefficient c{} of range {} is out of range: {}", i + 1, range + 1, c);
    }
    for (const float limit : {record.Lo[range], record.Hi[range]})
      if (!(limit >= 0 && limit <= MostKelvin))
        return fmt::format("a temperature limit of range {} is out of range: {}", range + 1, limit);
  }
  return {};
}

std::string ReadDataFiles(const DataPlaces &places, DataFiles &files) {
  std::vector<IngredientFields> fields;
  if (std::string trouble = ReadIngredientFields(places.Ingredients, fields); !trouble.empty())
    return trouble;
  DataFiles read;
  for (std::size_t r = FillerRecords; r < fields.size(); ++r) {
    IngredientRecord record;
    if (std::string fault = IngredientFault(fields[r], record); !fault.empty())
      return RecordTrouble(places.Ingredients, r + 1, "", fault);
    read.Ingredient.push_back(std::move(record));
  }
  std::vector<SpeciesRecord> records;
  if (std::string trouble = ReadSpeciesRecords(places.Species, records); !trouble.empty()) return trouble;
  for (std::size_t i = 0; i < records.size(); ++i) {
    if (std::string fault = SpeciesFault(records[i]); !fault.empty())
      return RecordTrouble(places.Species, i + 2, IsText(records[i].Name) ? records[i].Name : "", fault);
    read.SpeciesNumber.push_back(static_cast<int>(i) + 2);
  }
  read.Species = std::move(records);
  files = std::move(read);
  return {};
}
