// Symmetry operators and the space group record.
#pragma once

#include <array>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "crystal/vector_types.h"

// One operator, x' = rot.x + tr.
struct sym_oper_type {
  mat3i rot{};  // rot[i][j]: coefficient of coordinate j in row i
  vec3f tr{};   // translation in cell fractions
};

// One Wyckoff position of a group.
struct wyck_pos_type {
  std::int32_t multiplicity = 0;
  std::string site;    // char(6); never filled by the readers
  std::int32_t orbit_count = 0;
  std::string origin;  // char(40)
  std::array<std::string, 48> orbit;  // char(40) each
};

struct wyckoff_type {
  static constexpr int max_positions = 26;
  static constexpr int max_orbit = 48;
  std::int32_t count = 0;
  std::array<wyck_pos_type, max_positions> pos;
};

struct space_group_type {
  std::int32_t numspg = 0;
  std::string spg_symb;    // char(20)
  std::string hall;        // char(16)
  std::string gen_hall;    // char(90); not in the map file
  std::string crystalsys;  // char(12)
  std::string laue;        // char(5)
  std::string pg;          // char(5)
  std::string info;        // char(5)
  std::string sg_setting;  // char(90)
  bool hexa = false;
  std::string spg_lat;     // char(1)
  std::string spg_latsy;   // char(2)
  std::int32_t num_lat = 0;
  std::vector<vec3f> latt_trans;  // num_lat centring vectors, the first null
  std::string bravais;     // char(51)
  std::string centre;      // char(80)
  std::int32_t centred = 0;
  vec3f centre_coord{};
  std::int32_t num_ops = 0;
  std::int32_t multip = 0;
  std::int32_t num_gen = 0;
  std::vector<sym_oper_type> sym_op;     // multip entries
  std::vector<std::string> sym_op_symb;  // multip entries, char(50) each
  wyckoff_type wyckoff;
  // Asymmetric unit: r_asym_unit[axis][0] lower, [axis][1] upper limit.
  std::array<std::array<float, 2>, 3> r_asym_unit{{{0.0f, 1.0f}, {0.0f, 1.0f}, {0.0f, 1.0f}}};
};

// The space group block of the binary map file. The reader replaces the whole
// record (old arrays released, defaults copied over it) before it reads.
void read_bin_spacegroup(space_group_type& grp, std::istream& in, bool& ok);
void write_bin_spacegroup(const space_group_type& grp, std::ostream& out);
