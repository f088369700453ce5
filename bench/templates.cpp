// A template drawn headless, as sweeps, searches and previews do it.
#include "macros/templates.h"
#include "macros/template_design.h"

#include <benchmark/benchmark.h>

namespace {
void DrawTemplate(benchmark::State &state, const char *key) {
  const std::string folder = BENCH_BIN "data/templates/";
  MacFile mac;
  if (!ReadMacFile(FindTemplate({folder, folder}, key), mac).empty())
    return state.SkipWithError("no such template: build morvandel_templates");
  VariableTable values;
  AnswerTemplate(mac, {}, RecordedDiameter(mac), 100, values);
  const auto player = MakeTemplatePlayer();
  Design grain;
  for (auto _ : state) benchmark::DoNotOptimize(DesignFromTemplate(*player, mac, values, {}, grain));
  state.counters["instructions"] = static_cast<double>(mac.Log.size());
  state.counters["entities"] = grain.Table.EntCount + 1;
}
BENCHMARK_CAPTURE(DrawTemplate, double_anchor, "Double anchor")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(DrawTemplate, star_filleted, "Star filleted")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(DrawTemplate, star, "Star")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(DrawTemplate, tube, "Tube")->Unit(benchmark::kMicrosecond);
} // namespace

BENCHMARK_MAIN();
