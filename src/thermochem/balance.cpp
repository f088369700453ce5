#include "thermochem/balance.h"

#include "thermochem/species_thermo.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int Rounds = 20, MoreRounds = 25;  // steps of the told kind, then halvings
constexpr double Narrow = 2, Plateau = 0.01; // K between brackets

enum class Of { Enthalpy, Entropy };

struct Bracket {
  double Temperature = 0, Value = 0;
  bool Known = false, Settled = false;
  std::array<double, MaxSpecies + 1> Moles;
};

struct Search {
  Of What;
  double Pressure, Target;
  Composition Mode;
  Bracket Low, High;
};

double Solve(Solver &s, const Search &search, double temperature) {
  EquilibriumAtTP(s, temperature, search.Pressure, search.Mode);
  return search.What == Of::Enthalpy ? s.Enthalpy : s.Entropy;
}

// What is left of the difference goes into the other sum: dH = T dS at held pressure and composition.
void Correct(Solver &s, const Search &search, double temperature) {
  if (search.What == Of::Enthalpy) {
    s.Entropy += (search.Target - s.Enthalpy) / temperature;
    s.Enthalpy = search.Target;
  } else {
    s.Enthalpy += (search.Target - s.Entropy) * temperature;
    s.Entropy = search.Target;
  }
}

double Step(const Solver &s, const Search &search, double temperature, double value, double q) {
  const double d = (search.Target - value) / (s.Cp * q);
  if (search.What == Of::Enthalpy) return d;
  return temperature * (d > 0 ? std::exp(std::min(d, 10.0)) - 1 : d);
}

bool Small(const Search &search, double step, double temperature) {
  return search.What == Of::Enthalpy ? std::abs(step) < 0.02 : std::abs(step) / temperature < 1e-5;
}

// The state of a part `wh` of the upper bracket in the lower; its value.
double Mixed(Solver &s, const Search &search, double wh, double &temperature) {
  const Bracket &low = search.Low, &high = search.High;
  const double wl = 1 - wh;
  if (search.Mode == Composition::Equilibrium)
    for (int i = 1; i <= s.SpeciesCount; ++i) s.Moles[i] = wl * low.Moles[i] + wh * high.Moles[i];
  temperature = wl * low.Temperature + wh * high.Temperature;
  EquilibriumAtTP(s, temperature, search.Pressure, Composition::Frozen);
  return search.What == Of::Enthalpy ? s.Enthalpy : s.Entropy;
}

// Between the brackets; the weights are drawn closer because entropies of mixed gases do not simply add.
Balance Interpolate(Solver &s, const Search &search) {
  double lowPart = 0, highPart = 1, low = search.Low.Value, high = search.High.Value, temperature = 0;
  for (int k = 0; k < 8; ++k) {
    const double span = high - low;
    const double wh =
        span > 0 ? lowPart + (highPart - lowPart) * std::clamp((search.Target - low) / span, 0.0, 1.0) : 0.5;
    const double value = Mixed(s, search, wh, temperature);
    if (Small(search, Step(s, search, temperature, value, 1), temperature)) break;
    (value < search.Target ? lowPart : highPart) = wh;
    (value < search.Target ? low : high) = value;
  }
  Correct(s, search, temperature);
  return {temperature, search.Low.Settled && search.High.Settled &&
                           search.High.Temperature - search.Low.Temperature < Narrow};
}

void Keep(const Solver &s, Search &search, double temperature, double value) {
  Bracket &side = value < search.Target ? search.Low : search.High;
  side.Temperature = temperature;
  side.Value = value;
  side.Known = true;
  side.Settled = !s.BasisStale;
  side.Moles = s.Moles;
}

// A side that did not settle is solved once more, then a little farther from the plateau, where passes creep
// less.
void Firm(Solver &s, Search &search, Bracket &side, double away) {
  if (!search.Low.Known || !search.High.Known) return;
  const double from = side.Temperature;
  for (const double step : {0.0, 1.0, 2.0, 4.0, 16.0}) {
    if (side.Settled) return;
    s.Moles = side.Moles;
    const double t = from + away * step * Plateau, value = Solve(s, search, t);
    if (!s.BasisStale && (value < search.Target) == (away < 0)) Keep(s, search, t, value);
  }
}

Balance AtPlateau(Solver &s, Search &search) {
  Firm(s, search, search.Low, -1);
  Firm(s, search, search.High, 1);
  return Interpolate(s, search);
}

Balance Seek(Solver &s, Search &search, double t) {
  search.Low.Temperature = Coldest;
  search.High.Temperature = Hottest;
  double q = 1, value = Solve(s, search, t);
  const auto settled = [&] { return !s.BasisStale && Small(search, Step(s, search, t, value, 1), t); };
  const auto done = [&] {
    Correct(s, search, t);
    return Balance{t, true};
  };
  if (settled()) return done();
  for (int k = 1; k <= Rounds + MoreRounds; ++k) {
    // What did not settle is kept in the end all the same: near a plateau its side is known.
    if (!s.BasisStale || k > Rounds / 2) Keep(s, search, t, value);
    const double low = search.Low.Temperature, high = search.High.Temperature;
    const bool both = search.Low.Known && search.High.Known;
    if (both && high - low < Plateau) return AtPlateau(s, search);
    q = std::clamp(q, 1.0, 16.0);
    double step = Step(s, search, t, value, q);
    step = std::max(std::min(step, 0.5 * (high - t)), 0.5 * (low - t));
    if (both && (high - low < Narrow || k > Rounds / 2)) step = 0.5 * (low + high) - t;
    const double before = value, was = t;
    t += step;
    value = Solve(s, search, t);
    if (settled()) return done();
    if (t < Coldest + 0.5 || t > Hottest - 0.5) break; // nothing balances inside the bounds
    const double drawn = search.What == Of::Enthalpy ? step : was * std::log(t / was);
    q = (value - before) / (s.Cp * (search.What == Of::Enthalpy ? drawn : drawn / was));
    if (!std::isfinite(q)) q = 1;
  }
  if (search.Low.Known && search.High.Known) return AtPlateau(s, search);
  return {t, false};
}

} // namespace

Balance EnthalpyBalance(Solver &s, double temperature, double pressure, double target) {
  Search search{Of::Enthalpy, pressure, target, Composition::Equilibrium, {}, {}};
  return Seek(s, search, temperature);
}

Balance EntropyBalance(Solver &s, double temperature, double pressure, double target, Composition mode) {
  Search search{Of::Entropy, pressure, target, mode, {}, {}};
  return Seek(s, search, temperature);
}
