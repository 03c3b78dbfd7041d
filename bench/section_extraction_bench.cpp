// Cost of making rhonew (whole cell and partial box) and of one section of a
// skewed family.
#include <benchmark/benchmark.h>

#include <cmath>

#include "crystal/vant_crystal_metrics.h"
#include "maps/map_memory.h"
#include "maps/section_extraction.h"
#include "state/quelmora_parametros.h"

namespace qp = quelmora_parametros;

namespace {

void load_map(int n, float box_low, float box_step) {
  qp::ngrid = {n, n, n};
  qp::kerror = false;
  memory_maps();
  for (std::size_t k = 0; k < qp::rho.size(); ++k) qp::rho.data()[k] = std::sin(0.001f * static_cast<float>(k));
  qp::xlim = {box_low, box_low + box_step * static_cast<float>(n)};
  qp::ylim = qp::xlim;
  qp::zlim = qp::xlim;
  qp::xinc = qp::yinc = qp::zinc = box_step;
}

// Arguments: grid size, then 0 for the whole cell or 1 for a box of half a
// cell starting off the grid, where every point is interpolated.
void BM_proc_carga(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  const bool partial_box = state.range(1) != 0;
  load_map(n, partial_box ? -0.23f : 0.0f, (partial_box ? 0.5f : 1.0f) / static_cast<float>(n));
  for (auto _ : state) {
    proc_carga();
    benchmark::DoNotOptimize(qp::rhonew.data());
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(qp::rhonew.size()));
}

// One section of family 3 of a monoclinic cell, 257 x 257 points.
void BM_carga_seccion_rec_monoclinic(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  load_map(n, 0.0f, 1.0f / static_cast<float>(n));
  set_crystal_cell({6.0f, 7.0f, 8.0f}, {90.0f, 110.0f, 90.0f}, qp::celda);
  proc_carga();
  qp::imap = 3;
  qp::sum_all = true;
  qp::rmax = {0.0f, 0.0f, 0.0f, 1.0f, 1.0f, 1.0f};
  qp::rinc = {1.0f / static_cast<float>(n), 1.0f / static_cast<float>(n), 1.0f / static_cast<float>(n)};
  skewed_section_window(n / 2);
  std::int32_t nx = 0, ny = 0;
  for (auto _ : state) {
    qp::dmap.allocate(2 * n + 1, 2 * n + 1);
    carga_seccion_rec(n / 2, nx, ny);
    benchmark::DoNotOptimize(qp::dmap.data());
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(nx) * ny);
}

}  // namespace

BENCHMARK(BM_proc_carga)->ArgsProduct({{64, 128}, {0, 1}})->ArgNames({"n", "partial_box"})->Unit(benchmark::kMillisecond);
BENCHMARK(BM_carga_seccion_rec_monoclinic)->Arg(128)->Unit(benchmark::kMillisecond);
