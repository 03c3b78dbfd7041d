// Cost of one isosurface mesh over a whole n^3 cell: a periodic density of
// four Gaussian atoms and a ripple, cut at 0.3, which makes a surface that
// fits the mesh array at 256^3. bench/mesh_vs_skimage.py builds the same
// field and runs scikit-image on it.
#include <benchmark/benchmark.h>

#include <cmath>
#include <span>
#include <vector>

#include "crystal/vant_maps_mesh.h"

namespace {

constexpr float atoms[4][3] = {{0.1f, 0.2f, 0.3f}, {0.6f, 0.55f, 0.4f}, {0.35f, 0.8f, 0.75f}, {0.8f, 0.15f, 0.7f}};
constexpr float width = 0.08f, mesh_level = 0.3f;

// One atom's Gaussian along one axis, by the shortest periodic distance.
std::vector<float> profile(int n, float centre) {
  std::vector<float> g(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) {
    float d = std::fabs(static_cast<float>(i) / static_cast<float>(n) - centre);
    d = std::min(d, 1.0f - d);
    g[static_cast<std::size_t>(i)] = std::exp(-d * d / (width * width));
  }
  return g;
}

farray3<float> field(int n) {
  farray3<float> rho(n, n, n);
  for (const auto& a : atoms) {
    const std::vector<float> gx = profile(n, a[0]), gy = profile(n, a[1]), gz = profile(n, a[2]);
    for (int k = 1; k <= n; ++k)
      for (int j = 1; j <= n; ++j)
        for (int i = 1; i <= n; ++i) rho(i, j, k) += gx[i - 1] * gy[j - 1] * gz[k - 1];
  }
  constexpr float two_pi = 6.2831853f;
  for (int k = 1; k <= n; ++k)
    for (int i = 1; i <= n; ++i) {
      const float ripple = 0.05f * std::cos(two_pi * 3.0f * static_cast<float>(i - 1) / static_cast<float>(n)) *
                           std::cos(two_pi * 2.0f * static_cast<float>(k - 1) / static_cast<float>(n));
      for (int j = 1; j <= n; ++j) rho(i, j, k) += ripple;
    }
  return rho;
}

void BM_calculate_mesh(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  const farray3<float> rho = field(n);
  farray2<float> xyz;
  std::int32_t npoints = 0;
  for (auto _ : state) {
    calculate_mesh(rho, {n, n, n}, std::span(&mesh_level, 1), "TT", std::span(&npoints, 1), xyz);
    benchmark::DoNotOptimize(xyz.data());
  }
  state.counters["records"] = npoints;
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(n) * n * n);
}

}  // namespace

BENCHMARK(BM_calculate_mesh)->Arg(128)->Arg(256)->Unit(benchmark::kMillisecond);
