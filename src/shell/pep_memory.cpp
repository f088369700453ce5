#include "shell/pep_memory.h"

#include "base/number_text.h"
#include "shell/pep_inputs.h"

#include <cmath>
#include <fmt/format.h>

namespace {

constexpr const char *Section = "PEP";
constexpr const char *CurveKey = "Curve";

struct Kept {
  const char *Key;
  double Thermo::*Value;
  double Least, Most;
};
constexpr Kept Picks[] = {{"Pressure", &Thermo::Pressure, 0.001, 1000},
                          {"Ambient", &Thermo::Ambient, 0, 110},
                          {"Ratio", &Thermo::Ratio, 1, 100},
                          {"Shifting", &Thermo::Shifting, 0, 1},
                          {"HalfAngle", &Thermo::HalfAngle, 0, 75}};
constexpr std::pair<const char *, Ctl> Boxes[] = {{"Temperature", Ctl::Propellant_Temp},
                                                  {"LowerRange", Ctl::Pc_Lower_Range},
                                                  {"HigherRange", Ctl::Pc_Higher_Range}};

std::string RowKey(const char *name, std::size_t row) { return fmt::format("{}{}", name, row + 1); }

} // namespace

void RememberPep(Workbench &bench) {
  SettingsStore &store = bench.Settings;
  Screen &out = bench.Out;
  for (std::size_t row = 0; row < PepRows; ++row) {
    SaveSetting(store, Section, RowKey("Ingredient", row), out[IngredientInput(row)].Text);
    SaveSetting(store, Section, RowKey("Weight", row), out[WeightInput(row)].Text);
  }
  for (const auto &[key, box] : Boxes) SaveSetting(store, Section, key, out[box].Text);
  for (const Kept &k : Picks) SaveSetting(store, Section, k.Key, fmt::format("{:.6g}", bench.Pep.*k.Value));
  SaveSetting(store, Section, CurveKey, std::to_string(static_cast<int>(bench.Pep.Curve)));
  WriteSettings(store);
}

void RecallPep(Workbench &bench) {
  const SettingsStore &store = bench.Settings;
  Screen &out = bench.Out;
  for (std::size_t row = 0; row < PepRows; ++row)
    if (!out[IngredientInput(row)].Text.empty() || !out[WeightInput(row)].Text.empty()) return;
  for (std::size_t row = 0; row < PepRows; ++row) {
    out[IngredientInput(row)].Text = GetSetting(store, Section, RowKey("Ingredient", row));
    const std::string weight = GetSetting(store, Section, RowKey("Weight", row));
    out[WeightInput(row)].Text = NumberIn(weight) ? weight : "";
  }
  for (const auto &[key, box] : Boxes)
    if (const std::string text = GetSetting(store, Section, key); NumberIn(text)) out[box].Text = text;
  for (const Kept &k : Picks)
    if (const auto value = NumberIn(GetSetting(store, Section, k.Key));
        value && *value >= k.Least && *value <= k.Most)
      bench.Pep.*k.Value = *value;
  if (const auto curve = NumberIn(GetSetting(store, Section, CurveKey));
      curve && *curve >= 0 && *curve <= static_cast<int>(PepCurve::Species) && *curve == std::floor(*curve))
    bench.Pep.Curve = static_cast<PepCurve>(static_cast<int>(*curve));
  TotalWeights(bench);
}
