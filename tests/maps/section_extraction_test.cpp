#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "maps/map_memory.h"
#include "maps/section_extraction.h"
#include "state/quelmora_parametros.h"

namespace qp = quelmora_parametros;

namespace {

constexpr double two_pi = 2.0 * std::numbers::pi;

// A periodic density whose value is known at every fractional point.
double density(double x, double y, double z) {
  return std::cos(two_pi * x) + 0.5 * std::sin(two_pi * y) + 0.25 * std::cos(two_pi * (z + x));
}

// Loads a grid of the density as a file would: ngrid, box, arrays, rho.
void load_grid(int nx, int ny, int nz) {
  qp::rho.release();
  qp::rhonew.release();
  qp::kerror = false;
  qp::jpg = {0, 0, 0};
  qp::ngrid = {nx, ny, nz};
  qp::xlim = {0.0f, 1.0f};
  qp::ylim = {0.0f, 1.0f};
  qp::zlim = {0.0f, 1.0f};
  qp::xinc = 1.0f / static_cast<float>(nx);
  qp::yinc = 1.0f / static_cast<float>(ny);
  qp::zinc = 1.0f / static_cast<float>(nz);
  qp::celda.ang = {90.0f, 90.0f, 90.0f};
  memory_maps();
  for (int k = 1; k <= nz; ++k)
    for (int j = 1; j <= ny; ++j)
      for (int i = 1; i <= nx; ++i)
        qp::rho(i, j, k) = static_cast<float>(density(double(i - 1) / nx, double(j - 1) / ny, double(k - 1) / nz));
}

double fold(double c) { return c - std::floor(c); }

}  // namespace

TEST(ProcCarga, WholeCellIsClosedPeriodically) {
  load_grid(8, 6, 5);
  qp::xlim = {0.00005f, 1.0f};  // within the tolerance of 0
  qp::xinc = 0.3f;              // unused for a whole cell
  proc_carga();
  float lo = std::numeric_limits<float>::max(), hi = -lo;
  for (int k = 1; k <= 6; ++k)
    for (int j = 1; j <= 7; ++j)
      for (int i = 1; i <= 9; ++i) {
        const int i0 = i == 9 ? 1 : i, j0 = j == 7 ? 1 : j, k0 = k == 6 ? 1 : k;
        ASSERT_EQ(qp::rhonew(i, j, k), qp::rho(i0, j0, k0)) << i << " " << j << " " << k;
        if (i < 9 && j < 7 && k < 6) {
          lo = std::min(lo, qp::rho(i, j, k));
          hi = std::max(hi, qp::rho(i, j, k));
        }
      }
  EXPECT_EQ(qp::denmin, lo);
  EXPECT_EQ(qp::denmax, hi);
}

// A box from -0.5 to 0.5 on the grid's own step lands on grid points: each
// value is the grid value at the folded position, with zero weights.
TEST(ProcCarga, BoxOnGridPointsTakesGridValues) {
  load_grid(8, 4, 4);
  qp::xlim = {-0.5f, 0.5f};
  proc_carga();
  for (int i = 1; i <= 9; ++i) {
    const int source = (i - 1 + 4) % 8 + 1;  // x = -0.5 + (i-1)/8, folded
    EXPECT_FLOAT_EQ(qp::rhonew(i, 2, 3), qp::rho(source, 2, 3)) << i;
  }
  EXPECT_FLOAT_EQ(qp::rhonew(1, 5, 5), qp::rho(5, 1, 1));  // -0.5 folds to 0.5
}

// Resampling a box off the grid agrees with the density to the accuracy of
// trilinear interpolation on a 32-point grid (second derivative (2 pi)^2 over
// a step of 1/32: about 0.005 per term).
TEST(ProcCarga, PartialBoxFollowsTheDensity) {
  load_grid(32, 32, 32);
  qp::xlim = {0.1f, 0.6f};
  qp::xinc = 0.5f / 32.0f;
  qp::ylim = {-0.37f, 0.63f};
  qp::zlim = {0.3f, 1.3f};
  qp::zinc = 1.0f / 32.0f;
  proc_carga();
  double worst = 0.0;
  float lo = std::numeric_limits<float>::max(), hi = -lo;
  for (int k = 1; k <= 33; ++k)
    for (int j = 1; j <= 33; ++j)
      for (int i = 1; i <= 33; ++i) {
        const double x = 0.1 + (i - 1) * 0.5 / 32, y = -0.37 + (j - 1) / 32.0, z = 0.3 + (k - 1) / 32.0;
        worst = std::max(worst, std::fabs(qp::rhonew(i, j, k) - density(fold(x), fold(y), fold(z))));
        lo = std::min(lo, qp::rhonew(i, j, k));
        hi = std::max(hi, qp::rhonew(i, j, k));
      }
  EXPECT_LT(worst, 0.012);
  EXPECT_GT(worst, 0.0);  // the box is off the grid: values are interpolated
  EXPECT_EQ(qp::denmin, lo);
  EXPECT_EQ(qp::denmax, hi);
}

// Hand-computed values on a 2-point axis: halfway points average their two
// neighbours, and the step past the last plane wraps to plane 1; the end of
// the cell (x = 1) gives plane 1's value.
TEST(ProcCarga, HandComputedInterpolation) {
  struct Case {
    float x0, xinc;
    float expected[3];
  };
  // rho along x: 10 at x = 0, 30 at x = 0.5 (y, z planes all alike).
  const Case cases[] = {
      {0.25f, 0.25f, {20.0f, 30.0f, 20.0f}},   // 0.25, 0.5, 0.75 (wraps to plane 1)
      {0.5f, 0.25f, {30.0f, 20.0f, 10.0f}},    // 0.5, 0.75, 1.0
      {-0.25f, 0.125f, {20.0f, 15.0f, 10.0f}}, // -0.25 folds to 0.75; -0.125; 0
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.x0);
    load_grid(2, 2, 2);
    for (int k = 1; k <= 2; ++k)
      for (int j = 1; j <= 2; ++j) {
        qp::rho(1, j, k) = 10.0f;
        qp::rho(2, j, k) = 30.0f;
      }
    qp::xlim = {c.x0, c.x0 + 2 * c.xinc};
    qp::xinc = c.xinc;
    proc_carga();
    for (int i = 1; i <= 3; ++i) EXPECT_NEAR(qp::rhonew(i, 2, 3), c.expected[i - 1], 1e-4) << i;
  }
}

TEST(ProcCarga, EmptyGridGivesExtremeRange) {
  load_grid(1, 1, 1);
  qp::ngrid = {-1, 3, 3};
  memory_maps();
  proc_carga();
  EXPECT_EQ(qp::rhonew.size(), 0u);
  EXPECT_EQ(qp::denmin, 3.4028235e38f);
  EXPECT_EQ(qp::denmax, -3.4028235e38f);
}

TEST(ProcCarga, SkewFlagsFollowTheAngles) {
  struct Case {
    std::array<float, 3> ang;  // alpha, beta, gamma
    std::array<std::int32_t, 3> before, after;
  };
  const Case cases[] = {
      {{90.0f, 90.0f, 90.0f}, {0, 0, 0}, {0, 0, 0}},
      {{90.00009f, 89.9999f, 90.0f}, {0, 0, 0}, {0, 0, 0}},
      {{90.0f, 110.0f, 90.0f}, {0, 0, 0}, {0, 0, 1}},  // monoclinic: family 3 only
      {{90.0f, 90.0f, 120.0f}, {0, 0, 0}, {1, 0, 0}},
      {{80.0f, 95.0f, 100.0f}, {0, 0, 0}, {1, 1, 1}},
      {{90.0f, 90.0f, 90.0f}, {1, 0, 1}, {1, 0, 1}},   // never cleared here
  };
  for (const Case& c : cases) {
    load_grid(2, 2, 2);
    qp::celda.ang = c.ang;
    qp::jpg = c.before;
    proc_carga();
    EXPECT_EQ(qp::jpg, c.after) << c.ang[0] << " " << c.ang[1] << " " << c.ang[2];
  }
}
