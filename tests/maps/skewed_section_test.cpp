#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "maps/map_memory.h"
#include "maps/section_extraction.h"
#include "state/quelmora_parametros.h"

namespace qp = quelmora_parametros;

namespace {

constexpr double two_pi = 2.0 * std::numbers::pi;
constexpr double deg = std::numbers::pi / 180.0;

double density(double x, double y, double z) {
  return std::cos(two_pi * x) + 0.5 * std::sin(two_pi * (y + z)) + 0.25 * std::cos(two_pi * z);
}

// A monoclinic cell (alpha = gamma = 90) with c along Z, a* along X and b
// along Y: columns of the matrix are a = (a sin beta, 0, a cos beta),
// b = (0, b, 0), c = (0, 0, c). Its inverse is written out by hand.
struct monoclinic {
  double a, b, c, beta;
};

void set_monoclinic_cell(const monoclinic& m) {
  const double sb = std::sin(m.beta * deg), cb = std::cos(m.beta * deg);
  qp::celda.cell = {float(m.a), float(m.b), float(m.c)};
  qp::celda.ang = {90.0f, float(m.beta), 90.0f};
  qp::celda.cr_orth = {{{float(m.a * sb), 0.0f, 0.0f}, {0.0f, float(m.b), 0.0f}, {float(m.a * cb), 0.0f, float(m.c)}}};
  qp::celda.orth_cr = {{{float(1.0 / (m.a * sb)), 0.0f, 0.0f},
                        {0.0f, float(1.0 / m.b), 0.0f},
                        {float(-cb / (sb * m.c)), 0.0f, float(1.0 / m.c)}}};
}

// Orthogonal to fractional for the cell above, in double.
std::array<double, 3> to_fractional(const monoclinic& m, double X, double Y, double Z) {
  const double sb = std::sin(m.beta * deg), cb = std::cos(m.beta * deg);
  const double x = X / (m.a * sb);
  return {x, Y / m.b, (Z - m.a * cb * x) / m.c};
}

void load_density(int nx, int ny, int nz) {
  qp::rho.release();
  qp::rhonew.release();
  qp::ngrid = {nx, ny, nz};
  qp::xlim = {0.0f, 1.0f};
  qp::ylim = {0.0f, 1.0f};
  qp::zlim = {0.0f, 1.0f};
  qp::jpg = {0, 0, 0};
  qp::plane_def = false;
  memory_maps();
  for (int k = 1; k <= nz; ++k)
    for (int j = 1; j <= ny; ++j)
      for (int i = 1; i <= nx; ++i)
        qp::rho(i, j, k) = float(density(double(i - 1) / nx, double(j - 1) / ny, double(k - 1) / nz));
  proc_carga();
}

// The window of family 3 (u = z, v = x, across y) over the whole cell, as the
// plot composition sets it.
void set_family3_box() {
  qp::imap = 3;
  qp::rmax = {0.0f, 0.0f, 0.0f, 1.0f, 1.0f, 1.0f};
  qp::rinc = {1.0f / float(qp::ngrid[2]), 1.0f / float(qp::ngrid[0]), 1.0f / float(qp::ngrid[1])};
}

void fresh_dmap(int n1, int n2) {
  qp::dmap.release();
  qp::dmap.allocate(n1, n2);
}

const monoclinic cell{6.0, 7.0, 8.0, 110.0};

}  // namespace

// Corners of the box (z, x) = (0,0), (0,1), (1,1), (1,0) in Angstrom along
// Z and X: (0, 0), (a cos beta, a sin beta), (a cos beta + c, a sin beta), (c, 0).
TEST(SkewedSection, WindowFromTheBoxCorners) {
  set_monoclinic_cell(cell);
  load_density(24, 28, 32);
  set_family3_box();
  const auto corners = skewed_section_window(5);
  const double ac = 6.0 * std::cos(110 * deg), as = 6.0 * std::sin(110 * deg);
  const double expected[4][2] = {{0, 0}, {ac, as}, {ac + 8, as}, {8, 0}};
  for (int c = 0; c < 4; ++c) {
    EXPECT_NEAR(corners[c][0], expected[c][0], 1e-4) << c;
    EXPECT_NEAR(corners[c][1], expected[c][1], 1e-4) << c;
  }
  EXPECT_NEAR(qp::u_min, ac, 1e-4);
  EXPECT_NEAR(qp::u_max, 8.0, 1e-4);
  EXPECT_NEAR(qp::v_min, 0.0, 1e-4);
  EXPECT_NEAR(qp::v_max, as, 1e-4);
  EXPECT_NEAR(qp::u_inc, (8.0 - ac) / 64.0, 1e-5);  // 2 nu - 2 with nu = 33
  EXPECT_NEAR(qp::v_inc, as / 48.0, 1e-5);          // 2 nv - 2 with nv = 25
}

// Every point of the resampled rectangle, folded into the cell, carries the
// density of its position to the accuracy of bilinear interpolation.
TEST(SkewedSection, ResampledValuesFollowTheDensity) {
  set_monoclinic_cell(cell);
  load_density(24, 28, 32);
  ASSERT_EQ(qp::jpg, (std::array<std::int32_t, 3>{0, 0, 1}));
  set_family3_box();
  const int isec = 5;
  skewed_section_window(isec);
  fresh_dmap(65, 49);
  qp::sum_all = true;
  std::int32_t nd_x = 0, nd_y = 0;
  carga_seccion_rec(isec, nd_x, nd_y);
  EXPECT_EQ(nd_x, 65);
  EXPECT_EQ(nd_y, 49);
  const double y = (isec - 1) / 28.0;  // the plane lies on grid plane 5 of y
  double worst = 0.0;
  for (int j = 1; j <= 49; ++j)
    for (int i = 1; i <= 65; ++i) {
      const double Z = (i - 1) * double(qp::u_inc) + qp::u_min;
      const double X = (j - 1) * double(qp::v_inc) + qp::v_min;
      const auto f = to_fractional(cell, X, y * 7.0, Z);
      worst = std::max(worst, std::fabs(qp::dmap(i, j) - density(f[0], y, f[2])));
    }
  EXPECT_LT(worst, 0.015);
}

// Families 1 and 2 stay perpendicular in this cell; summing a section twice
// doubles it; the sign filters keep what they name.
TEST(SkewedSection, SumFilters) {
  set_monoclinic_cell(cell);
  load_density(12, 14, 16);
  set_family3_box();
  skewed_section_window(3);
  std::int32_t nd_x = 0, nd_y = 0;
  fresh_dmap(33, 25);
  qp::sum_all = true;
  carga_seccion_rec(3, nd_x, nd_y);
  const farray2<float> once = qp::dmap;

  struct Case {
    bool all, positive, negative;
    int passes;
  };
  const Case cases[] = {
      {true, false, false, 2},
      {false, true, false, 1},
      {false, false, true, 1},
      {false, true, true, 1},
      {false, false, false, 1},
  };
  for (const Case& c : cases) {
    qp::sum_all = c.all;
    qp::sum_positive = c.positive;
    qp::sum_negative = c.negative;
    fresh_dmap(33, 25);
    for (int p = 0; p < c.passes; ++p) carga_seccion_rec(3, nd_x, nd_y);
    for (int j = 1; j <= 25; ++j)
      for (int i = 1; i <= 33; ++i) {
        const float v = once(i, j);
        const bool kept = c.all || (c.positive && v >= 0) || (c.negative && v < 0);
        ASSERT_FLOAT_EQ(qp::dmap(i, j), kept ? float(c.passes) * v : 0.0f) << i << " " << j;
      }
  }
  qp::sum_all = true;
  qp::sum_positive = qp::sum_negative = false;
}

// The value at a point of dmap: a bilinear function of the position is
// reproduced exactly, whichever of the three coordinate frames is current.
TEST(CalcPointVal, BilinearOnEachKindOfSection) {
  auto g = [](double u, double v) { return 2.0 + 3.0 * u - 5.0 * v + 7.0 * u * v; };
  struct Case {
    bool plane_def;
    std::array<std::int32_t, 3> jpg;
    int n1, n2;
    double p, q, dp, dq;
  };
  // ngrid 12, 14, 16 with family 1: nu = 13, nv = 15.
  const Case cases[] = {
      {false, {0, 0, 0}, 13, 15, 0.1, -0.2, 0.05, 0.04},
      {false, {1, 0, 0}, 25, 29, -3.0, 1.5, 0.25, 0.125},
      {true, {0, 0, 0}, 50, 50, -3.0, 2.0, 7.0 / 49, 4.9 / 49},
  };
  qp::ngrid = {12, 14, 16};
  qp::imap = 1;
  for (const Case& c : cases) {
    qp::plane_def = c.plane_def;
    qp::jpg = c.jpg;
    qp::rmax = {float(c.p), float(c.q), 0.0f, 1.0f, 1.0f, 1.0f};
    qp::rinc = {float(c.dp), float(c.dq), 0.1f};
    qp::u_min = float(c.p);
    qp::v_min = float(c.q);
    qp::u_inc = float(c.dp);
    qp::v_inc = float(c.dq);
    qp::xl1 = float(c.p);
    qp::xl2 = float(c.p + 7.0);
    qp::yl1 = float(c.q);
    qp::yl2 = float(c.q + 4.9);
    fresh_dmap(c.n1, c.n2);
    for (int j = 1; j <= c.n2; ++j)
      for (int i = 1; i <= c.n1; ++i) qp::dmap(i, j) = float(g(c.p + (i - 1) * c.dp, c.q + (j - 1) * c.dq));
    const double points[][2] = {{0.0, 0.0}, {0.37, 0.61}, {3.0, 5.0}, {6.5, 9.01}, {1.0, 1.0}};
    for (const auto& pt : points) {
      const double x = c.p + pt[0] * c.dp, y = c.q + pt[1] * c.dq;
      float val = 0.0f;
      calc_point_val(float(x), float(y), val);
      EXPECT_NEAR(val, g(x, y), 2e-4 * (1 + std::fabs(g(x, y)))) << c.n1 << " " << pt[0] << " " << pt[1];
    }
  }
  qp::plane_def = false;
}

// Fractional <-> orthogonal through the cell, with results of 0.0001 or
// less, limit included, coming out as exactly 0.
TEST(Frac2Orth, ConvertsAndSnapsSmallValues) {
  set_monoclinic_cell(cell);
  const double sb = std::sin(110 * deg), cb = std::cos(110 * deg);
  struct Case {
    float x, y, z;
    double X, Y, Z;
  };
  const Case cases[] = {
      {0.5f, 0.25f, 0.125f, 3 * sb, 1.75, 3 * cb + 1},
      {-1.0f, 2.0f, 0.0f, -6 * sb, 14, -6 * cb},
      {0.0f, 0.00001f, 0.0f, 0, 0, 0},        // 0.00007 snaps to 0
      {0.0f, 0.00002f, 0.0f, 0, 0.00014, 0},  // 0.00014 stays
  };
  for (const Case& c : cases) {
    float X, Y, Z;
    frac2orth(c.x, c.y, c.z, X, Y, Z);
    EXPECT_NEAR(X, c.X, 1e-5);
    EXPECT_NEAR(Y, c.Y, 1e-5);
    EXPECT_NEAR(Z, c.Z, 1e-5);
    if (c.Y == 0) {
      EXPECT_EQ(Y, 0.0f);
    }
    float x, y, z;
    orth2frac(X, Y, Z, x, y, z);
    EXPECT_NEAR(x, c.x, 1e-5);
    EXPECT_NEAR(z, c.z, 1e-5);
  }
  float x, y, z;
  orth2frac(0.0001f, 0.0f, 0.0f, x, y, z);  // x = 0.0001/(a sin beta) snaps
  EXPECT_EQ(x, 0.0f);
}
