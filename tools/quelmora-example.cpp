// Writes the example map examples/nacl.bin: rock salt, F m -3 m, a = 5.64 A,
// Na at 4a and Cl at 4b as Gaussian densities on a 48 x 48 x 48 grid, with
// the full space group; beside it the control file nacl.inp of the same run
// and the reflection file nacl.fou, the structure factors of the same
// Gaussian atoms computed analytically, from which sintrel makes the map
// again. Everything is computed the same way on every run, so the files are
// reproducible.
//
//   quelmora-example [output.bin]     (also output.inp and output.fou)
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <sstream>
#include <string>

#include "control/control_file.h"
#include "crystal/vant_crystallographic_symmetry.h"
#include "maps/binary_map.h"
#include "state/quelmora_parametros.h"
#include "toolkit/core/whole_file.h"

namespace qp = quelmora_parametros;

namespace {

constexpr float cell_a = 5.64f;
constexpr std::int32_t grid = 48;

// The group comes from the symmetry library, like every group the program
// builds from a symbol: operators, centring, asymmetric unit and all the
// Wyckoff positions of F m -3 m.
void set_space_group() {
  set_spacegroup("F m -3 m", qp::grp_espacial);
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
// cell (site plus the centring vectors of the group) and of their images in
// the neighbouring cells.
double density_at(const vec3f& p) {
  double rho = 0.0;
  for (const species& s : structure) {
    const double norm = s.electrons / std::pow(2.0 * M_PI * s.sigma * s.sigma, 1.5);
    for (const vec3f& c : qp::grp_espacial.latt_trans)
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
  qp::lugar = {1, 2, 3, 4, 0, 5, 6, 0, 0};  // h k l fo si ph
  qp::f000 = 112.0f;  // 4 x (11 + 17) electrons
  qp::f000s = 1.0f;
  qp::ntype = 1;
  qp::smin = 0.0f;
  qp::smax = 0.7f;
  qp::sigm = 0.0f;
  qp::npeaks = 0;
}

// The structure factors of the Gaussian atoms: a normalised Gaussian of
// spread sigma has the transform exp(-2 pi^2 sigma^2 q^2), q = 1/d. Of F m -3 m
// only h, k, l all even or all odd reflect; one of each set of equivalents
// is written (h >= k >= l >= 0), up to the control file's smax. Sigma is 1%
// of Fo; the phase is 0 or 180, as the centrosymmetric structure has it.
std::string reflections() {
  std::string text = "! Rock salt: h k l Fo sigma phase, analytic structure factors of nacl.bin's atoms\n";
  const auto top = static_cast<std::int32_t>(2.0f * qp::smax * cell_a);
  for (std::int32_t h = 0; h <= top; ++h)
    for (std::int32_t k = 0; k <= h; ++k)
      for (std::int32_t l = 0; l <= k; ++l) {
        const double q2 = static_cast<double>(h * h + k * k + l * l) / (cell_a * cell_a);
        if ((h + k) % 2 != 0 || (k + l) % 2 != 0 || q2 == 0.0 || q2 > 4.0 * qp::smax * qp::smax) continue;
        double f = 0.0;
        for (const species& s : structure) {
          const double sign = std::cos(2.0 * M_PI * (h * double{s.site[0]} + k * double{s.site[1]} + l * double{s.site[2]}));
          f += 4.0 * s.electrons * sign * std::exp(-2.0 * M_PI * M_PI * s.sigma * s.sigma * q2);
        }
        char line[80];
        std::snprintf(line, sizeof line, "%4d%4d%4d %12.5f %10.5f %6.1f\n", h, k, l, std::fabs(f), 0.01 * std::fabs(f),
                      f < 0.0 ? 180.0 : 0.0);
        text += line;
      }
  return text;
}

std::string control_file() {
  qp::spgr = "F m -3 m";
  std::ostringstream out;
  write_control_file(out);
  return out.str();
}

}  // namespace

int main(int argc, char** argv) {
  const std::string name = argc > 1 ? argv[1] : "examples/nacl.bin";
  set_cell();
  set_space_group();
  set_atoms();
  set_run();
  set_map();
  std::ostringstream out(std::ios::binary);
  write_filebin_head(out);
  write_filebin_rho(out);
  const std::string stem = name.substr(0, name.rfind('.'));
  const std::pair<std::string, std::string> files[] = {
      {name, out.str()}, {stem + ".inp", control_file()}, {stem + ".fou", reflections()}};
  for (const auto& [path, bytes] : files) {
    std::string why;
    if (!write_whole_file(path, bytes, why)) {
      std::fprintf(stderr, "quelmora-example: cannot write %s\n", why.c_str());
      return 1;
    }
    std::printf("%s written\n", path.c_str());
  }
  return 0;
}
