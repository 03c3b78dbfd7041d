// Full redraw of the plot window (draw_plot_pg): section copy from rhonew,
// levels, plot frame, 20 levels of contour lines or filled contours, into the
// off-screen bitmap and one copy to the window. Maps of 65^3, 129^3 and
// 257^3 closed grid points (ngrid 64, 128, 256) of a smooth periodic field
// with several peaks per layer; the middle layer of direction 1 is drawn.
// Headless: a recording canvas stands for the 800 x 600 window. X11: an X
// pixmap of that size does (skipped without a display).
#include <benchmark/benchmark.h>

#include <X11/Xlib.h>

#include <cmath>
#include <memory>

#include "bench/bench_display.h"
#include "crystal/vant_crystal_metrics.h"
#include "maps/map_memory.h"
#include "maps/section_extraction.h"
#include "plot/draw_plot_pg.h"
#include "state/quelmora_parametros.h"
#include "toolkit/graphics/graphics.h"
#include "toolkit/headless/headless.h"
#include "toolkit/plots/plot_state.h"
#include "toolkit/x11/x11_canvas.h"

namespace qp = quelmora_parametros;

namespace {

// A cubic map of n intervals per axis, made once per size.
void make_map(std::int32_t n) {
  if (qp::ngrid[0] == n) return;
  set_crystal_cell({10.0f, 10.0f, 10.0f}, {90.0f, 90.0f, 90.0f}, qp::celda);
  qp::ngrid = {n, n, n};
  qp::xlim = qp::ylim = qp::zlim = {0.0f, 1.0f};
  qp::xinc = qp::yinc = qp::zinc = 1.0f / static_cast<float>(n);
  qp::rho.release();
  qp::rhonew.release();
  memory_maps();
  const double step = 2.0 * M_PI / n;
  for (std::int32_t k = 1; k <= n; ++k)
    for (std::int32_t j = 1; j <= n; ++j)
      for (std::int32_t i = 1; i <= n; ++i) {
        const double x = (i - 1) * step, y = (j - 1) * step, z = (k - 1) * step;
        qp::rho(i, j, k) = static_cast<float>(std::cos(2 * x) * std::cos(3 * y) * std::cos(z) +
                                              0.6 * std::sin(x + 2 * y) + 0.3 * std::cos(5 * x - y + z));
      }
  proc_carga();
}

void set_view(int kind, std::int32_t n) {
  qp::boton_tg = kind;
  qp::imap = 1;
  qp::seccion = {1, 1, n / 2 + 1};
  qp::n_contour = 20;
  qp::sum_all = true;
  qp::boton_add = qp::boton_legend = qp::boton_atom = qp::plane_def = false;
  qp::ksigma = false;
  qp::klevel = 0;
  qp::jpg = {};
  for (int k = 0; k < 20; ++k) qp::level_lines[static_cast<std::size_t>(k)] = {197 + k, 0, 1};
  igrinit();
  ipginit();
  windowselect(0);
}

// Arguments: grid intervals, plot kind (1 lines, 2 filled).
void BM_draw_plot_pg_headless(benchmark::State& state) {
  const auto n = static_cast<std::int32_t>(state.range(0));
  make_map(n);
  headless::install();
  attach_target(igr_window, 0, &headless::root_canvas());
  set_view(static_cast<int>(state.range(1)), n);
  for (auto _ : state) {
    // A recording keeps every primitive: start each picture from an empty one.
    state.PauseTiming();
    headless::root_canvas().forget();
    wbitmapget(qp::ibmp1, 0);
    state.ResumeTiming();
    draw_plot_pg();
    state.PauseTiming();
    wbitmapdestroy(qp::ibmp1);
    state.ResumeTiming();
  }
  attach_target(igr_window, 0, nullptr);
}

void BM_draw_plot_pg_x11_pixmap(benchmark::State& state) {
  Display* display = bench_display(state);
  if (!display) return;
  const auto n = static_cast<std::int32_t>(state.range(0));
  make_map(n);
  headless::install();  // the window's size: 800 x 600
  auto window = x11_canvas::pixmap(display, DefaultRootWindow(display), 800, 600);
  attach_target(igr_window, 0, window.get());
  set_view(static_cast<int>(state.range(1)), n);
  wbitmapget(qp::ibmp1, 0);
  for (auto _ : state) {
    draw_plot_pg();
    XSync(display, False);  // the server has drawn it all
  }
  wbitmapdestroy(qp::ibmp1);
  attach_target(igr_window, 0, nullptr);
}

}  // namespace

BENCHMARK(BM_draw_plot_pg_headless)->ArgsProduct({{64, 128, 256}, {1, 2}})->Unit(benchmark::kMillisecond);
BENCHMARK(BM_draw_plot_pg_x11_pixmap)->ArgsProduct({{64, 128, 256}, {1, 2}})->Unit(benchmark::kMillisecond);
