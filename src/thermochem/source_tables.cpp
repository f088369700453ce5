#include "thermochem/source_tables.h"

#include "base/numeral.h"
#include "thermochem/elements.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <set>

namespace {

constexpr double GramsPerCcOfPoundsPerCuIn = 27.6799;
constexpr double WeightTolerance = 2e-4; // of a formula weight told to its rounding, relative

// Of a formula.
struct FormulaPart {
  int Number = 0, Atoms = 0; // atomic number, count
};

// Walks the lines of a table; Field() is by the column's name.
struct Table {
  std::string_view Rest;
  std::string Name;
  int Line = 0;
  std::vector<std::string> Column{}, Row{};
  std::string Trouble{};

  void Fail(const std::string &column, const std::string &words) {
    if (Trouble.empty()) Trouble = fmt::format("{}: line {}: {}: {}", Name, Line, column, words);
  }
  bool HasColumn(const std::string &column) const {
    return std::find(Column.begin(), Column.end(), column) != Column.end();
  }
  std::string Field(const std::string &column) const {
    const auto at = std::find(Column.begin(), Column.end(), column) - Column.begin();
    return at < static_cast<std::ptrdiff_t>(Row.size()) ? Row[at] : "";
  }
  double Number(const std::string &column) {
    const std::string field = Field(column);
    double value = 0;
    if (field.empty() || NumeralLength(field) != field.size() || !NumeralValue(field, value))
      Fail(column, fmt::format("expected a number, found \"{}\"", field));
    return value;
  }
};

std::vector<std::string> SplitLine(std::string_view line) {
  std::vector<std::string> fields(1);
  bool quoted = false;
  for (const char c : line) {
    if (c == '"')
      quoted = !quoted;
    else if (c == ',' && !quoted)
      fields.emplace_back();
    else
      fields.back() += c;
  }
  for (std::string &field : fields) field = std::string(Trimmed(field));
  return fields;
}

// The next line that holds something; false at the end.
bool NextRow(Table &table, std::vector<std::string> &fields) {
  while (!table.Rest.empty()) {
    const std::size_t end = table.Rest.find('\n');
    const std::string_view line = Trimmed(table.Rest.substr(0, end));
    table.Rest.remove_prefix(end == table.Rest.npos ? table.Rest.size() : end + 1);
    ++table.Line;
    if (line.empty() || line.front() == '#') continue;
    fields = SplitLine(line);
    return true;
  }
  return false;
}

bool OpenTable(Table &table, const std::vector<std::string> &columns) {
  if (!NextRow(table, table.Column)) {
    table.Trouble = table.Name + ": holds no table";
    return false;
  }
  for (const std::string &column : columns)
    if (!table.HasColumn(column)) table.Fail(column, "there is no such column");
  return table.Trouble.empty();
}

bool Printable(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

std::string NameField(Table &table, std::size_t longest) {
  std::string name = table.Field("name");
  if (name.empty() || name.size() > longest || !Printable(name))
    table.Fail("name", fmt::format("expected 1 to {} plain characters, found \"{}\"", longest, name));
  return name;
}

// In the order given. Empty when the field is refused.
std::vector<FormulaPart> FormulaField(Table &table, std::size_t mostElements) {
  std::vector<FormulaPart> formula;
  const std::string field = table.Field("formula");
  std::string_view rest = field;
  while (!(rest = Trimmed(rest)).empty()) {
    const std::string_view pair = rest.substr(0, rest.find(' '));
    rest.remove_prefix(pair.size());
    const std::size_t colon = pair.find(':');
    const int number = ElementOf(pair.substr(0, colon));
    double atoms = 0;
    const std::string_view count = colon == pair.npos ? std::string_view() : pair.substr(colon + 1);
    if (number == 0)
      table.Fail("formula", fmt::format("\"{}\" begins with no element from H to Sn", pair));
    else if (count.empty() || NumeralLength(count) != count.size() || !NumeralValue(count, atoms) ||
             !(atoms >= 1 && atoms <= 999) || atoms != std::floor(atoms))
      table.Fail("formula", fmt::format("\"{}\": expected a whole count of 1 to 999 behind a colon", pair));
    for (const FormulaPart &earlier : formula)
      if (earlier.Number == number) table.Fail("formula", fmt::format("\"{}\": named twice", pair));
    formula.push_back({number, static_cast<int>(atoms)});
  }
  if (formula.empty() || formula.size() > mostElements)
    table.Fail("formula", fmt::format("expected 1 to {} elements, found {}", mostElements, formula.size()));
  return formula;
}

// The field's own characters when they fit, else the number shortened.
std::string FittedField(Table &table, const std::string &column, double value, const std::string &own,
                        std::size_t width) {
  if (!own.empty() && own.size() <= width) return own;
  std::string fitted = FittedNumber(value, width);
  if (fitted.empty()) table.Fail(column, fmt::format("{} does not fit {} characters", value, width));
  return fitted;
}

std::string DensityField(Table &table) {
  if (const std::string own = table.Field("density_lb_in3"); !own.empty()) {
    const double pounds = table.Number("density_lb_in3");
    if (!(pounds > 0)) table.Fail("density_lb_in3", "expected a number above 0");
    return FittedField(table, "density_lb_in3", pounds, own, 6);
  }
  const double grams = table.Number("density_g_cc");
  if (!(grams > 0)) table.Fail("density_g_cc", "expected a number above 0");
  return FittedField(table, "density_g_cc", grams / GramsPerCcOfPoundsPerCuIn, "", 6);
}

void RangeFields(Table &table, const std::string &prefix, SpeciesRecord &record, std::size_t range) {
  for (std::size_t i = 0; i < record.C[range].size(); ++i)
    record.C[range][i] = static_cast<float>(table.Number(fmt::format("{}_c{}", prefix, i + 1)));
  record.Lo[range] = static_cast<float>(table.Number(prefix + "_Tlo"));
  record.Hi[range] = static_cast<float>(table.Number(prefix + "_Thi"));
  if (!(record.Lo[range] >= 0 && record.Hi[range] >= record.Lo[range]))
    table.Fail(prefix + "_Thi", "the upper limit is below the lower one");
}

} // namespace

std::string FittedNumber(double value, std::size_t width) {
  for (int places = static_cast<int>(width) - 1; places >= 0; --places) {
    std::string text = fmt::format("{:.{}f}", value, places);
    if (const std::size_t zero = text.find("0."); zero == 0 || (zero == 1 && text[0] == '-'))
      text.erase(zero, 1);
    if (text.size() <= width) return text;
  }
  return {};
}

std::string ReadIngredientTable(std::string_view text, const std::string &name,
                                std::vector<IngredientFields> &records) {
  Table table{text, name};
  if (!OpenTable(table, {"name", "formula", "hf_cal_per_g"})) return table.Trouble;
  records.clear();
  std::set<std::string> seen;
  while (table.Trouble.empty() && NextRow(table, table.Row)) {
    IngredientFields record;
    record.Name = NameField(table, 30);
    if (!seen.insert(record.Name).second) table.Fail("name", "\"" + record.Name + "\" stands there twice");
    const std::vector<FormulaPart> formula = FormulaField(table, CompositionFields);
    if (!table.Trouble.empty()) break;
    double weight = 0;
    for (std::size_t k = 0; k < formula.size(); ++k) {
      record.Composition[k] = fmt::format("{:>3}{:<2}", formula[k].Atoms, ElementSymbol(formula[k].Number));
      weight += double{AtomicWeight(formula[k].Number)} * formula[k].Atoms;
    }
    if (!table.Field("formula_weight").empty())
      if (const double told = table.Number("formula_weight");
          !(std::abs(told - weight) <= WeightTolerance * weight))
        table.Fail("formula_weight", fmt::format("{} told, {:.4f} by the formula", told, weight));
    record.Heat =
        FittedField(table, "hf_cal_per_g", table.Number("hf_cal_per_g"), table.Field("hf_cal_per_g"), 5);
    record.Density = DensityField(table);
    record.Confidence = table.Field("confidence");
    if (record.Confidence.size() > 1 || !Printable(record.Confidence))
      table.Fail("confidence", "expected one letter");
    records.push_back(record);
  }
  if (table.Trouble.empty() && records.empty()) table.Trouble = name + ": holds no ingredient";
  return table.Trouble;
}

std::string ReadSpeciesTable(std::string_view text, const std::string &name,
                             std::vector<SpeciesRecord> &records) {
  Table table{text, name};
  if (!OpenTable(table, {"name", "formula", "phase", "r1_Tlo", "r1_Thi", "r2_Tlo", "r2_Thi"}))
    return table.Trouble;
  records.clear();
  std::set<std::string> seen;
  bool condensedBegan = false;
  while (table.Trouble.empty() && NextRow(table, table.Row)) {
    SpeciesRecord record;
    record.Name = NameField(table, 8);
    if (!seen.insert(record.Name).second) table.Fail("name", "\"" + record.Name + "\" stands there twice");
    const std::string phase = table.Field("phase");
    if (phase != "gas" && phase != "condensed") table.Fail("phase", "expected gas or condensed");
    if (phase == "gas" && condensedBegan) table.Fail("phase", "a gas behind a condensed species");
    condensedBegan = phase == "condensed";
    // Every gas is marked: a propellant takes the mark of the last gas that its elements let in.
    record.Mark = condensedBegan ? 0 : 1;
    const std::vector<FormulaPart> formula = FormulaField(table, SpeciesPairs);
    if (!table.Trouble.empty()) break;
    for (std::size_t k = 0; k < formula.size(); ++k) {
      record.AtomicNumber[k] = formula[k].Number;
      record.Atoms[k] = formula[k].Atoms;
    }
    RangeFields(table, "r1", record, 0);
    RangeFields(table, "r2", record, 1);
    records.push_back(record);
  }
  if (table.Trouble.empty() && records.empty()) table.Trouble = name + ": holds no species";
  return table.Trouble;
}

std::string IngredientFileBytes(const std::vector<IngredientFields> &records) {
  std::string bytes;
  for (int filler = 0; filler < FillerRecords; ++filler) bytes += WriteIngredient({});
  for (const IngredientFields &record : records) bytes += WriteIngredient(record);
  return bytes;
}

std::string SpeciesFileBytes(const std::vector<SpeciesRecord> &records) {
  std::string bytes = WriteSpeciesCount(static_cast<std::int32_t>(records.size() + 1));
  for (const SpeciesRecord &record : records) bytes += WriteSpecies(record);
  return bytes;
}
