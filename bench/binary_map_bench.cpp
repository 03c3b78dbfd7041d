// Loading the example map the way File, Open does: head, map arrays,
// density in one transfer with the closed map, peaks.
#include <benchmark/benchmark.h>

#include <string>

#include "maps/binary_map.h"
#include "maps/map_memory.h"
#include "state/quelmora_parametros.h"
#include "toolkit/headless/headless.h"

namespace {

void load_example_map(benchmark::State& state) {
  headless::install();
  const std::string name = std::string(QUELMORA_SOURCE_DIR) + "/examples/nacl.bin";
  for (auto _ : state) {
    quelmora_parametros::kerror = false;
    open_filebin(name);
    read_filebin_head();
    memory_maps();
    read_filebin_rho();
    read_filebin_atm_pks();
    close_filebin();
    benchmark::DoNotOptimize(quelmora_parametros::denmax);
  }
  if (quelmora_parametros::kerror) state.SkipWithError("the example map did not load");
}
BENCHMARK(load_example_map)->Unit(benchmark::kMillisecond);

}  // namespace
