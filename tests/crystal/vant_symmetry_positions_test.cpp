// Rotations, lattices, multiplicities and Wyckoff orbits.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "crystal/vant_crystallographic_symmetry.h"
#include "crystal/vant_math_general.h"
#include "crystal/vant_symmetry_tables.h"
#include "tests/data_files.h"

namespace {

mat3i rotation_of(const char* text) {
  mat3i rot;
  read_xsym(text, 1, rot, nullptr, false);
  return rot;
}

TEST(SymmetryOperations, ModuloLatFoldsOnlyDownToMinusTen) {
  const vec3f v = modulo_lat({-0.25f, 1.0f, 0.99999f});
  EXPECT_FLOAT_EQ(v[0], 0.75f);
  EXPECT_FLOAT_EQ(v[1], 0.0f);
  EXPECT_NEAR(v[2], 0.99999f, 1e-6);
  EXPECT_LT(modulo_lat({-10.5f, 0, 0})[0], 0.0f);
  std::vector<vec3f> t = {{1.5f, -0.5f, 2.0f}, {-0.25f, 0, 0}, {3.5f, 0, 0}};
  std::int32_t out = 0;
  mod_trans(2, t, 1, &out);
  EXPECT_EQ(t, (std::vector<vec3f>{{0.5f, 0.5f, 0}, {0.75f, 0, 0}, {3.5f, 0, 0}}));  // beyond n: untouched
  EXPECT_EQ(out, 1);
  // applyso sums without folding
  const vec3f p = applyso({rotation_of("-y,x-y,z"), {0, 0, 0.5f}}, {0.9f, 0.2f, 0.8f});
  EXPECT_FLOAT_EQ(p[0], -0.2f);
  EXPECT_FLOAT_EQ(p[1], 0.7f);
  EXPECT_FLOAT_EQ(p[2], 1.3f);
}

TEST(SymmetryOperations, SearchopFindsRowsAndNegatives) {
  // {rotation, first row, last row, found before, found after (0: none), message ending}; an empty range
  // keeps a row found before, or reports a zero one.
  const std::tuple<const char*, int, int, int, int, const char*> cases[] = {
      {"y,x,-z", 1, 24, 5, 13, nullptr},
      {"-y,-x,z", 1, 24, 5, -13, nullptr},  // minus row 13
      {"y,x,-z", 25, 36, 5, 31, nullptr},
      {"2x,y,z", 1, 24, 5, 0, " P m -3 m"},
      {"2x,y,z", 25, 36, 5, 0, " P 6/m m m"},
      {"2x,y,z", 1, 36, 5, 0, " P m -3 m or P 6/m m m"},
      {"x,y,z", 5, 4, 7, 7, nullptr},
      {"x,y,z", 5, 4, 0, 0, " P m -3 m or P 6/m m m"},
  };
  for (const auto& [text, i1, i2, before, after, ending] : cases) {
    std::int32_t found = before;
    searchop(rotation_of(text), i1, i2, found);
    EXPECT_EQ(found, after) << text << " in " << i1;
    EXPECT_EQ(err_symm, ending != nullptr) << text << " in " << i1;
    if (ending) {
      EXPECT_EQ(err_symm_mess, std::string(" Try to re-write your S.O. using a rotational part identical to a "
                                           "S.O. of the space group") + ending);
    }
  }
}

TEST(SymmetryOperations, LatsymDecodesLettersAndZLattices) {
  const std::vector<vec3f> vectors = {{0.25f, 0.25f, 0}, {0.5f, 0.5f, 0}};
  // {letters, centring vectors given, lattice vectors, letter code, letter, message}
  const std::tuple<const char*, const std::vector<vec3f>*, int, int, const char*, const char*> cases[] = {
      {"-p 2ybc", nullptr, 1, 1, "P", ""},
      {"F", nullptr, 4, 7, "F", ""},
      {"q", nullptr, 1, 1, "Q", "Wrong Lattice Symbol Q"},
      {"Z", nullptr, 1, 1, "Z", "Unconventional Lattice Symbol Z needs centring vectors"},
      {"x", &vectors, 3, 8, "Z", ""},
  };
  for (const auto& [text, given, n, code, letter, message] : cases) {
    latsym(text, given ? static_cast<std::int32_t>(given->size()) : 0, given);
    EXPECT_EQ(std::make_tuple(nlat, inlat, lat_ch, err_symm, err_symm_mess),
              std::make_tuple(n, code, letter, *message != '\0', message))
        << text;
  }
  EXPECT_FLOAT_EQ(ltr[2][0], 0.5f);  // the last vector given
  // the "Z" test reads the lattice last decoded
  EXPECT_TRUE(lattice_trans({0.25f, 0.25f, 0}, "Z"));
  EXPECT_FALSE(lattice_trans({0.25f, 0.5f, 0}, "Z"));
  latsym("F");
  EXPECT_FLOAT_EQ(ltr[3][1], 0.5f);
  EXPECT_FALSE(lattice_trans({0.25f, 0.25f, 0}, "Z"));
}

// Every tabulated group goes through get_crystal_system_r_op (its crystal
// system is checked in the set_spacegroup tests); a rotation that is none
// stops it.
TEST(SymmetryOperations, CrystalSystemRefusesAWrongRotation) {
  std::int32_t system_code = 9;
  std::string system_letter = "x";
  get_crystal_system_r_op({rotation_of("x,y,z"), rotation_of("x,x,z")}, 2, system_code, system_letter);
  EXPECT_EQ(err_symm_mess, " Axes rotation wrong");
  EXPECT_EQ(system_code, 0);
}

// A point of the position "x,1/4,z" with general values for its variables.
vec3f point_of(const std::string& origin) {
  mat3i rot;
  vec3f tr;
  read_xsym(origin, 1, rot, &tr, false);
  const vec3f free = {0.1234f, 0.2718f, 0.0577f};
  vec3f p = tr;
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) p[i] += static_cast<float>(rot[i][j]) * free[j];
  return p;
}

// The records set_spacegroup builds carry the published positions and
// multiplicities (origin choices and rhombohedral axes included), by orbit
// and by point; the general position has the full multiplicity.
TEST(WyckoffPositions, RecordsCarryThePublishedMultiplicities) {
  const std::vector<std::string> refs = data_lines("crystal/wyckoff_reference.txt");
  ASSERT_EQ(refs.size(), 13u);
  for (const std::string& line : refs) {
    const auto bar = line.find(" | "), bar2 = line.find(" | ", bar + 3);
    const std::string hm = line.substr(0, bar);
    std::istringstream mult(line.substr(bar + 3, bar2 - bar - 3)), origins(line.substr(bar2 + 3));
    space_group_type g;
    set_spacegroup(hm, g);
    ASSERT_FALSE(err_symm) << hm << ": " << err_symm_mess;
    int k = 0;
    for (int m; mult >> m; ++k) {
      const wyck_pos_type& p = g.wyckoff.pos[static_cast<std::size_t>(k)];
      std::string origin;
      origins >> origin;
      EXPECT_EQ(p.origin, origin) << hm;
      EXPECT_EQ(p.multiplicity, m) << hm << " " << origin;
      EXPECT_EQ(get_multip_pos_crys(point_of(origin), g), m) << hm << " " << origin;
      for (int a = 1; a < p.orbit_count; ++a) EXPECT_NE(p.orbit[a], p.orbit[0]) << hm << " " << origin;
    }
    EXPECT_EQ(g.wyckoff.count, k) << hm;
    EXPECT_EQ(get_multip_pos_crys({0.1234f, 0.2718f, 0.0577f}, g), g.multip) << hm;
    EXPECT_FLOAT_EQ(epss_val(), 1.0e-5f);  // restored after the search
  }
}

}  // namespace
