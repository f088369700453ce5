// A template drawn headless, as sweeps, searches and previews do it.
#include "macros/templates.h"
#include "burnback/live_burn.h"
#include "macros/template_design.h"
#include "shell/template_picture.h"

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

// All that a slider's move asks for: drawing, burn, picture.
void SlideTemplate(benchmark::State &state, const char *key) {
  const std::string folder = BENCH_BIN "data/templates/";
  MacFile mac;
  if (!ReadMacFile(FindTemplate({folder, folder}, key), mac).empty())
    return state.SkipWithError("no such template: build morvandel_templates");
  VariableTable values;
  AnswerTemplate(mac, {}, RecordedDiameter(mac), 100, values);
  const auto player = MakeTemplatePlayer();
  LiveRequest request;
  for (auto _ : state) {
    DesignFromTemplate(*player, mac, values, {0, 100, 9, 3}, request.Grain);
    if (!BurnLive(request).Burnt) return state.SkipWithError("it does not burn");
    benchmark::DoNotOptimize(GrainSurface(request.Grain));
  }
}
BENCHMARK_CAPTURE(SlideTemplate, double_anchor, "Double anchor")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SlideTemplate, star_filleted, "Star filleted")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SlideTemplate, wagon_wheel, "Wagon wheel")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SlideTemplate, tube, "Tube")->Unit(benchmark::kMillisecond);

BENCHMARK_CAPTURE(DrawTemplate, double_anchor, "Double anchor")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(DrawTemplate, star_filleted, "Star filleted")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(DrawTemplate, star, "Star")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(DrawTemplate, tube, "Tube")->Unit(benchmark::kMicrosecond);
} // namespace

BENCHMARK_MAIN();
