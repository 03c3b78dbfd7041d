// Reflections spread over reciprocal space by the space group. An operator
// (R, t) of the group relates F(hR) = F(h) exp(-2 pi i h.t), and a real
// density has F(-h) = F(h)*, so one reflection stands for its whole orbit:
// every hR with its shifted phase and every Friedel mate, each index once.
// A Patterson has the symmetry of the Laue group: its coefficients take no
// phase shift.
#pragma once

#include <complex>
#include <cstdint>
#include <vector>

#include "crystal/farray.h"
#include "crystal/vant_crystallographic_symmetry.h"

struct coefficient_type {
  vec3i hkl{};
  std::complex<double> value;
};
// The coefficients of a run: as many as the reflections, held as map data.
using coefficient_list = std::vector<coefficient_type, map_allocator<coefficient_type>>;

// The operators a reflection is spread by: one per rotation of the group
// (the centring repeats give the same indices), and the centring vectors,
// which only decide absences.
struct expansion_type {
  std::vector<sym_oper_type> ops;
  std::vector<vec3f> centring;
  bool phase_shifts = true;
};

expansion_type expansion_of(const space_group_type& group, bool phase_shifts);

// A reflection the group forces to zero: h.L is not whole for a centring
// vector L, or an operator maps h on itself with a phase shift.
bool systematically_absent(const vec3i& hkl, const expansion_type& e);

// The orbit of c: every distinct index among hR and -hR, with its value.
void equivalents(const coefficient_type& c, const expansion_type& e, std::vector<coefficient_type>& orbit);

// Merges the reflections of the list that stand for the same orbit: each
// orbit keeps one member, carrying the mean of the values brought to it.
// Returns how many reflections were merged into one read before them.
std::int64_t merge_equivalents(coefficient_list& list, const expansion_type& e);
