// The space group block of the binary map file. Only the stored part of
// space_group_type is in it: gen_hall and the site and multiplicity of each
// Wyckoff position are not.
//
// The counts in the block come from the file. Centring vectors and operators
// are allocated only when the rest of the stream can hold them, and the
// Wyckoff counts are bounded by the record (26 positions of 48 orbits): a
// count beyond either is a failed read, never a write past the record or a
// huge allocation.
#include <algorithm>

#include "crystal/binary_stream.h"
#include "crystal/vant_crystallographic_symmetry.h"

using binary_stream::byte_reader;
using binary_stream::byte_writer;

namespace {

constexpr std::size_t operator_bytes = 98;  // rot 9 x int32, tr 3 x real32, char[50]
constexpr std::size_t centring_bytes = 12;  // 3 x real32

// Fields 1 to 12, up to the number of centring vectors.
template <typename Stream, typename Group>
void head_fields(Stream& s, Group& g) {
  s.number(g.numspg);
  s.text(g.spg_symb, 20);
  s.text(g.hall, 16);
  s.text(g.crystalsys, 12);
  s.text(g.laue, 5);
  s.text(g.pg, 5);
  s.text(g.info, 5);
  s.text(g.sg_setting, 90);
  s.logical(g.hexa);
  s.text(g.spg_lat, 1);
  s.text(g.spg_latsy, 2);
  s.number(g.num_lat);
}

// Fields 14 to 20, between the centring vectors and the operators.
template <typename Stream, typename Group>
void middle_fields(Stream& s, Group& g) {
  s.text(g.bravais, 51);
  s.text(g.centre, 80);
  s.number(g.centred);
  s.numbers(g.centre_coord);
  s.number(g.num_ops);
  s.number(g.multip);
  s.number(g.num_gen);
}

template <typename Stream, typename Op, typename Text>
void operator_fields(Stream& s, Op& op, Text& symbol) {
  s.matrix(op.rot);
  s.numbers(op.tr);
  s.text(symbol, 50);
}

// Six reals, first index fastest: the three lower limits, then the upper.
template <typename Stream, typename Group>
void asym_unit_fields(Stream& s, Group& g) {
  for (int bound = 0; bound < 2; ++bound)
    for (int axis = 0; axis < 3; ++axis) s.number(g.r_asym_unit[axis][bound]);
}

void read_wyckoff(byte_reader& r, wyckoff_type& w) {
  std::int32_t nw = 0;
  r.number(nw);
  if (!r.ok) return;
  if (nw > wyckoff_type::max_positions) {
    r.ok = false;
    return;
  }
  w.count = nw;
  for (std::int32_t p = 0; p < nw && r.ok; ++p) {
    wyck_pos_type& pos = w.pos[static_cast<std::size_t>(p)];
    r.number(pos.orbit_count);
    if (pos.orbit_count > wyckoff_type::max_orbit) {
      pos.orbit_count = 0;
      r.ok = false;
      return;
    }
    r.text(pos.origin, 40);
    for (std::int32_t o = 0; o < pos.orbit_count; ++o) r.text(pos.orbit[static_cast<std::size_t>(o)], 40);
  }
}

}  // namespace

// The record is replaced before reading: old arrays released and a default
// record (texts blank, numbers 0, logicals false) copied over it.
void read_bin_spacegroup(space_group_type& grp, std::istream& in, bool& ok) {
  grp = space_group_type{};
  grp.r_asym_unit = {};
  byte_reader r{in};
  head_fields(r, grp);
  if (r.ok && !r.fits(grp.num_lat, centring_bytes)) r.ok = false;
  if (r.ok) {
    grp.latt_trans.assign(static_cast<std::size_t>(std::max(grp.num_lat, 0)), vec3f{});
    for (vec3f& t : grp.latt_trans) r.numbers(t);
  }
  middle_fields(r, grp);
  if (r.ok && !r.fits(grp.multip, operator_bytes)) r.ok = false;
  if (r.ok) {
    const auto ns = static_cast<std::size_t>(std::max(grp.multip, 0));
    grp.sym_op.assign(ns, sym_oper_type{});
    grp.sym_op_symb.assign(ns, std::string{});
    for (std::size_t i = 0; i < ns; ++i) operator_fields(r, grp.sym_op[i], grp.sym_op_symb[i]);
  }
  asym_unit_fields(r, grp);
  read_wyckoff(r, grp.wyckoff);
  ok = r.ok;
}

// Counts are written as the record holds them; an entry the record lacks
// (a count above the size of its array) is written as zeros and blanks so
// that the block stays readable.
void write_bin_spacegroup(const space_group_type& grp, std::ostream& out) {
  byte_writer w{out};
  head_fields(w, grp);
  for (std::int32_t i = 0; i < grp.num_lat; ++i)
    w.numbers(static_cast<std::size_t>(i) < grp.latt_trans.size() ? grp.latt_trans[i] : vec3f{});
  middle_fields(w, grp);
  const sym_oper_type missing_op{};
  const std::string missing_symbol;
  for (std::int32_t i = 0; i < grp.multip; ++i) {
    const auto k = static_cast<std::size_t>(i);
    operator_fields(w, k < grp.sym_op.size() ? grp.sym_op[k] : missing_op,
                    k < grp.sym_op_symb.size() ? grp.sym_op_symb[k] : missing_symbol);
  }
  asym_unit_fields(w, grp);
  const std::int32_t nw = std::min(grp.wyckoff.count, wyckoff_type::max_positions);
  w.number(nw);
  for (std::int32_t p = 0; p < nw; ++p) {
    const wyck_pos_type& pos = grp.wyckoff.pos[static_cast<std::size_t>(p)];
    const std::int32_t no = std::min(pos.orbit_count, wyckoff_type::max_orbit);
    w.number(no);
    w.text(pos.origin, 40);
    for (std::int32_t o = 0; o < no; ++o) w.text(pos.orbit[static_cast<std::size_t>(o)], 40);
  }
}
