#include "thermochem/nozzle.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

// Fractions of the chamber's pressure between which any throat lies; plateaus move it up, monatomic gas down.
constexpr std::array<double, 3> ThroatGuess = {0.64, 0.56, 0.48};
constexpr double ThroatTolerance = 0.003; // of ln P: the flux is flat to its square
constexpr int ThroatSteps = 16;

struct FluxAt {
  double LogPressure = 0, Flux = 0, Temperature = 0;
};

FluxAt Probe(Solver &s, Nozzle &nozzle, double logPressure, double temperature) {
  PepPoint p = Expand(s, nozzle, std::exp(logPressure), temperature);
  return {logPressure, p.Flux, p.Temperature};
}

// Vertex of the parabola through three fluxes, or the middle of the longer side where it has none inside.
double NextProbe(const FluxAt &a, const FluxAt &b, const FluxAt &c) {
  const double x = b.LogPressure, u = a.LogPressure - x, v = c.LogPressure - x;
  const double fu = a.Flux - b.Flux, fv = c.Flux - b.Flux;
  const double denominator = 2 * (v * fu - u * fv);
  const double step = denominator != 0 ? (v * v * fu - u * u * fv) / denominator : 0;
  const double longer = std::abs(u) > std::abs(v) ? u : v;
  const bool inside = x + step < a.LogPressure && x + step > c.LogPressure;
  if (!inside || std::abs(step) < ThroatTolerance / 4) return x + longer * 0.3;
  return x + step;
}

} // namespace

double ImpulseOf(double fall, double weight) { return 9.3294 * std::sqrt(std::max(fall, 0.0) / weight); }
double VelocityOf(double fall, double weight) { return std::sqrt(8372 * std::max(fall, 0.0) / weight); }

PepPoint RecordPoint(const Solver &s, double pressure, double temperature) {
  PepPoint p;
  p.Stands = true;
  p.Temperature = temperature;
  p.Pressure = pressure;
  p.Enthalpy = s.Enthalpy * JoulesPerCalorie;
  p.Entropy = s.Entropy / 1000;
  p.Cp = s.Cp;
  p.Gamma = s.Cp / (s.Cp - s.GasMoles * GasCalories);
  for (int i = 1; i <= s.SpeciesCount; ++i) {
    const double moles = s.Moles[i], weight = moles * s.Species->MolecularWeight[i];
    if (i <= s.GasCount) {
      p.GasCp += moles * s.CpTerm[i];
      p.GasMoles += moles;
      p.GasWeight += weight;
    } else {
      p.CondensedMoles += moles;
      p.CondensedWeight += weight;
    }
  }
  p.MeanWeight = (p.GasWeight + p.CondensedWeight) / (p.GasMoles + p.CondensedMoles);
  p.MeanGasWeight = p.GasWeight / p.GasMoles;
  const double rankine = 1.8 * temperature - 459.4 + 459.67;
  p.SoundSpeed = 0.3048 * std::sqrt(rankine * (p.GasMoles * 1545 / s.TotalWeight) * 32.174 * p.Gamma);
  p.Density = pressure * s.TotalWeight / (GasLitreAtm * temperature * p.GasMoles);
  return p;
}

void Performance(const Nozzle &nozzle, double weight, PepPoint &p) {
  const double fall = nozzle.ChamberEnthalpy - p.Enthalpy / JoulesPerCalorie;
  p.Velocity = VelocityOf(fall, weight);
  p.Flux = p.Density * p.Velocity;
  p.Impulse = ImpulseOf(fall, weight);
  p.CStar = nozzle.CStar;
  if (nozzle.ThroatFlux == 0 || p.Flux <= 0) return;
  p.AreaRatio = nozzle.ThroatFlux / p.Flux;
  const double thrust = p.Pressure * KpaPerAtm * 1000 / p.Flux / MsPerSecond; // Pe A/(m g)
  p.VacuumImpulse = p.Impulse + thrust;
  p.SeaLevelImpulse = p.Impulse + thrust * (p.Pressure - 1) / p.Pressure;
}

PepPoint Expand(Solver &s, Nozzle &nozzle, double pressure, double temperature) {
  const Composition mode = nozzle.Mode == Shifting ? Composition::Equilibrium : Composition::Frozen;
  const Balance found = EntropyBalance(s, temperature, pressure, nozzle.Entropy, mode);
  nozzle.Converged = nozzle.Converged && found.Converged;
  PepPoint p = RecordPoint(s, pressure, found.Temperature);
  Performance(nozzle, s.TotalWeight, p);
  return p;
}

PepPoint FindThroat(Solver &s, Nozzle &nozzle, double lowest) {
  const double top = std::log(nozzle.ChamberPressure), bottom = std::log(lowest);
  std::array<FluxAt, 3> probe;
  double t = nozzle.ChamberTemperature;
  for (std::size_t k = 0; k < probe.size(); ++k) {
    probe[k] = Probe(s, nozzle, std::max(top + std::log(ThroatGuess[k]), bottom), t * 0.97);
    t = probe[k].Temperature;
  }
  auto &[a, b, c] = probe;
  for (int k = 0; k < ThroatSteps; ++k) {
    if (b.Flux < a.Flux) { // the maximum is above
      c = b;
      b = a;
      a = Probe(s, nozzle, 0.5 * (a.LogPressure + top), a.Temperature);
    } else if (b.Flux < c.Flux) {
      a = b;
      b = c;
      c = Probe(s, nozzle, std::max(c.LogPressure - 0.2, bottom), c.Temperature);
      if (c.LogPressure == b.LogPressure) break;
    } else {
      if (a.LogPressure - c.LogPressure < 2 * ThroatTolerance) break;
      const FluxAt next = Probe(s, nozzle, NextProbe(a, b, c), b.Temperature);
      const bool higher = next.LogPressure > b.LogPressure;
      const bool near = std::abs(next.LogPressure - b.LogPressure) < ThroatTolerance;
      if (next.Flux > b.Flux) {
        (higher ? c : a) = b;
        b = next;
      } else {
        (higher ? a : c) = next;
      }
      if (near && std::abs(next.Flux - b.Flux) < 1e-5 * b.Flux) break;
    }
  }
  PepPoint throat = Expand(s, nozzle, std::exp(b.LogPressure), b.Temperature);
  nozzle.ThroatFlux = throat.Flux;
  nozzle.CStar = nozzle.ChamberPressure * KpaPerAtm * 1000 / throat.Flux;
  Performance(nozzle, s.TotalWeight, throat);
  return throat;
}
