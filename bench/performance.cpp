// A motor's charts and figures, as they are made while one types.
#include "burnback/designs.h"
#include "performance/charts.h"
#include "performance/motor_run.h"

#include <benchmark/benchmark.h>

namespace {

struct Motor {
  BurnRun Run;
  MotorTable Table;
  std::vector<KnRow> Kn;
  MotorInputs In;
};

Motor StarMotor() {
  Design design = MakeDesign(100, 300, 20, 3);
  AddRows(design, RoundedPolygon(StarCorners(6, 35, 25, 0.1, 1, 1)));
  Motor m;
  BurnRefusal refusal;
  BurnDesign(design, {}, m.Run, refusal);
  m.Table = TableOfRun(m.Run);
  m.In.ThroatDiam = 20;
  m.In.GrainDiam = 100;
  m.In.GrainLength = 300;
  m.In.EndsExposed = 3;
  m.Kn = KnRowsOfRun(m.Run, 20);
  return m;
}

// Each chart at a burn rate that makes some tens of thousands of points, and at the opening one.
void BuildOneChart(benchmark::State &state) {
  Motor m = StarMotor();
  m.In.Fuel.A /= static_cast<double>(state.range(1));
  const auto kind = static_cast<ChartKind>(state.range(0));
  PerformanceChart chart;
  for (auto _ : state)
    if (BuildChart(kind, m.Table, m.Kn, m.In, chart) != ChartOutcome::Drawn) state.SkipWithError("failed");
  state.SetLabel(TextOf(kind).Name);
  state.counters["points"] = static_cast<double>(chart.Value.size());
}

void Figures(benchmark::State &state) {
  const Motor m = StarMotor();
  MotorRun run;
  std::string trouble;
  for (auto _ : state)
    if (!RunMotor(m.Run, m.In, run, trouble)) state.SkipWithError(trouble.c_str());
}

BENCHMARK(BuildOneChart)->ArgsProduct({{0, 1, 2, 3, 4, 5, 7}, {1, 12}})->Unit(benchmark::kMillisecond);
BENCHMARK(Figures)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
