// Atom records and counted atom lists. Peaks use the same records.
#pragma once

#include <array>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "crystal/vector_types.h"

struct atom_type {
  std::string lab;         // char(20)
  std::string chem_symb;   // char(2)
  std::string sf_symb;     // char(4)
  std::string wyck = ".";  // char(1); not in the map file
  bool active = true;
  std::int32_t z = 0;
  std::int32_t mult = 0;
  vec3f x{};
  vec3f x_sigma{};
  vec3f x_mult{};
  vec3i x_code{};
  float occ = 0.0f;
  float occ_sigma = 0.0f;
  float occ_mult = 0.0f;
  std::int32_t occ_code = 0;
  float biso = 0.0f;
  float biso_sigma = 0.0f;
  float biso_mult = 0.0f;
  std::int32_t biso_code = 0;
  std::string u_type = "none";   // char(4)
  std::string th_type = "isotr"; // char(5)
  std::array<float, 6> u{};
  std::array<float, 6> u_sigma{};
  float u_eq = 0.0f;
  std::array<float, 6> u_mult{};
  std::array<std::int32_t, 6> u_code{};
  float charge = 0.0f;
  float moment = 0.0f;
  std::array<std::int32_t, 5> ind{};
  std::int32_t nvar = 0;
  std::array<float, 25> var{};
  std::array<float, 25> var_mult{};
  std::array<std::int32_t, 25> var_code{};
  std::string info = "None";     // char(80)
};

// A counted list. The count and the allocated entries are kept apart on
// purpose: reading a count of 0 from a map file leaves the entries that were
// there while the count says 0.
struct atom_list_type {
  std::int32_t natoms = 0;
  std::vector<atom_type> atom;
};

// The atom list block of the binary map file: int32 count, then 639 bytes an
// atom. A count of 0 or below reads nothing more and succeeds.
void read_bin_atom_list(atom_list_type& list, std::istream& in, bool& ok);
void write_bin_atom_list(const atom_list_type& list, std::ostream& out);

// Sizes the list to n entries with the defaults of atom_type.
void allocate_atom_list(std::int32_t n, atom_list_type& list);
// Releases the atoms of the list; the count stays as it was.
void deallocate_atom_list(atom_list_type& list);

struct space_group_type;

// Expands the active atoms of a to every position the operators of spg give
// in the cell, into c. With conven the operators tried are all multip of the
// conventional cell, else the num_ops of the reduced set (doubled for a
// centrosymmetric group). A copy landing on a known position adds the source
// occupancy to it, so special positions keep one entry with a grown occ. New
// positions are labelled "<lab>_<m>".
void atlist1_extencell_atlist2(const space_group_type& spg, const atom_list_type& a, atom_list_type& c,
                               bool conven);
