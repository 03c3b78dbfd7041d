// set_spacegroup over the whole table: every number (230 groups, second
// origin where there are two) and every Hermann-Mauguin symbol (612 rows).
#include <benchmark/benchmark.h>

#include "crystal/vant_crystallographic_symmetry.h"
#include "crystal/vant_symmetry_tables.h"

namespace {

void set_spacegroup_by_number(benchmark::State& state) {
  space_group_type g;
  for (auto _ : state) {
    for (int n = 1; n <= 230; ++n) {
      set_spacegroup(std::to_string(n), g);
      benchmark::DoNotOptimize(g.multip);
    }
  }
}
BENCHMARK(set_spacegroup_by_number)->Unit(benchmark::kMillisecond);

void set_spacegroup_by_symbol(benchmark::State& state) {
  set_spgr_info();
  const auto rows = spgr_info;
  space_group_type g;
  for (auto _ : state) {
    for (const auto& row : rows) {
      set_spacegroup(row.hm, g);
      benchmark::DoNotOptimize(g.multip);
    }
  }
}
BENCHMARK(set_spacegroup_by_symbol)->Unit(benchmark::kMillisecond);

}  // namespace
