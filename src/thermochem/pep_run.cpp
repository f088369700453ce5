#include "thermochem/pep_run.h"

#include "thermochem/adjustment.h"
#include "thermochem/composition.h"
#include "thermochem/expansion.h"
#include "thermochem/nozzle.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <memory>

namespace {

constexpr double HighestPressure = 1000, LowestPressure = 1e-3; // MPa
constexpr double ColdestMix = -200, HottestMix = 600;           // degrees Celsius
constexpr double FirstTemperature = 3000;                       // K
constexpr int ExtraDigits = 3;                                  // option 5
constexpr double NodeStep = 1.2;                                // of ln P between isentrope nodes, at most

const char *const NoChamberConvergence = "*****No Temperature Convergence - Don't Trust Results!";
const char *const NoExitConvergence = "*****No Temperature Convergence-Dont Trust Results!";

struct Run {
  Solver S;
  std::array<double, MaxSpecies + 1> ChamberMoles{};
  double Floor = 0, ExitFloor = 0; // MinMoles of the chamber and of the leg behind the first exit
};

std::string Refusal(const PepInputs &in) {
  if (!(in.Temperature >= ColdestMix && in.Temperature <= HottestMix))
    return fmt::format("The propellant's temperature must be from {} to {} degrees Celsius", ColdestMix,
                       HottestMix);
  for (const double p : {in.LowerPressure, in.UpperPressure})
    if (!(p >= LowestPressure && p <= HighestPressure))
      return fmt::format("A chamber pressure must be from {} to {} MPa", LowestPressure, HighestPressure);
  if (in.CaseCount < 1 || in.CaseCount > MaxCases)
    return fmt::format("A run has 1 to {} pressures", MaxCases);
  return {};
}

// Floors of the mole numbers: told by the weight, and far below what there is of the scarcest element.
void SetFloors(Run &run, const PepOutcome &out) {
  const double extra = std::pow(10.0, ExtraDigits);
  double scarcest = 1e30;
  for (int e = 1; e <= out.Elements.ElementCount; ++e)
    scarcest = std::min<double>(scarcest, out.Elements.ElementTotal[e]);
  run.Floor = std::min(run.S.TotalWeight / 1e8 / extra, scarcest * 1e-5);
  run.ExitFloor = std::min(run.S.TotalWeight * 1e-7 / extra, scarcest * 1e-4);
}

// Pressures of an isentrope's nodes below the chamber, from the highest down: throat, exits, and what keeps
// the steps short.
int NodePressures(double chamber, double throat, std::array<double, 40> &at) {
  constexpr double Exit1Atm = ExitPsi1 / PsiPerAtm, Exit2Atm = ExitPsi2 / PsiPerAtm;
  const double stops[] = {std::max(throat, Exit1Atm), std::min(throat, Exit1Atm), Exit2Atm};
  int count = 0;
  double from = chamber;
  for (const double stop : stops) {
    const double fall = std::log(from / stop);
    if (fall <= 1e-12) continue;
    const int steps = static_cast<int>(std::ceil(fall / NodeStep));
    for (int k = 1; k < steps && count < 36; ++k) at[count++] = from * std::exp(-fall * k / steps);
    at[count++] = stop;
    from = stop;
  }
  return count;
}

IsentropeNode NodeOf(const PepPoint &p) {
  return {std::log(p.Pressure), p.Enthalpy / JoulesPerCalorie, p.Temperature, p.GasMoles};
}

std::vector<float> KeptMoles(const Solver &s) {
  return {s.Moles.begin(), s.Moles.begin() + s.SpeciesCount + 1};
}

// The whole expansion of a case in one mode, from the chamber's state in the solver.
void ExpandCase(Run &run, PepCase &c, PepMode mode, Nozzle nozzle) {
  Solver &s = run.S;
  nozzle.Mode = mode;
  PepPoint *point = c.Point[mode];
  point[Throat] = FindThroat(s, nozzle, ExitPsi2 / PsiPerAtm);
  point[Throat].Moles = KeptMoles(s);
  point[Chamber].CStar = nozzle.CStar;
  std::array<double, 40> at;
  const int count = NodePressures(nozzle.ChamberPressure, point[Throat].Pressure, at);
  std::vector<IsentropeNode> &line = c.Isentrope[mode];
  line.clear();
  line.push_back(NodeOf(point[Chamber]));
  PepPoint last = point[Chamber];
  bool settled = nozzle.Converged;
  for (int k = 0; k < count; ++k) {
    if (at[k] == point[Throat].Pressure) {
      last = point[Throat];
    } else {
      if (mode == Shifting && at[k] < 0.999 * ExitPsi1 / PsiPerAtm) s.MinMoles = run.ExitFloor;
      const double fall = std::log(at[k] / last.Pressure);
      last = Expand(s, nozzle, at[k], last.Temperature * std::exp(fall * (last.Gamma - 1) / last.Gamma));
    }
    if (last.Temperature < 1.01 * Coldest) {
      c.Notes.push_back(
          fmt::format("The {} flow gets colder than {} K at {:.3g} atm: what is beyond is left out",
                      mode == Shifting ? "shifting" : "frozen", Coldest, at[k]));
      nozzle.Converged = settled;
      break;
    }
    settled = nozzle.Converged;
    line.push_back(NodeOf(last));
    const bool first = std::abs(at[k] - ExitPsi1 / PsiPerAtm) < 1e-12 * at[k];
    if (!first && k + 1 < count) continue;
    PepPoint &exit = point[first ? Exit1 : Exit2];
    exit = last;
    exit.Moles = KeptMoles(s);
  }
  if (!nozzle.Converged) {
    c.Converged = false;
    c.Notes.push_back(fmt::format("{} ({})", NoExitConvergence, mode == Shifting ? "shifting" : "frozen"));
  }
}

void RunCase(Run &run, const PepOutcome &out, PepCase &c, double &temperature) {
  Solver &s = run.S;
  s.MinMoles = run.Floor;
  const Balance flame =
      EnthalpyBalance(s, std::clamp(temperature, 500.0, 6000.0), c.Atmospheres, out.Propellant.Enthalpy);
  temperature = flame.Temperature;
  if (!flame.Converged) {
    c.Converged = false;
    c.Notes.push_back(fmt::format("{} (chamber)", NoChamberConvergence));
    if (flame.Temperature < 1.01 * Coldest)
      c.Notes.push_back(fmt::format("The products of this propellant are colder than {} K", Coldest));
    if (flame.Temperature > 0.99 * Hottest)
      c.Notes.push_back(fmt::format("The products of this propellant are hotter than {} K", Hottest));
  }
  PepPoint &chamber = c.Point[Shifting][Chamber];
  chamber = RecordPoint(s, c.Atmospheres, flame.Temperature);
  chamber.Moles = KeptMoles(s);
  c.Point[Frozen][Chamber] = chamber;
  if (c.Psi < ExitPsi1) {
    c.Notes.push_back("Why is the Exit Pressure greater than the Chamber Pressure?");
    return;
  }
  if (flame.Temperature < 1.01 * Coldest) return;
  if (s.GasMoles < 1e-7 * s.TotalWeight) {
    c.Notes.push_back("The propellant makes no gas: there is nothing to expand");
    return;
  }
  Nozzle nozzle;
  nozzle.ChamberPressure = c.Atmospheres;
  nozzle.ChamberTemperature = flame.Temperature;
  nozzle.ChamberEnthalpy = s.Enthalpy;
  nozzle.Entropy = s.Entropy;
  run.ChamberMoles = s.Moles;
  for (const PepMode mode : {Shifting, Frozen}) {
    s.Moles = run.ChamberMoles;
    ExpandCase(run, c, mode, nozzle);
  }
  s.Moles = run.ChamberMoles; // the next chamber is near this one
  for (const PepMode mode : {Shifting, Frozen})
    c.Expansion[mode] = ExpansionTable(c, mode, out.Propellant.TotalWeight);
}

// Loads the mix; false with Trouble set when there is nothing to run.
bool Load(const PepInputs &in, const DataFiles &files, PepOutcome &out) {
  out.Trouble = Refusal(in);
  if (!out.Trouble.empty()) return false;
  if (!ReadIngredients(in, files, out.Ingredients, out.Elements, out.Messages, out.Trouble)) return false;
  out.Propellant = ComposeMix(out.Ingredients, out.Elements, in.Temperature);
  if (!LoadSpecies(files, out.Elements, out.Species, out.Messages, out.Trouble)) return false;
  if (out.Species.GasCount == 0) out.Trouble = "No gas can form from these elements";
  return out.Trouble.empty();
}

} // namespace

PepOutcome RunPep(const PepInputs &in, const DataFiles &files, const std::function<bool(int)> &progress) {
  PepOutcome out;
  if (!Load(in, files, out)) return out;
  const auto run = std::make_unique<Run>();
  StartSolver(run->S, out.Elements, out.Species, out.Propellant.TotalWeight);
  SetFloors(*run, out);
  run->S.MinMoles = run->Floor;
  if (!FirstGuess(run->S, FirstTemperature)) {
    out.Trouble = "Can't find basis";
    for (const std::string &message : out.Messages) out.Trouble += ". " + message;
    return out;
  }
  const auto [low, high] = std::minmax(in.LowerPressure, in.UpperPressure);
  double temperature = FirstTemperature;
  out.Converged = true;
  out.Case.reserve(in.CaseCount);
  for (int k = 0; k < in.CaseCount; ++k) {
    PepCase c;
    c.ChamberPressure = in.CaseCount == 1 ? low : low + k * (high - low) / (in.CaseCount - 1);
    c.Psi = c.ChamberPressure * PsiPerMpa;
    c.Atmospheres = c.Psi / PsiPerAtm;
    RunCase(*run, out, c, temperature);
    out.Converged = out.Converged && c.Converged;
    out.Case.push_back(std::move(c));
    if (progress && !progress(k + 1)) {
      out.Trouble = "Stopped";
      return out;
    }
  }
  out.Done = true;
  return out;
}
