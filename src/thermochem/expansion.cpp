#include "thermochem/expansion.h"

#include "thermochem/nozzle.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int TableRows = 100;

// The flow between two nodes of an isentrope.
struct Flow {
  double Pressure = 0, Temperature = 0, Enthalpy = 0, Flux = 0; // atm, K, cal, kg/m2/s
};

double Slope(const IsentropeNode &n) { return GasCalories * n.GasMoles * n.Temperature; }

// Cubic in ln P through both enthalpies with the exact slopes n R T; the volume is the cubic's own slope.
Flow Between(const IsentropeNode &a, const IsentropeNode &b, double x, double chamberEnthalpy,
             double weight) {
  const double h = b.LogPressure - a.LogPressure, t = (x - a.LogPressure) / h, u = 1 - t;
  const double sa = Slope(a) * h, sb = Slope(b) * h;
  Flow f;
  f.Pressure = std::exp(x);
  f.Enthalpy =
      u * u * (1 + 2 * t) * a.Enthalpy + t * t * (3 - 2 * t) * b.Enthalpy + t * u * (u * sa - t * sb);
  const double slope =
      (6 * t * u * (b.Enthalpy - a.Enthalpy) + u * (u - 2 * t) * sa + t * (t - 2 * u) * sb) / h;
  f.Temperature = slope / (GasCalories * (u * a.GasMoles + t * b.GasMoles));
  const double moleKelvin = slope / GasCalories;
  f.Flux =
      VelocityOf(chamberEnthalpy - f.Enthalpy, weight) * f.Pressure * weight / (GasLitreAtm * moleKelvin);
  return f;
}

struct Isentrope {
  const std::vector<IsentropeNode> &Node;
  double Weight, ThroatFlux;

  double Top() const { return Node.front().Enthalpy; }
  Flow At(std::size_t cell, double x) const { return Between(Node[cell], Node[cell + 1], x, Top(), Weight); }
  double Ratio(std::size_t cell, double x) const { return ThroatFlux / At(cell, x).Flux; }
};

ExpansionRow RowOf(const Isentrope &line, const Flow &f) {
  ExpansionRow row;
  row.Stands = f.Flux > 0 && std::isfinite(f.Flux);
  if (!row.Stands) return {};
  row.Ratio = line.ThroatFlux / f.Flux;
  row.Pressure = f.Pressure;
  row.PressureKpa = f.Pressure * KpaPerAtm;
  row.Temperature = f.Temperature;
  row.Enthalpy = f.Enthalpy * JoulesPerCalorie;
  row.Optimum = ImpulseOf(line.Top() - f.Enthalpy, line.Weight);
  const double thrust = f.Pressure * KpaPerAtm * 1000 / f.Flux / MsPerSecond;
  row.Vacuum = row.Optimum + thrust;
  row.SeaLevel = row.Optimum + thrust * (f.Pressure - 1) / f.Pressure;
  row.OptimumMs = row.Optimum * MsPerSecond;
  row.VacuumMs = row.Vacuum * MsPerSecond;
  row.SeaLevelMs = row.SeaLevel * SeaLevelMsPerSecond;
  return row;
}

// Where the ratio is met below the throat, by false position within its cell.
ExpansionRow RowAt(const Isentrope &line, double throatLog, double ratio) {
  if (!(ratio >= 1) || line.Node.size() < 2) return {};
  for (std::size_t k = 0; k + 1 < line.Node.size(); ++k) {
    double high = std::min(line.Node[k].LogPressure, throatLog), low = line.Node[k + 1].LogPressure;
    if (low >= high) continue;
    double above = std::log(line.Ratio(k, high) / ratio), below = std::log(line.Ratio(k, low) / ratio);
    if (below < 0) continue;
    double x = high;
    for (int step = 0; step < 60 && above < 0 && high - low > 1e-9; ++step) {
      x = step % 3 == 2 ? 0.5 * (high + low) : high + (low - high) * above / (above - below);
      const double here = std::log(line.Ratio(k, x) / ratio);
      if (std::abs(here) < 1e-9) break;
      (here < 0 ? high : low) = x;
      (here < 0 ? above : below) = here;
    }
    ExpansionRow row = RowOf(line, line.At(k, x));
    row.Ratio = ratio;
    return row;
  }
  return {};
}

} // namespace

std::vector<ExpansionRow> ExpansionTable(const PepCase &c, PepMode mode, double weight) {
  std::vector<ExpansionRow> rows(TableRows);
  const PepPoint &throat = c.Point[mode][Throat];
  if (!throat.Stands) return rows;
  const Isentrope line{c.Isentrope[mode], weight, throat.Flux};
  for (int ratio = 1; ratio <= TableRows; ++ratio) {
    rows[ratio - 1] = RowAt(line, std::log(throat.Pressure), ratio);
    rows[ratio - 1].Ratio = ratio;
  }
  return rows;
}

ExpansionRow ExpansionAt(const PepOutcome &outcome, const PepCase &c, PepMode mode, double ratio) {
  const PepPoint &throat = c.Point[mode][Throat];
  if (!throat.Stands) return {};
  return RowAt({c.Isentrope[mode], outcome.Propellant.TotalWeight, throat.Flux}, std::log(throat.Pressure),
               ratio);
}

ExpansionRow ExpansionTo(const PepOutcome &outcome, const PepCase &c, PepMode mode, double atmospheres) {
  const PepPoint &throat = c.Point[mode][Throat];
  const std::vector<IsentropeNode> &node = c.Isentrope[mode];
  if (!throat.Stands || !(atmospheres > 0)) return {};
  const double x = std::log(atmospheres);
  const Isentrope line{node, outcome.Propellant.TotalWeight, throat.Flux};
  for (std::size_t k = 0; k + 1 < node.size(); ++k)
    if (x <= node[k].LogPressure && x >= node[k + 1].LogPressure) return RowOf(line, line.At(k, x));
  return {};
}

double ImpulseAgainst(const ExpansionRow &row, double atmospheres) {
  return row.Pressure > 0
             ? row.Optimum + (row.Vacuum - row.Optimum) * (row.Pressure - atmospheres) / row.Pressure
             : 0;
}
