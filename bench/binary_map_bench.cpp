// Loading a map the way File, Open does: head, map arrays, density in one
// transfer with the closed map, peaks. The map is the file named by the
// environment variable QUELMORA_BENCH_MAP, else the example map.
// load_map_once loads it a single time, for a fresh process's time, and
// reports the process's peak memory beside the size of the two map arrays.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "maps/binary_map.h"
#include "maps/map_memory.h"
#include "state/quelmora_parametros.h"
#include "toolkit/headless/headless.h"

namespace qp = quelmora_parametros;

namespace {

std::string map_name() {
  const char* given = std::getenv("QUELMORA_BENCH_MAP");
  return given ? given : std::string(QUELMORA_SOURCE_DIR) + "/examples/nacl.bin";
}

void load(const std::string& name) {
  qp::kerror = false;
  open_filebin(name);
  read_filebin_head();
  memory_maps();
  read_filebin_rho();
  read_filebin_atm_pks();
  close_filebin();
}

void load_map(benchmark::State& state) {
  headless::install();
  const std::string name = map_name();
  for (auto _ : state) {
    load(name);
    benchmark::DoNotOptimize(qp::denmax);
  }
  if (qp::kerror) state.SkipWithError("the map did not load");
}
BENCHMARK(load_map)->Unit(benchmark::kMillisecond);

// The process's peak resident memory in kB (VmHWM: unlike getrusage's
// maxrss, it does not keep the peak of the process that started this one).
double peak_kb() {
  std::ifstream status("/proc/self/status");
  std::string word;
  double kb = 0;
  while (status >> word)
    if (word == "VmHWM:" && status >> kb) break;
  return kb;
}

void load_map_once(benchmark::State& state) {
  headless::install();
  const std::string name = map_name();
  for (auto _ : state) load(name);
  if (qp::kerror) state.SkipWithError("the map did not load");
  constexpr double mb = 1024.0 * 1024.0;
  state.counters["peak_MB"] = peak_kb() / 1024.0;
  state.counters["maps_MB"] = static_cast<double>((qp::rho.size() + qp::rhonew.size()) * sizeof(float)) / mb;
}
BENCHMARK(load_map_once)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
