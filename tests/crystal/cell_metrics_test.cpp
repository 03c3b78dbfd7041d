#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "crystal/vant_crystal_metrics.h"
#include "crystal/vant_math_3d_inverse.h"
#include "crystal/vant_math_degrees.h"

namespace {

constexpr double deg = std::numbers::pi / 180.0;

struct cell_case {
  const char* name;
  vec3f cell, ang;
};

const cell_case cells[] = {
    {"cubic", {10.0f, 10.0f, 10.0f}, {90.0f, 90.0f, 90.0f}},
    {"monoclinic", {5.5f, 7.2f, 9.1f}, {90.0f, 104.3f, 90.0f}},
    {"triclinic", {6.1f, 7.3f, 8.4f}, {78.2f, 85.6f, 69.9f}},
    {"hexagonal", {4.9f, 4.9f, 5.4f}, {90.0f, 90.0f, 120.0f}},
};

// Textbook direct metric tensor and volume, in double.
std::array<std::array<double, 3>, 3> gram(const vec3f& c, const vec3f& a) {
  const double ca = std::cos(a[0] * deg), cb = std::cos(a[1] * deg), cg = std::cos(a[2] * deg);
  return {{{c[0] * c[0], c[0] * c[1] * cg, c[0] * c[2] * cb},
           {c[0] * c[1] * cg, c[1] * c[1], c[1] * c[2] * ca},
           {c[0] * c[2] * cb, c[1] * c[2] * ca, c[2] * c[2]}}};
}

double volume(const vec3f& c, const vec3f& a) {
  const double ca = std::cos(a[0] * deg), cb = std::cos(a[1] * deg), cg = std::cos(a[2] * deg);
  return c[0] * c[1] * c[2] * std::sqrt(1 - ca * ca - cb * cb - cg * cg + 2 * ca * cb * cg);
}

double det(const mat3f& m) {
  return double(m[0][0]) * (double(m[1][1]) * m[2][2] - double(m[1][2]) * m[2][1]) -
         double(m[0][1]) * (double(m[1][0]) * m[2][2] - double(m[1][2]) * m[2][0]) +
         double(m[0][2]) * (double(m[1][0]) * m[2][1] - double(m[1][1]) * m[2][0]);
}

}  // namespace

// In every convention: the columns of cr_orth have the cell's metric, its
// determinant is the volume, orth_cr is its inverse, the named direct axis
// lies along its own Cartesian axis and the named reciprocal axis too.
TEST(CellMetrics, EveryCellInEveryConvention) {
  struct convention {
    const char* code;
    int direct, reciprocal;  // axes, 0 = a/X, 1 = b/Y, 2 = c/Z
  };
  const convention conventions[] = {{"CA", 2, 0}, {"CB", 2, 1}, {"AC", 0, 2}, {"BC", 1, 2}, {"BA", 1, 0}};
  for (const cell_case& cc : cells) {
    const auto g = gram(cc.cell, cc.ang);
    const double v = volume(cc.cell, cc.ang);
    for (const convention& conv : conventions) {
      SCOPED_TRACE(std::string(cc.name) + " " + conv.code);
      cell_metrics_type c;
      set_crystal_cell(cc.cell, cc.ang, c, std::string(conv.code));
      ASSERT_FALSE(err_crys) << err_crys_mess;
      EXPECT_EQ(c.cart_type, conv.code);
      const double scale = g[0][0] + g[1][1] + g[2][2];
      for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) {
          double dot = 0, unit = 0;
          for (int k = 0; k < 3; ++k) {
            dot += double(c.cr_orth[k][i]) * c.cr_orth[k][j];
            unit += double(c.cr_orth[i][k]) * c.orth_cr[k][j];
          }
          EXPECT_NEAR(dot, g[i][j], 2e-6 * scale) << i << j;
          EXPECT_NEAR(c.gd[i][j], g[i][j], 2e-6 * scale) << i << j;
          EXPECT_NEAR(unit, i == j ? 1.0 : 0.0, 2e-6) << i << j;
          if (i != conv.direct) {
            EXPECT_NEAR(c.cr_orth[i][conv.direct], 0.0, 1e-5);
          }
          if (j != conv.reciprocal) {
            EXPECT_NEAR(c.orth_cr[conv.reciprocal][j], 0.0, 1e-6);
          }
        }
      EXPECT_GT(c.cr_orth[conv.direct][conv.direct], 0.0f);
      EXPECT_NEAR(det(c.cr_orth), v, 1e-5 * v);
      EXPECT_NEAR(c.cell_vol, v, 1e-5 * v);
      EXPECT_NEAR(c.rcell_vol, 1.0 / v, 1e-5 / v);
    }
  }
}

// The reciprocal cell against the textbook formulas, and its metric against
// the rows of orth_cr (the reciprocal axes in Cartesian coordinates).
TEST(CellMetrics, ReciprocalCell) {
  for (const cell_case& cc : cells) {
    SCOPED_TRACE(cc.name);
    cell_metrics_type c;
    set_crystal_cell(cc.cell, cc.ang, c);
    const double ca = std::cos(cc.ang[0] * deg), cb = std::cos(cc.ang[1] * deg), cg = std::cos(cc.ang[2] * deg);
    const double sa = std::sin(cc.ang[0] * deg), sb = std::sin(cc.ang[1] * deg), sg = std::sin(cc.ang[2] * deg);
    const double v = volume(cc.cell, cc.ang);
    EXPECT_NEAR(c.rcell[0], cc.cell[1] * cc.cell[2] * sa / v, 1e-6);
    EXPECT_NEAR(c.rcell[1], cc.cell[0] * cc.cell[2] * sb / v, 1e-6);
    EXPECT_NEAR(c.rcell[2], cc.cell[0] * cc.cell[1] * sg / v, 1e-6);
    EXPECT_NEAR(c.rang[0], std::acos((cb * cg - ca) / (sb * sg)) / deg, 1e-3);
    EXPECT_NEAR(c.rang[1], std::acos((ca * cg - cb) / (sa * sg)) / deg, 1e-3);
    EXPECT_NEAR(c.rang[2], std::acos((ca * cb - cg) / (sa * sb)) / deg, 1e-3);
    for (int i = 0; i < 3; ++i)
      for (int j = 0; j < 3; ++j) {
        double dot = 0;
        for (int k = 0; k < 3; ++k) dot += double(c.orth_cr[i][k]) * c.orth_cr[j][k];
        EXPECT_NEAR(c.gr[i][j], dot, 1e-6) << i << j;
      }
    EXPECT_EQ(c.cart_type, "CA");
    EXPECT_FALSE(err_crys);
  }
}

// Codes as the caller wrote them: the record keeps them uncut to two
// characters, the matrix uses the normalised code.
TEST(CellMetrics, ConventionCodes) {
  const vec3f cell{5.5f, 7.2f, 9.1f}, ang{80.0f, 104.3f, 95.0f};
  struct Case {
    const char* given;
    const char* matrix_of;
    const char* stored;
    bool error;
  };
  const Case cases[] = {
      {"xy", "CA", "xy", true},   {"a", "AC", "a", false},   {"b", "BC", "b", false},
      {"c", "CA", "c", false},    {"q", "CA", "q", false},   {" bc", "BC", " b", false},
      {"", "CA", "", false},      {"bax", "BA", "ba", false}, {"Ca", "CA", "Ca", false},
  };
  for (const Case& k : cases) {
    SCOPED_TRACE(k.given);
    cell_metrics_type reference, c;
    set_crystal_cell(cell, ang, reference, std::string(k.matrix_of));
    set_crystal_cell(cell, ang, c, std::string(k.given));
    EXPECT_EQ(err_crys, k.error);
    if (k.error) {
      EXPECT_EQ(err_crys_mess, "Invalid CarType in call to Get_Cryst_Orthog_Matrix. Reset to default");
    }
    EXPECT_EQ(c.cr_orth, reference.cr_orth);
    EXPECT_EQ(c.cart_type, k.stored);
  }
}

// Degenerate cells: a zero angle is stored as 90 but computed as 0; three
// angles of 120 make a flat cell.
TEST(CellMetrics, BadCells) {
  struct Case {
    vec3f ang;
    vec3f stored;
  };
  const Case cases[] = {
      {{90.0f, 90.0f, 0.0f}, {90.0f, 90.0f, 90.0f}},
      {{120.0f, 120.0f, 120.0f}, {120.0f, 120.0f, 120.0f}},
  };
  for (const Case& k : cases) {
    cell_metrics_type c;
    set_crystal_cell({5, 6, 7}, k.ang, c);
    EXPECT_TRUE(err_crys);
    EXPECT_EQ(err_crys_mess, " Bad cell parameters ");
    EXPECT_EQ(c.ang, k.stored);
    EXPECT_NEAR(c.cell_vol, 0.0, 1e-3);
  }
}

TEST(CellMetrics, VolumeSigma) {
  const double cb = std::cos(120 * deg);
  const double v_mono = 5.0 * 6.0 * 7.0 * std::sin(120 * deg);
  struct Case {
    vec3f ang;
    std::optional<vec3f> scell, sangl;
    double expected;
  };
  const Case cases[] = {
      // lengths only: relative errors add in quadrature
      {{90, 90, 90}, vec3f{0.01f, 0.02f, 0.0f}, vec3f{0, 0, 0},
       210.0 * std::sqrt(0.01 / 5 * 0.01 / 5 + 0.02 / 6 * 0.02 / 6)},
      // beta of 120 with sigma 0.5 degree: |cos beta| sigma V (D enters once)
      {{90, 120, 90}, vec3f{0, 0, 0}, vec3f{0.0f, 0.5f, 0.0f}, std::fabs(cb) * 0.5 * deg * v_mono},
      // only one of the two vectors: nothing is kept
      {{90, 90, 90}, vec3f{0.01f, 0.02f, 0.03f}, std::nullopt, 0.0},
  };
  for (const Case& k : cases) {
    cell_metrics_type c;
    set_crystal_cell({5, 6, 7}, k.ang, c, std::nullopt, k.scell, k.sangl);
    EXPECT_NEAR(c.cell_vol_sigma, k.expected, 1e-4 * (1 + k.expected));
    if (!k.sangl) {
      EXPECT_EQ(c.cell_sigma, (vec3f{0, 0, 0}));
    }
  }
}

// U_eq = 1/3 sum U_ij a*_i a*_j (a_i . a_j), and betas 2 pi^2 a*_i a*_j U_ij
// (B/4 a*_i a*_j for B values), computed independently in double.
TEST(CellMetrics, DisplacementParameters) {
  const std::array<float, 6> u{0.021f, 0.034f, 0.017f, 0.004f, -0.006f, 0.002f};
  const int pair[6][2] = {{0, 0}, {1, 1}, {2, 2}, {0, 1}, {0, 2}, {1, 2}};
  for (const cell_case& cc : cells) {
    SCOPED_TRACE(cc.name);
    cell_metrics_type c;
    set_crystal_cell(cc.cell, cc.ang, c);
    const auto g = gram(cc.cell, cc.ang);
    const double v = volume(cc.cell, cc.ang);
    const double sa = std::sin(cc.ang[0] * deg), sb = std::sin(cc.ang[1] * deg), sg = std::sin(cc.ang[2] * deg);
    const double rs[3] = {cc.cell[1] * cc.cell[2] * sa / v, cc.cell[0] * cc.cell[2] * sb / v,
                          cc.cell[0] * cc.cell[1] * sg / v};
    double ueq = 0;
    for (int n = 0; n < 6; ++n) {
      const int i = pair[n][0], j = pair[n][1];
      ueq += (i == j ? 1 : 2) * u[n] * rs[i] * rs[j] * g[i][j];
    }
    EXPECT_NEAR(u_equiv(c, u), ueq / 3, 1e-6);
    const auto bu = convert_u_betas(u, c);
    const auto bb = convert_b_betas(u, c);
    for (int n = 0; n < 6; ++n) {
      const double aa = rs[pair[n][0]] * rs[pair[n][1]];
      EXPECT_NEAR(bu[n], 2 * std::numbers::pi * std::numbers::pi * aa * u[n], 1e-7);
      EXPECT_NEAR(bb[n], 0.25 * aa * u[n], 1e-8);
    }
  }
}

TEST(MatrixInverse, RegularAndSingular) {
  const mat3f a{{{2, 1, 0}, {0, 3, 1}, {1, 0, 4}}};  // det 25
  mat3f b{};
  std::int32_t ifail = -1;
  err_math3d = false;
  matrix_inverse(a, b, ifail);
  EXPECT_EQ(ifail, 0);
  const mat3f expected{{{12, -4, 1}, {1, 8, -2}, {-3, 1, 6}}};  // adjugate, by hand
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) EXPECT_NEAR(b[i][j], expected[i][j] / 25.0, 1e-6);
  EXPECT_FALSE(err_math3d);

  const mat3f s{{{1, 2, 3}, {2, 4, 6}, {0, 1, 1}}};
  matrix_inverse(s, b, ifail);
  EXPECT_EQ(ifail, 1);
  EXPECT_TRUE(err_math3d);
  EXPECT_EQ(err_math3d_mess, "Singular Matrix: inversion imposible");
  const mat3f adj{{{-2, 1, 0}, {-2, 1, 0}, {2, -1, 0}}};  // left unscaled
  EXPECT_EQ(b, adj);
}

TEST(DegreeFunctions, Values) {
  struct Case {
    float x, cos, sin;
  };
  const Case cases[] = {{0, 1, 0}, {30, 0.8660254f, 0.5f}, {60, 0.5f, 0.8660254f}, {90, 0, 1}, {180, -1, 0}, {-45, 0.70710677f, -0.70710677f}};
  for (const Case& k : cases) {
    EXPECT_NEAR(cosd_sp(k.x), k.cos, 1e-7) << k.x;
    EXPECT_NEAR(sind_sp(k.x), k.sin, 1e-7) << k.x;
  }
  EXPECT_EQ(cosd_sp(90.0f), static_cast<float>(std::cos(std::numbers::pi / 2)));
  struct Acos {
    float x, degrees;
  };
  const Acos acos_cases[] = {{1.5f, 0}, {1, 0}, {0.5f, 60}, {0, 90}, {-0.5f, 120}, {-1, 180}, {-1.0001f, 180}};
  for (const Acos& k : acos_cases) EXPECT_NEAR(acosd_sp(k.x), k.degrees, 2e-5) << k.x;
}
