#include "cli/pep_request.h"

#include "base/numeral.h"
#include "thermochem/data_records.h"
#include "thermochem/ingredient_names.h"

#include <algorithm>
#include <fmt/format.h>

namespace {

constexpr double LowestTemperature = -200, HighestTemperature = 500; // of a propellant, degrees Celsius
constexpr double LowestPressure = 0.001, HighestPressure = 1000;     // MPa
constexpr double HighestWeight = 1e9;                                // g
constexpr double HighestExpansion = 100;

bool NumberOf(std::string_view text, double &value) {
  text = Trimmed(text);
  return !text.empty() && NumeralLength(text) == text.size() && NumeralValue(text, value);
}

std::vector<std::string> Split(const std::string &text, char at) {
  std::vector<std::string> parts(1);
  for (const char c : text)
    if (c == at)
      parts.emplace_back();
    else
      parts.back() += c;
  return parts;
}

std::string ReadMix(const PepArguments &a, const DataFiles &files, PepInputs &inputs) {
  for (const std::string &argument : a.Ingredient) {
    const std::size_t equals = argument.rfind('=');
    if (equals == argument.npos) return fmt::format("\"{}\": expected \"NAME=WEIGHT\"", argument);
    const std::string name(Trimmed(argument.substr(0, equals))), text = argument.substr(equals + 1);
    PepIngredient ingredient;
    ingredient.ListPosition = FindIngredient(files, name);
    if (ingredient.ListPosition == 0) return NoSuchIngredient(files, name);
    if (!NumberOf(text, ingredient.Weight) || !(ingredient.Weight > 0 && ingredient.Weight <= HighestWeight))
      return fmt::format("{}: expected a weight above 0, 1e9 at most, found \"{}\"", name, text);
    inputs.Ingredient.push_back(ingredient);
  }
  if (inputs.Ingredient.size() > MaxIngredients)
    return fmt::format("A propellant has at most {} ingredients, {} are named", MaxIngredients,
                       inputs.Ingredient.size());
  return {};
}

std::string ReadPressure(const std::string &text, PepInputs &inputs) {
  const std::vector<std::string> ends = Split(text, ':');
  double lower = 0, upper = 0;
  const bool read = ends.size() == 2   ? NumberOf(ends[0], lower) && NumberOf(ends[1], upper)
                    : ends.size() == 1 ? NumberOf(text, lower) && NumberOf(text, upper)
                                       : false;
  const auto fits = [](double p) { return p >= LowestPressure && p <= HighestPressure; };
  if (!read || !fits(lower) || !fits(upper))
    return fmt::format("--pressure: expected LOWER:UPPER from {} to {} MPa, found \"{}\"", LowestPressure,
                       HighestPressure, text);
  inputs.LowerPressure = std::min(lower, upper);
  inputs.UpperPressure = std::max(lower, upper);
  // Cases of one pressure are the same: worked out once, told as often as asked.
  if (lower == upper) inputs.CaseCount = 1;
  return {};
}

std::string ReadSweep(const std::string &text, const DataFiles &files, PepRequest &request) {
  const std::size_t comma = text.rfind(','), equals = text.rfind('=', comma);
  if (comma == text.npos || equals == text.npos)
    return fmt::format("--sweep: expected \"NAME=FROM:TO:STEP,OTHER NAME\", found \"{}\"", text);
  PepSweep &sweep = request.Sweep;
  for (const auto &[position, name] : {std::pair{&sweep.Raised, text.substr(0, equals)},
                                       std::pair{&sweep.Lowered, text.substr(comma + 1)}}) {
    const std::string trimmed(Trimmed(name));
    *position = FindIngredient(files, trimmed);
    if (*position == 0) return "--sweep: " + NoSuchIngredient(files, trimmed);
  }
  const std::string range = text.substr(equals + 1, comma - equals - 1);
  const std::vector<std::string> parts = Split(range, ':');
  if (parts.size() != 3 || !NumberOf(parts[0], sweep.From) || !NumberOf(parts[1], sweep.To) ||
      !NumberOf(parts[2], sweep.Step))
    return fmt::format("--sweep: expected FROM:TO:STEP, found \"{}\"", range);
  std::string trouble;
  if (!PlanSweep(request.Inputs, sweep, request.Step, trouble)) return "--sweep: " + trouble;
  request.Sweeping = true;
  return {};
}

} // namespace

std::string ReadPepRequest(const PepArguments &a, const DataFiles &files, PepRequest &request) {
  if (std::string trouble = ReadMix(a, files, request.Inputs); !trouble.empty()) return trouble;
  if (std::string trouble = ReadPressure(a.Pressure, request.Inputs); !trouble.empty()) return trouble;
  double &temperature = request.Inputs.Temperature;
  if (!NumberOf(a.Temperature, temperature) || temperature < LowestTemperature ||
      temperature > HighestTemperature)
    return fmt::format("--temperature: expected degrees Celsius from {} to {}, found \"{}\"",
                       LowestTemperature, HighestTemperature, a.Temperature);
  if (!a.Expansion.empty() && (!NumberOf(a.Expansion, request.Expansion) || !(request.Expansion >= 1) ||
                               request.Expansion > HighestExpansion))
    return fmt::format("--expansion: expected an area ratio from 1 to {}, found \"{}\"", HighestExpansion,
                       a.Expansion);
  request.Step = {{0, request.Inputs}};
  return a.Sweep.empty() ? std::string() : ReadSweep(a.Sweep, files, request);
}
