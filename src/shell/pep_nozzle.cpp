#include "shell/pep_nozzle.h"

#include "shell/grain_document.h"
#include "thermochem/nozzle.h"

#include <algorithm>
#include <cmath>

namespace {

PepPick::Figure Between(const PepPick::Figure &a, const PepPick::Figure &b, double part) {
  if (part <= 0) return a;
  if (part >= 1) return b;
  return a && b ? PepPick::Figure(*a + (*b - *a) * part) : std::nullopt;
}

// What one case gives at the chosen nozzle.
struct CasePick {
  PepPick::Figure Isp, Vacuum, ExitTemperature, LogExitPressure, BestRatio;
};

CasePick PickMode(const Thermo &state, const PepCase &one, PepMode mode) {
  CasePick pick;
  const double ambient = state.Ambient / KpaPerAtm;
  if (const ExpansionRow best = ExpansionTo(state.Run, one, mode, ambient); best.Stands)
    pick.BestRatio = best.Ratio;
  const ExpansionRow row = ExpansionAt(state.Run, one, mode, state.Ratio);
  if (!row.Stands) return pick;
  // The cone's loss is one of momentum: the pressure on the exit stays whole.
  const double loss = row.Optimum * (1 - EfficiencyOf(state.HalfAngle));
  pick.Isp = ImpulseAgainst(row, ambient) - loss;
  pick.Vacuum = row.Vacuum - loss;
  pick.ExitTemperature = row.Temperature;
  pick.LogExitPressure = std::log(row.PressureKpa);
  return pick;
}

CasePick PickCase(const Thermo &state, const PepCase &one) {
  const CasePick frozen = PickMode(state, one, Frozen), shifting = PickMode(state, one, Shifting);
  const double s = state.Shifting;
  return {Between(frozen.Isp, shifting.Isp, s), Between(frozen.Vacuum, shifting.Vacuum, s),
          Between(frozen.ExitTemperature, shifting.ExitTemperature, s),
          Between(frozen.LogExitPressure, shifting.LogExitPressure, s),
          Between(frozen.BestRatio, shifting.BestRatio, s)};
}

// The cases beside the chosen pressure, and how far it is from the first to the second.
struct Bracket {
  std::size_t Low = 0, High = 0;
  double Part = 0;
};

Bracket BracketOf(const Thermo &state) {
  const auto &cases = state.Run.Case;
  Bracket b;
  while (b.Low + 2 < cases.size() && cases[b.Low + 1].ChamberPressure < state.Pressure) ++b.Low;
  b.High = std::min(b.Low + 1, cases.size() - 1);
  const double low = cases[b.Low].ChamberPressure, high = cases[b.High].ChamberPressure;
  if (high > low) b.Part = std::clamp(std::log(state.Pressure / low) / std::log(high / low), 0.0, 1.0);
  return b;
}

} // namespace

double EfficiencyOf(double halfAngle) { return (1 + std::cos(halfAngle * Pi / 180)) / 2; }

PepPick::Figure BestRatioOf(const Thermo &state) {
  const Bracket b = BracketOf(state);
  return Between(PickCase(state, state.Run.Case[b.Low]).BestRatio,
                 PickCase(state, state.Run.Case[b.High]).BestRatio, b.Part);
}

PepPick PickOf(const Thermo &state) {
  if (!state.Run.Done) return {};
  const Bracket b = BracketOf(state);
  const PepFigures &low = state.Figures[b.Low], &high = state.Figures[b.High];
  const CasePick first = PickCase(state, state.Run.Case[b.Low]),
                 second = PickCase(state, state.Run.Case[b.High]);
  const auto cStar = [&](const PepFigures &f) {
    return Between(f.CStar[Frozen], f.CStar[Shifting], state.Shifting);
  };
  PepPick pick;
  pick.Temperature = Between(low.ChamberTemperature, high.ChamberTemperature, b.Part);
  pick.CStar = Between(cStar(low), cStar(high), b.Part);
  pick.Gamma = Between(low.Gamma, high.Gamma, b.Part);
  pick.GasWeight = Between(low.MeanGasWeight, high.MeanGasWeight, b.Part);
  pick.Isp = Between(first.Isp, second.Isp, b.Part);
  pick.VacuumIsp = Between(first.Vacuum, second.Vacuum, b.Part);
  pick.ExitTemperature = Between(first.ExitTemperature, second.ExitTemperature, b.Part);
  if (const auto log = Between(first.LogExitPressure, second.LogExitPressure, b.Part))
    pick.ExitPressure = std::exp(*log);
  if (pick.Isp && *pick.Isp > 0) pick.DensityIsp = *pick.Isp * state.Run.Propellant.DensityGcc;
  return pick;
}

PepMode ModeOf(const Thermo &state) { return state.Shifting < 0.5 ? Frozen : Shifting; }

std::size_t NearestCase(const Thermo &state) {
  const Bracket b = BracketOf(state);
  return b.Part < 0.5 ? b.Low : b.High;
}

double AltitudeFeet(double kilopascals) {
  struct Layer {
    double Base, Temperature, Lapse; // m, K, K/m
  };
  constexpr Layer layers[] = {{0, 288.15, -0.0065},    {11000, 216.65, 0}, {20000, 216.65, 0.001},
                              {32000, 228.65, 0.0028}, {47000, 270.65, 0}, {51000, 270.65, -0.0028},
                              {71000, 214.65, -0.002}};
  constexpr double GasOverGravity = 287.0528 / 9.80665, FootMetres = 0.3048; // m/K
  double fall = std::log(KpaPerAtm / kilopascals); // what is left of it above the layer's base
  constexpr std::size_t last = std::size(layers) - 1;
  for (std::size_t i = 0;; ++i) {
    const Layer &layer = layers[i];
    const double height = i < last ? layers[i + 1].Base - layer.Base : 0;
    const double through = layer.Lapse == 0 ? height / (GasOverGravity * layer.Temperature)
                                            : std::log(1 + layer.Lapse * height / layer.Temperature) /
                                                  (GasOverGravity * layer.Lapse);
    if (i < last && fall > through) {
      fall -= through;
      continue;
    }
    const double up = layer.Lapse == 0
                          ? fall * GasOverGravity * layer.Temperature
                          : layer.Temperature * std::expm1(fall * GasOverGravity * layer.Lapse) / layer.Lapse;
    return (layer.Base + up) / FootMetres;
  }
}
