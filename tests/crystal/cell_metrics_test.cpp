#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>
#include <optional>
#include <string>
#include <tuple>

#include "crystal/vant_crystal_metrics.h"
#include "crystal/vant_math_general.h"

namespace {

constexpr double deg = std::numbers::pi / 180.0;

struct Cell { const char* name; vec3f cell, ang; };

const Cell cells[] = {
    {"cubic", {10.0f, 10.0f, 10.0f}, {90.0f, 90.0f, 90.0f}},
    {"monoclinic", {5.5f, 7.2f, 9.1f}, {90.0f, 104.3f, 90.0f}},
    {"triclinic", {6.1f, 7.3f, 8.4f}, {78.2f, 85.6f, 69.9f}},
    {"hexagonal", {4.9f, 4.9f, 5.4f}, {90.0f, 90.0f, 120.0f}},
};

// Textbook direct metric, volume and reciprocal cell, in double.
struct Textbook { double g[3][3], v, rcell[3], rang[3]; };

Textbook textbook(const vec3f& l, const vec3f& a) {
  const double ca = std::cos(a[0] * deg), cb = std::cos(a[1] * deg), cg = std::cos(a[2] * deg);
  const double sa = std::sin(a[0] * deg), sb = std::sin(a[1] * deg), sg = std::sin(a[2] * deg);
  const double v = l[0] * l[1] * l[2] * std::sqrt(1 - ca * ca - cb * cb - cg * cg + 2 * ca * cb * cg);
  return {{{l[0] * l[0], l[0] * l[1] * cg, l[0] * l[2] * cb},
           {l[0] * l[1] * cg, l[1] * l[1], l[1] * l[2] * ca},
           {l[0] * l[2] * cb, l[1] * l[2] * ca, l[2] * l[2]}},
          v,
          {l[1] * l[2] * sa / v, l[0] * l[2] * sb / v, l[0] * l[1] * sg / v},
          {std::acos((cb * cg - ca) / (sb * sg)) / deg, std::acos((ca * cg - cb) / (sa * sg)) / deg,
           std::acos((ca * cb - cg) / (sa * sb)) / deg}};
}

double det(const mat3f& m) {
  return double(m[0][0]) * (double(m[1][1]) * m[2][2] - double(m[1][2]) * m[2][1]) -
         double(m[0][1]) * (double(m[1][0]) * m[2][2] - double(m[1][2]) * m[2][0]) +
         double(m[0][2]) * (double(m[1][0]) * m[2][1] - double(m[1][1]) * m[2][0]);
}

// In every convention: the columns of cr_orth have the cell's metric, its
// determinant is the volume, orth_cr is its inverse and its rows have the
// reciprocal metric; the named direct axis lies along its own Cartesian axis
// and the named reciprocal axis too. The reciprocal cell follows the
// textbook formulas.
TEST(CellMetrics, EveryCellInEveryConvention) {
  // {code, direct axis, reciprocal axis}, axes 0 = a/X, 1 = b/Y, 2 = c/Z
  const std::tuple<const char*, int, int> conventions[] = {
      {"CA", 2, 0}, {"CB", 2, 1}, {"AC", 0, 2}, {"BC", 1, 2}, {"BA", 1, 0}};
  for (const Cell& cc : cells) {
    const Textbook t = textbook(cc.cell, cc.ang);
    const double scale = t.g[0][0] + t.g[1][1] + t.g[2][2];
    for (const auto& [code, direct, reciprocal] : conventions) {
      SCOPED_TRACE(std::string(cc.name) + " " + code);
      cell_metrics_type c;
      set_crystal_cell(cc.cell, cc.ang, c, std::string(code));
      ASSERT_FALSE(err_crys) << err_crys_mess;
      EXPECT_EQ(c.cart_type, code);
      for (int i = 0; i < 3; ++i) {
        EXPECT_NEAR(c.rcell[i], t.rcell[i], 1e-6);
        EXPECT_NEAR(c.rang[i], t.rang[i], 1e-3);
        for (int j = 0; j < 3; ++j) {
          double dot = 0, unit = 0, rdot = 0;
          for (int k = 0; k < 3; ++k) {
            dot += double(c.cr_orth[k][i]) * c.cr_orth[k][j];
            unit += double(c.cr_orth[i][k]) * c.orth_cr[k][j];
            rdot += double(c.orth_cr[i][k]) * c.orth_cr[j][k];
          }
          EXPECT_NEAR(dot, t.g[i][j], 2e-6 * scale) << i << j;
          EXPECT_NEAR(c.gd[i][j], t.g[i][j], 2e-6 * scale) << i << j;
          EXPECT_NEAR(unit, i == j ? 1.0 : 0.0, 2e-6) << i << j;
          EXPECT_NEAR(c.gr[i][j], rdot, 1e-6) << i << j;
          if (i != direct) { EXPECT_NEAR(c.cr_orth[i][direct], 0.0, 1e-5); }
          if (j != reciprocal) { EXPECT_NEAR(c.orth_cr[reciprocal][j], 0.0, 1e-6); }
        }
      }
      EXPECT_GT(c.cr_orth[direct][direct], 0.0f);
      EXPECT_NEAR(det(c.cr_orth), t.v, 1e-5 * t.v);
      EXPECT_NEAR(c.cell_vol, t.v, 1e-5 * t.v);
      EXPECT_NEAR(c.rcell_vol, 1.0 / t.v, 1e-5 / t.v);
    }
  }
}

// Codes as the caller wrote them: the record keeps them cut to two
// characters, the matrix uses the normalised code; none gives "CA".
TEST(CellMetrics, ConventionCodes) {
  const vec3f cell{5.5f, 7.2f, 9.1f}, ang{80.0f, 104.3f, 95.0f};
  // {given, code whose matrix is used, code kept, error}
  const std::tuple<std::optional<std::string>, const char*, const char*, bool> cases[] = {
      {"xy", "CA", "xy", true},  {"a", "AC", "a", false},    {"b", "BC", "b", false},
      {"c", "CA", "c", false},   {"q", "CA", "q", false},    {" bc", "BC", " b", false},
      {"", "CA", "", false},     {"bax", "BA", "ba", false}, {"Ca", "CA", "Ca", false},
      {std::nullopt, "CA", "CA", false},
  };
  for (const auto& [given, matrix_of, stored, error] : cases) {
    SCOPED_TRACE(given.value_or("none"));
    cell_metrics_type reference, c;
    set_crystal_cell(cell, ang, reference, std::string(matrix_of));
    set_crystal_cell(cell, ang, c, given);
    const char* message = error ? "Invalid CarType in call to Get_Cryst_Orthog_Matrix. Reset to default" : "";
    EXPECT_EQ(std::tie(err_crys, err_crys_mess, c.cart_type), std::make_tuple(error, message, stored));
    EXPECT_EQ(c.cr_orth, reference.cr_orth);
  }
}

// Degenerate cells: a zero angle is stored as 90 but computed as 0; three
// angles of 120 make a flat cell.
TEST(CellMetrics, BadCells) {
  const std::pair<vec3f, vec3f> cases[] = {{{90, 90, 0}, {90, 90, 90}}, {{120, 120, 120}, {120, 120, 120}}};
  for (const auto& [ang, stored] : cases) {
    cell_metrics_type c;
    set_crystal_cell({5, 6, 7}, ang, c);
    EXPECT_TRUE(err_crys);
    EXPECT_EQ(err_crys_mess, " Bad cell parameters ");
    EXPECT_EQ(c.ang, stored);
    EXPECT_NEAR(c.cell_vol, 0.0, 1e-3);
  }
  // A NaN angle makes every matrix NaN, which the inverse must call singular.
  cell_metrics_type c;
  set_crystal_cell({5, 6, 7}, {90, 90, std::nanf("")}, c);
  EXPECT_TRUE(err_crys);
}

TEST(CellMetrics, VolumeSigma) {
  const double v_mono = 5.0 * 6.0 * 7.0 * std::sin(120 * deg);
  const std::tuple<vec3f, std::optional<vec3f>, std::optional<vec3f>, double> cases[] = {
      // lengths only: relative errors add in quadrature
      {{90, 90, 90}, vec3f{0.01f, 0.02f, 0.0f}, vec3f{0, 0, 0}, 210.0 * std::hypot(0.01 / 5, 0.02 / 6)},
      // beta of 120 with sigma 0.5 degree: |cos beta| sigma V (D enters once)
      {{90, 120, 90}, vec3f{0, 0, 0}, vec3f{0.0f, 0.5f, 0.0f}, 0.5 * 0.5 * deg * v_mono},
      // only one of the two vectors: nothing is kept
      {{90, 90, 90}, vec3f{0.01f, 0.02f, 0.03f}, std::nullopt, 0.0},
  };
  for (const auto& [ang, scell, sangl, expected] : cases) {
    cell_metrics_type c;
    set_crystal_cell({5, 6, 7}, ang, c, std::nullopt, scell, sangl);
    EXPECT_NEAR(c.cell_vol_sigma, expected, 1e-4 * (1 + expected)) << ang[1];
    if (!sangl) { EXPECT_EQ(c.cell_sigma, (vec3f{0, 0, 0})); }
  }
}

// U_eq = 1/3 sum U_ij a*_i a*_j (a_i . a_j), and betas 2 pi^2 a*_i a*_j U_ij
// (B/4 a*_i a*_j for B values), computed independently in double.
TEST(CellMetrics, DisplacementParameters) {
  const std::array<float, 6> u{0.021f, 0.034f, 0.017f, 0.004f, -0.006f, 0.002f};
  const int pair[6][2] = {{0, 0}, {1, 1}, {2, 2}, {0, 1}, {0, 2}, {1, 2}};
  for (const Cell& cc : cells) {
    SCOPED_TRACE(cc.name);
    cell_metrics_type c;
    set_crystal_cell(cc.cell, cc.ang, c);
    const Textbook t = textbook(cc.cell, cc.ang);
    double ueq = 0;
    const auto bu = convert_u_betas(u, c), bb = convert_b_betas(u, c);
    for (int n = 0; n < 6; ++n) {
      const int i = pair[n][0], j = pair[n][1];
      const double aa = t.rcell[i] * t.rcell[j];
      ueq += (i == j ? 1 : 2) * u[n] * aa * t.g[i][j];
      EXPECT_NEAR(bu[n], 2 * std::numbers::pi * std::numbers::pi * aa * u[n], 1e-7);
      EXPECT_NEAR(bb[n], 0.25 * aa * u[n], 1e-8);
    }
    EXPECT_NEAR(u_equiv(c, u), ueq / 3, 1e-6);
  }
}

TEST(MathGeneral, ScalarTestsAtDefaultTolerance) {
  ASSERT_FLOAT_EQ(epss_val(), 1.0e-5f);
  // {x, negligible, integral}
  const std::tuple<float, bool, bool> cases[] = {
      {0.0f, true, true},        {9.0e-6f, true, true}, {-9.0e-6f, true, true},  {2.0e-5f, false, false},
      {1.0f, false, true},       {2.999995f, false, true}, {-4.000008f, false, true}, {0.5f, false, false},
      {-0.49999f, false, false}, {7.00003f, false, false},
  };
  for (const auto& [x, negligible, integral] : cases) {
    EXPECT_EQ(negligibler(x), negligible) << x;
    EXPECT_EQ(zbelongn(x), integral) << x;
  }
}

}  // namespace
