// The X display of the benchmarks that draw into an X pixmap.
#pragma once

#include <X11/Xlib.h>
#include <benchmark/benchmark.h>

// Opened once for the process; null, with the benchmark marked skipped, when
// there is no display.
inline Display* bench_display(benchmark::State& state) {
  static Display* display = XOpenDisplay(nullptr);
  if (!display) state.SkipWithError("no X display");
  return display;
}
