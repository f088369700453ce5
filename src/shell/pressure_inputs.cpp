#include "shell/pressure_inputs.h"

#include "base/number_text.h"
#include "base/numeral.h"
#include "drafting/ask_question.h"
#include "shell/pressure_chart.h"

#include <optional>

namespace {

struct InputBox {
  Ctl Box;
  const char *Name, *Unit;
  double Propellant::*OfFuel; // or else
  double MotorInputs::*Own;
  std::optional<MotorField> Rule; // none: what is typed waits for the next chart
};
const InputBox Boxes[] = {
    {Ctl::burn_rate_a, "burn rate a", "mm/s at Pa", &Propellant::A, nullptr, MotorField::burn_rate_a},
    {Ctl::burn_rate_n, "burn rate n", "", &Propellant::N, nullptr, MotorField::burn_rate_n},
    {Ctl::Density, "density", "g/cc", &Propellant::Density, nullptr, MotorField::Density},
    {Ctl::c_star, "c*", "m/s", &Propellant::CStar, nullptr, MotorField::c_star},
    {Ctl::Isp, "Isp", "s", &Propellant::Isp, nullptr, MotorField::Isp},
    {Ctl::Throat_Diameter, "throat diameter", "mm", nullptr, &MotorInputs::ThroatDiam,
     MotorField::Throat_Diameter},
    {Ctl::Grain_Diameter, "grain diameter", "mm", nullptr, &MotorInputs::GrainDiam, std::nullopt}};

double &FieldOf(const InputBox &box, MotorInputs &in) {
  return box.OfFuel ? in.Fuel.*box.OfFuel : in.*box.Own;
}

const InputBox *BoxOf(Ctl control) {
  for (const InputBox &box : Boxes)
    if (box.Box == control) return &box;
  return nullptr;
}

// 0 where the text is no number; `trouble` says so.
double NumberOf(const InputBox &box, std::string text, std::string &trouble) {
  const auto first = text.find_first_not_of(" \t");
  text = first == text.npos ? "" : text.substr(first, text.find_last_not_of(" \t") - first + 1);
  double value = 0;
  const std::string behind = *box.Unit ? std::string(" (") + box.Unit + ")" : "";
  if (text.empty() || NumeralLength(text) != text.size() || !NumeralValue(text, value)) {
    trouble = std::string("The ") + box.Name + " must be a number" + behind;
    if (text.find(',') != text.npos) trouble += ", with a decimal point";
    return 0;
  }
  if (!(value > 0)) trouble = std::string("The ") + box.Name + " must be above 0" + behind;
  if (box.Box == Ctl::burn_rate_n && value >= 1) trouble = "The burn rate n must be below 1";
  return value;
}

const char *OwnFigures = "Own figures";

bool Holds(const MotorInputs &in, const Propellant &p) {
  return in.Fuel.A == p.A && in.Fuel.N == p.N && in.Fuel.Density == p.Density && in.Fuel.CStar == p.CStar &&
         in.Fuel.Isp == p.Isp;
}

// The propellant whose figures the boxes hold: the one last chosen before others that are the same.
const Propellant *HeldPropellant(const Pressure &state) {
  const Propellant *chosen = FindPropellant(state.Library, state.Chosen);
  if (chosen && Holds(state.Inputs, *chosen)) return chosen;
  for (const Propellant &p : state.Library)
    if (Holds(state.Inputs, p)) return &p;
  return nullptr;
}

} // namespace

void FillPressureInputs(Workbench &bench) {
  Screen &out = bench.Out;
  const GrainDoc &doc = bench.Grain.Doc;
  for (const InputBox &box : Boxes) out[box.Box].Text = RowOf(box.Box).Text;
  out[Ctl::Throat_Diameter].Text = PlainText(doc.ThroatDiam);
  out[Ctl::Grain_Diameter].Text = PlainText(doc.GrainDiam);
  out[Ctl::Grain_Length].Text = PlainText(doc.GrainLength);
  out[Ctl::Exit_Diameter].Text = PlainText(2 * doc.ThroatDiam);
  out[Ctl::Time_Intervals].Text = RowOf(Ctl::Time_Intervals).Text;
  bench.Motor.Inputs = {};
  bench.Motor.Inputs.GrainLength = Val(out[Ctl::Grain_Length].Text);
  bench.Motor.Inputs.EndsExposed = doc.EndsExposed & 3;
  ReadPressureInputs(bench);
}

void ReadPressureInputs(Workbench &bench) {
  Screen &out = bench.Out;
  Pressure &state = bench.Motor;
  state.Objection.clear();
  for (const InputBox &box : Boxes) {
    std::string trouble;
    FieldOf(box, state.Inputs) = NumberOf(box, out[box.Box].Text, trouble);
    out[box.Box].Hint = trouble;
    if (state.Objection.empty()) state.Objection = trouble;
  }
  const Propellant *held = HeldPropellant(state);
  Propellant &fuel = state.Inputs.Fuel;
  fuel.Name = held ? held->Name : "";
  fuel.Source = held ? held->Source : "";
  fuel.LowestPressure = held ? held->LowestPressure : 0;
  fuel.HighestPressure = held ? held->HighestPressure : 0;
  ShowPropellantChoice(bench);
}

void ChangePressureInput(Workbench &bench, Ctl control, const std::string &text) {
  const InputBox *box = BoxOf(control);
  if (!box) return;
  Pressure &state = bench.Motor;
  bench.Out[control].Text = text;
  if (state.Loading) return;
  ReadPressureInputs(bench);
  if (box->Rule && Recomputes(*box->Rule, FieldOf(*box, state.Inputs), state.ChartNumber, state.Loading))
    RecomputeChart(bench, control);
  UpdateStrip(bench);
}

void ConvertImperial(Workbench &bench) {
  const auto value =
      AskQuestion(bench.Draft, {.Label = "Enter imperial 'a' value to convert to metric.\n\n"
                                         "Note: Burn Rate Exponent 'n' needs to be correct value before "
                                         "conversion:",
                                .Caption = "Imperial 'a' conversion",
                                .AllowZero = true});
  if (!value) return;
  const std::string text = Convert_Imperial_a(*value, bench.Motor.Inputs.Fuel.N);
  if (!text.empty()) ChangePressureInput(bench, Ctl::burn_rate_a, text);
}

void LoadPropellantLibrary(Workbench &bench) {
  Pressure &state = bench.Motor;
  std::vector<Propellant> list;
  state.LibraryTrouble = LoadPropellants(bench.Folders.AppDir, bench.Folders.Install, list);
  state.Library = std::move(list);
}

void ChoosePropellant(Workbench &bench, const std::string &name) {
  Pressure &state = bench.Motor;
  const Propellant *chosen = FindPropellant(state.Library, name);
  if (!chosen) return;
  const Propellant fuel = *chosen;
  state.Chosen = fuel.Name;
  state.Loading = true;
  for (const InputBox &box : Boxes)
    if (box.OfFuel && box.Box != Ctl::burn_rate_a)
      ChangePressureInput(bench, box.Box, PlainText(fuel.*box.OfFuel));
  state.Loading = false;
  ChangePressureInput(bench, Ctl::burn_rate_a, PlainText(fuel.A));
}

void ShowPropellantChoice(Workbench &bench) {
  Control &list = bench.Out[Ctl::Propellant_Choice];
  const Propellant *held = HeldPropellant(bench.Motor);
  list.Item = {OwnFigures};
  list.Index = 0;
  for (const Propellant &p : bench.Motor.Library) {
    if (&p == held) list.Index = static_cast<int>(list.Item.size());
    list.Item.push_back(p.Name);
  }
  list.Text = list.Item[static_cast<std::size_t>(list.Index)];
  list.Hint = held ? held->Source : "";
}
