// Atom lists and the atom list block of the binary map file: an int32 count,
// then 639 bytes an atom with no padding. The site letter is not in the file.
#include "crystal/vant_atom_typedef.h"

#include <algorithm>

#include "crystal/binary_stream.h"


using binary_stream::byte_reader;
using binary_stream::byte_writer;

namespace {

constexpr std::size_t atom_bytes = 639;

// One atom's fields in file order, for the reader and the writer alike.
template <typename Stream, typename Atom>
void atom_fields(Stream& s, Atom& a) {
  s.text(a.lab, 20);
  s.text(a.chem_symb, 2);
  s.text(a.sf_symb, 4);
  s.logical(a.active);
  s.number(a.z);
  s.number(a.mult);
  s.numbers(a.x);
  s.numbers(a.x_sigma);
  s.numbers(a.x_mult);
  s.numbers(a.x_code);
  s.number(a.occ);
  s.number(a.occ_sigma);
  s.number(a.occ_mult);
  s.number(a.occ_code);
  s.number(a.biso);
  s.number(a.biso_sigma);
  s.number(a.biso_mult);
  s.number(a.biso_code);
  s.text(a.u_type, 4);
  s.text(a.th_type, 5);
  s.numbers(a.u);
  s.numbers(a.u_sigma);
  s.number(a.u_eq);
  s.numbers(a.u_mult);
  s.numbers(a.u_code);
  s.number(a.charge);
  s.number(a.moment);
  s.numbers(a.ind);
  s.number(a.nvar);
  s.numbers(a.var);
  s.numbers(a.var_mult);
  s.numbers(a.var_code);
  s.text(a.info, 80);
}

}  // namespace

void allocate_atom_list(std::int32_t n, atom_list_type& list) {
  list.natoms = n;
  list.atom.assign(static_cast<std::size_t>(std::max(n, 0)), atom_type{});
}

void deallocate_atom_list(atom_list_type& list) {
  list.atom.clear();
  list.atom.shrink_to_fit();
}

// The count goes straight into the list. A count of 0 leaves the entries of
// an earlier list in place; a count below 0 allocates nothing. Both succeed.
// A positive count that the rest of the stream cannot hold is a failed read,
// as a failed allocation would be.
void read_bin_atom_list(atom_list_type& list, std::istream& in, bool& ok) {
  byte_reader r{in};
  r.number(list.natoms);
  if (r.ok && list.natoms != 0) {
    if (r.fits(list.natoms, atom_bytes)) {
      allocate_atom_list(list.natoms, list);
      for (atom_type& a : list.atom) atom_fields(r, a);
    } else {
      list.natoms = 0;
      r.ok = false;
    }
  }
  ok = r.ok;
}

void write_bin_atom_list(const atom_list_type& list, std::ostream& out) {
  byte_writer w{out};
  const std::int32_t n = std::min(list.natoms, static_cast<std::int32_t>(list.atom.size()));
  w.number(list.natoms > 0 ? n : list.natoms);
  for (std::int32_t i = 0; i < n; ++i) atom_fields(w, list.atom[static_cast<std::size_t>(i)]);
}
