// Cost of contour lines and filled contours with 20 levels on grids of a
// smooth field with several peaks, drawn into a recording canvas (the
// algorithm and the primitives) and into an X pixmap (with the X server's
// drawing; skipped without a display). contour_vs_matplotlib.py times the
// same lines with matplotlib and prints the ratio.
#include <benchmark/benchmark.h>

#include <X11/Xlib.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include "bench/bench_display.h"
#include "tests/toolkit/peaks_field.h"
#include "toolkit/graphics/graphics.h"
#include "toolkit/graphics/recording_canvas.h"
#include "toolkit/plots/contour.h"
#include "toolkit/plots/plot_setup.h"
#include "toolkit/plots/plot_state.h"
#include "toolkit/x11/x11_canvas.h"

namespace {

// 20 levels strictly between the extremes, as the plot window spreads them.
std::vector<float> levels_of(const std::vector<float>& z) {
  const auto [lo, hi] = std::minmax_element(z.begin(), z.end());
  std::vector<float> levels;
  for (int L = 1; L <= 20; ++L) levels.push_back(static_cast<float>(L) * (*hi - *lo) / 21 + *lo);
  return levels;
}

void open_plot(int n, bool filled) {
  igrinit();
  ipginit();
  igrarea(0, 0, 1, 1);
  igrunits(0, 0, 1, 1);
  ipgarea(0.1f, 0.1f, 0.9f, 0.9f);
  const int nvals[2] = {n, n};
  const int sets = filled ? 21 : 20;
  ipgnewplot2(8, sets, nvals, filled ? 8 : 0);
  for (int L = 1; L <= sets; ++L) {
    if (filled)
      ipgstyle(L, 4, 3, 3, 196 + std::min(L, 20), 196 + std::min(L, 20));
    else
      ipgstyle(L, 0, 0, 0, 196 + L, 0);
  }
  ipgunits(0, 0, 1, 1);
  ipgconfill2granul(10);
}

void draw(const std::vector<float>& z, int n, const std::vector<float>& levels, bool filled) {
  if (filled)
    ipgconfill2(z, n, n, levels);
  else
    ipgcontour2(z, n, n, levels);
}

// Arguments: grid size, 0 lines or 1 filled.
void BM_contour_recording(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  const bool filled = state.range(1) == 1;
  const auto z = peaks_field(n);
  const auto levels = levels_of(z);
  recording_canvas screen(800, 800);
  attach_target(igr_window, 0, &screen);
  igrselect(igr_window, 0);
  open_plot(n, filled);
  std::size_t primitives = 0;
  for (auto _ : state) {
    screen.forget();
    draw(z, n, levels, filled);
    primitives = screen.primitives().size();
  }
  state.counters["primitives"] = static_cast<double>(primitives);
  attach_target(igr_window, 0, nullptr);
}

void BM_contour_x11_pixmap(benchmark::State& state) {
  Display* display = bench_display(state);
  if (!display) return;
  const int n = static_cast<int>(state.range(0));
  const bool filled = state.range(1) == 1;
  const auto z = peaks_field(n);
  const auto levels = levels_of(z);
  auto surface = x11_canvas::pixmap(display, DefaultRootWindow(display), 800, 800);
  attach_target(igr_window, 0, surface.get());
  igrselect(igr_window, 0);
  open_plot(n, filled);
  for (auto _ : state) {
    draw(z, n, levels, filled);
    XSync(display, False);  // the server has drawn it all
  }
  attach_target(igr_window, 0, nullptr);
}

}  // namespace

BENCHMARK(BM_contour_recording)->ArgsProduct({{65, 129, 257}, {0, 1}})->Unit(benchmark::kMillisecond);
BENCHMARK(BM_contour_x11_pixmap)->ArgsProduct({{65, 129, 257}, {0, 1}})->Unit(benchmark::kMillisecond);
