#include "thermochem/data_records.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace {

// Counts and atomic numbers are far below it; the bits of any float worth a count are above it.
constexpr std::int32_t LeastFloatBits = 0x30000000;

void PutText(std::string &to, std::string_view text, std::size_t length) {
  to += text.substr(0, length);
  to.append(length - std::min(length, text.size()), ' ');
}

void PutWord(std::string &to, std::uint32_t word) {
  for (int shift = 0; shift < 32; shift += 8) to += static_cast<char>(word >> shift & 0xFFU);
}
void PutInt(std::string &to, std::int32_t value) { PutWord(to, static_cast<std::uint32_t>(value)); }
void PutFloat(std::string &to, float value) { PutWord(to, std::bit_cast<std::uint32_t>(value)); }

// Takes fields off the front of a record.
struct Fields {
  std::string_view Rest;
  std::string_view Raw(std::size_t length) {
    const std::string_view field = Rest.substr(0, length);
    Rest.remove_prefix(field.size());
    return field;
  }
  std::string Text(std::size_t length) {
    std::string_view field = Raw(length);
    while (!field.empty() && (field.back() == ' ' || field.back() == '\0')) field.remove_suffix(1);
    return std::string(field);
  }
  std::int32_t Int() {
    std::uint32_t word = 0;
    const std::string_view field = Raw(4);
    for (std::size_t i = 0; i < field.size(); ++i)
      word |= std::uint32_t{static_cast<unsigned char>(field[i])} << (8 * i);
    return static_cast<std::int32_t>(word);
  }
  float Float() { return std::bit_cast<float>(Int()); }
  std::int32_t Count() {
    const std::int32_t value = Int();
    if (std::abs(std::int64_t{value}) <= LeastFloatBits) return value;
    const float count = std::bit_cast<float>(value);
    return count == std::floor(count) && std::abs(count) < 1e6F ? static_cast<std::int32_t>(count) : -1;
  }
};

} // namespace

std::string_view Trimmed(std::string_view text) {
  const std::size_t from = text.find_first_not_of(" \t\r"), to = text.find_last_not_of(" \t\r");
  return from == text.npos ? std::string_view() : text.substr(from, to - from + 1);
}

std::string WriteIngredient(const IngredientFields &record) {
  std::string bytes;
  PutText(bytes, record.Lead, 3);
  PutText(bytes, record.Group, 5);
  PutText(bytes, record.Confidence, 1);
  PutText(bytes, record.Name, 30);
  for (const std::string &field : record.Composition) PutText(bytes, field, 5);
  PutText(bytes, record.Heat, 5);
  PutText(bytes, record.Density, 6);
  PutText(bytes, record.Tail, 3);
  return bytes;
}

IngredientFields ReadIngredient(std::string_view bytes) {
  Fields from{bytes};
  IngredientFields record;
  record.Lead = from.Text(3);
  record.Group = from.Text(5);
  record.Confidence = from.Text(1);
  record.Name = from.Text(30);
  for (std::string &field : record.Composition) field = from.Raw(5);
  record.Heat = from.Text(5);
  record.Density = from.Text(6);
  record.Tail = from.Text(3);
  return record;
}

std::string WriteSpecies(const SpeciesRecord &record) {
  std::string bytes;
  PutInt(bytes, record.Mark);
  PutText(bytes, record.Name, 8);
  PutInt(bytes, 0);
  for (std::size_t k = 0; k < SpeciesPairs; ++k) {
    PutInt(bytes, record.AtomicNumber[k]);
    PutInt(bytes, record.Atoms[k]);
  }
  for (std::size_t range = 0; range < record.C.size(); ++range) {
    for (const float c : record.C[range]) PutFloat(bytes, c);
    PutFloat(bytes, record.Lo[range]);
    PutFloat(bytes, record.Hi[range]);
  }
  return bytes;
}

std::string WriteSpeciesCount(std::int32_t lastRecord) {
  std::string bytes;
  PutInt(bytes, lastRecord);
  bytes.append(SpeciesBytes - bytes.size(), '\0');
  return bytes;
}

SpeciesRecord ReadSpecies(std::string_view bytes) {
  Fields from{bytes};
  SpeciesRecord record;
  record.Mark = from.Int();
  record.Name = from.Text(8);
  from.Int();
  for (std::size_t k = 0; k < SpeciesPairs; ++k) {
    record.AtomicNumber[k] = from.Count();
    record.Atoms[k] = from.Count();
  }
  for (std::size_t range = 0; range < record.C.size(); ++range) {
    for (float &c : record.C[range]) c = from.Float();
    record.Lo[range] = from.Float();
    record.Hi[range] = from.Float();
  }
  return record;
}

std::int32_t ReadSpeciesCount(std::string_view bytes) { return Fields{bytes}.Int(); }
