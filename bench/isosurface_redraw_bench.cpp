// Redraw of the isosurface view (draw_isosurface) with a full mesh: the
// zero level of a gyroid on a 128^3 grid, whose surface fills all 500,000
// records of xyz, turned to Angstrom by entering the view. This
// is what every step of a turn with the mouse redraws. Headless: a
// recording canvas stands for the 800 x 600 window. X11: an X pixmap of that
// size does (skipped without a display).
#include <benchmark/benchmark.h>

#include <X11/Xlib.h>

#include <cmath>

#include "bench/bench_display.h"
#include "crystal/vant_crystal_metrics.h"
#include "maps/map_memory.h"
#include "plot/isosurface_view.h"
#include "state/quelmora_parametros.h"
#include "toolkit/graphics/graphics.h"
#include "toolkit/graphics/recording_canvas.h"
#include "toolkit/headless/headless.h"
#include "toolkit/x11/x11_canvas.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::int32_t n = 128;

// The map, and the view entered once: the mesh is built and centred.
void enter_view() {
  if (qp::boton_tg == 4) return;
  set_crystal_cell({10.0f, 10.0f, 10.0f}, {90.0f, 90.0f, 90.0f}, qp::celda);
  qp::ngrid = {n, n, n};
  memory_maps();
  // A gyroid of three periods a cell: one surface that winds through all of it.
  const double step = 6.0 * M_PI / n;
  for (std::int32_t k = 1; k <= n; ++k)
    for (std::int32_t j = 1; j <= n; ++j)
      for (std::int32_t i = 1; i <= n; ++i) {
        const double x = (i - 1) * step, y = (j - 1) * step, z = (k - 1) * step;
        qp::rho(i, j, k) =
            static_cast<float>(std::sin(x) * std::cos(y) + std::sin(y) * std::cos(z) + std::sin(z) * std::cos(x));
      }
  qp::densigma = 1.0f;
  qp::denave = 0.0f;
  qp::isolev = 0.0f;
  qp::boton_tg = 1;
  igrinit();
  windowselect(0);
  wbitmapget(qp::ibmp1, 0);
  proc_iso();
}

void BM_draw_isosurface_headless(benchmark::State& state) {
  headless::install();
  attach_target(igr_window, 0, &headless::root_canvas());
  enter_view();
  for (auto _ : state) {
    // A recording keeps every primitive: start each picture from an empty
    // one, in the memory of the last, as a pixmap is drawn over.
    state.PauseTiming();
    headless::root_canvas().forget();
    igrselect(igr_bitmap, qp::ibmp1);
    dynamic_cast<recording_canvas&>(*current_canvas()).forget();
    state.ResumeTiming();
    draw_isosurface();
  }
  state.counters["records"] = qp::npoints;
  attach_target(igr_window, 0, nullptr);
}

void BM_draw_isosurface_x11_pixmap(benchmark::State& state) {
  Display* display = bench_display(state);
  if (!display) return;
  headless::install();  // the window's size: 800 x 600
  auto window = x11_canvas::pixmap(display, DefaultRootWindow(display), 800, 600);
  attach_target(igr_window, 0, window.get());
  enter_view();
  wbitmapdestroy(qp::ibmp1);
  wbitmapget(qp::ibmp1, 0);
  for (auto _ : state) {
    draw_isosurface();
    XSync(display, False);  // the server has drawn it all
  }
  state.counters["records"] = qp::npoints;
  wbitmapdestroy(qp::ibmp1);
  attach_target(igr_window, 0, nullptr);
}

}  // namespace

BENCHMARK(BM_draw_isosurface_headless)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_draw_isosurface_x11_pixmap)->Unit(benchmark::kMillisecond);
