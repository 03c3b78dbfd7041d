// The synthesis against a direct summation written here, over structure
// factors computed here from atoms placed by the group's operators.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>

#include "synthesis/grid_choice.h"
#include "synthesis/peak_search.h"
#include "synthesis/synthesis.h"
#include "tests/data_files.h"

namespace {

using cplx = std::complex<double>;

struct atom {
  vec3f x;
  double electrons;
};

// Scattering of a Gaussian atom: f = Z exp(-B s^2), B = 2 A^2.
double form_factor(double z, double s) { return z * std::exp(-2.0 * s * s); }

// The atoms of the whole cell: every operator applied, images folded into
// the cell, each position once.
std::vector<atom> cell_atoms(const std::vector<atom>& unique, const space_group_type& group) {
  std::vector<atom> all;
  for (const atom& a : unique)
    for (const sym_oper_type& op : group.sym_op) {
      vec3f p = applyso(op, a.x);
      for (float& c : p) c -= std::floor(c);
      const bool known = std::any_of(all.begin(), all.end(), [&](const atom& b) {
        float d = 0;
        for (std::size_t i = 0; i < 3; ++i) d += std::fabs(std::remainder(p[i] - b.x[i], 1.0f));
        return d < 1e-4f;
      });
      if (!known) all.push_back({p, a.electrons});
    }
  return all;
}

cplx structure_factor(const vec3i& h, const std::vector<atom>& atoms, const cell_metrics_type& cell) {
  cplx f;
  for (const atom& a : atoms)
    f += std::polar(form_factor(a.electrons, sin_theta_over_lambda(h, cell)),
                    2 * std::numbers::pi * (h[0] * double{a.x[0]} + h[1] * double{a.x[1]} + h[2] * double{a.x[2]}));
  return f;
}

// Whether h is the largest index (h first, then k, l) among its hR and -hR.
bool first_of_orbit(const vec3i& h, const space_group_type& group) {
  for (const sym_oper_type& op : group.sym_op)
    for (int sign : {1, -1}) {
      vec3i g{};
      for (std::size_t j = 0; j < 3; ++j) g[j] = sign * (h[0] * op.rot[0][j] + h[1] * op.rot[1][j] + h[2] * op.rot[2][j]);
      if (g > h) return false;
    }
  return true;
}

struct map_case {
  const char* group;
  vec3f cell, angles;
  std::vector<atom> atoms;
  bool every_equivalent;  // the file holds every reflection, not one per orbit
};

// Fo exp(i phi) of every reflection with |h|, |k|, |l| up to 4 against the
// sum of F(h) exp(-2 pi i h.x) at every point of a 12^3 grid.
TEST(Synthesis, AgreesWithDirectSummation) {
  const map_case cases[] = {
      {"P 1", {5.1f, 6.3f, 7.2f}, {81.0f, 95.0f, 103.0f}, {{{0.1f, 0.2f, 0.3f}, 8}, {{0.62f, 0.35f, 0.81f}, 6}}, false},
      {"P 21/c", {6.0f, 7.5f, 8.0f}, {90.0f, 104.0f, 90.0f}, {{{0.12f, 0.21f, 0.33f}, 16}, {{0.4f, 0.1f, 0.7f}, 7}}, false},
      {"F d -3 m", {9.0f, 9.0f, 9.0f}, {90.0f, 90.0f, 90.0f}, {{{0.31f, 0.07f, 0.19f}, 8}}, false},
      // Screw axes of a quarter turn: phase shifts that are not a sign.
      {"P 41", {6.0f, 6.0f, 8.0f}, {90.0f, 90.0f, 90.0f}, {{{0.12f, 0.21f, 0.33f}, 16}, {{0.4f, 0.1f, 0.7f}, 7}}, false},
      {"P 41", {6.0f, 6.0f, 8.0f}, {90.0f, 90.0f, 90.0f}, {{{0.12f, 0.21f, 0.33f}, 16}}, true},
  };
  constexpr int hmax = 4, n = 12;
  for (const map_case& c : cases) {
    const std::string name = std::string(c.group) + (c.every_equivalent ? ", every equivalent" : "");
    space_group_type group;
    set_spacegroup(c.group, group);
    cell_metrics_type cell;
    set_crystal_cell(c.cell, c.angles, cell);
    const std::vector<atom> atoms = cell_atoms(c.atoms, group);
    double f000 = 0;
    for (const atom& a : atoms) f000 += a.electrons;

    reflection_set_type set;
    std::vector<std::pair<vec3i, cplx>> all;
    for (int h = -hmax; h <= hmax; ++h)
      for (int k = -hmax; k <= hmax; ++k)
        for (int l = -hmax; l <= hmax; ++l) {
          const vec3i hkl{h, k, l};
          if (hkl == vec3i{}) continue;
          const cplx f = structure_factor(hkl, atoms, cell);
          all.emplace_back(hkl, f);
          if (!c.every_equivalent && !first_of_orbit(hkl, group)) continue;
          reflection_type r;
          r.hkl = hkl;
          r.value[col_fo] = std::abs(f);
          r.value[col_ph] = std::arg(f) * 180 / std::numbers::pi;
          set.list.push_back(r);
        }
    synthesis_result_type result;
    synthesis_request_type request;
    request.f000 = f000;
    request.grid = {n, n, n};
    compute_synthesis(set, request, cell, group, result);
    ASSERT_FALSE(err_synthesis) << name << ": " << err_synthesis_mess;

    double worst = 0, largest = 0;
    for (int z = 0; z < n; ++z)
      for (int y = 0; y < n; ++y)
        for (int x = 0; x < n; ++x) {
          cplx sum = f000;
          for (const auto& [h, f] : all)
            sum += f * std::polar(1.0, -2 * std::numbers::pi * (h[0] * x + h[1] * y + h[2] * z) / n);
          const double direct = sum.real() / cell.cell_vol;
          largest = std::max(largest, std::fabs(direct));
          worst = std::max(worst, std::fabs(direct - result.rho(x + 1, y + 1, z + 1)));
        }
    EXPECT_LT(worst, 1e-4 * largest) << name;
    EXPECT_NEAR(result.denave, f000 / cell.cell_vol, 1e-5) << name;
  }
}

// One atom off the grid in P 1, Fo = Fc = f(s) with its phase, all
// reflections up to |h| = 6 on a 20^3 grid: the Fc map peaks at the atom
// (the quadratic fit within a tenth of a grid step), the Patterson Fc^2 at
// the origin with height (F000^2 + sum of f^2) / V, and Fo - Fc is flat.
TEST(Synthesis, OneAtomInP1) {
  space_group_type group;
  set_spacegroup("P 1", group);
  cell_metrics_type cell;
  set_crystal_cell({7.0f, 8.0f, 9.0f}, {90.0f, 100.0f, 90.0f}, cell);
  const vec3f site{0.123f, 0.456f, 0.789f};
  const double z = 12;
  reflection_set_type set;
  double patterson_origin = z * z;
  for (int h = -6; h <= 6; ++h)
    for (int k = -6; k <= 6; ++k)
      for (int l = -6; l <= 6; ++l) {
        reflection_type r;
        r.hkl = {h, k, l};
        const cplx f = structure_factor(r.hkl, {{site, z}}, cell);
        r.value[col_fo] = r.value[col_fc] = std::abs(f);
        r.value[col_ph] = std::arg(f) * 180 / std::numbers::pi;
        set.list.push_back(r);
        if (r.hkl != vec3i{}) patterson_origin += std::norm(f);
      }
  synthesis_request_type request;
  request.grid = {20, 20, 20};
  request.f000 = z;
  for (std::int32_t ntype : {2, 5, 3}) {
    request.ntype = ntype;
    synthesis_result_type result;
    compute_synthesis(set, request, cell, group, result);
    ASSERT_FALSE(err_synthesis) << ntype;
    if (ntype == 2) {
      const std::vector<peak_type> peaks = find_peaks(result.rho, group, 1);
      ASSERT_EQ(peaks.size(), 1u);
      for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(peaks[0].x[i], site[i], 0.1 / 20) << i;
    } else if (ntype == 5) {
      EXPECT_EQ(result.denmax, result.rho(1, 1, 1));
      EXPECT_NEAR(result.denmax, patterson_origin / cell.cell_vol, 1e-4 * result.denmax);
    } else {
      EXPECT_EQ(result.densigma, 0.0f);
      EXPECT_LT(result.denmax - result.denmin, 1e-6);
    }
  }
}

TEST(Synthesis, AutomaticGrid) {
  for (const auto& row : data_table("synthesis/automatic_grids.txt", 4)) {
    space_group_type group;
    set_spacegroup(row[0], group);
    const std::vector<float> cell = numbers(row[1]);
    const std::array<std::int32_t, 3> n = automatic_grid({cell[0], cell[1], cell[2]}, numbers<double>(row[2])[0], group);
    EXPECT_EQ(std::vector<std::int32_t>(n.begin(), n.end()), numbers<std::int32_t>(row[3])) << row[0] << ", " << row[2];
  }
}

}  // namespace
