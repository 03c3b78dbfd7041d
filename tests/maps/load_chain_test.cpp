// A map of a monoclinic cell with a partial box goes out through the writers
// of the binary map and comes back through the load chain of the shell: the
// box is resampled from the whole-cell grid, the density range is that of
// the resampled map, the skewed family is flagged and the cell record is the
// one written.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <limits>
#include <numbers>

#include <unistd.h>

#include "crystal/vant_crystal_metrics.h"
#include "maps/binary_map.h"
#include "maps/map_memory.h"
#include "state/quelmora_parametros.h"
#include "toolkit/headless/headless.h"

namespace qp = quelmora_parametros;

namespace {

float density(int i, int j, int k) {
  const double two_pi = 2.0 * std::numbers::pi;
  return static_cast<float>(std::cos(two_pi * (i - 1) / 16.0) + 0.5 * std::sin(two_pi * (j - 1) / 12.0) +
                            0.25 * std::cos(two_pi * ((k - 1) / 10.0 + (i - 1) / 16.0)));
}

}  // namespace

TEST(LoadChain, PartialBoxOfAMonoclinicMap) {
  headless::install();
  qp::kerror = false;
  qp::npeaks = 0;
  qp::atomos = atom_list_type{};
  set_crystal_cell({6.0f, 7.0f, 8.0f}, {90.0f, 110.0f, 90.0f}, qp::celda);
  const cell_metrics_type written = qp::celda;
  qp::ngrid = {16, 12, 10};
  qp::xlim = {-0.5f, 0.5f};
  qp::ylim = {0.0f, 1.0f};
  qp::zlim = {0.3f, 1.3f};
  qp::xinc = 1.0f / 16;
  qp::yinc = 1.0f / 12;
  qp::zinc = 1.0f / 10;
  memory_maps();
  for (int k = 1; k <= 10; ++k)
    for (int j = 1; j <= 12; ++j)
      for (int i = 1; i <= 16; ++i) qp::rho(i, j, k) = density(i, j, k);

  const std::string path = ::testing::TempDir() + "quelmora_chain_" + std::to_string(getpid()) + ".bin";
  {
    std::ofstream out(path, std::ios::binary);
    write_filebin_head(out);
    write_filebin_rho(out);
  }

  // A fresh program state, then File, Open as the shell runs it.
  qp::rho.release();
  qp::rhonew.release();
  qp::celda = cell_metrics_type{};
  qp::ngrid = {0, 0, 0};
  qp::jpg = {0, 0, 0};
  qp::denmin = qp::denmax = 0.0f;
  ASSERT_TRUE(open_filebin(path));
  read_filebin_head();
  if (!qp::kerror) memory_maps();
  if (!qp::kerror) read_filebin_rho();
  close_filebin();
  std::remove(path.c_str());
  ASSERT_FALSE(qp::kerror) << (headless::box_texts().empty() ? "" : headless::box_texts().front());

  EXPECT_EQ(qp::celda.cell_vol, written.cell_vol);
  EXPECT_EQ(qp::celda.rcell, written.rcell);
  EXPECT_EQ(qp::jpg, (std::array<std::int32_t, 3>{0, 0, 1}));
  float lo = std::numeric_limits<float>::max(), hi = -lo;
  for (int k = 1; k <= 11; ++k)
    for (int j = 1; j <= 13; ++j)
      for (int i = 1; i <= 17; ++i) {
        // The box lies on grid points: x = -0.5 + (i-1)/16 and z = 0.3 + (k-1)/10, folded.
        const int si = (i - 1 + 8) % 16 + 1, sj = (j - 1) % 12 + 1, sk = (k - 1 + 3) % 10 + 1;
        ASSERT_NEAR(qp::rhonew(i, j, k), density(si, sj, sk), 2e-4) << i << " " << j << " " << k;
        lo = std::min(lo, qp::rhonew(i, j, k));
        hi = std::max(hi, qp::rhonew(i, j, k));
      }
  EXPECT_EQ(qp::denmin, lo);
  EXPECT_EQ(qp::denmax, hi);
}
