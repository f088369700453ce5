// A propellant's whole run by its pressures, what one solve takes, and that the passes allocate nothing.
#include "base/fault.h"
#include "thermochem/adjustment.h"
#include "thermochem/balance.h"
#include "thermochem/composition.h"
#include "thermochem/data_files.h"

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdlib>
#include <memory>
#include <new>

namespace {

std::atomic<long> Allocations{0};

using Weights = std::vector<std::pair<std::string, double>>;

const std::vector<Weights> Mixes = {{{"POTASSIUM NITRATE", 65}, {"SUCROSE", 35}},
                                    {{"AMMONIUM PERCHLORATE", 68}, {"HTPB R-45M", 14}, {"ALUMINUM", 18}},
                                    {{"AMMONIUM PERCHLORATE", 60},
                                     {"HTPB R-45M", 12},
                                     {"ALUMINUM", 16},
                                     {"RDX", 8},
                                     {"IRON OXIDE RED (FE2O3)", 2},
                                     {"DIOCTYL ADIPATE (DOA)", 2}}};

const DataFiles &Files() {
  static const DataFiles files = [] {
    DataFiles read;
    const std::string fault = ReadDataFiles(FindDataFiles({BENCH_BIN}), read);
    if (!fault.empty()) throw Fault{0, fault};
    return read;
  }();
  return files;
}

PepInputs InputsOf(const Weights &mix) {
  PepInputs in;
  for (const auto &[name, weight] : mix)
    for (std::size_t k = 0; k < Files().Ingredient.size(); ++k)
      if (Files().Ingredient[k].Name == name) in.Ingredient.push_back({static_cast<int>(k) + 1, weight});
  return in;
}

// 15 pressures from 2 to 10 MPa: chamber, throat, both exits and the table, shifting and frozen.
void WholeRun(benchmark::State &state) {
  const PepInputs in = InputsOf(Mixes[state.range(0)]);
  int species = 0;
  for (auto _ : state) {
    const PepOutcome out = RunPep(in, Files());
    if (!out.Done || !out.Converged) state.SkipWithError("not converged");
    species = out.Species.SpeciesCount;
  }
  state.counters["species"] = species;
}

// Chambers of two pressures in turn, with what the solver takes from the heap meanwhile.
void FlameTemperature(benchmark::State &state) {
  IngredientTable ingredients;
  ElementTable elements;
  const auto species = std::make_unique<SpeciesTable>();
  std::vector<std::string> messages;
  std::string trouble;
  ReadIngredients(InputsOf(Mixes[state.range(0)]), Files(), ingredients, elements, messages, trouble);
  const Mix mix = ComposeMix(ingredients, elements, 25);
  LoadSpecies(Files(), elements, *species, messages, trouble);
  const auto solver = std::make_unique<Solver>();
  StartSolver(*solver, elements, *species, mix.TotalWeight);
  solver->MinMoles = mix.TotalWeight / 1e11;
  FirstGuess(*solver, 3000);
  const long before = Allocations;
  double pressure = 20;
  for (auto _ : state) {
    pressure = 120 - pressure;
    benchmark::DoNotOptimize(EnthalpyBalance(*solver, 3000, pressure, mix.Enthalpy));
  }
  state.counters["allocations"] = static_cast<double>(Allocations - before);
}

BENCHMARK(WholeRun)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
BENCHMARK(FlameTemperature)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);

} // namespace

// g++ takes malloc behind operator new for a mismatch with free when it inlines one of them alone.
[[gnu::noinline]] void *operator new(std::size_t size) {
  ++Allocations;
  if (void *at = std::malloc(size)) return at;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void *at) noexcept { std::free(at); }
[[gnu::noinline]] void operator delete(void *at, std::size_t) noexcept { std::free(at); }

BENCHMARK_MAIN();
