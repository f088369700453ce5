#include "shell/pep_inputs.h"

#include "base/number_text.h"
#include "base/numeral.h"
#include "thermochem/data_records.h"
#include "thermochem/ingredient_names.h"

#include <cmath>
#include <fmt/format.h>

namespace {

constexpr std::size_t MostOffered = 400;
constexpr double GccPerLbIn3 = 27.6799;

Ctl Nth(Ctl first, std::size_t row) { return static_cast<Ctl>(static_cast<std::size_t>(first) + row); }

std::optional<std::size_t> RowFrom(Ctl first, Ctl control) {
  const auto from = static_cast<std::size_t>(first), at = static_cast<std::size_t>(control);
  return at >= from && at < from + PepRows ? std::optional(at - from) : std::nullopt;
}

std::string NoteOf(const IngredientRecord &record) {
  const std::string confidence = record.Confidence == "C" ? "C, estimated" : record.Confidence;
  return FormulaText(record) + "   " + PlainText(RoundPlaces(record.HeatOfFormation, 1)) + " cal/g   " +
         FormatMask(record.Density * GccPerLbIn3, "0.000") + " g/cc" +
         (confidence.empty() ? "" : "   " + confidence);
}

// A tab parts the name from what is shown beside it.
std::string OfferOf(const IngredientRecord &record) {
  return record.Name + "\t" + FormulaText(record) + "   " +
         PlainText(RoundPlaces(record.HeatOfFormation, 1)) + " cal/g";
}

void ShowChosen(Workbench &bench, std::size_t row) {
  Thermo &state = bench.Pep;
  Control &input = bench.Out[IngredientInput(row)], &note = bench.Out[IngredientNote(row)];
  const bool blank = Trimmed(input.Text).empty();
  const int position = state.Position[row] = FindIngredient(state.Files, input.Text);
  note.Checked = !blank && position == 0;
  note.Text = position > 0 ? NoteOf(state.Files.Ingredient[static_cast<std::size_t>(position - 1)])
              : blank      ? ""
                           : "no such ingredient";
  input.Hint = note.Checked ? NoSuchIngredient(state.Files, input.Text) : "";
}

void Object(Thermo &state, Ctl box, const std::string &words) {
  if (!state.Objection.empty()) return;
  state.Objection = words;
  state.ObjectedBox = box;
}

// 0 with an objection where the text is no number.
double BoxNumber(Workbench &bench, Ctl box, const char *name) {
  Thermo &state = bench.Pep;
  const std::string &text = bench.Out[box].Text;
  const auto value = NumberIn(text);
  bench.Out[box].Hint.clear();
  if (!value) {
    bench.Out[box].Hint = fmt::format("{} must be a number{}", name,
                                      text.find(',') != text.npos ? ", with a decimal point" : "");
    Object(state, box, bench.Out[box].Hint);
  }
  return value.value_or(0);
}

void ReadRow(Workbench &bench, std::size_t row) {
  Thermo &state = bench.Pep;
  const std::string &name = bench.Out[IngredientInput(row)].Text;
  Control &weight = bench.Out[WeightInput(row)];
  weight.Hint.clear();
  if (state.Position[row] == 0) {
    if (!Trimmed(name).empty()) Object(state, IngredientInput(row), NoSuchIngredient(state.Files, name));
    return;
  }
  PepIngredient ingredient{state.Position[row], 0};
  if (!Trimmed(weight.Text).empty())
    ingredient.Weight = BoxNumber(bench, WeightInput(row), ("The weight of " + name).c_str());
  if (ingredient.Weight < 0) {
    weight.Hint = "The weight of " + name + " must be 0 or more";
    Object(state, WeightInput(row), weight.Hint);
  }
  state.Inputs.Ingredient.push_back(ingredient);
}

bool Same(const PepInputs &a, const PepInputs &b) {
  const auto same = [](const PepIngredient &x, const PepIngredient &y) {
    return x.ListPosition == y.ListPosition && x.Weight == y.Weight;
  };
  return a.Temperature == b.Temperature && a.LowerPressure == b.LowerPressure &&
         a.UpperPressure == b.UpperPressure &&
         std::equal(a.Ingredient.begin(), a.Ingredient.end(), b.Ingredient.begin(), b.Ingredient.end(), same);
}

} // namespace

Ctl IngredientInput(std::size_t row) { return Nth(Ctl::Ingredient_Input0, row); }
Ctl IngredientNote(std::size_t row) { return Nth(Ctl::Ingredient_Note0, row); }
Ctl WeightInput(std::size_t row) { return Nth(Ctl::Weight_Input0, row); }
std::optional<std::size_t> RowOfIngredient(Ctl c) { return RowFrom(Ctl::Ingredient_Input0, c); }
std::optional<std::size_t> RowOfWeight(Ctl c) { return RowFrom(Ctl::Weight_Input0, c); }

std::optional<double> NumberIn(const std::string &text) {
  const std::string_view bare = Trimmed(text);
  double value = 0;
  if (bare.empty() || NumeralLength(bare) != bare.size() || !NumeralValue(bare, value)) return std::nullopt;
  return value;
}

void TypeIngredient(Workbench &bench, std::size_t row, const std::string &text) {
  Control &input = bench.Out[IngredientInput(row)];
  input.Text = text;
  input.Item.clear();
  const DataFiles &files = bench.Pep.Files;
  for (const int position : NearIngredients(files, text, MostOffered))
    input.Item.push_back(OfferOf(files.Ingredient[static_cast<std::size_t>(position - 1)]));
  ShowChosen(bench, row);
  ReadPepInputs(bench);
}

void ChooseIngredient(Workbench &bench, std::size_t row, const std::string &name) {
  if (FindIngredient(bench.Pep.Files, name) == 0) return;
  bench.Out[IngredientInput(row)].Text = name;
  ShowChosen(bench, row);
  ReadPepInputs(bench);
}

void ChooseLikeliest(Workbench &bench, std::size_t row) {
  const Control &input = bench.Out[IngredientInput(row)];
  if (bench.Pep.Position[row] == 0 && !Trimmed(input.Text).empty() && !input.Item.empty())
    ChooseIngredient(bench, row, input.Item.front().substr(0, input.Item.front().find('\t')));
}

void TotalWeights(Workbench &bench) {
  double sum = 0;
  for (std::size_t row = 0; row < PepRows; ++row) sum += Val(bench.Out[WeightInput(row)].Text);
  Control &total = bench.Out[Ctl::Total_Weight];
  total.Hint = std::isfinite(sum) ? "" : "Error totalling weights";
  total.Text = std::isfinite(sum) ? PlainText(RoundPlaces(sum, 6)) : "";
}

void MakeHundred(Workbench &bench) {
  Screen &out = bench.Out;
  double sum = 0;
  std::size_t last = PepRows;
  for (std::size_t row = 0; row < PepRows; ++row) {
    const double weight = Val(out[WeightInput(row)].Text);
    if (!(weight > 0)) continue;
    sum += weight;
    last = row;
  }
  if (!(sum > 0) || !std::isfinite(sum)) return;
  double left = 100; // what rounding leaves goes to the last one
  for (std::size_t row = 0; row <= last; ++row) {
    std::string &text = out[WeightInput(row)].Text;
    const double weight = Val(text);
    if (!(weight > 0)) continue;
    const double part = row == last ? RoundPlaces(left, 3) : RoundPlaces(weight * (100 / sum), 3);
    left -= part;
    text = PlainText(part);
  }
  TotalWeights(bench);
  ReadPepInputs(bench);
}

void ClearMix(Workbench &bench) {
  for (std::size_t row = 0; row < PepRows; ++row) {
    bench.Out[WeightInput(row)].Text.clear();
    TypeIngredient(bench, row, "");
  }
  TotalWeights(bench);
  bench.Out.Focus = IngredientInput(0);
}

void ReadPepInputs(Workbench &bench) {
  Thermo &state = bench.Pep;
  state.Objection.clear();
  state.ObjectedBox = Ctl::Count;
  state.Inputs = {};
  for (std::size_t row = 0; row < PepRows; ++row) ReadRow(bench, row);
  state.Inputs.Temperature = BoxNumber(bench, Ctl::Propellant_Temp, "The propellant's temperature");
  state.Inputs.LowerPressure = BoxNumber(bench, Ctl::Pc_Lower_Range, "The lower chamber pressure");
  state.Inputs.UpperPressure = BoxNumber(bench, Ctl::Pc_Higher_Range, "The higher chamber pressure");
}

bool RunIsStale(const Workbench &bench) {
  const Thermo &state = bench.Pep;
  return state.Run.Done && (!state.Objection.empty() || !Same(state.Inputs, state.RunInputs));
}

std::string MixText(const Workbench &bench) {
  std::string text;
  const IngredientTable &table = bench.Pep.Run.Ingredients;
  for (int i = 1; i <= table.IngredientCount; ++i)
    text += fmt::format("{}{} {:.6g}", i > 1 ? ", " : "", table.Row[i].Name, table.Row[i].Weight);
  return text;
}
