#pragma once
#include "desktop/window_style.h"

#include <benchmark/benchmark.h>

#include <QApplication>

// Benchmarks that need the toolkit running, dressed as the program dresses it.
inline int RunInWindow(int argc, char **argv) {
  int one = 1;
  QApplication app(one, argv);
  QApplication::setStyle(MakeWindowStyle());
  SetBaseFont(10);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
