// Writes the example map examples/nacl.bin: rock salt, F m -3 m, a = 5.64 A,
// Na at 4a and Cl at 4b as Gaussian densities on a 48 x 48 x 48 grid, with
// the full space group (48 point operations x 4 centrings). Everything is
// computed the same way on every run, so the file is reproducible.
//
//   quelmora-example [output.bin]
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "maps/binary_map.h"
#include "state/quelmora_parametros.h"

namespace qp = quelmora_parametros;

namespace {

constexpr float cell_a = 5.64f;
constexpr std::int32_t grid = 48;

// "x", "-y", "z+1/2", "-x+y"... one row of an operator in x,y,z form.
std::string row_text(const std::array<std::int32_t, 3>& row, float t) {
  static const char* axis = "xyz";
  std::string s;
  for (int j = 0; j < 3; ++j) {
    if (row[j] == 0) continue;
    if (row[j] < 0) s += '-';
    else if (!s.empty()) s += '+';
    s += axis[j];
  }
  if (t > 0.0f) s += "+1/2";
  return s;
}

// The 48 operations of m-3m as signed permutation matrices: the 24
// rotations (determinant +1) first, identity leading, then each of them
// times the inversion, in the same order.
std::vector<mat3i> point_operations() {
  std::vector<mat3i> rotations;
  std::array<int, 3> perm{0, 1, 2};
  do {
    for (int signs = 0; signs < 8; ++signs) {
      mat3i m{};
      for (int i = 0; i < 3; ++i) m[i][perm[i]] = (signs >> i & 1) ? -1 : 1;
      const int det = m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
                      m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
                      m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
      if (det == 1) rotations.push_back(m);
    }
  } while (std::next_permutation(perm.begin(), perm.end()));
  std::vector<mat3i> all = rotations;
  for (const mat3i& r : rotations) {
    mat3i m{};
    for (int i = 0; i < 3; ++i)
      for (int j = 0; j < 3; ++j) m[i][j] = -r[i][j];
    all.push_back(m);
  }
  return all;
}

const std::array<vec3f, 4> centrings{{{0.0f, 0.0f, 0.0f}, {0.0f, 0.5f, 0.5f}, {0.5f, 0.0f, 0.5f}, {0.5f, 0.5f, 0.0f}}};

void set_space_group() {
  space_group_type& g = qp::grp_espacial;
  g = space_group_type{};
  g.numspg = 225;
  g.spg_symb = "F m -3 m";
  g.hall = "-F 4 2 3";
  g.crystalsys = "Cubic";
  g.laue = "m-3m";
  g.pg = "m-3m";
  g.spg_lat = "F";
  g.spg_latsy = "cF";
  g.num_lat = 4;
  g.latt_trans.assign(centrings.begin(), centrings.end());
  g.bravais = "Face-centred cubic";
  g.centre = "Centrosymmetric, -1 at the origin";
  g.centred = 2;
  g.num_ops = 24;
  g.num_gen = 3;
  for (const vec3f& c : centrings)
    for (const mat3i& m : point_operations()) {
      std::string text;
      for (int i = 0; i < 3; ++i) text += (i ? "," : "") + row_text(m[i], c[i]);
      g.sym_op.push_back({m, c});
      g.sym_op_symb.push_back(text);
    }
  g.multip = static_cast<std::int32_t>(g.sym_op.size());
  g.r_asym_unit = {{{0.0f, 0.5f}, {0.0f, 0.25f}, {0.0f, 0.25f}}};
  // The first three Wyckoff positions, each orbit taken modulo the centrings.
  const struct {
    const char* origin;
    std::vector<const char*> orbit;
  } positions[] = {{"0,0,0", {"0,0,0"}},
                   {"1/2,1/2,1/2", {"1/2,1/2,1/2"}},
                   {"1/4,1/4,1/4", {"1/4,1/4,1/4", "3/4,3/4,3/4"}}};
  for (const auto& p : positions) {
    wyck_pos_type& w = g.wyckoff.pos[static_cast<std::size_t>(g.wyckoff.count++)];
    w.origin = p.origin;
    w.orbit_count = static_cast<std::int32_t>(p.orbit.size());
    std::copy(p.orbit.begin(), p.orbit.end(), w.orbit.begin());
  }
}

void set_cell() {
  qp::celda = cell_metrics_type{};
  set_crystal_cell({cell_a, cell_a, cell_a}, {90.0f, 90.0f, 90.0f}, qp::celda);
}

struct species {
  const char* label;
  const char* symbol;
  std::int32_t z;
  float electrons;  // as an ion
  float sigma;      // spread of the Gaussian in Angstrom
  vec3f site;
  float biso;
};
const species structure[] = {{"Na1", "Na", 11, 10.0f, 0.40f, {0.0f, 0.0f, 0.0f}, 1.0f},
                             {"Cl1", "Cl", 17, 18.0f, 0.42f, {0.5f, 0.5f, 0.5f}, 0.9f}};

void set_atoms() {
  allocate_atom_list(2, qp::atomos);
  for (std::size_t i = 0; i < 2; ++i) {
    atom_type& a = qp::atomos.atom[i];
    a.lab = structure[i].label;
    a.chem_symb = structure[i].symbol;
    a.sf_symb = structure[i].symbol;
    a.z = structure[i].z;
    a.mult = 4;
    a.x = structure[i].site;
    a.occ = 1.0f;
    a.biso = structure[i].biso;
  }
}

// Density at a fractional point: normalised Gaussians of every atom of the
// cell (site plus centrings) and of their images in the neighbouring cells.
double density_at(const vec3f& p) {
  double rho = 0.0;
  for (const species& s : structure) {
    const double norm = s.electrons / std::pow(2.0 * M_PI * s.sigma * s.sigma, 1.5);
    for (const vec3f& c : centrings)
      for (int i = -1; i <= 1; ++i)
        for (int j = -1; j <= 1; ++j)
          for (int k = -1; k <= 1; ++k) {
            const double dx = (static_cast<double>(p[0]) - s.site[0] - c[0] - i) * cell_a;
            const double dy = (static_cast<double>(p[1]) - s.site[1] - c[1] - j) * cell_a;
            const double dz = (static_cast<double>(p[2]) - s.site[2] - c[2] - k) * cell_a;
            rho += norm * std::exp(-(dx * dx + dy * dy + dz * dz) / (2.0 * s.sigma * s.sigma));
          }
  }
  return rho;
}

void set_map() {
  qp::ngrid = {grid, grid, grid};
  qp::xlim = qp::ylim = qp::zlim = {0.0f, 1.0f};
  qp::xinc = qp::yinc = qp::zinc = 1.0f / grid;
  qp::rho.allocate(grid, grid, grid);
  double sum = 0.0, sum2 = 0.0;
  float lo = 0.0f, hi = 0.0f;
  for (std::int32_t k = 1; k <= grid; ++k)
    for (std::int32_t j = 1; j <= grid; ++j)
      for (std::int32_t i = 1; i <= grid; ++i) {
        const vec3f p{static_cast<float>(i - 1) / static_cast<float>(grid), static_cast<float>(j - 1) / static_cast<float>(grid),
                      static_cast<float>(k - 1) / static_cast<float>(grid)};
        const auto v = static_cast<float>(density_at(p));
        qp::rho(i, j, k) = v;
        lo = (i == 1 && j == 1 && k == 1) ? v : std::min(lo, v);
        hi = (i == 1 && j == 1 && k == 1) ? v : std::max(hi, v);
        sum += v;
        sum2 += static_cast<double>(v) * v;
      }
  const double n = static_cast<double>(grid) * grid * grid;
  qp::denmin = lo;
  qp::denmax = hi;
  qp::denave = static_cast<float>(sum / n);
  qp::densigma = static_cast<float>(std::sqrt(std::max(0.0, sum2 / n - (sum / n) * (sum / n))));
}

void set_run() {
  qp::titulo = "NaCl rock salt: Na and Cl as Gaussian densities";
  qp::filinp = "nacl.inp";
  qp::filbin = "nacl.bin";
  qp::filfou = "nacl.fou";
  qp::filatm = "";
  qp::lugar = {1, 2, 3, 4, 0, 5, 0, 0, 0};
  qp::f000 = 112.0f;  // 4 x (11 + 17) electrons
  qp::f000s = 1.0f;
  qp::ntype = 1;
  qp::smin = 0.0f;
  qp::smax = 0.7f;
  qp::sigm = 0.0f;
  qp::npeaks = 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string name = argc > 1 ? argv[1] : "examples/nacl.bin";
  set_cell();
  set_space_group();
  set_atoms();
  set_run();
  set_map();
  std::ofstream out(name, std::ios::binary | std::ios::trunc);
  write_filebin_head(out);
  write_filebin_rho(out);
  out.close();
  if (!out) {
    std::fprintf(stderr, "quelmora-example: cannot write %s\n", name.c_str());
    return 1;
  }
  std::printf("%s written\n", name.c_str());
  return 0;
}
