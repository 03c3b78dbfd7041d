// Reference tables of crystallographic symmetry: the space group settings
// (spgr_info), the Wyckoff positions (wyckoff_info), the generators of the 230
// groups (spg_gen), the texts of crystal systems, Laue classes, point groups
// and lattices, the reference rotations mod6 and the centring vectors.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "crystal/vector_types.h"

// One setting of a space group.
struct spgr_info_type {
  std::int32_t n = 0;                // group number 1 to 230
  std::string hm;                    // char(12), upper case, setting behind ":"
  std::string hall;                  // char(16)
  std::int32_t laue = 0;             // index into laue_class, 1 to 16
  std::int32_t pg = 0;               // index into point_group, 1 to 41
  std::array<std::int32_t, 6> asu{}; // lower x,y,z then upper x,y,z, in 24ths
  std::string inf_extra;             // char(5), setting choice
};

// The special positions of one setting.
struct wyckoff_info_type {
  std::string hm;  // char(12), spelled as in spgr_info
  std::int32_t orbits = 0;
  std::array<std::string, 26> orbit;  // char(15) each, "x,1/4,z"
};

// The tables built on demand; an empty vector is a table not allocated.
// Row r of the tables (counted from 1) is element r - 1.
extern std::vector<spgr_info_type> spgr_info;
extern std::vector<wyckoff_info_type> wyckoff_info;

// spg_gen: row i is group number i, "symbol    : gen1; gen2; ..." (char(120)).
extern std::array<std::string, 230> spg_gen;
extern bool it_set;

extern bool err_symtab;
extern std::string err_symtab_mess;  // char(150)

// Fixed texts. centro is indexed by the centring code 0, 1, 2.
extern const std::array<std::string, 7> sys_cry;
extern const std::array<std::string, 16> laue_class;
extern const std::array<std::string, 41> point_group;
extern const std::array<std::string, 7> latt;
extern const std::array<std::string, 3> centro;

// The proper rotations of P m -3 m (rows 1 to 24) and of P 6/m m m (rows 25
// to 36); mod6[k - 1] is matrix number k.
extern const std::array<mat3i, 36> mod6;

// Centring vectors of the lattices, the null vector first.
extern const std::array<vec3f, 2> ltr_a;
extern const std::array<vec3f, 2> ltr_b;
extern const std::array<vec3f, 2> ltr_c;
extern const std::array<vec3f, 2> ltr_i;
extern const std::array<vec3f, 3> ltr_r;
extern const std::array<vec3f, 4> ltr_f;

void set_spgr_info();
void remove_spgr_info();

// The row (counted from 1) of the first setting whose symbol is hm, trailing
// blanks aside; 0 for none. An index of the constant rows, made on first
// use, answers without the table being allocated.
std::int32_t spgr_row_of_symbol(std::string_view hm);
void set_wyckoff_info();
void remove_wyckoff_info();
void set_it_gen();

// Generators of a group given by number or by the symbol of spg_gen; on
// failure err_symtab is set (gener keeps its text for an unknown symbol).
void get_generators(const std::string& spg, std::string& gener);

// A list-directed read of one integer: the first item of the text, ended by
// a blank, a comma or a slash, must be an optionally signed run of digits.
bool read_integer(const std::string& text, std::int32_t& value);

// Laue class text of a group number.
void get_laue_class(std::string& out, std::int32_t number);
