#include "shell/pep_pick.h"

#include "base/number_text.h"
#include "shell/pep_chart.h"
#include "shell/pep_inputs.h"
#include "shell/pep_nozzle.h"
#include "shell/pep_report.h"
#include "thermochem/nozzle.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace {

constexpr double MostRatio = 100, MostAmbient = 110; // kPa: below sea level there is a little more
constexpr double PressureSteps = 100, AmbientSteps = 100, RatioSteps = 10, ShiftingSteps = 100;
constexpr double Separation = 0.4; // of the ambient pressure: below it a flow leaves the wall
constexpr const char *AmbientTrouble = "Error encounted adjusting ambient pressure";

std::string Whole(double value) { return std::to_string(std::lround(value)); }

std::string Shown(const PepPick::Figure &figure, const char *mask) {
  return figure && std::isfinite(*figure) ? FormatMask(*figure, mask) : "N/A";
}

void ShowFigures(Workbench &bench) {
  Screen &out = bench.Out;
  const PepPick &p = bench.Pep.Pick;
  out[Ctl::Pep_Temperature].Text = Shown(p.Temperature, "0");
  out[Ctl::Pep_CStar].Text = Shown(p.CStar, "0.0");
  out[Ctl::Pep_Isp].Text = Shown(p.Isp, "0.0");
  out[Ctl::Pep_Vacuum_Isp].Text = Shown(p.VacuumIsp, "0.0");
  out[Ctl::Pep_Density_Isp].Text = Shown(p.DensityIsp, "0.0");
  out[Ctl::Pep_Gamma].Text = Shown(p.Gamma, "0.0000");
  out[Ctl::Pep_Gas_Weight].Text = Shown(p.GasWeight, "0.00");
  out[Ctl::Pep_Exit_Temperature].Text = Shown(p.ExitTemperature, "0");
  out[Ctl::Pep_Exit_Pressure].Text = Shown(p.ExitPressure, "0.00");
  const bool done = bench.Pep.Run.Done;
  out[Ctl::Pep_Density].Text = done ? FormatMask(bench.Pep.Run.Propellant.DensityGcc, "0.000") : "N/A";
}

std::string FlowNote(const Thermo &state) {
  if (!state.Pick.ExitPressure) return "";
  const double exit = *state.Pick.ExitPressure;
  if (state.Ambient <= 0) return "into vacuum";
  if (exit < Separation * state.Ambient) return "over-expanded: the flow would leave the wall";
  if (exit < 0.98 * state.Ambient) return "over-expanded";
  return exit > 1.02 * state.Ambient ? "under-expanded" : "expanded to the ambient pressure";
}

void ShowRatio(Workbench &bench) {
  const double throat = static_cast<double>(bench.Grain.Doc.ThroatDiam);
  bench.Out[Ctl::Exp_Rat_Label].Text =
      throat > 0 ? FormatMask(std::sqrt(throat * throat * bench.Pep.Ratio), "0.0") + "mm" : "";
}

void ShowPressure(Workbench &bench) {
  bench.Out[Ctl::Pc_Psi_Label].Text = "(" + FormatMask(bench.Pep.Pressure * PsiPerMpa, "0") + " psi)";
}

void ShowAmbient(Workbench &bench) {
  const double kpa = bench.Pep.Ambient;
  bench.Out[Ctl::Pa_Alt_Label].Text =
      kpa > 0 ? "(" + FormatMask(AltitudeFeet(kpa), "##,##0") + " ft)" : "(space)";
}

void ShowShifting(Workbench &bench) {
  const double part = bench.Pep.Shifting;
  bench.Out[Ctl::Frozen_Shifting_Label].Text = part >= 1   ? "shifting"
                                               : part <= 0 ? "frozen"
                                                           : Whole(100 * part) + " % shifting";
}

// A text that is followed, or the reason why it is not.
std::optional<double> Typed(Workbench &bench, Ctl box, const std::string &text, double least, double most,
                            const std::string &words) {
  bench.Out[box].Text = text;
  bench.Out[box].Hint.clear();
  bench.Pep.PickObjection.clear();
  const auto value = NumberIn(text);
  if (value && *value >= least && *value <= most) return value;
  bench.Out[box].Hint = bench.Pep.PickObjection = fmt::format("{} from {:.6g} to {:.6g}", words, least, most);
  return std::nullopt;
}

double WithinRun(const Thermo &state, double megapascals) {
  if (!state.Run.Done) return megapascals;
  return std::clamp(megapascals, state.Run.Case.front().ChamberPressure,
                    state.Run.Case.back().ChamberPressure);
}

void SlideTo(Workbench &bench, Ctl slider, double value, double steps) {
  bench.Out[slider].Text = Whole(value * steps);
}

void SetShown(Workbench &bench, Ctl box, const std::string &text) {
  bench.Out[box].Text = text;
  bench.Out[box].Hint.clear();
  bench.Pep.PickObjection.clear();
}

double SliderValue(Workbench &bench, Ctl slider, const std::string &text) {
  const Control &shown = bench.Out[slider];
  const double value = std::clamp(Val(text), shown.Least, shown.Most);
  bench.Out[slider].Text = Whole(value);
  return value;
}

void TypeRatio(Workbench &bench, const std::string &text) {
  constexpr Ctl box = Ctl::Exp_Rat_Slider_Selection;
  Thermo &state = bench.Pep;
  if (const auto value = NumberIn(text); value && *value > MostRatio) {
    state.Ratio = MostRatio;
    SetShown(bench, box, "100");
    SlideTo(bench, Ctl::Expansion_Ratio, MostRatio, RatioSteps);
    ShowRatio(bench);
    UpdateReports(bench);
    bench.Out.Ask({"Expansion Ratio input limit is x100", bench.Out[Ctl::PEP_SimA].Text, Buttons::Ok,
                   Icon::Exclamation});
    return;
  }
  const auto ratio = Typed(bench, box, text, 1, MostRatio, "The expansion ratio must be a number");
  if (!ratio) return;
  state.Ratio = *ratio;
  SlideTo(bench, Ctl::Expansion_Ratio, *ratio, RatioSteps);
  ShowRatio(bench);
  UpdateReports(bench);
}

void TypeAngle(Workbench &bench, const std::string &text) {
  const auto angle = Typed(bench, Ctl::Nozzle_Half_Angle, text, 0, 75,
                           "The nozzle's half angle must be a number of degrees");
  if (!angle) return;
  bench.Pep.HalfAngle = *angle;
  bench.Out[Ctl::Nozzle_Angle_Eff].Text = FormatMask(EfficiencyOf(*angle), "0.0000");
  bench.Out[Ctl::Nozzle_Angle_Eff].Hint.clear();
  UpdateReports(bench);
}

void TypeEfficiency(Workbench &bench, const std::string &text) {
  const auto part =
      Typed(bench, Ctl::Nozzle_Angle_Eff, text, 0.63, 1, "The nozzle's efficiency must be a number");
  if (!part) return;
  bench.Pep.HalfAngle = std::acos(2 * *part - 1) * 180 / Pi;
  bench.Out[Ctl::Nozzle_Half_Angle].Text = PlainText(RoundPlaces(bench.Pep.HalfAngle, 2));
  bench.Out[Ctl::Nozzle_Half_Angle].Hint.clear();
  UpdateReports(bench);
}

void TypePressure(Workbench &bench, const std::string &text) {
  Thermo &state = bench.Pep;
  const bool done = state.Run.Done;
  const double least = done ? state.Run.Case.front().ChamberPressure : 0.001;
  const double most = done ? state.Run.Case.back().ChamberPressure : 1000;
  const auto value = Typed(bench, Ctl::Pc_Slider_Selection, text, least, most,
                           "The chamber pressure looked at must be a number (MPa)");
  if (!value) return;
  state.Pressure = *value;
  SlideTo(bench, Ctl::Chamber_Pressure, *value, PressureSteps);
  ShowPressure(bench);
  UpdateReports(bench);
}

void TypeAmbient(Workbench &bench, const std::string &text) {
  const auto value = Typed(bench, Ctl::Pa_Slider_Selection, text, 0, MostAmbient,
                           std::string(AmbientTrouble) + ": it must be a number (kPa)");
  if (!value) return;
  bench.Pep.Ambient = *value;
  SlideTo(bench, Ctl::Ambient_Pressure, *value, AmbientSteps);
  ShowAmbient(bench);
  UpdateReports(bench);
}

} // namespace

void OpenPick(Workbench &bench) {
  Screen &out = bench.Out;
  Thermo &state = bench.Pep;
  const auto range = [&](Ctl slider, double least, double most, double steps, double value) {
    out[slider].Least = std::ceil(least * steps);
    out[slider].Most = std::max(out[slider].Least, std::floor(most * steps));
    SlideTo(bench, slider, value, steps);
  };
  if (state.Run.Done) {
    state.Pressure = WithinRun(state, state.Pressure);
    range(Ctl::Chamber_Pressure, state.Run.Case.front().ChamberPressure,
          state.Run.Case.back().ChamberPressure, PressureSteps, state.Pressure);
  } else {
    range(Ctl::Chamber_Pressure, 2, 10, PressureSteps, state.Pressure);
  }
  range(Ctl::Ambient_Pressure, 0, KpaPerAtm, AmbientSteps, state.Ambient);
  range(Ctl::Expansion_Ratio, 1, MostRatio, RatioSteps, state.Ratio);
  range(Ctl::Frozen_Shifting_Slider, 0, 1, ShiftingSteps, state.Shifting);
  SetShown(bench, Ctl::Pc_Slider_Selection, FormatMask(state.Pressure, "0.00"));
  SetShown(bench, Ctl::Pa_Slider_Selection, FormatMask(state.Ambient, "0.00"));
  SetShown(bench, Ctl::Exp_Rat_Slider_Selection, PlainText(RoundPlaces(state.Ratio, 2)));
  SetShown(bench, Ctl::Nozzle_Half_Angle, PlainText(RoundPlaces(state.HalfAngle, 2)));
  SetShown(bench, Ctl::Nozzle_Angle_Eff, FormatMask(EfficiencyOf(state.HalfAngle), "0.0000"));
  ShowPressure(bench);
  ShowAmbient(bench);
  ShowRatio(bench);
  ShowShifting(bench);
}

void PickPressure(Workbench &bench, double megapascals) {
  bench.Pep.Pressure = megapascals;
  OpenPick(bench);
  UpdateReports(bench);
}

void PickBestRatio(Workbench &bench) {
  Thermo &state = bench.Pep;
  if (!state.Run.Done) return;
  const auto best = BestRatioOf(state);
  state.Ratio = RoundPlaces(std::clamp(best.value_or(MostRatio), 1.0, MostRatio), 2);
  OpenPick(bench);
  UpdateReports(bench);
}

bool ChangePick(Workbench &bench, Ctl control, const std::string &text) {
  Thermo &state = bench.Pep;
  switch (control) {
  case Ctl::Pc_Slider_Selection: return TypePressure(bench, text), true;
  case Ctl::Pa_Slider_Selection: return TypeAmbient(bench, text), true;
  case Ctl::Exp_Rat_Slider_Selection: return TypeRatio(bench, text), true;
  case Ctl::Nozzle_Half_Angle: return TypeAngle(bench, text), true;
  case Ctl::Nozzle_Angle_Eff: return TypeEfficiency(bench, text), true;
  case Ctl::Chamber_Pressure:
    state.Pressure = WithinRun(state, SliderValue(bench, control, text) / PressureSteps);
    SetShown(bench, Ctl::Pc_Slider_Selection, FormatMask(state.Pressure, "0.00"));
    ShowPressure(bench);
    break;
  case Ctl::Ambient_Pressure:
    state.Ambient = SliderValue(bench, control, text) / AmbientSteps;
    SetShown(bench, Ctl::Pa_Slider_Selection, FormatMask(state.Ambient, "0.00"));
    ShowAmbient(bench);
    break;
  case Ctl::Expansion_Ratio:
    state.Ratio = SliderValue(bench, control, text) / RatioSteps;
    SetShown(bench, Ctl::Exp_Rat_Slider_Selection, PlainText(RoundPlaces(state.Ratio, 2)));
    ShowRatio(bench);
    break;
  case Ctl::Frozen_Shifting_Slider:
    state.Shifting = SliderValue(bench, control, text) / ShiftingSteps;
    ShowShifting(bench);
    break;
  default: return false;
  }
  UpdateReports(bench);
  return true;
}

void UpdateReports(Workbench &bench) {
  Thermo &state = bench.Pep;
  state.Pick = PickOf(state);
  ShowFigures(bench);
  bench.Out.Nozzle = {state.Run.Done ? state.Ratio : 0, state.HalfAngle};
  bench.Out[Ctl::Draw_Note].Text = FlowNote(state);
  MarkGridRow(bench);
  RefreshReport(bench);
}
