// The whole burn by number of entities, with and without its work files, and the text it stands on.
#include "base/number_text.h"
#include "burnback/burn_run.h"
#include "scratch_folder.h"
#include "shell/grain_file.h"
#include "stars.h"

#include <benchmark/benchmark.h>

#include <array>

namespace {

void RunBurn(benchmark::State &state, const BurnOptions &options) {
  const Design design = FilletedStar(static_cast<int>(state.range(0)));
  BurnRun run;
  BurnRefusal refusal;
  for (auto _ : state) {
    if (!BurnDesign(design, options, run, refusal)) {
      state.SkipWithError(refusal.Text.c_str());
      break;
    }
    benchmark::DoNotOptimize(run.MaxBurnArea);
  }
  state.counters["entities"] = design.Table.EntCount + 1;
  state.counters["steps"] = run.StepCount;
  state.counters["outline_rows"] = static_cast<double>(run.Steps.Row.size());
}

void BurnGeometry(benchmark::State &state) { RunBurn(state, {}); }

void BurnWithWorkFiles(benchmark::State &state) {
  const ScratchFolder folder;
  BurnOptions options;
  options.WorkFolder = folder.Path;
  RunBurn(state, options);
}

void ReadGrain(benchmark::State &state) {
  const std::string bytes = GrainText(FilletedStar(static_cast<int>(state.range(0))), GrainForm::File);
  Design design;
  for (auto _ : state) {
    if (!ParseGrain(bytes, "bench.mvd", design).empty()) state.SkipWithError("unread");
    benchmark::DoNotOptimize(design.Table.EntCount);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

void WriteNumbers(benchmark::State &state) {
  std::array<char, 32> text;
  double value = 1.2345678901234;
  for (auto _ : state) {
    benchmark::DoNotOptimize(WriteNumber(text.data(), value));
    value = value > 1e5 ? 1.2345678901234e-3 : value * 1.0001;
  }
  state.SetItemsProcessed(state.iterations());
}

BENCHMARK(BurnGeometry)
    ->Arg(12)
    ->Arg(24)
    ->Arg(48)
    ->Arg(60)
    ->Arg(120)
    ->Arg(240)
    ->Arg(300)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BurnWithWorkFiles)
    ->Arg(12)
    ->Arg(24)
    ->Arg(48)
    ->Arg(60)
    ->Arg(120)
    ->Arg(240)
    ->Arg(300)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ReadGrain)->Arg(12)->Arg(60)->Arg(300)->Unit(benchmark::kMicrosecond);
BENCHMARK(WriteNumbers);

} // namespace

BENCHMARK_MAIN();
