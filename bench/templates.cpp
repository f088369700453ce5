// A template drawn headless, as sweeps, searches and previews do it.
#include "macros/templates.h"
#include "base/whole_file.h"
#include "burnback/live_burn.h"
#include "macros/template_design.h"
#include "scratch_folder.h"
#include "shell/play_script.h"
#include "shell/start_up.h"
#include "shell/template_picture.h"

#include <benchmark/benchmark.h>

namespace {
void Draw(benchmark::State &state, const MacFile &mac) {
  VariableTable values;
  AnswerTemplate(mac, {}, RecordedDiameter(mac), 100, values);
  const auto player = MakeTemplatePlayer();
  Design grain;
  for (auto _ : state) benchmark::DoNotOptimize(DesignFromTemplate(*player, mac, values, {}, grain));
  state.counters["instructions"] = static_cast<double>(mac.Log.size());
  state.counters["entities"] = grain.Table.EntCount + 1;
}

void DrawTemplate(benchmark::State &state, const char *key) {
  const std::string folder = BENCH_BIN "data/templates/";
  MacFile mac;
  if (!ReadMacFile(FindTemplate({folder, folder}, key), mac).empty())
    return state.SkipWithError("no such template: build morvandel_templates");
  Draw(state, mac);
}

// A gear drawn tooth by tooth, every point by formulas: twenty eight lines and a bore, nothing by symmetry.
void DrawSixtyInstructions(benchmark::State &state) {
  std::string script = "grain 40 100 9 none\nvariable TIP 14 Radius of the tips, mm [10 .. 18]\n"
                       "variable ROOT 9 Radius of the roots, mm [6 .. 9]\nrecord\ncmd 1\n";
  const auto point = [](int corner) {
    const std::string radius = corner % 2 ? "ROOT" : "TIP", angle = std::to_string(corner % 28) + "*pi/14";
    return "point " + radius + "*cos(" + angle + "); " + radius + "*sin(" + angle + ")\n";
  };
  for (int corner = 0; corner < 28; ++corner) script += point(corner) + point(corner + 1);
  script += "cmd 20\nanswer ROOT/3\npoint 0; 0\ntemplate Gear: Gear\n";
  const ScratchFolder home;
  WorkFolders folders;
  folders.AppDir = home.Path;
  WriteWhole(home.Path + "IntroFile.txt", "1\r\n");
  ScriptedScreen screen;
  Workbench bench(screen);
  ScriptedTemplates made;
  BindScript(bench, screen, {.Templates = &made, .Lessons = nullptr});
  StartUp(bench, folders, ReadCommandLine({"Gd=40", "Gl=100", "Ea=0", "Eb=0", "Td=9"}));
  screen.Lines = ReadScript(script);
  PlayScript(screen);
  if (!screen.Lines.Fault.empty() || made.Made.size() != 1)
    return state.SkipWithError(screen.Lines.Fault.c_str());
  Draw(state, made.Made.front().Mac);
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
BENCHMARK(DrawSixtyInstructions)->Unit(benchmark::kMicrosecond);
} // namespace

BENCHMARK_MAIN();
