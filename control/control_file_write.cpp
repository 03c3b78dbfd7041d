// Writing the control file. Every line begins with a blank. What is written
// differs from what can be read on purpose: the matrix, the map's name and
// the j* markers are never written (Sintrel derives the map's name from the
// control file's), texts go back in the lower case they were read in, and
// values carry four decimals or fewer.
#include <cmath>
#include <ostream>
#include <string>

#include "control/control_data.h"
#include "control/control_file.h"
#include "crystal/fixed_text.h"
#include "toolkit/core/number_format.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::size_t file_name_length = 150;

// Numbers as the Fortran formats Fw.d and Iw write them, one after another.
std::string reals(std::initializer_list<float> values, int width, int decimals) {
  std::string text;
  for (float v : values) text += format_fixed(v, width, decimals);
  return text;
}

std::string integers(std::initializer_list<std::int32_t> values, int width) {
  std::string text;
  for (std::int32_t v : values) text += format_integer(v, width);
  return text;
}

void write_atoms(std::ostream& out) {
  for (std::int32_t i = 0; i < qp::atomos.natoms && i < static_cast<std::int32_t>(qp::atomos.atom.size()); ++i) {
    const atom_type& atom = qp::atomos.atom[static_cast<std::size_t>(i)];
    out << " Atom  " << fixed_text::padded(atom.lab, 4) << reals({atom.x[0], atom.x[1], atom.x[2]}, 8, 4);
    if (atom.occ > 0.0f) out << reals({atom.occ}, 8, 3);
    out << '\n';
  }
}

// The columns of the reflection file in the order lugar gives them, or the
// default order when none is set.
std::string column_line() {
  static const char* const names[9] = {"h", "k", "l", "fo", "fc", "si", "ph", "a", "b"};
  std::string line;
  for (std::int32_t p = 1; p <= 9; ++p)
    for (std::size_t slot = 0; slot < 9; ++slot)
      if (qp::lugar[slot] == p) line += std::string(names[slot]) + " ";
  return line.empty() ? "h k l fo fc phase" : std::string(fixed_text::trimmed(line));
}

void write_fourier_kind(std::ostream& out) {
  static const char* const kinds[7] = {" Fourier fobs",           " Fourier fcalc",          " Fourier difference",
                                       " Fourier patterson fosq", " Fourier patterson fcsq", " Fourier aabb",
                                       " Fourier user"};
  if (qp::ntype >= 1 && qp::ntype <= 7) out << kinds[qp::ntype - 1] << '\n';
}

}  // namespace

void write_control_file(std::ostream& out) {
  out << " !---- Title ----!\n";
  out << " Title  " << fixed_text::padded(qp::titulo, 80) << "\n \n";
  out << " !---- Cell Parameters ----!\n";
  const vec3f& c = qp::celda.cell;
  const vec3f& a = qp::celda.ang;
  out << " Cell " << reals({c[0], c[1], c[2]}, 8, 4) << reals({a[0], a[1], a[2]}, 8, 2) << "\n \n";
  out << " !---- Space Group ----!\n";
  out << " Spgr " << fixed_text::padded(qp::spgr, 20) << "\n \n";
  if (!fixed_text::is_blank(qp::filatm)) {
    out << " !---- Atoms file ----!\n";
    out << " File atom " << fixed_text::padded(qp::filatm, file_name_length) << "\n \n";
  } else if (qp::atomos.natoms > 0) {
    out << " !---- Atoms list ----!\n";
    write_atoms(out);
    out << " \n";
  }
  out << " !---- Fourier Calculations ----!\n";
  write_fourier_kind(out);
  if (qp::ngrid[0] > 0 && qp::ngrid[1] > 0 && qp::ngrid[2] > 0)
    out << " Grid " << integers({qp::ngrid[0], qp::ngrid[1], qp::ngrid[2]}, 4) << '\n';
  out << " F000 " << reals({qp::f000, qp::f000s}, 10, 4) << '\n';
  if (std::fabs(qp::smin) > 0.0001f || std::fabs(qp::smax) > 0.0001f)
    out << " Reflec Srange " << reals({qp::smin, qp::smax}, 10, 4) << '\n';
  if (std::fabs(qp::sigm) > 0.0001f) out << " Reflec Sigma " << reals({qp::sigm}, 10, 4) << '\n';
  out << " \n";
  out << " !---- Files Information ----!\n";
  out << " File fou " << fixed_text::trimmed(qp::filfou) << '\n';
  out << " File bin \n";
  out << " Form " << column_line() << "\n \n";
  if (qp::jlist != 0) {
    out << " !---- Additional List ----!\n";
    if (qp::jlist == 1 || qp::jlist == 3) out << " List atom\n";
    if (qp::jlist == 2 || qp::jlist == 3) out << " List dist " << reals({qp::dist1, qp::dist2, qp::dist3}, 7, 3) << '\n';
    out << " \n";
  }
  if (qp::npeaks != 0) out << " !---- Search Peaks ----!\n Scan " << integers({qp::npeaks}, 6) << "\n \n";
  out << " !---- End of Directives ----!\n";
  out << " End \n";
}

