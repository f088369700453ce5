// One event through Dispatch with 300 entities on the drawing: what a person waits for.
#include "base/whole_file.h"
#include "drafting/command_table.h"
#include "geometry/find_entity.h"
#include "platform/events.h"
#include "platform/scripted_screen.h"
#include "scratch_folder.h"
#include "shell/design_view.h"
#include "shell/dispatch.h"
#include "shell/start_up.h"

#include <benchmark/benchmark.h>

#include <cmath>

namespace {
constexpr int Rows = 300;

// What the window gives to its workers (live curve, diagnosis) is no part of an event there.
struct WindowScreen : ScriptedScreen {
  void StartWork(std::function<void()>, std::function<void()>) override {}
  void StartDiagnosis(std::function<void()>, std::function<void()>) override {}
};

// A program with a drawing of crossing chords, circles and arcs in a grain of 100 mm.
struct Board {
  ScratchFolder Folder;
  WindowScreen Screen;
  Workbench Bench{Screen};

  Board() {
    WorkFolders folders;
    folders.AppDir = Folder.Path;
    WriteWhole(folders.AppDir + "IntroFile.txt", "1\r\n");
    StartUp(Bench, folders, ReadCommandLine({"Gd=100", "Gl=300", "Ea=1", "Eb=1", "Td=20"}));
    EntityTable &table = Bench.Grain.Table;
    for (int i = 0; i < Rows; ++i) {
      const double a = i * TwoPi / Rows, x = 40 * std::cos(a), y = 40 * std::sin(a);
      if (i % 3 == 0) AppendRow(table, MakeLine(x, y, -0.6 * y, 0.6 * x));
      if (i % 3 == 1) AppendRow(table, MakeCircle(0.7 * x, 0.7 * y, 3 + i % 5));
      if (i % 3 == 2) AppendRow(table, MakeArc(0.4 * x, 0.4 * y, 6, a, a + 2));
    }
    ShowWholeGrain(Bench);
  }
  void Send(Event::Kind what, Ctl target, double x = 0, double y = 0, int button = 0) {
    Dispatch(Bench, MouseAt(what, target, x, y, button));
  }
  void Begin(int cmdNo) { Send(Event::Kind::Press, FindCommand(cmdNo)->Button); }
  void Click(double x, double y) {
    Send(Event::Kind::MouseDown, Ctl::DrawPanel, x, y, 1);
    Send(Event::Kind::MouseUp, Ctl::DrawPanel, x, y, 1);
  }
};

Point OnRing(int i, double r) { return {r * std::cos(0.1 * i), r * std::sin(0.1 * i)}; }

void MoveOver(benchmark::State &state, int cmdNo, bool automatic) {
  Board board;
  board.Bench.Draft.Track.AutoPoint = automatic;
  board.Begin(cmdNo);
  int i = 0;
  for (auto _ : state) {
    const Point p = OnRing(++i, 30);
    board.Send(Event::Kind::MouseMove, Ctl::DrawPanel, p.X, p.Y);
  }
}
void MoveWithTracker(benchmark::State &state) { MoveOver(state, 1, true); }
void MoveWithSectionTrim(benchmark::State &state) { MoveOver(state, 69, true); }

// A tool with picks held, at work on a copy of the drawing at every move.
void MoveWithPick(benchmark::State &state, int cmdNo) {
  Board board;
  board.Bench.Draft.Track.AutoPoint = true;
  board.Screen.Lines = ReadScript("answer 2");
  board.Begin(cmdNo);
  Entity &held = RowAt(board.Bench.Grain.Table, 0);
  board.Click((held.X1 + held.X2) / 2, (held.Y1 + held.Y2) / 2);
  state.counters["held"] = board.Bench.Draft.Cmd.CmdState;
  int i = 0, shown = 0;
  for (auto _ : state) {
    const Point p = OnRing(++i, 30);
    board.Send(Event::Kind::MouseMove, Ctl::DrawPanel, p.X, p.Y);
    shown += board.Screen.Panel.Overlay.size() > 3;
  }
  state.counters["shown"] = benchmark::Counter(shown, benchmark::Counter::kAvgIterations);
}
void MoveWithFillet(benchmark::State &state) { MoveWithPick(state, 55); }
void MoveWithTrim(benchmark::State &state) { MoveWithPick(state, 60); }

// Pick one of 300 and break it or shorten it, redraw, recovery file; then put back by Undo (not timed).
void ClickSection(benchmark::State &state) {
  Board board;
  const EntityTable table = board.Bench.Grain.Table;
  board.Begin(69);
  int i = 0;
  for (auto _ : state) {
    const Point p = OnRing(++i, 30);
    board.Click(p.X, p.Y);
    state.PauseTiming();
    board.Bench.Grain.Table = table;
    state.ResumeTiming();
  }
  state.counters["changes"] = board.Bench.Draft.Changes;
}

void ClickLine(benchmark::State &state) {
  Board board;
  const EntityTable table = board.Bench.Grain.Table;
  board.Begin(1);
  for (auto _ : state) {
    board.Click(1, 2);
    board.Click(20, 5);
    state.PauseTiming();
    board.Bench.Grain.Table = table;
    state.ResumeTiming();
  }
  state.counters["changes"] = board.Bench.Draft.Changes;
}

void Find(benchmark::State &state) {
  Board board;
  int i = 0;
  for (auto _ : state)
    benchmark::DoNotOptimize(FindEntity(board.Bench.Grain.Table, OnRing(++i, 30), 50).Index);
}
} // namespace

BENCHMARK(MoveWithTracker)->Unit(benchmark::kMillisecond);
BENCHMARK(MoveWithSectionTrim)->Unit(benchmark::kMillisecond);
BENCHMARK(MoveWithFillet)->Unit(benchmark::kMillisecond);
BENCHMARK(MoveWithTrim)->Unit(benchmark::kMillisecond);
BENCHMARK(ClickSection)->Unit(benchmark::kMillisecond);
BENCHMARK(ClickLine)->Unit(benchmark::kMillisecond);
BENCHMARK(Find)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
