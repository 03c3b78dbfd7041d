// Writes the example maps. The first, examples/nacl.bin: rock salt,
// F m -3 m, a = 5.64 A, Na at 4a and Cl at 4b as Gaussian densities on a
// 48 x 48 x 48 grid, with the full space group; beside it the control file
// nacl.inp of the same run and the reflection file nacl.fou, the structure
// factors of the same Gaussian atoms computed analytically, from which
// sintrel makes the map again.
//
// The second, with --molecule, examples/hmt.bin: hexamethylenetetramine
// (hexamine, C6H12N4), I -4 3 m, a = 7.02 A, N at 8c (x x x) and C at 12e
// (x 0 0) (the cage without its hydrogens), and beside it hmt.enl, the
// connection file that draws the molecule at the body centre with its
// bonds over the isosurface.
//
// Everything is computed the same way on every run, so the files are
// reproducible.
//
//   quelmora-example [output.bin]             (also output.inp and output.fou)
//   quelmora-example --molecule [output.bin]  (also output.enl)
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <span>
#include <sstream>
#include <string>
#include <vector>

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

void set_cell(float a) {
  qp::celda = cell_metrics_type{};
  set_crystal_cell({a, a, a}, {90.0f, 90.0f, 90.0f}, qp::celda);
}

struct species {
  const char* label;
  const char* symbol;
  std::int32_t z;
  float electrons;  // as an ion
  float sigma;      // spread of the Gaussian in Angstrom
  vec3f site;
  float biso;
  std::int32_t mult;  // atoms of the site in the cell
};
const species structure[] = {{"Na1", "Na", 11, 10.0f, 0.40f, {0.0f, 0.0f, 0.0f}, 1.0f, 4},
                             {"Cl1", "Cl", 17, 18.0f, 0.42f, {0.5f, 0.5f, 0.5f}, 0.9f, 4}};

void set_atoms(std::span<const species> sites) {
  allocate_atom_list(static_cast<std::int32_t>(sites.size()), qp::atomos);
  for (std::size_t i = 0; i < sites.size(); ++i) {
    atom_type& a = qp::atomos.atom[i];
    a.lab = sites[i].label;
    a.chem_symb = sites[i].symbol;
    a.sf_symb = sites[i].symbol;
    a.z = sites[i].z;
    a.mult = sites[i].mult;
    a.x = sites[i].site;
    a.occ = 1.0f;
    a.biso = sites[i].biso;
  }
}

// Density at a fractional point: normalised Gaussians of every atom of the
// cell (site plus the centring vectors of the group) and of their images in
// the neighbouring cells.
// Adds to rho, at the fractional point p of a cubic cell of edge a, a
// normalised Gaussian of the given electrons and spread centred on site +
// shift and on its images in the 26 neighbouring cells.
void add_gaussian(double& rho, const vec3f& p, const vec3f& site, const vec3f& shift, double electrons, double sigma,
                  double a) {
  const double norm = electrons / std::pow(2.0 * M_PI * sigma * sigma, 1.5);
  for (int i = -1; i <= 1; ++i)
    for (int j = -1; j <= 1; ++j)
      for (int k = -1; k <= 1; ++k) {
        const double dx = (static_cast<double>(p[0]) - site[0] - shift[0] - i) * a;
        const double dy = (static_cast<double>(p[1]) - site[1] - shift[1] - j) * a;
        const double dz = (static_cast<double>(p[2]) - site[2] - shift[2] - k) * a;
        rho += norm * std::exp(-(dx * dx + dy * dy + dz * dz) / (2.0 * sigma * sigma));
      }
}

double density_at(const vec3f& p) {
  double rho = 0.0;
  for (const species& s : structure)
    for (const vec3f& c : qp::grp_espacial.latt_trans) add_gaussian(rho, p, s.site, c, s.electrons, s.sigma, cell_a);
  return rho;
}

// rho on the grid of the whole cell, from the density at a fractional point,
// and its statistics.
void set_map(const std::function<double(const vec3f&)>& density_at) {
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

std::string map_file() {
  std::ostringstream out(std::ios::binary);
  write_filebin_head(out);
  write_filebin_rho(out);
  return out.str();
}

using named_files = std::vector<std::pair<std::string, std::string>>;

// Hexamine: the two sites of the asymmetric unit (Becka and Cruickshank's
// room-temperature structure), every atom of the cell from the group, and a
// Gaussian of the atom's electrons at each, as for rock salt.
constexpr float hmt_a = 7.021f;
constexpr float hmt_sigma = 0.28f;
const species hmt_sites[] = {{"N1", "N", 7, 7.0f, hmt_sigma, {0.1237f, 0.1237f, 0.1237f}, 2.5f, 8},
                             {"C1", "C", 6, 6.0f, hmt_sigma, {0.2375f, 0.0f, 0.0f}, 2.8f, 12}};

double gaussians_at(const atom_list_type& cell_atoms, const vec3f& p) {
  double rho = 0.0;
  for (std::int32_t n = 0; n < cell_atoms.natoms; ++n) {
    const atom_type& atom = cell_atoms.atom[static_cast<std::size_t>(n)];
    add_gaussian(rho, p, atom.x, {}, atom.z, hmt_sigma, hmt_a);
  }
  return rho;
}

// One point of the connection file: the atom (1 N, 2 C) and the operator
// that carries it to the given place, not folded.
struct molecule_point {
  std::int32_t atom, op;
  vec3f at;
};

// The molecule at the body centre: 4 N and 6 C, each found as the image of
// its site by one operator of the group (the centring ones included).
std::vector<molecule_point> body_centre_molecule() {
  const float n = hmt_sites[0].site[0], c = hmt_sites[1].site[0];
  std::vector<vec3f> nitrogens, carbons;
  for (const vec3f s : {vec3f{1, 1, 1}, vec3f{-1, -1, 1}, vec3f{-1, 1, -1}, vec3f{1, -1, -1}})
    nitrogens.push_back({0.5f + s[0] * n, 0.5f + s[1] * n, 0.5f + s[2] * n});
  for (std::size_t axis = 0; axis < 3; ++axis)
    for (const float sign : {1.0f, -1.0f}) {
      vec3f p{0.5f, 0.5f, 0.5f};
      p[axis] += sign * c;
      carbons.push_back(p);
    }
  std::vector<molecule_point> points;
  const auto add = [&](std::int32_t atom, const vec3f& at) {
    const auto& ops = qp::grp_espacial.sym_op;
    for (std::size_t j = 0; j < ops.size(); ++j) {
      const vec3f image = applyso(ops[j], qp::atomos.atom[static_cast<std::size_t>(atom - 1)].x);
      if (std::fabs(image[0] - at[0]) + std::fabs(image[1] - at[1]) + std::fabs(image[2] - at[2]) < 1e-4f) {
        points.push_back({atom, static_cast<std::int32_t>(j + 1), at});
        return;
      }
    }
  };
  for (const vec3f& p : nitrogens) add(1, p);
  for (const vec3f& p : carbons) add(2, p);
  return points;
}

// The connection file: a comment line, then per point its atom, operator,
// count of links and the linked points: the points closer than 1.7 A.
std::string connections() {
  const std::vector<molecule_point> points = body_centre_molecule();
  std::string text = "! hexamine at the body centre: atom, operator, links, linked points\n";
  for (std::size_t i = 0; i < points.size(); ++i) {
    std::string links;
    int count = 0;
    for (std::size_t j = 0; j < points.size(); ++j) {
      double d2 = 0.0;
      for (std::size_t c = 0; c < 3; ++c) d2 += std::pow((points[i].at[c] - points[j].at[c]) * hmt_a, 2);
      if (j == i || d2 > 1.7 * 1.7) continue;
      links += " " + std::to_string(j + 1);
      ++count;
    }
    text += std::to_string(points[i].atom) + " " + std::to_string(points[i].op) + " " + std::to_string(count) + links +
            "\n";
  }
  return text;
}

named_files hexamine(const std::string& name, const std::string& stem) {
  set_cell(hmt_a);
  set_spacegroup("I -4 3 m", qp::grp_espacial);
  set_atoms(hmt_sites);
  set_run();
  qp::titulo = "Hexamine C6H12N4: N and C as Gaussian densities";
  qp::filinp = "hmt.inp";
  qp::filbin = "hmt.bin";
  qp::filfou = "hmt.fou";
  qp::f000 = 2.0f * 66.0f;  // two molecules of 6 C and 4 N
  atom_list_type cell_atoms;
  atlist1_extencell_atlist2(qp::grp_espacial, qp::atomos, cell_atoms, true);
  set_map([&](const vec3f& p) { return gaussians_at(cell_atoms, p); });
  return {{name, map_file()}, {stem + ".enl", connections()}};
}

named_files rock_salt(const std::string& name, const std::string& stem) {
  set_cell(cell_a);
  set_space_group();
  set_atoms(structure);
  set_run();
  set_map(density_at);
  return {{name, map_file()}, {stem + ".inp", control_file()}, {stem + ".fou", reflections()}};
}

}  // namespace

int main(int argc, char** argv) {
  const bool molecule = argc > 1 && std::string(argv[1]) == "--molecule";
  const int named = molecule ? 2 : 1;
  const std::string name = argc > named ? argv[named] : molecule ? "examples/hmt.bin" : "examples/nacl.bin";
  const std::string stem = name.substr(0, name.rfind('.'));
  const named_files files = molecule ? hexamine(name, stem) : rock_salt(name, stem);
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
