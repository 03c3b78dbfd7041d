// The map as it is drawn: rhonew made from rho on every load (the cell
// closed periodically, or a box resampled), oriented sections, sections of
// the skewed families resampled on a rectangle in Angstrom, the value under
// the pointer, and the coordinate conversions. Values are checked against a
// density known at every point, or against hand computations.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <sstream>
#include <tuple>

#include "crystal/vant_crystal_metrics.h"
#include "maps/map_memory.h"
#include "maps/oriented_section.h"
#include "maps/section_extraction.h"
#include "state/quelmora_parametros.h"
#include "tests/data_files.h"

namespace qp = quelmora_parametros;

namespace {

constexpr double two_pi = 2.0 * std::numbers::pi;
constexpr double deg = std::numbers::pi / 180.0;

double density(double x, double y, double z) {
  return std::cos(two_pi * x) + 0.5 * std::sin(two_pi * y) + 0.25 * std::cos(two_pi * (z + x));
}

// A density given at the grid points (i, j, k), by default the one above,
// on an nx x ny x nz grid over the whole cell, loaded as a file would be:
// ngrid, box and steps, arrays, rho.
void load_grid(int nx, int ny, int nz, std::function<double(int, int, int)> at = {}) {
  if (!at) at = [=](int i, int j, int k) { return density(double(i - 1) / nx, double(j - 1) / ny, double(k - 1) / nz); };
  qp::rho.release();
  qp::rhonew.release();
  qp::kerror = qp::plane_def = false;
  qp::jpg = {0, 0, 0};
  qp::ngrid = {nx, ny, nz};
  qp::xlim = qp::ylim = qp::zlim = {0.0f, 1.0f};
  std::tie(qp::xinc, qp::yinc, qp::zinc) = std::tuple(1.0f / float(nx), 1.0f / float(ny), 1.0f / float(nz));
  memory_maps();
  for (int k = 1; k <= nz; ++k)
    for (int j = 1; j <= ny; ++j)
      for (int i = 1; i <= nx; ++i) qp::rho(i, j, k) = float(at(i, j, k));
}

// A monoclinic cell of 6, 7, 8 A and beta 110 has a* along X, b along Y and
// c along Z: fractional (x, y, z) lies at (a sin beta x, b y, a cos beta x + c z).
void set_monoclinic_cell() {
  qp::celda = cell_metrics_type{};
  set_crystal_cell({6.0f, 7.0f, 8.0f}, {90.0f, 110.0f, 90.0f}, qp::celda);
}

// The skewed family 3 (u = z, v = x, across y) over the whole cell, as the
// plot composition sets it.
void load_family3(int nx, int ny, int nz) {
  set_monoclinic_cell();
  load_grid(nx, ny, nz);
  proc_carga();
  qp::imap = 3;
  qp::rmax = {0.0f, 0.0f, 0.0f, 1.0f, 1.0f, 1.0f};
  qp::rinc = {1.0f / float(nz), 1.0f / float(nx), 1.0f / float(ny)};
}

}  // namespace

// Resampling a box off the grid agrees with the density to the accuracy of
// trilinear interpolation on a 32-point grid (second derivative (2 pi)^2 over
// a step of 1/32: about 0.005 per term); the range is that of the new map.
TEST(ProcCarga, PartialBoxFollowsTheDensity) {
  load_grid(32, 32, 32);
  qp::xlim = {0.1f, 0.6f};
  qp::xinc = 0.5f / 32.0f;
  qp::ylim = {-0.37f, 0.63f};
  qp::zlim = {0.3f, 1.3f};
  proc_carga();
  double worst = 0.0;
  float lo = std::numeric_limits<float>::max(), hi = -lo;
  for (int k = 1; k <= 33; ++k)
    for (int j = 1; j <= 33; ++j)
      for (int i = 1; i <= 33; ++i) {
        const double x = 0.1 + (i - 1) * 0.5 / 32, y = -0.37 + (j - 1) / 32.0, z = 0.3 + (k - 1) / 32.0;
        worst = std::max(worst, std::fabs(qp::rhonew(i, j, k) - density(x, y, z)));
        lo = std::min(lo, qp::rhonew(i, j, k));
        hi = std::max(hi, qp::rhonew(i, j, k));
      }
  EXPECT_LT(worst, 0.012);
  EXPECT_GT(worst, 0.0);  // the box is off the grid: values are interpolated
  EXPECT_EQ(qp::denmin, lo);
  EXPECT_EQ(qp::denmax, hi);
}

// The range of a closed cell is found wherever the extremes lie along a row
// (rows of 18 values: every one of the 16 lanes and the two values after them).
TEST(ProcCarga, ClosedCellRangeAtEveryPlaceOfARow) {
  for (int at = 1; at <= 17; ++at) {
    load_grid(17, 2, 3, [=](int i, int j, int k) {
      return i == at && j == 2 && k == 3 ? 2.5 : i == 18 - at && j == 1 && k == 2 ? -1.5 : 0.25 * j;
    });
    proc_carga();
    EXPECT_EQ(std::tuple(qp::denmin, qp::denmax, qp::rho_min, qp::rho_max), std::tuple(-1.5f, 2.5f, -1.5f, 2.5f))
        << "extremes at x = " << at << " and " << 18 - at;
  }
}

// Hand-computed values on a 2 x 3 x 4 grid whose rho is the sum of a value
// of each axis (10 or 30 along x, steps of 100 along y and of 1000 along z),
// so that every point of rhonew is the sum of its three axes: halfway points
// average their two neighbours, the step past the last plane wraps to plane
// 1, and the end of the cell gives plane 1's value. A box within the
// tolerance of the whole cell is closed periodically, whatever its steps.
TEST(ProcCarga, HandComputedInterpolation) {
  const struct {
    float x0, x1, xinc;
    float along_x[3];
  } rows[] = {
      {0.25f, 0.75f, 0.25f, {20.0f, 30.0f, 20.0f}},   // 0.25, 0.5, 0.75 (wraps to plane 1)
      {0.5f, 1.0f, 0.25f, {30.0f, 20.0f, 10.0f}},     // 0.5, 0.75, 1.0
      {-0.25f, 0.0f, 0.125f, {20.0f, 15.0f, 10.0f}},  // -0.25 folds to 0.75; -0.125; 0
      {0.00005f, 1.0f, 0.3f, {10.0f, 30.0f, 10.0f}},  // the whole cell, closed
  };
  const float along_y[] = {0, 100, 200, 0}, along_z[] = {0, 1000, 2000, 3000, 0};  // planes, then the closing one
  for (const auto& r : rows) {
    load_grid(2, 3, 4, [&](int i, int j, int k) { return (i == 1 ? 10.0 : 30.0) + along_y[j - 1] + along_z[k - 1]; });
    qp::xlim = {r.x0, r.x1};
    qp::xinc = r.xinc;
    proc_carga();
    for (int k = 1; k <= 5; ++k)
      for (int j = 1; j <= 4; ++j)
        for (int i = 1; i <= 3; ++i)
          EXPECT_NEAR(qp::rhonew(i, j, k), r.along_x[i - 1] + along_y[j - 1] + along_z[k - 1], 1e-4)
              << r.x0 << ": " << i << " " << j << " " << k;
  }
}

TEST(ProcCarga, EmptyGridGivesExtremeRange) {
  load_grid(1, 1, 1);
  qp::ngrid = {-1, 3, 3};
  memory_maps();
  proc_carga();
  EXPECT_EQ(qp::denmin, 3.4028235e38f);
  EXPECT_EQ(qp::denmax, -3.4028235e38f);
}

TEST(ProcCarga, SkewFlagsFollowTheAngles) {
  for (const std::string& row : data_lines("maps/skew_flags.txt")) {
    std::istringstream in(row);
    std::array<std::int32_t, 3> after{};
    load_grid(2, 2, 2);
    for (float& a : qp::celda.ang) in >> a;
    for (auto* flags : {&qp::jpg, &after}) in >> (*flags)[0] >> (*flags)[1] >> (*flags)[2];
    ASSERT_FALSE(in.fail()) << "unreadable row: " << row;
    proc_carga();
    EXPECT_EQ(qp::jpg, after) << row;
  }
}

// A cubic cell of 10 A on a 10-point grid with rho = i + j + k: sections of
// any window, height and thickness against the values worked out by hand
// in tests/data/maps/oriented_sections.txt.
TEST(OrientedSection, ValuesOfTheCubicDensity) {
  qp::celda = cell_metrics_type{};
  set_crystal_cell({10.0f, 10.0f, 10.0f}, {90.0f, 90.0f, 90.0f}, qp::celda);
  load_grid(10, 10, 10, [](int i, int j, int k) { return i + j + k; });
  qp::theta = qp::phi = 0.0f;
  for (const std::string& row : data_lines("maps/oriented_sections.txt")) {
    std::istringstream in(row);
    float tol = 0.0f, value = 0.0f;
    int iu = 0, iv = 0;
    in >> qp::xl1 >> qp::xl2 >> qp::yl1 >> qp::yl2 >> qp::zt >> qp::boton_add >> qp::view_layers[0] >>
        qp::view_layers[1] >> tol;
    qp::dmap.allocate(50, 50);
    oriented_section();
    while (in >> iu >> iv >> value) EXPECT_NEAR(qp::dmap(iu, iv), value, tol) << row << ": " << iu << "," << iv;
    EXPECT_TRUE(in.eof()) << "unreadable row: " << row;
  }
}

// Each elementary turn of the view goes by minus the angle about its axis.
TEST(ViewTurns, ByMinusTheAngle) {
  const struct {
    void (*turn)(vec3f&, const vec3f&, float);
    vec3f in, out;
  } rows[] = {{rota_ox, {0, 1, 0}, {0, 0, -1}}, {rota_oy, {1, 0, 0}, {0, 0, 1}}, {rota_oz, {1, 0, 0}, {0, -1, 0}}};
  for (int n = 0; n < 3; ++n) {
    vec3f out{};
    rows[n].turn(out, rows[n].in, 90.0f);
    for (std::size_t k = 0; k < 3; ++k) EXPECT_NEAR(out[k], rows[n].out[k], 2e-5f) << "axis " << n << ", " << k;
  }
}

// The corners of the box (z, x) = (0,0), (0,1), (1,1), (1,0) in Angstrom
// along Z and X, the rectangle around them and its steps: 2 nu - 2 steps
// across, nu = ngrid + 1 points a side.
TEST(SkewedSection, WindowFromTheBoxCorners) {
  load_family3(24, 28, 32);
  const auto corners = skewed_section_window(5);
  const double ac = 6.0 * std::cos(110 * deg), as = 6.0 * std::sin(110 * deg);
  const double expected[4][2] = {{0, 0}, {ac, as}, {ac + 8, as}, {8, 0}};
  for (int c = 0; c < 4; ++c) {
    EXPECT_NEAR(corners[c][0], expected[c][0], 1e-4) << c;
    EXPECT_NEAR(corners[c][1], expected[c][1], 1e-4) << c;
  }
  const double window[4][2] = {{qp::u_min, ac}, {qp::u_max, 8.0}, {qp::v_min, 0.0}, {qp::v_max, as}};
  for (int n = 0; n < 4; ++n) EXPECT_NEAR(window[n][0], window[n][1], 1e-4) << n;
  EXPECT_NEAR(qp::u_inc, (8.0 - ac) / 64.0, 1e-5);
  EXPECT_NEAR(qp::v_inc, as / 48.0, 1e-5);
}

// Every point of the rectangle, folded into the cell, adds the density of
// its position to dmap to the accuracy of bilinear interpolation; a second
// pass that sums only negative values adds those and nothing else.
TEST(SkewedSection, ResampledValuesFollowTheDensity) {
  load_family3(24, 28, 32);
  const int isec = 5;  // the plane lies on grid plane 5 of y
  skewed_section_window(isec);
  qp::dmap.allocate(65, 49);
  std::tie(qp::sum_all, qp::sum_positive, qp::sum_negative) = std::tuple(true, false, false);
  std::int32_t nd_x = 0, nd_y = 0;
  carga_seccion_rec(isec, nd_x, nd_y);  // a dmap of any other size than 65 x 49 would stay 0
  const farray2<float> once = qp::dmap;
  std::tie(qp::sum_all, qp::sum_negative) = std::tuple(false, true);
  carga_seccion_rec(isec, nd_x, nd_y);
  const double y = (isec - 1) / 28.0, sb = std::sin(110 * deg), cb = std::cos(110 * deg);
  double worst = 0.0;
  for (int j = 1; j <= 49; ++j)
    for (int i = 1; i <= 65; ++i) {
      const double Z = (i - 1) * double(qp::u_inc) + qp::u_min, X = (j - 1) * double(qp::v_inc) + qp::v_min;
      const double x = X / (6 * sb), z = (Z - 6 * cb * x) / 8;
      worst = std::max(worst, std::fabs(once(i, j) - density(x, y, z)));
      ASSERT_EQ(qp::dmap(i, j), once(i, j) < 0 ? 2 * once(i, j) : once(i, j)) << i << " " << j;
    }
  EXPECT_LT(worst, 0.015);
}

TEST(SkewedSection, SumFiltersKeepWhatTheyName) {
  const struct {
    bool all, positive, negative;
    std::array<bool, 3> kept;  // of -1, 0 and 1
  } rows[] = {
      {true, false, false, {true, true, true}},   {false, true, false, {false, true, true}},
      {false, false, true, {true, false, false}}, {false, true, true, {true, true, true}},
      {false, false, false, {false, false, false}},
  };
  for (const auto& r : rows) {
    std::tie(qp::sum_all, qp::sum_positive, qp::sum_negative) = std::tuple(r.all, r.positive, r.negative);
    for (int v = -1; v <= 1; ++v)
      EXPECT_EQ(section_sum_accepts(float(v)), r.kept[v + 1]) << r.all << r.positive << r.negative << " " << v;
  }
}

// The value under the pointer on a section of family 1 (13 x 15 points from
// rmax with steps rinc): a bilinear function of the position, unlike in u
// and v, is reproduced exactly between the points of dmap.
TEST(CalcPointVal, BilinearBetweenThePointsOfDmap) {
  auto g = [](double u, double v) { return 2.0 + 3.0 * u - 5.0 * v + 7.0 * u * v; };
  qp::plane_def = false;
  qp::jpg = {0, 0, 0};
  qp::imap = 1;
  qp::ngrid = {12, 14, 16};
  qp::rmax = {0.1f, -0.2f, 0.0f, 1.0f, 1.0f, 1.0f};
  qp::rinc = {0.05f, 0.04f, 0.1f};
  qp::dmap.allocate(13, 15);
  for (int j = 1; j <= 15; ++j)
    for (int i = 1; i <= 13; ++i) qp::dmap(i, j) = float(g(0.1 + (i - 1) * 0.05, -0.2 + (j - 1) * 0.04));
  for (const auto& [a, b] : {std::pair{0.0, 0.0}, {0.37, 0.61}, {3.0, 5.0}, {6.5, 9.01}, {1.0, 1.0}}) {
    const double x = 0.1 + a * 0.05, y = -0.2 + b * 0.04;  // a and b in steps
    float val = 0.0f;
    calc_point_val(float(x), float(y), val);
    EXPECT_NEAR(val, g(x, y), 2e-4 * (1 + std::fabs(g(x, y)))) << a << " " << b;
  }
}

// Fractional to orthogonal through the cell and back, with results of
// 0.0001 or less coming out as exactly 0.
TEST(Frac2Orth, ConvertsAndSnapsSmallValues) {
  set_monoclinic_cell();
  const double sb = std::sin(110 * deg), cb = std::cos(110 * deg);
  const std::array<std::array<double, 3>, 2> rows[] = {
      {{{0.5, 0.25, 0.125}, {3 * sb, 1.75, 3 * cb + 1}}},
      {{{0.0, 0.00001, 0.0}, {0, 0, 0}}},        // 0.00007 snaps to 0
      {{{0.0, 0.00002, 0.0}, {0, 0.00014, 0}}},  // 0.00014 stays
  };
  for (const auto& [frac, orth] : rows) {
    vec3f o{}, back{};
    frac2orth(float(frac[0]), float(frac[1]), float(frac[2]), o[0], o[1], o[2]);
    orth2frac(o[0], o[1], o[2], back[0], back[1], back[2]);
    for (std::size_t k = 0; k < 3; ++k) {
      EXPECT_NEAR(o[k], orth[k], orth[k] == 0 ? 0.0 : 1e-5) << frac[1] << ", axis " << k;
      if (k != 1) {  // y may have snapped
        EXPECT_NEAR(back[k], frac[k], 1e-5) << frac[1] << ", axis " << k;
      }
    }
  }
}
