// The table of group elements used while multiplying generators out: integer
// rotations and translations in twelfths of the cell, so that the closure is
// exact. Shared by the Hall symbol reader and the generator builder.
#pragma once

#include <cstdint>
#include <cstring>
#include <vector>

#include "crystal/vant_crystallographic_symmetry.h"

struct element12_type {
  mat3i rot{};
  vec3i t{};  // twelfths
};

// Rotations compared as the one block of nine integers they are: tables are
// searched for a rotation at every product.
inline bool same_rotation(const mat3i& a, const mat3i& b) { return std::memcmp(&a, &b, sizeof(mat3i)) == 0; }

// The translation of an operator (rot, t) once the origin moves by s:
// t + s - rot.s, in whatever unit t and s share, taken term by term.
template <typename V>
void move_origin(const mat3i& rot, V& t, const V& s) {
  for (int i = 0; i < 3; ++i) {
    t[i] += s[i];
    for (int j = 0; j < 3; ++j) t[i] -= static_cast<typename V::value_type>(rot[i][j]) * s[j];
  }
}

// The largest table: a reduced group without inversion nor centring. A table
// that holds the inversion too (split_off_centre) has as many improper
// elements as proper ones.
inline constexpr std::size_t max_elements = 24;
// The largest expanded list of operators.
inline constexpr std::size_t max_operators = 192;

// Reduces a translation into 0..11 and then by the centring vectors of the
// lattice code (1 P ... 7 F; 8 Z has none to subtract).
void reduce_translation(vec3i& t, std::int32_t lattice_code);

// The product a.b, its translation reduced by the lattice.
element12_type multiply(const element12_type& a, const element12_type& b, std::int32_t lattice_code);

// Appends an element unless its rotation is in the table already, and then
// its powers. Returns false, with the error pair set, when the proper or the
// improper elements would outgrow max_elements or an element has
// coefficients too large for an operator of a crystallographic group.
bool add_element(std::vector<element12_type>& table, const element12_type& e, std::int32_t lattice_code);

// Closes the table under products, each new element multiplied with each
// one already there. False, with the error pair set, on overflow.
bool close_element_table(std::vector<element12_type>& table, std::int32_t lattice_code);

// A closed table that may hold improper elements: when the inversion is among
// them, the group is centric (code 2 with the inversion at the origin, 0 with
// out.co at half its translation) and only the proper elements stay, in their
// order; otherwise the table stays whole and out is acentric. False, with the
// error pair set, when what stays outgrows max_elements.
bool split_off_centre(std::vector<element12_type>& table, symmetry_build_type& out);

// Fills out.ss, out.ts with the expanded list of the reduced table: the
// table, their inversion partners (centring code 0 about out.co, 2 about the
// origin) and the list repeated for each centring vector of the lattice last
// decoded. Sets num_ops, the crystal system and latsy. False, with the error
// pair set, when the list outgrows max_operators or a rotation is wrong.
bool expand_element_table(const std::vector<element12_type>& table, symmetry_build_type& out);

// Rounds a real translation to twelfths of the cell, each from 0 to 11: a
// translation counts modulo the cell (a non-finite one as none).
vec3i to_twelfths(const vec3f& t);
